#include "inpM_BaseSet.h"

#include "inpM_IdMap.h"

#include <algorithm>
#include <cstdint>

inpM_BaseSet::~inpM_BaseSet() = default;

cow_Map<cow_String, inpM_OmiSet> inpM_BaseSet::ConstGetInstanceIds() const
{
  cow_Map<cow_String, inpM_OmiSet> ids;
  InstanceTree const tree = ConstGetInstanceTree();
  cow_BtreeIterator<cow_String, inpM_OmiSet> it(tree);
  for (it.First(); !it.IsDone(); it.Next())
  {
    ids.Insert(it.CurrentKey(), it.CurrentValue());
  }
  return ids;
}

std::size_t inpM_BaseSet::EstimateBytes(int start, int end, int step, bool unsorted)
{
  if (!unsorted)
  {
    return inpM_OmiSet::EstimateBytes(start, end, step);
  }
  bool const reaches = step != 0 && (start < end) == (step > 0);
  std::int64_t const count = start == end ? 1
                             : reaches    ? (std::int64_t{end} - start) / step + 1
                                          : 0;
  return static_cast<std::size_t>(count) * sizeof(int);
}

bool inpM_BaseSet::IsOnRange(int id, int first, int last, int step)
{
  return id >= first && id <= last && (std::int64_t{id} - first) % std::max(step, 1) == 0;
}

cow_IntTableInt const* inpM_BaseSet::NumbersOf(inpM_IdMap const& idMap, bool toUser)
{
  if (!idMap.HasIds())
  {
    return nullptr;
  }
  return toUser ? &idMap.ConstGetToUser() : &idMap.ConstGetToNew();
}
