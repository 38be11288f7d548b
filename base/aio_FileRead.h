#pragma once

#include "cow_String.h"

/// A file as the system knows it, whatever names lead to it.
struct aio_FileId
{
  unsigned long long device = 0;
  unsigned long long inode = 0; ///< 0: no file

  bool operator==(aio_FileId const&) const = default;
};

/// A file that was read, and how that went.
struct aio_FileRead
{
  cow_String path;
  aio_FileId id;
  int error = 0;               ///< of the system, when the file could not be read to its end
  bool changed = false;        ///< somebody wrote to the file meanwhile
  char const* unfit = nullptr; ///< what makes its text none that can be read, in words

  /// What was read is all of the file, as it stood.
  bool IsWhole() const { return error == 0 && !changed && unfit == nullptr; }
};
