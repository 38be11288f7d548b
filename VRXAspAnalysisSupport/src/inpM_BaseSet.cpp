#include "inpM_BaseSet.h"

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
  std::int64_t const count = start == end ? 1 : reaches ? (std::int64_t{end} - start) / step + 1 : 0;
  return static_cast<std::size_t>(count) * sizeof(int);
}
