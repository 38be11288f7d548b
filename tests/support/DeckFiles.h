#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <string_view>

/// What a file holds; "" when there is none.
inline std::string TextOfFile(std::string const& path)
{
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A folder for the files of one test, which goes with the object.
class DeckFiles
{
public:
  DeckFiles()
  {
    std::string folder = (std::filesystem::canonical(testing::TempDir()) / "decks-XXXXXX").string();
    EXPECT_NE(mkdtemp(folder.data()), nullptr) << folder;
    m_folder = folder;
  }
  ~DeckFiles()
  {
    std::error_code error;
    std::filesystem::remove_all(m_folder, error);
  }
  DeckFiles(DeckFiles const&) = delete;
  DeckFiles& operator=(DeckFiles const&) = delete;

  std::string const& Folder() const { return m_folder; }
  std::string Path(std::string_view name) const { return m_folder + "/" + std::string(name); }

  /// Writes a file anew, with the folders that it needs.
  void Write(std::string_view name, std::string_view text) const
  {
    std::filesystem::path const path(Path(name));
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << text;
    EXPECT_TRUE(file.good()) << path;
  }

  /// The text with the folder's name taken out wherever it stands, so that it can be compared.
  std::string WithoutFolder(std::string text) const
  {
    std::string const prefix = m_folder + "/";
    for (std::size_t at = text.find(prefix); at != std::string::npos; at = text.find(prefix, at))
      text.erase(at, prefix.size());
    return text;
  }

private:
  std::string m_folder;
};
