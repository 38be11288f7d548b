#include "VRXBasUtlFilePath.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

fs::path PathOf(cow_String const& text) { return fs::path(std::string(text.View())); }

cow_String TextOf(fs::path const& path) { return cow_String(std::string_view(path.native())); }

// The type of a file, links followed. A name with a NUL byte is refused: the system would see it cut short,
// as the name of another file.
fs::file_type TypeOf(cow_String const& path)
{
  if (path.Empty() || path.Find('\0') < path.Length())
    return fs::file_type::not_found;
  std::error_code error;
  return fs::status(PathOf(path), error).type();
}

} // namespace

VRXBasUtlFilePath::VRXBasUtlFilePath(cow_String const& directory, cow_String const& name)
{
  SetFilePath(directory, name);
}

void VRXBasUtlFilePath::SetFilePath(cow_String const& directory, cow_String const& name)
{
  if (directory.Empty() || name.Empty())
    m_path = name.Empty() ? directory : name;
  else
    m_path = TextOf(PathOf(directory) / PathOf(name));
}

bool VRXBasUtlFilePath::Exists() const
{
  fs::file_type const type = TypeOf(m_path);
  return type != fs::file_type::not_found && type != fs::file_type::none;
}

bool VRXBasUtlFilePath::IsReadable() const
{
  return Exists() && ::access(m_path.CStr(), R_OK) == 0;
}

bool VRXBasUtlFilePath::IsDir() const { return TypeOf(m_path) == fs::file_type::directory; }

bool VRXBasUtlFilePath::IsRegular() const { return TypeOf(m_path) == fs::file_type::regular; }

cow_String VRXBasUtlFilePath::FileName() const { return TextOf(PathOf(m_path).filename()); }

cow_String VRXBasUtlFilePath::Extension() const { return TextOf(PathOf(m_path).extension()); }

cow_String VRXBasUtlFilePath::AbsolutePathName() const
{
  if (m_path.Empty())
    return cow_String();
  std::error_code error;
  fs::path const path = PathOf(m_path);
  fs::path const resolved = fs::canonical(path, error);
  if (!error)
    return TextOf(resolved);
  fs::path const absolute = fs::absolute(path, error);
  return TextOf((error ? path : absolute).lexically_normal());
}
