#pragma once

#include "cow_String.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

/// A file in memory that is opened by its name.
class MemoryFile
{
public:
  explicit MemoryFile(char const* purpose)
    : m_descriptor(::memfd_create(purpose, MFD_CLOEXEC)),
      m_name("/proc/self/fd/" + std::to_string(m_descriptor))
  {
  }

  void Fill(std::uint8_t const* data, std::size_t size) const
  {
    bool const filled = ::ftruncate(m_descriptor, 0) == 0 &&
                        ::pwrite(m_descriptor, data, size, 0) == static_cast<ssize_t>(size);
    if (!filled)
    {
      std::abort();
    }
  }

  cow_String Name() const { return m_name.c_str(); }

private:
  int m_descriptor;
  std::string m_name;
};

inline void Require(bool holds)
{
  if (!holds)
  {
    std::abort();
  }
}
