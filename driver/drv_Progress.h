#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

/// A line on the terminal that tells of a deck that takes long: what is done, and for how long. It is
/// drawn by a thread of its own, and gone whenever something else is written there.
class drv_Progress
{
public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds c_patience{1000};
  static constexpr std::chrono::milliseconds c_interval{200};

  /// While there is one, the line is shown after a second. To be made where nobody else could write to
  /// the terminal; does nothing when `isWanted` is false.
  class Watch
  {
  public:
    Watch(bool isWanted, std::string const& deck);
    ~Watch();
    Watch(Watch const&) = delete;
    Watch& operator=(Watch const&) = delete;
  };

  /// While there is one, the line is away and stays away.
  class Pause
  {
  public:
    Pause();
    ~Pause() = default;
    Pause(Pause const&) = delete;
    Pause& operator=(Pause const&) = delete;

  private:
    std::unique_lock<std::mutex> m_lock;
  };

  static void SetStep(char const* step);

private:
  static drv_Progress& The();
  void Draw(std::stop_token stop);
  void Show();
  void Hide();

  std::mutex m_mutex; // of all below
  std::condition_variable_any m_wake;
  std::string m_deck;
  std::string m_step;
  Clock::time_point m_start;
  bool m_isShown = false;
  std::jthread m_thread; // last, so that it ends before what it uses
};
