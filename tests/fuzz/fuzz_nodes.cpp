// Takes any bytes as rows of a part, and turns them into nodes, by themselves and placed by an instance.
// A walk that only numbers must find the same labels and sets as one that computes where they are.

#include "DeckWords.h"
#include "FuzzedDeck.h"
#include "aio_ostream.h"
#include "inp_PartElementVisitor.h"
#include "inp_PartNodeVisitor.h"

#include <sstream>

inp_KeywordEnm const fuzzedKeywords[] = {inp_kwNode,  inp_kwNode,   inp_kwNgen,
                                         inp_kwNfill, inp_kwNcopy,  inp_kwNmap,
                                         inp_kwNset,  inp_kwSystem, inp_kwUndefined};

namespace
{

constexpr char c_above[] =
  "*PART, NAME=P\n"
  "*NODE, NSET=A\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 2.\n"
  "5, 2., 0., 0.\n6, 0., 2., 0.\n7, 0., 0., 3.\n8, 1., 1., 1.\n"
  "*NSET, NSET=B\n5, 6, 7, 8\n";

struct Found
{
  Found(cow_List<inp_Keyword> const& keywords, inp_PartElementVisitor const& elements,
        bool computesGeometry)
  {
    cow_List<inp_Keyword> own = DeepCopy(keywords);
    inp_LevelMaps const known = {{}, elements.GetElements(), {}, elements.GetSets(), {}};
    inp_PartNodeVisitor visitor(known, computesGeometry);
    visitor.VisitListAndReport(own);
    isSilent = !visitor.IsError() && !visitor.IsWarning();
    inp_CoordMap const& nodes = visitor.GetCoordMap();
    for (cow_String const& part : nodes.Instances())
    {
      inp_MapInt2CoordSIT node(nodes.ConstGet(part).ConstGetStored());
      for (node.First(); !node.IsDone(); node.Next())
      {
        labels.Append(node.CurrentKey());
      }
    }
    std::ostringstream text;
    aio_ostream stream(text);
    visitor.GetSets().Print(stream);
    sets = text.str();
  }

  bool isSilent;
  cow_List<int> labels;
  std::string sets;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static FuzzedDeck const deck(c_above);
  deck.Fill(data, size);
  inp_InputFile input;
  if (!Organize(deck, input))
  {
    return 0;
  }
  inp_PartElementVisitor elements(true);
  elements.VisitList(input.keywords);
  Found const computed(input.keywords, elements, true);
  Found const numbered(input.keywords, elements, false);
  if (computed.isSilent)
  {
    Require(computed.labels == numbered.labels);
    RequireEqual(computed.sets, numbered.sets);
  }

  input.ExtractMaps(false);
  for (cow_String const& instance : input.assemblyCoordMap.Instances())
  {
    inp_CoordMap const& placed = input.assemblyCoordMap.ConstGet(instance);
    Require(placed.ConstGet().Size() == placed.Count());
  }
  input.NumberModel();
  return 0;
}
