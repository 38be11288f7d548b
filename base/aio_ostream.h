#pragma once

#include "VRXBasUtlFilePath.h"

#include <fstream>
#include <ostream>

/// An output stream over a buffer that another owns, or over the buffer of another stream.
class aio_ostream : public std::ostream
{
public:
  explicit aio_ostream(std::streambuf* buffer) : std::ostream(buffer) {}
  explicit aio_ostream(std::ostream& other) : std::ostream(other.rdbuf()) {}
};

/// An output stream to a file, which it creates or empties, byte for byte.
class aio_ofstream : public aio_ostream
{
public:
  aio_ofstream() : aio_ostream(static_cast<std::streambuf*>(nullptr)) { rdbuf(&m_file); }

  /// False, with the stream's fail state set, when the file cannot be opened or one is open.
  bool open(VRXBasUtlFilePath const& path)
  {
    bool const opened = m_file.open(path.Path().CStr(),
                                    std::ios::out | std::ios::trunc | std::ios::binary) != nullptr;
    if (opened)
      clear();
    else
      setstate(std::ios::failbit);
    return opened;
  }
  bool is_open() const { return m_file.is_open(); }
  /// False when what was written did not all reach the file; true when none is open.
  bool close()
  {
    if (!is_open())
      return true;
    if (m_file.close() == nullptr)
      setstate(std::ios::failbit);
    return good();
  }

private:
  std::filebuf m_file;
};
