// A library to be preloaded into a program: calls of the system fail as the environment says, which
// no file, limit or device of a test machine brings about at a given moment.
//
//     FAIL_READ=NAME:N:ERRNO   the N-th read of the file whose path ends in NAME fails, and all behind
//                              it; with EINTR that one alone
//     FAIL_READ=NAME:N:shrink  the file is emptied in front of its N-th read
//     FAIL_READ=NAME:N:grow    a line is added to it then
//     FAIL_READ=NAME:N:wait    the program stops there, until it is told to go on
//     FORBIDDEN=NAME           the file whose path ends in NAME may not be read, whoever asks
//     FAIL_MEMORY=N            the N-th request for memory fails, and all behind it
//     FAIL_LARGE=SIZE          requests for so many bytes or more fail
//     NO_UNNAMED_FILES=1       the file system has no files without a name

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

extern "C"
{
  void* __libc_malloc(std::size_t);
  void* __libc_calloc(std::size_t, std::size_t);
  void* __libc_realloc(void*, std::size_t);
  void* __libc_memalign(std::size_t, std::size_t);
}

namespace
{

// Reading the environment takes no memory, and is done at every call: requests come before any
// initialization.
std::size_t NumberOf(char const* name)
{
  char const* const text = std::getenv(name);
  return text != nullptr ? std::strtoul(text, nullptr, 10) : 0;
}

std::size_t requests = 0;

bool FailsOf(std::size_t size)
{
  std::size_t const first = NumberOf("FAIL_MEMORY");
  std::size_t const large = NumberOf("FAIL_LARGE");
  bool const fails = (first != 0 && ++requests >= first) || (large != 0 && size >= large);
  errno = fails ? ENOMEM : errno;
  return fails;
}

template <class Function>
Function* Next(char const* name)
{
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

/// The path of an open file; false when it does not end as wanted.
bool IsFile(int descriptor, char const* name, std::size_t length, char (&path)[4096])
{
  char link[] = "/proc/self/fd/0000000000";
  char* digit = link + sizeof link - 1;
  do
  {
    *--digit = static_cast<char>('0' + descriptor % 10);
    descriptor /= 10;
  } while (descriptor > 0);
  std::memmove(link + std::strlen("/proc/self/fd/"), digit, std::strlen(digit) + 1);
  ssize_t const got = ::readlink(link, path, sizeof path - 1);
  if (got < static_cast<ssize_t>(length))
    return false;
  path[got] = '\0';
  return std::memcmp(path + got - length, name, length) == 0;
}

void AddLine(char const* path)
{
  int const file = ::open(path, O_WRONLY | O_APPEND);
  [[maybe_unused]] ssize_t const written = ::write(file, "** more\n", 8);
  ::close(file);
}

void Act(char action, char const* path)
{
  switch (action)
  {
  case 's':
    static_cast<void>(!::truncate(path, 0));
    break;
  case 'g':
    AddLine(path);
    break;
  default:
    std::raise(SIGSTOP);
  }
}

/// Nonzero: the error with which this read fails.
int ErrorOfRead(int descriptor)
{
  static long reads = 0;
  char const* const rule = std::getenv("FAIL_READ");
  char const* const count = rule != nullptr ? std::strchr(rule, ':') : nullptr;
  char path[4096];
  if (count == nullptr || !IsFile(descriptor, rule, static_cast<std::size_t>(count - rule), path))
    return 0;
  char* action = nullptr;
  long const due = std::strtol(count + 1, &action, 10);
  bool const isDue = ++reads == due;
  int const error = std::atoi(++action);
  if (error != 0)
    return isDue || (reads > due && error != EINTR) ? error : 0;
  if (isDue)
    Act(*action, path);
  return 0;
}

int OpenUnlessUnnamed(int folder, char const* path, int flags, mode_t mode)
{
  if ((flags & O_TMPFILE) == O_TMPFILE && NumberOf("NO_UNNAMED_FILES") != 0)
  {
    errno = EOPNOTSUPP;
    return -1;
  }
  static auto* const next = Next<int(int, char const*, int, ...)>("openat");
  return next(folder, path, flags, mode);
}

} // namespace

extern "C"
{
  void* malloc(std::size_t size) { return FailsOf(size) ? nullptr : __libc_malloc(size); }

  void* calloc(std::size_t count, std::size_t size)
  {
    return FailsOf(count * size) ? nullptr : __libc_calloc(count, size);
  }

  void* realloc(void* block, std::size_t size)
  {
    return FailsOf(size) ? nullptr : __libc_realloc(block, size);
  }

  void* aligned_alloc(std::size_t alignment, std::size_t size)
  {
    return FailsOf(size) ? nullptr : __libc_memalign(alignment, size);
  }

  void* mmap(void* at, std::size_t size, int protection, int flags, int file, off_t offset)
  {
    static auto* const next = Next<void*(void*, std::size_t, int, int, int, off_t)>("mmap");
    std::size_t const first = NumberOf("FAIL_MEMORY");
    return first != 0 && requests >= first ? MAP_FAILED
                                           : next(at, size, protection, flags, file, offset);
  }

  ssize_t read(int descriptor, void* to, std::size_t size)
  {
    static auto* const next = Next<ssize_t(int, void*, std::size_t)>("read");
    int const error = ErrorOfRead(descriptor);
    if (error == 0)
      return next(descriptor, to, size);
    errno = error;
    return -1;
  }

  int access(char const* path, int mode)
  {
    static auto* const next = Next<int(char const*, int)>("access");
    char const* const name = std::getenv("FORBIDDEN");
    if (name == nullptr || mode != R_OK || !std::string_view(path).ends_with(name))
      return next(path, mode);
    errno = EACCES;
    return -1;
  }

  int openat(int folder, char const* path, int flags, ...)
  {
    std::va_list rest;
    va_start(rest, flags);
    mode_t const mode = va_arg(rest, mode_t);
    va_end(rest);
    return OpenUnlessUnnamed(folder, path, flags, mode);
  }
}
