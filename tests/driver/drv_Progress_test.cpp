#include "drv_Progress.h"

#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace
{

/// Standard error leads here for a while.
class CaughtStderr
{
public:
  CaughtStderr() : m_former(::dup(STDERR_FILENO))
  {
    EXPECT_EQ(::pipe(m_pipe), 0);
    ::dup2(m_pipe[1], STDERR_FILENO);
    ::close(m_pipe[1]);
  }
  ~CaughtStderr()
  {
    Restore();
    ::close(m_pipe[0]);
  }

  /// Waits for so many bytes.
  std::string Read(std::size_t count) const
  {
    std::string text;
    for (char c; text.size() < count && ::read(m_pipe[0], &c, 1) == 1;)
    {
      text += c;
    }
    return text;
  }
  /// All that is left; nobody writes here any more.
  std::string Rest()
  {
    Restore();
    return Read(1000000);
  }

private:
  void Restore()
  {
    if (m_former >= 0)
    {
      ::dup2(m_former, STDERR_FILENO);
      ::close(m_former);
      m_former = -1;
    }
  }

  int m_pipe[2] = {-1, -1};
  int m_former;
};

TEST(drv_Progress, IsDrawnWhileThereIsTimeAndGoneWhenSomethingElseIsWritten)
{
  CaughtStderr caught;
  drv_Progress::SetStep("expand");
  std::string const line = "\r\033[Kdeck.inp: expand, 1 s";
  std::string const gone = "\r\033[K";
  {
    drv_Progress::Watch const watch(true, "deck.inp");
    EXPECT_EQ(caught.Read(line.size()), line);
    drv_Progress::Pause const pause;
    [[maybe_unused]] ssize_t const written = ::write(STDERR_FILENO, "fault\n", 6);
    std::string all;
    while (!all.ends_with("fault\n"))
    {
      all += caught.Read(1);
    }
    EXPECT_TRUE(all.ends_with(gone + "fault\n")) << all;
  }
  std::string const rest = caught.Rest();
  EXPECT_TRUE(rest.empty() || rest.ends_with(gone)) << rest;
}

TEST(drv_Progress, SaysNothingOfAShortRunOrUnasked)
{
  CaughtStderr caught;
  {
    drv_Progress::Watch const watch(true, "deck.inp");
  }
  {
    drv_Progress::Watch const watch(false, "deck.inp");
  }
  EXPECT_EQ(caught.Rest(), "");
}

} // namespace
