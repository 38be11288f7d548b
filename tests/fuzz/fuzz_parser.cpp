// Reads any bytes as a deck, both as an analysis and as a host that only shows decks would, and prints
// what came of them. What one file gave without a word must print to text that reads and prints the same.
// No deck may raise, assert, overrun or fail to come to an end.

#include "DeckWords.h"
#include "FuzzedDeck.h"
#include "inp_Parser.h"
#include "inp_ParserExceptions.h"

#include <algorithm>

inp_KeywordEnm const fuzzedKeywords[] = {inp_kwInclude, inp_kwHeading,   inp_kwStep,
                                         inp_kwNode,    inp_kwParameter, inp_kwUndefined};

namespace
{

/// Asks of every cell, and of those just beyond, what a pass over the model may ask.
void ReadCells(inp_DataArray const& data)
{
  for (int i = 0; i < data.Rows(); ++i)
  {
    for (int j = 0; j < data.Cols(i); ++j)
    {
      Require(data.HasValue(i, j) == !data.IsNone(i, j));
      Require((data.Type(i, j) == inp_Types::inp_NONE) == data.IsNone(i, j));
      data.AsInt(i, j);
      data.AsDouble(i, j);
    }
    Require(!data.HasValue(i, data.Cols(i)));
  }
  Require(!data.HasValue(data.Rows(), 0));
}

struct Reading
{
  Reading(cow_String const& file, cow_String const& folder, bool strict)
  {
    inp_Parser parser(file, folder, cow_List<cow_String>(), "", strict, true, !strict, 0, 0);
    keywords = parser.Parse(strict);
    isPlain = parser.GetIncludedFiles().Empty() && parser.GetMissingIncludeFiles().Empty();
    isSilent = parser.GetErrors().Empty() && parser.GetFatalErrors().Empty() &&
               parser.GetWarnings().Empty() && parser.NumberSkippedDataLines() == 0;
    Require(parser.GetErrors().Length() <= 27 && parser.GetFatalErrors().Length() <= 27);
  }

  cow_List<inp_Keyword> keywords;
  bool isPlain;
  bool isSilent;
};

void RequireSameAgain(std::string const& listing)
{
  static MemoryFile const file("listing");
  file.Write(listing);
  Reading const again(file.Name().c_str(), "", true);
  RequireEqual(Listing(again.keywords), listing);
  Require(again.isSilent);
}

void ReadAndPrint(FuzzedDeck const& deck, bool strict, int lines)
{
  Reading const reading(deck.File(), deck.Folder(), strict);
  Require(!reading.isPlain || reading.keywords.Length() <= lines);
  for (inp_Keyword const& keyword : reading.keywords)
  {
    keyword.Print(true);
    ReadCells(keyword.data);
  }
  std::string const listing = Listing(reading.keywords);
  RequireEqual(Listing(DeepCopy(reading.keywords)), listing);
  if (strict && reading.isSilent && reading.isPlain && FitsLines(listing))
  {
    RequireSameAgain(listing);
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static FuzzedDeck const deck;
  deck.Fill(data, size);
  int const lines = static_cast<int>(std::count(data, data + size, '\n')) + 1;
  Runs([&] { ReadAndPrint(deck, true, lines); });
  Runs([&] { ReadAndPrint(deck, false, lines); });
  return 0;
}
