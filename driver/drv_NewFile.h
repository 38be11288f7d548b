#pragma once

#include "aio_FileRead.h"

#include <string>

/// A file of this program's, which appears whole under its name or not at all.
///
/// While it is written it has no name, so that nothing is left behind however the program ends. Where
/// the file system has no such files it stands beside the one wanted under a short name of its own,
/// which goes with the object, and when the program ends in a way that can be caught.
///
/// A link stays a link: what it leads to, be it there or not, is the file. An earlier file passes on
/// its permissions.
///
/// Raises std::system_error where the file cannot be made, and that as early as it can be known.
class drv_NewFile
{
public:
  explicit drv_NewFile(std::string const& path);
  ~drv_NewFile();
  drv_NewFile(drv_NewFile const&) = delete;
  drv_NewFile& operator=(drv_NewFile const&) = delete;

  int Descriptor() const { return m_file.Get(); }
  /// The file that the new one will take the place of; none when there is no such file.
  aio_FileId Replaced() const;
  /// Gives the file its name. Nothing can be written any more.
  void Appear();

private:
  class Open
  {
  public:
    Open() = default;
    ~Open() { Close(); }
    Open(Open const&) = delete;
    Open& operator=(Open const&) = delete;

    int Get() const { return m_descriptor; }
    void Reset(int descriptor);
    int Close();

  private:
    int m_descriptor = -1;
  };

  void FindPlace(std::string path);
  void OpenFolder(std::string const& folder);
  std::string LinkTarget() const;
  void CheckReplaced() const;
  bool OpenUnnamed();
  void OpenNamed();
  bool LinkAs(std::string const& name) const;
  void LinkBeside();
  void NoteTemporary(std::string const& name);

  Open m_folder;      ///< that the file stands in
  std::string m_name; ///< there
  Open m_file;
  std::string m_temporary; ///< its name there for the time being; empty for none
};
