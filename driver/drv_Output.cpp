#include "drv_Output.h"

#include "drv_Exit.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

mode_t FileCreationMode()
{
  mode_t const mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

} // namespace

drv_Output::drv_Output(std::string const& path) : m_path(path)
{
  struct stat status = {};
  if (path.empty())
  {
    m_descriptor = STDOUT_FILENO;
  }
  else if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
  {
    m_descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (m_descriptor < 0)
    {
      Fail(errno);
    }
  }
  else
  {
    OpenBeside();
  }
}

drv_Output::~drv_Output()
{
  if (m_descriptor > STDERR_FILENO)
  {
    ::close(m_descriptor);
  }
  if (!m_temporary.empty())
  {
    ::unlink(m_temporary.c_str());
    drv_NoteUnfinishedFile("");
  }
}

/// A link stays a link: what it leads to is replaced. So do the permissions of an earlier file.
void drv_Output::OpenBeside()
{
  std::error_code ignored;
  std::filesystem::path const real = std::filesystem::canonical(m_path, ignored);
  m_target = real.empty() ? m_path : real.string();
  struct stat status = {};
  bool const exists = ::stat(m_target.c_str(), &status) == 0;
  if (exists && ::access(m_target.c_str(), W_OK) != 0)
  {
    Fail(errno);
  }
  std::string name = m_target + ".XXXXXX";
  m_descriptor = ::mkostemp(name.data(), O_CLOEXEC);
  if (m_descriptor < 0)
  {
    Fail(errno);
  }
  m_temporary = name;
  drv_NoteUnfinishedFile(m_temporary.c_str());
  if (::fchmod(m_descriptor, exists ? status.st_mode & 07777 : FileCreationMode()) != 0)
  {
    Fail(errno);
  }
}

void drv_Output::WriteOut()
{
  std::string_view left = m_buffer;
  while (!left.empty())
  {
    ssize_t const written = ::write(m_descriptor, left.data(), left.size());
    if (written >= 0)
    {
      left.remove_prefix(static_cast<std::size_t>(written));
    }
    else if (errno != EINTR)
    {
      Fail(errno);
    }
  }
  m_buffer.clear();
}

void drv_Output::Finish()
{
  WriteOut();
  if (m_descriptor == STDOUT_FILENO)
  {
    return;
  }
  int const descriptor = m_descriptor;
  m_descriptor = -1;
  if (::close(descriptor) != 0)
  {
    Fail(errno);
  }
  if (!m_temporary.empty())
  {
    if (::rename(m_temporary.c_str(), m_target.c_str()) != 0)
    {
      Fail(errno);
    }
    m_temporary.clear();
    drv_NoteUnfinishedFile("");
  }
}

void drv_Output::Fail(int error) const
{
  if (!m_temporary.empty())
  {
    ::unlink(m_temporary.c_str()); // the constructor may be at work, whose object is not destroyed
  }
  if (error == EPIPE)
  {
    throw drv_PipeClosed();
  }
  std::string const target = m_path.empty() ? "standard output" : "'" + m_path + "'";
  throw drv_Failure("cannot write to " + target + ": " + std::strerror(error));
}

std::streamsize drv_OutputStreambuf::xsputn(char const* text, std::streamsize count)
{
  m_output.Write({text, static_cast<std::size_t>(count)});
  return count;
}

drv_OutputStreambuf::int_type drv_OutputStreambuf::overflow(int_type character)
{
  if (!traits_type::eq_int_type(character, traits_type::eof()))
  {
    char const c = traits_type::to_char_type(character);
    m_output.Write({&c, 1});
  }
  return traits_type::not_eof(character);
}
