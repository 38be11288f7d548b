// Takes any bytes as a deck through the stages that read it and complete its keywords, as an analysis
// does it and with every switch the other way. What was completed without a word must print to a deck
// that completes to the same. Only bad rows of *NODE and a file in UTF-16 may raise; no deck may
// assert, overrun or fail to come to an end.

#include "DeckWords.h"
#include "FuzzedDeck.h"
#include "inp_KeywordExpansionVisitor.h"

inp_KeywordEnm const fuzzedKeywords[] = {inp_kwUndefined};

namespace
{

/// Rows that no analysis would take stay text, and manifests are followed.
void ExpandForListing(cow_List<inp_Keyword> keywords, cow_String const& folder, bool readsData)
{
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

/// Of an input that completed in silence, without data files.
void RequireSameAgain(inp_InputFile const& input)
{
  static MemoryFile const file("listing");
  std::string const listing = Listing(input.keywords);
  file.Write(listing);
  inp_InputFile again;
  again.Parse(file.Name().c_str());
  again.ExpandKeywords();
  RequireEqual(Listener::Instance().TakeMessages(), "");
  RequireEqual(Listing(again.keywords), listing);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static FuzzedDeck const deck;
  deck.Fill(data, size);

  inp_InputFile read;
  read.includePath = deck.Folder();
  if (Runs([&] { read.Parse(deck.File()); }))
  {
    ExpandForListing(DeepCopy(read.keywords), deck.Folder(), true);
    ExpandForListing(DeepCopy(read.keywords), deck.Folder(), false);
  }
  inp_InputFile input;
  if (Expand(deck, input))
  {
    for (inp_Keyword const& keyword : input.keywords)
    {
      Require(!keyword.Is(inp_kwUndefined));
    }
    bool const isSilent = Listener::Instance().TakeMessages().empty();
    if (isSilent && input.expansionFacts.includedFiles.Empty() && !input.hasManifest &&
        FitsLines(Listing(input.keywords)))
    {
      RequireSameAgain(input);
    }
  }
  return 0;
}
