#pragma once

#include <chrono>
#include <ctime>

/// Measures time on the clock and processor time of the process, from its making or its last Start.
class omi_Timer
{
public:
  omi_Timer() { Start(); }

  /// Begins anew from 0.
  void Start();
  /// Holds both times; a second Stop has no effect.
  void Stop();

  /// Seconds up to Stop, or up to now while the timer runs; never negative.
  double ElapsedSeconds() const;
  double CpuSeconds() const;

private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point m_start;
  Clock::time_point m_stop;
  std::clock_t m_cpuStart = 0;
  std::clock_t m_cpuStop = 0;
  bool m_isRunning = false;
};
