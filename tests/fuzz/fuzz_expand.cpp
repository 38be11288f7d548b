// Takes any bytes as a deck through the stages that read it and complete its keywords, as an
// analysis does it and with every switch the other way. What stands behind the first NUL byte is
// the file "d.inp", which the deck may name. Only bad rows of *NODE and a file in UTF-16 may raise;
// no deck may assert, overrun or fail to come to an end.

#include "FuzzedFiles.h"
#include "aio_ostream.h"
#include "eli_eostream.h"
#include "inp_DistributionTableDB.h"
#include "inp_InputFile.h"
#include "inp_KeywordEnm.h"
#include "inp_KeywordExpansionVisitor.h"

#include <cstdint>
#include <sstream>

namespace
{

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
  static FuzzedFiles const files("fuzz_expand");
  files.Fill(data, size);

  inp_InputFile input;
  input.includePath = files.folder.Name();
  if (Runs([&] { input.Parse(files.deck.Name()); }))
  {
    ExpandForListing(input.keywords, files.folder.Name(), true);
    ExpandForListing(input.keywords, files.folder.Name(), false);
    RunStages(input);
  }
  return 0;
}
