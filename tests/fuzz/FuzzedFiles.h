#pragma once

#include "MemoryFile.h"
#include "inp_ParserExceptions.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

/// A folder with the file that decks may name, by a link to memory.
class DataFolder
{
public:
  DataFolder()
  {
    std::string folder = (std::filesystem::temp_directory_path() / "fuzz-XXXXXX").string();
    Require(::mkdtemp(folder.data()) != nullptr);
    m_folder = folder;
    std::filesystem::create_symlink(m_data.Name().CStr(), m_folder + "/d.inp");
  }
  ~DataFolder() { std::filesystem::remove_all(m_folder); }

  MemoryFile const& Data() const { return m_data; }
  cow_String Name() const { return m_folder.c_str(); }

private:
  MemoryFile m_data{"d.inp"};
  std::string m_folder;
};

inline bool MayBeRaised(std::string_view code)
{
  constexpr std::array<std::string_view, 5> codes = {"FileIsUtf16", "NodeLabelNotInteger",
                                                     "NodeLabelTooLong", "NodeLabelNotPositive",
                                                     "NodeCoordinatesInvalid"};
  return std::find(codes.begin(), codes.end(), code) != codes.end();
}

/// False when the stage raised what it may raise.
template <class Stage>
bool Runs(Stage const& stage)
{
  try
  {
    stage();
    return true;
  }
  catch (nex_AtrException const& refused)
  {
    atr_String const report = refused.UserReport();
    Require(report.Origin() != nullptr && MayBeRaised(report.Origin()->code));
    return false;
  }
}

/// The bytes up to the first NUL are the deck, and those behind it the file "d.inp", which it may name.
struct FuzzedFiles
{
  explicit FuzzedFiles(char const* name) : deck(name) {}

  void Fill(std::uint8_t const* data, std::size_t size) const
  {
    std::uint8_t const* const end = data + size;
    std::uint8_t const* const cut = std::find(data, end, std::uint8_t(0));
    std::uint8_t const* const rest = cut == end ? end : cut + 1;
    deck.Fill(data, static_cast<std::size_t>(cut - data));
    folder.Data().Fill(rest, static_cast<std::size_t>(end - rest));
  }

  MemoryFile deck;
  DataFolder folder;
};
