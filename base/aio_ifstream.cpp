#include "aio_ifstream.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// Reads `size` bytes, or fewer when the file ends or a read fails; `error` is set then.
std::size_t ReadFully(int descriptor, char* to, std::size_t size, int& error)
{
  std::size_t got = 0;
  while (got < size)
  {
    ssize_t const count = ::read(descriptor, to + got, size - got);
    if (count > 0)
    {
      got += static_cast<std::size_t>(count);
    }
    else if (count == 0)
    {
      break;
    }
    else if (errno != EINTR)
    {
      error = errno;
      break;
    }
  }
  return got;
}

int OpenToRead(char const* path)
{
  int descriptor;
  do
  {
    descriptor = ::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  } while (descriptor < 0 && errno == EINTR);
  return descriptor;
}

bool IsSameState(struct stat const& one, struct stat const& other)
{
  return one.st_size == other.st_size && one.st_mtim.tv_sec == other.st_mtim.tv_sec &&
         one.st_mtim.tv_nsec == other.st_mtim.tv_nsec;
}

char* FindLineFeed(char* from, char* to)
{
  return static_cast<char*>(std::memchr(from, '\n', static_cast<std::size_t>(to - from)));
}

} // namespace

void aio_ifstream::FreeAligned::operator()(char* buffer) const
{
  ::operator delete(buffer, std::align_val_t(c_alignment));
}

aio_ifstream::openEnm aio_ifstream::Open(char const* path)
{
  Close();
  m_status = {};
  m_changed = false;
  m_unfit = nullptr;
  openEnm outcome = OpenDescriptor(path);
  m_error = outcome == aio_missing || outcome == aio_unreadable ? errno : 0;
  if (outcome == aio_opened)
  {
    ReadFirst();
    outcome = Failed() ? aio_unreadable : PassMark();
  }
  if (outcome != aio_opened)
  {
    Close();
  }
  return outcome;
}

aio_ifstream::openEnm aio_ifstream::OpenDescriptor(char const* path)
{
  if (::stat(path, &m_status) != 0)
  {
    return errno == EACCES ? aio_unreadable : aio_missing;
  }
  // Asked before open(), which would wait for the writer of a pipe.
  if (!S_ISREG(m_status.st_mode))
  {
    return aio_notRegular;
  }
  m_descriptor = OpenToRead(path);
  return m_descriptor < 0 || ::fstat(m_descriptor, &m_status) != 0 ? aio_unreadable : aio_opened;
}

void aio_ifstream::ReadFirst()
{
  if (!m_buffer)
  {
    m_buffer.reset(static_cast<char*>(
      ::operator new(c_carrySize + c_chunkSize + c_alignment, std::align_val_t(c_alignment))));
  }
  m_next = m_end = m_line = m_buffer.get() + c_carrySize;
  m_atEnd = m_hasNulBytes = m_chunkHoldsAsterisk = false;
  m_bytesRead = 0;
  Fill(0);
}

/// Skips the byte order mark of UTF-8; one of UTF-16 means a file that cannot be read.
aio_ifstream::openEnm aio_ifstream::PassMark()
{
  std::size_t const available = static_cast<std::size_t>(m_end - m_next);
  if (available >= 2 &&
      (std::memcmp(m_next, "\xFF\xFE", 2) == 0 || std::memcmp(m_next, "\xFE\xFF", 2) == 0))
  {
    CallUnfit("it is encoded in UTF-16");
    return aio_utf16;
  }
  if (available >= 3 && std::memcmp(m_next, "\xEF\xBB\xBF", 3) == 0)
  {
    m_next += 3;
  }
  return aio_opened;
}

aio_FileRead aio_ifstream::Outcome(cow_String const& path) const
{
  return {path, {m_status.st_dev, m_status.st_ino}, m_error, m_changed, m_unfit};
}

void aio_ifstream::Close()
{
  if (m_descriptor >= 0)
  {
    ::close(m_descriptor);
    m_descriptor = -1;
  }
  m_atEnd = true;
  m_next = m_end;
}

void aio_ifstream::NoteEnd()
{
  m_atEnd = true;
  struct stat status = {};
  m_changed = !Failed() && ::fstat(m_descriptor, &status) == 0 && !IsSameState(m_status, status);
}

/// Reads the next chunk behind `carried` bytes that end at the chunk's head. False when the file
/// holds no more.
bool aio_ifstream::Fill(std::size_t carried)
{
  char* const chunk = m_buffer.get() + c_carrySize;
  std::size_t const got = m_atEnd ? 0 : ReadFully(m_descriptor, chunk, c_chunkSize, m_error);
  if (got < c_chunkSize && !m_atEnd)
  {
    NoteEnd();
  }
  m_bytesRead += static_cast<long long>(got);
  if (std::memchr(chunk, 0, got) != nullptr)
  {
    m_hasNulBytes = true;
    std::replace(chunk, chunk + got, '\0', ' ');
  }
  // Where nothing was read, the last line is still that of the chunk before.
  if (got > 0)
  {
    bool const holdsAsterisk = std::memchr(chunk, '*', got) != nullptr;
    m_mayHoldAsterisk = holdsAsterisk || m_chunkHoldsAsterisk;
    m_chunkHoldsAsterisk = holdsAsterisk;
  }
  m_next = chunk - carried;
  m_end = chunk + got;
  return got > 0;
}

bool aio_ifstream::ReadLine(int limit)
{
  limit = std::min(limit, static_cast<int>(c_carrySize) - 1);
  m_cutBytes = 0;
  char* const feed = FindLineFeed(m_next, m_end);
  return feed != nullptr ? TakeLine(feed, limit) : ReadAcrossChunks(limit);
}

/// The line that ends in a line feed within the chunk.
inline bool aio_ifstream::TakeLine(char* feed, int limit)
{
  m_line = m_next;
  m_next = feed + 1;
  m_endedByLineFeed = true;
  std::ptrdiff_t const length = feed - m_line;
  if (length > limit)
  {
    m_cutBytes = static_cast<int>(std::min<std::ptrdiff_t>(length - limit, 2));
    m_lineLength = limit;
  }
  else
  {
    m_lineLength = static_cast<int>(length);
  }
  m_line[m_lineLength] = '\0';
  return true;
}

/// The line whose head is what is left of this chunk: the head moves into the area below the chunk, and
/// the next chunk is read behind it, so that the line is in one piece.
///
///     before   |  carry area  |  chunk ............... 1, 0.5, |
///     after    |   1, 0.5,    |  0.25\n 2, ...                 |
bool aio_ifstream::ReadAcrossChunks(int limit)
{
  std::size_t const carried = static_cast<std::size_t>(m_end - m_next);
  if (carried > static_cast<std::size_t>(limit) || carried > c_carrySize)
  {
    return ReadLongLine(limit);
  }
  char* const chunk = m_buffer ? m_buffer.get() + c_carrySize : nullptr;
  if (carried > 0)
  {
    std::memmove(chunk - carried, m_next, carried);
  }
  bool const more = chunk != nullptr && Fill(carried);
  if (!more && carried == 0)
  {
    m_lineLength = 0;
    return false;
  }
  char* const feed = more ? FindLineFeed(chunk, m_end) : nullptr;
  return feed != nullptr ? TakeLine(feed, limit) : ReadLongLine(limit);
}

/// The head of a line that is longer than the limit, or the last line of a file without a line feed. The
/// rest of the line is passed over.
bool aio_ifstream::ReadLongLine(int limit)
{
  std::size_t const available = static_cast<std::size_t>(m_end - m_next);
  std::size_t const kept = std::min(available, static_cast<std::size_t>(limit));
  std::size_t cut = available - kept;
  // The kept head moves out of the way of the chunks that follow.
  char* const head = m_buffer.get();
  std::memmove(head, m_next, kept);
  m_endedByLineFeed = false;
  while (!m_endedByLineFeed && Fill(0))
  {
    char* const feed = FindLineFeed(m_next, m_end);
    m_endedByLineFeed = feed != nullptr;
    cut += static_cast<std::size_t>((feed != nullptr ? feed : m_end) - m_next);
    m_next = feed != nullptr ? feed + 1 : m_end;
  }
  if (!m_endedByLineFeed)
  {
    m_next = m_end;
    if (Failed()) // only a piece of the line was read
    {
      m_lineLength = 0;
      return false;
    }
  }
  m_line = head;
  m_lineLength = static_cast<int>(kept);
  m_line[kept] = '\0';
  m_cutBytes = static_cast<int>(std::min<std::size_t>(cut, 2));
  return true;
}
