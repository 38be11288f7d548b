#include "omi_Timer.h"

void omi_Timer::Start()
{
  m_isRunning = true;
  m_cpuStart = std::clock();
  m_start = Clock::now();
}

void omi_Timer::Stop()
{
  if (!m_isRunning)
    return;
  m_stop = Clock::now();
  m_cpuStop = std::clock();
  m_isRunning = false;
}

double omi_Timer::ElapsedSeconds() const
{
  Clock::time_point const end = m_isRunning ? Clock::now() : m_stop;
  return std::chrono::duration<double>(end - m_start).count();
}

double omi_Timer::CpuSeconds() const
{
  std::clock_t const end = m_isRunning ? std::clock() : m_cpuStop;
  return static_cast<double>(end - m_cpuStart) / CLOCKS_PER_SEC;
}
