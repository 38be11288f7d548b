// Takes any bytes as a deck whose names are rewritten wherever keywords give them: periods of flat decks
// become "_", and in assembly decks the assembly's name goes from in front of others. A second rewriting
// must find nothing left to do.

#include "DeckWords.h"
#include "FuzzedDeck.h"
#include "inp_ReferencePlaces.h"

inp_KeywordEnm const fuzzedKeywords[] = {
  inp_kwTie,          inp_kwBoundary,      inp_kwCload,
  inp_kwDistribution, inp_kwOrientation,   inp_kwInitialConditions,
  inp_kwContactPair,  inp_kwSolidSection,  inp_kwDistributionTable,
  inp_kwSurface,      inp_kwElementOutput, inp_kwUndefined};

namespace
{

/// Rewrites the names of all keywords twice and holds the listings against each other.
template <class Rewrite>
void RequireDoneAtOnce(inp_InputFile input, Rewrite const& rewrite)
{
  input.keywords = DeepCopy(input.keywords);
  rewrite(input);
  std::string const listing = Listing(input.keywords);
  rewrite(input);
  RequireEqual(Listing(input.keywords), listing);
}

void DescribePlaces(cow_List<inp_Keyword> const& keywords)
{
  for (inp_Keyword const& keyword : keywords)
  {
    for (inp_ReferencePlace const& place : inp_ReferencePlaces(keyword.keyword))
    {
      Require(inp_PlaceWords(place).Length() > 0);
      inp_ConditionWords(place);
    }
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static FuzzedDeck const deck;
  deck.Fill(data, size);
  inp_InputFile input;
  if (Expand(deck, input))
  {
    DescribePlaces(input.keywords);
    RequireDoneAtOnce(input, [](inp_InputFile& file) { file.RemovePeriods(false); });
    RequireDoneAtOnce(input, [](inp_InputFile& file) { file.RemovePeriods(true); });
    input.ReorganizeKeywords(false);
    RequireDoneAtOnce(input, [](inp_InputFile& file) { file.ModifyScopedNames("A"); });
  }
  return 0;
}
