// Takes any bytes as a deck through the stages that read it and complete its keywords, as an
// analysis does it and with every switch the other way. What stands behind the first NUL byte is
// the file "d.inp", which the deck may name. Only bad rows of *NODE and a file in UTF-16 may raise;
// no deck may assert, overrun or fail to come to an end.

#include "MemoryFile.h"
#include "aio_ostream.h"
#include "eli_eostream.h"
#include "inp_DistributionTableDB.h"
#include "inp_InputFile.h"
#include "inp_KeywordExpansionVisitor.h"
#include "inp_ParserExceptions.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>

namespace
{

/// A folder with the file that decks may name, by a link to memory.
class DataFolder
{
public:
  DataFolder()
  {
    std::string folder = (std::filesystem::temp_directory_path() / "fuzz_expand-XXXXXX").string();
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

bool MayBeRaised(std::string_view code)
{
  constexpr std::array<std::string_view, 5> codes = {"FileIsUtf16", "NodeLabelNotInteger",
                                                     "NodeLabelTooLong", "NodeLabelNotPositive",
                                                     "NodeCoordinatesInvalid"};
  return std::find(codes.begin(), codes.end(), code) != codes.end();
}

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

void Print(inp_InputFile const& input)
{
  std::ostringstream text;
  eli_eostream stream(text);
  input.Print(stream);
  for (inp_Keyword const& keyword : input.keywords)
  {
    Require(!keyword.Is(inp_kwUndefined));
    keyword.Print(true);
  }
}

void RunStages(inp_InputFile& input)
{
  thr_ThreadSingleton<inp_DistributionTableDB>::Finalize();
  if (Runs([&] { input.ExpandKeywords(); }))
  {
    input.setModelParameters();
    Print(input);
  }
}

/// Rows that no analysis would take stay text, and manifests are followed.
void ExpandForListing(cow_List<inp_Keyword> keywords, cow_String const& folder, bool readsData)
{
  for (int i = 0; i < keywords.Length(); ++i)
  {
    keywords.Get(i) = keywords.ConstGet(i).DeepCopy();
  }
  inp_KeywordExpansionVisitor visitor;
  visitor.SetIncludePath(folder);
  visitor.SetBulkConversion(false);
  visitor.SetBulkDataProcess(readsData);
  visitor.SetExpandManifest(readsData);
  if (Runs([&] { visitor.VisitList(keywords); }))
  {
    visitor.Report();
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static MemoryFile const deck("fuzz_expand");
  static DataFolder const folder;
  std::uint8_t const* const end = data + size;
  std::uint8_t const* const cut = std::find(data, end, std::uint8_t(0));
  std::uint8_t const* const rest = cut == end ? end : cut + 1;
  deck.Fill(data, static_cast<std::size_t>(cut - data));
  folder.Data().Fill(rest, static_cast<std::size_t>(end - rest));

  inp_InputFile input;
  input.includePath = folder.Name();
  if (Runs([&] { input.Parse(deck.Name()); }))
  {
    ExpandForListing(input.keywords, folder.Name(), true);
    ExpandForListing(input.keywords, folder.Name(), false);
    RunStages(input);
  }
  return 0;
}
