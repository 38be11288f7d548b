// Takes any bytes as rows of a part, and turns them into elements, of parts, of instances and between
// them. A walk that only numbers must find the same labels and sets as one that reads their nodes.

#include "DeckWords.h"
#include "FuzzedDeck.h"
#include "aio_ostream.h"
#include "inp_PartElementVisitor.h"

#include <sstream>

inp_KeywordEnm const fuzzedKeywords[] = {inp_kwElement,  inp_kwElement, inp_kwElgen,
                                         inp_kwElcopy,   inp_kwElset,   inp_kwUserElement,
                                         inp_kwUndefined};

namespace
{

constexpr char c_above[] =
  "*PART, NAME=P\n"
  "*NODE, NSET=A\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n"
  "5, 0., 0., 1.\n6, 1., 0., 1.\n7, 1., 1., 1.\n8, 0., 1., 1.\n"
  "*ELEMENT, TYPE=C3D8R, ELSET=E\n1, 1, 2, 3, 4, 5, 6, 7, 8\n";

struct Found
{
  Found(cow_List<inp_Keyword> const& keywords, bool readsNodes)
  {
    cow_List<inp_Keyword> own = DeepCopy(keywords);
    inp_PartElementVisitor visitor(readsNodes);
    visitor.VisitListAndReport(own);
    isSilent = !visitor.IsError() && !visitor.IsWarning();
    for (cow_String const& part : visitor.GetElements().Instances())
    {
      inp_MapInt2ElementSIT element(visitor.GetElements().ConstGet(part));
      for (element.First(); !element.IsDone(); element.Next())
      {
        labels.Append(element.CurrentKey());
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

void Walk(inp_MapInt2Element const& elements)
{
  inp_MapInt2ElementSIT element(elements);
  for (element.First(); !element.IsDone(); element.Next())
  {
    inp_Element const& record = element.CurrentValue();
    for (int i = 0; i < record.numNodesPerElement(); ++i)
    {
      Require(record.topology()[i] >= 0 && record.topology()[i] <= 999999999);
    }
  }
}

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
  Found const read(input.keywords, true);
  Found const numbered(input.keywords, false);
  if (read.isSilent)
  {
    Require(read.labels == numbered.labels);
    RequireEqual(read.sets, numbered.sets);
  }

  input.ExtractMaps(false);
  input.NumberModel();
  for (cow_String const& part : input.partElementMap.Instances())
  {
    Walk(input.partElementMap.ConstGet(part));
  }
  for (cow_String const& instance : input.assemblyElementMap.Instances())
  {
    Walk(input.assemblyElementMap.ConstGet(instance));
  }
  return 0;
}
