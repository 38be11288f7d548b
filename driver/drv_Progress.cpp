#include "drv_Progress.h"

#include "drv_CrashBarrier.h"
#include "srv_Utf8.h"

#include <system_error>
#include <unistd.h>

namespace
{

constexpr int c_deckColumns = 40;
constexpr char c_clearLine[] = "\r\033[K";

// One piece, and no second try: it is drawn anew soon.
void WriteToTerminal(std::string const& text)
{
  [[maybe_unused]] ssize_t const written = ::write(STDERR_FILENO, text.data(), text.size());
}

} // namespace

drv_Progress& drv_Progress::The()
{
  static drv_Progress progress;
  return progress;
}

drv_Progress::Watch::Watch(bool isWanted, std::string const& deck)
{
  if (!isWanted)
  {
    return;
  }
  drv_Progress& progress = The();
  progress.m_deck = srv_Printable(deck, c_deckColumns);
  progress.m_start = Clock::now();
  try
  {
    progress.m_thread =
      std::jthread([&progress](std::stop_token stop) { progress.Draw(std::move(stop)); });
  }
  catch (std::system_error const&)
  {
    // The work goes on without.
  }
}

drv_Progress::Watch::~Watch()
{
  drv_Progress& progress = The();
  if (progress.m_thread.joinable())
  {
    progress.m_thread.request_stop();
    progress.m_thread.join();
  }
}

drv_Progress::Pause::Pause() : m_lock(The().m_mutex) { The().Hide(); }

void drv_Progress::SetStep(char const* step)
{
  drv_Progress& progress = The();
  std::lock_guard const lock(progress.m_mutex);
  progress.m_step = step;
}

void drv_Progress::Draw(std::stop_token stop)
{
  std::unique_lock lock(m_mutex);
  auto const never = [] { return false; };
  m_wake.wait_for(lock, stop, c_patience, never);
  while (!stop.stop_requested())
  {
    Show();
    m_wake.wait_for(lock, stop, c_interval, never);
  }
  Hide();
}

void drv_Progress::Show()
{
  auto const seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - m_start);
  WriteToTerminal(c_clearLine + m_deck + ": " + m_step + ", " + std::to_string(seconds.count()) +
                  " s");
  m_isShown = true;
  drv_TheCrashContext().hasLineDrawn = true;
}

void drv_Progress::Hide()
{
  if (m_isShown)
  {
    WriteToTerminal(c_clearLine);
    m_isShown = false;
    drv_TheCrashContext().hasLineDrawn = false;
  }
}
