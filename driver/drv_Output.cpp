#include "drv_Output.h"

#include "drv_Exit.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

drv_Output::drv_Output(std::string const& path) : m_path(path)
{
  try
  {
    Open();
  }
  catch (std::system_error const& fault)
  {
    Fail(fault.code().value());
  }
}

drv_Output::~drv_Output()
{
  if (!m_file.has_value() && m_descriptor > STDERR_FILENO)
  {
    ::close(m_descriptor);
  }
}

void drv_Output::Open()
{
  struct stat status = {};
  if (m_path.empty())
  {
    m_descriptor = STDOUT_FILENO;
  }
  else if (::stat(m_path.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
  {
    m_descriptor = ::open(m_path.c_str(), O_WRONLY | O_CLOEXEC);
    if (m_descriptor < 0)
    {
      Fail(errno);
    }
  }
  else
  {
    m_file.emplace(m_path);
    m_descriptor = m_file->Descriptor();
  }
}

aio_FileId drv_Output::Target() const
{
  if (m_file.has_value())
  {
    return m_file->Replaced();
  }
  struct stat status = {};
  bool const isFile = ::fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode);
  return isFile ? aio_FileId{status.st_dev, status.st_ino} : aio_FileId();
}

void drv_Output::RefuseInput(std::string const& shownPath) const
{
  Fail("it is the input file '" + shownPath + "'");
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
  if (!m_file.has_value())
  {
    bool const isOurs = m_descriptor != STDOUT_FILENO;
    if (isOurs && ::close(std::exchange(m_descriptor, -1)) != 0)
    {
      Fail(errno);
    }
    return;
  }
  try
  {
    m_file->Appear();
  }
  catch (std::system_error const& fault)
  {
    Fail(fault.code().value());
  }
}

void drv_Output::Fail(int error) const
{
  if (error == EPIPE)
  {
    throw drv_PipeClosed();
  }
  Fail(std::strerror(error));
}

void drv_Output::Fail(std::string const& words) const
{
  std::string const target = m_path.empty() ? "standard output" : "'" + m_path + "'";
  throw drv_Failure("cannot write to " + target + ": " + words);
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
