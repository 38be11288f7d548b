#pragma once

#include "aio_FileRead.h"

#include <cstddef>
#include <memory>
#include <sys/stat.h>

/// Reads a text file line by line, in place, through one large buffer.
///
/// A line is handed out as a pointer into the buffer, ended by NUL and writable up to its length;
/// it stands until the next ReadLine, and 16 bytes behind it may be read. Nothing is allocated per
/// line, and a file of any size or with a line of any length takes the same memory.
///
/// Bytes are text as they stand, with these exceptions: a UTF-8 byte order mark at the head of the
/// file is passed over, and NUL bytes are read as blanks (HasNulBytes tells). Lines end at a line
/// feed; a carriage return before it is part of the line. A last line without line feed is a line.
///
/// Only regular files are read: opening a directory, pipe or device fails and never waits. A file
/// that cannot be read further ends behind its last whole line, and Failed tells; one that somebody
/// writes to or cuts off meanwhile ends where it ends, and HasChanged tells.
class aio_ifstream
{
public:
  enum openEnm
  {
    aio_opened,
    aio_missing,    ///< there is no such file
    aio_notRegular, ///< a directory, pipe, socket or device
    aio_unreadable, ///< no permission, or the first read failed
    aio_utf16       ///< begins with a UTF-16 byte order mark
  };

  aio_ifstream() = default;
  ~aio_ifstream() { Close(); }
  aio_ifstream(aio_ifstream const&) = delete;
  aio_ifstream& operator=(aio_ifstream const&) = delete;

  openEnm Open(char const* path);
  void Close();
  bool IsOpen() const { return m_descriptor >= 0; }

  /// Reads the next line and keeps at most `limit` bytes of it (1023 at most); the rest is passed over.
  /// Returns false at the end of the file.
  bool ReadLine(int limit);

  char* Line() const { return m_line; }
  int LineLength() const { return m_lineLength; }

  /// Bytes that the limit cut off the last line, the line feed not counted; counting stops at 2.
  int CutBytes() const { return m_cutBytes; }
  /// The last line was ended by a line feed and not by the end of the file.
  bool EndedByLineFeed() const { return m_endedByLineFeed; }
  bool HasNulBytes() const { return m_hasNulBytes; }
  /// The last line may hold an asterisk. The file is searched a chunk at a time, which is quicker than line
  /// by line: true may be due to a line nearby, but false is certain, unless the line was cut.
  bool MayHoldAsterisk() const { return m_mayHoldAsterisk; }
  /// A read failed half way through the file.
  bool Failed() const { return m_error != 0; }
  /// Somebody wrote to the file before its end was read.
  bool HasChanged() const { return m_changed; }
  /// Size at opening, in bytes.
  long long FileSize() const { return static_cast<long long>(m_status.st_size); }
  long long BytesRead() const { return m_bytesRead; }
  /// The caller found that the text of the file is none that it can read; `why` is a literal.
  void CallUnfit(char const* why) { m_unfit = why; }
  /// How the reading has gone so far; for a file that could not be opened, why not.
  aio_FileRead Outcome(cow_String const& path) const;

private:
  // The carry area, in front of the chunk, takes the head of a line that goes on in the next chunk. So the
  // file is always read to the same, aligned address: reading to an unaligned one takes four times as long
  // on common kernels.
  static constexpr std::size_t c_chunkSize = std::size_t(1) << 16;
  static constexpr std::size_t c_carrySize = 1024;
  static constexpr std::size_t c_alignment = 64;

  openEnm OpenDescriptor(char const* path);
  void ReadFirst();
  openEnm PassMark();
  void NoteEnd();
  bool Fill(std::size_t carried);
  bool TakeLine(char* feed, int limit);
  bool ReadAcrossChunks(int limit);
  bool ReadLongLine(int limit);

  struct FreeAligned
  {
    void operator()(char* buffer) const;
  };

  std::unique_ptr<char, FreeAligned> m_buffer; ///< carry area, chunk, room behind
  char* m_next = nullptr;                      ///< first byte not handed out
  char* m_end = nullptr;                       ///< behind the last byte read
  char* m_line = nullptr;
  int m_lineLength = 0;
  int m_cutBytes = 0;
  bool m_endedByLineFeed = false;
  bool m_hasNulBytes = false;
  bool m_mayHoldAsterisk = false;
  bool m_chunkHoldsAsterisk = false;
  int m_error = 0;
  bool m_changed = false;
  char const* m_unfit = nullptr;
  bool m_atEnd = false;
  int m_descriptor = -1;
  struct stat m_status = {}; ///< at opening
  long long m_bytesRead = 0;
};
