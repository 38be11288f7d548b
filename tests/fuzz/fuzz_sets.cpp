// Takes any bytes as rows of a part, and turns them into sets, of parts, instances and the assembly.
// Sorted sets must ascend, and an instance must have the sets of its part.

#include "DeckWords.h"
#include "FuzzedDeck.h"
#include "inpM_SortedSet.h"

inp_KeywordEnm const fuzzedKeywords[] = {inp_kwNset,  inp_kwNset,  inp_kwElset,
                                         inp_kwElset, inp_kwElgen, inp_kwUndefined};

namespace
{

constexpr char c_above[] =
  "*PART, NAME=P\n"
  "*NODE, NSET=A\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n"
  "*NSET, NSET=N\n2, 4\n*NSET, NSET=U, UNSORTED\n3, 1, 3\n"
  "*ELEMENT, TYPE=B31, ELSET=E\n1, 1, 2\n2, 2, 3\n3, 3, 4\n"
  "*ELSET, ELSET=F, GENERATE\n1, 3, 2\n";

void RequireAscending(inpM_BaseSet const& set, cow_List<int> const& ids)
{
  for (int i = 0; i < ids.Length(); ++i)
  {
    Require(ids[i] <= 999999999);
    Require(set.IsUnsorted() || i == 0 || ids[i - 1] < ids[i]);
  }
}

void Walk(inpM_BaseSet const& set)
{
  std::size_t count = static_cast<std::size_t>(set.ConstGetIds().Length());
  RequireAscending(set, set.ConstGetIds());
  inpM_BaseSet::InstanceTree const tree = set.ConstGetInstanceTree();
  cow_BtreeIterator<cow_String, inpM_OmiSet> instance(tree);
  for (instance.First(); !instance.IsDone(); instance.Next())
  {
    cow_List<int> const ids = set.ConstGetIds(instance.CurrentKey());
    RequireAscending(set, ids);
    count += static_cast<std::size_t>(ids.Length());
  }
  Require(count == set.CountIds() && set.IsEmpty() == (count == 0));
}

void Walk(inpM_BaseSetMap const& sets)
{
  for (inpM_BaseSetMapIT set(sets); !set.IsDone(); set.Next())
  {
    Walk(set.CurrentValue());
  }
}

void Walk(inpM_SetMap const& sets)
{
  Walk(sets.ConstGetMap());
  for (cow_String const& level : sets.Instances())
  {
    Walk(sets.ConstGet(level));
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static FuzzedDeck const deck(c_above);
  deck.Fill(data, size);
  inp_InputFile input;
  if (Organize(deck, input))
  {
    input.ExtractMaps(false);
    for (inpM_SetMap const* sets :
         {&input.partNsetMap, &input.partElsetMap, &input.assemblyNsetMap, &input.assemblyElsetMap})
    {
      Walk(*sets);
    }
  }
  return 0;
}
