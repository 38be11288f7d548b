#pragma once

#include "cow_String.h"

/// A file's path, put together from a directory and a name, with the questions that are asked of it.
///
/// A relative name is taken below the directory, an absolute one alone; an empty directory means the
/// working directory. Each question asks the file system anew. None raises: what cannot be found
/// out is answered by false.
class VRXBasUtlFilePath
{
public:
  VRXBasUtlFilePath() = default;
  VRXBasUtlFilePath(cow_String const& directory, cow_String const& name);

  void SetFilePath(cow_String const& directory, cow_String const& name);

  bool Empty() const noexcept { return m_path.Empty(); }
  /// The path as put together.
  cow_String const& Path() const noexcept { return m_path; }

  bool Exists() const;
  bool IsReadable() const;
  bool IsDir() const;
  /// A regular file, or a link to one; no directory, pipe, socket or device.
  bool IsRegular() const;

  /// The last component.
  cow_String FileName() const;
  /// With its period; "" when the file name has none.
  cow_String Extension() const;
  /// The same text for every way to name one existing file: absolute, without "." and "..", links
  /// followed. For a file that does not exist links are kept.
  cow_String AbsolutePathName() const;

private:
  cow_String m_path;
};
