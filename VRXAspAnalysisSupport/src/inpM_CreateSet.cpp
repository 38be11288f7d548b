#include "inpM_CreateSet.h"

#include "inpM_SortedSet.h"
#include "inpM_UnsortedSet.h"

namespace
{
inpM_SetTypeFlag TypeOf(bool internal) { return internal ? inpM_internalSet : inpM_plainSet; }
} // namespace

inpM_SetHandle CreateSet(bool internal, bool unsorted)
{
  return CreateSet(cow_List<int>(), TypeOf(internal), unsorted);
}

inpM_SetHandle CreateSet(cow_List<int> const& ids, bool internal, bool unsorted)
{
  return CreateSet(ids, TypeOf(internal), unsorted);
}

inpM_SetHandle CreateSet(cow_List<int> const& ids, inpM_SetTypeFlag type, bool unsorted)
{
  inpM_SetHandle set;
  if (unsorted)
  {
    set = new inpM_UnsortedSet(ids);
  }
  else
  {
    set = new inpM_SortedSet(inpM_OmiSet(ids));
  }
  set.Get()->AssignSetType(type);
  return set;
}

inpM_SetHandle CreateSet(inpM_BaseSet const& set) { return inpM_SetHandle(set.Clone()); }
