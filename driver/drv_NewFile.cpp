#include "drv_NewFile.h"

#include "drv_Exit.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{

constexpr mode_t c_mode = 0666; // the system takes from it what the user's mask forbids
constexpr int c_mostLinks = 40; // as many as the system follows
constexpr int c_mostNames = 100;

[[noreturn]] void Raise(int error) { throw std::system_error(error, std::generic_category()); }

/// A name that hardly another has, and short: the file's own may be as long as names can be.
std::string NameForAWhile()
{
  unsigned number = 0;
  if (::getentropy(&number, sizeof number) != 0)
  {
    number = static_cast<unsigned>(::getpid());
  }
  return ".inpdeck-" + std::to_string(number);
}

std::string NameOfDescriptor(int descriptor)
{
  return "/proc/self/fd/" + std::to_string(descriptor);
}

} // namespace

void drv_NewFile::Open::Reset(int descriptor)
{
  Close();
  m_descriptor = descriptor;
}

int drv_NewFile::Open::Close()
{
  int const descriptor = m_descriptor;
  m_descriptor = -1;
  return descriptor < 0 ? 0 : ::close(descriptor);
}

drv_NewFile::drv_NewFile(std::string const& path)
{
  FindPlace(path);
  CheckReplaced();
  if (!OpenUnnamed())
  {
    OpenNamed();
  }
  struct stat earlier = {};
  bool const exists = ::fstatat(m_folder.Get(), m_name.c_str(), &earlier, 0) == 0;
  if (exists && ::fchmod(m_file.Get(), earlier.st_mode & 07777) != 0)
  {
    int const error = errno;
    NoteTemporary("");
    Raise(error);
  }
}

drv_NewFile::~drv_NewFile() { NoteTemporary(""); }

/// The folder and the name of the file at the end of all links.
void drv_NewFile::FindPlace(std::string path)
{
  m_folder.Reset(AT_FDCWD);
  for (int links = 0; links <= c_mostLinks; ++links)
  {
    std::size_t const slash = path.rfind('/');
    std::size_t const begin = slash == std::string::npos ? 0 : slash + 1;
    OpenFolder(path.substr(0, begin));
    m_name = path.substr(begin);
    if (m_name.empty())
    {
      Raise(EISDIR);
    }
    path = LinkTarget();
    if (path.empty())
    {
      return;
    }
  }
  Raise(ELOOP);
}

/// Relative names are taken from the folder before.
void drv_NewFile::OpenFolder(std::string const& folder)
{
  int const flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
  int const opened = ::openat(m_folder.Get(), folder.empty() ? "." : folder.c_str(), flags);
  if (opened < 0)
  {
    Raise(errno);
  }
  m_folder.Reset(opened);
}

/// Empty when the name is no link.
std::string drv_NewFile::LinkTarget() const
{
  char target[4096];
  ssize_t const length = ::readlinkat(m_folder.Get(), m_name.c_str(), target, sizeof target);
  if (length < 0 && errno != EINVAL && errno != ENOENT)
  {
    Raise(errno);
  }
  return length < 0 ? std::string() : std::string(target, static_cast<std::size_t>(length));
}

void drv_NewFile::CheckReplaced() const
{
  int const folder = m_folder.Get();
  bool const isFree = ::faccessat(folder, m_name.c_str(), F_OK, 0) != 0 && errno == ENOENT;
  if (!isFree && ::faccessat(folder, m_name.c_str(), W_OK, 0) != 0)
  {
    Raise(errno);
  }
}

aio_FileId drv_NewFile::Replaced() const
{
  struct stat status = {};
  bool const exists = ::fstatat(m_folder.Get(), m_name.c_str(), &status, 0) == 0;
  return exists ? aio_FileId{status.st_dev, status.st_ino} : aio_FileId();
}

/// False where the system has no files without a name, or could not give them one later.
bool drv_NewFile::OpenUnnamed()
{
  m_file.Reset(::openat(m_folder.Get(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, c_mode));
  return m_file.Get() >= 0 && ::access(NameOfDescriptor(m_file.Get()).c_str(), F_OK) == 0;
}

void drv_NewFile::OpenNamed()
{
  int const flags = O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC | O_NOFOLLOW;
  for (int attempts = 1; m_temporary.empty(); ++attempts)
  {
    std::string const name = NameForAWhile();
    m_file.Reset(::openat(m_folder.Get(), name.c_str(), flags, c_mode));
    if (m_file.Get() >= 0)
    {
      NoteTemporary(name);
    }
    else if (errno != EEXIST || attempts == c_mostNames)
    {
      Raise(errno);
    }
  }
}

/// Whoever ends the program from now on takes the file of this name away. Without a name, it goes.
void drv_NewFile::NoteTemporary(std::string const& name)
{
  if (name.empty() && !m_temporary.empty())
  {
    ::unlinkat(m_folder.Get(), m_temporary.c_str(), 0);
  }
  drv_NoteUnfinishedFile(m_folder.Get(), name.c_str());
  m_temporary = name;
}

void drv_NewFile::Appear()
{
  if (m_temporary.empty() && !LinkAs(m_name))
  {
    LinkBeside();
  }
  if (m_file.Close() != 0)
  {
    Raise(errno);
  }
  if (m_temporary.empty())
  {
    return;
  }
  if (::renameat(m_folder.Get(), m_temporary.c_str(), m_folder.Get(), m_name.c_str()) != 0)
  {
    Raise(errno);
  }
  m_temporary.clear();
  NoteTemporary("");
}

/// False when there is a file of that name.
bool drv_NewFile::LinkAs(std::string const& name) const
{
  std::string const from = NameOfDescriptor(m_file.Get());
  int const linked =
    ::linkat(AT_FDCWD, from.c_str(), m_folder.Get(), name.c_str(), AT_SYMLINK_FOLLOW);
  if (linked != 0 && errno != EEXIST)
  {
    Raise(errno);
  }
  return linked == 0;
}

/// A name that is taken cannot be given, only be changed to.
void drv_NewFile::LinkBeside()
{
  for (int attempts = 1; attempts <= c_mostNames; ++attempts)
  {
    std::string const name = NameForAWhile();
    drv_NoteUnfinishedFile(m_folder.Get(), name.c_str());
    if (LinkAs(name))
    {
      m_temporary = name;
      return;
    }
  }
  Raise(EEXIST);
}
