#include "inpM_CreateSet.h"

#include "inpM_SortedSet.h"
#include "inpM_UnsortedSet.h"

inpM_SetHandle CreateSet(cow_List<int> const& ids, inpM_SetTypeFlag type, inpM_SetOrder order)
{
  inpM_SetHandle set;
  if (order == inpM_asGiven)
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

inpM_SetHandle CreateSet(bool internal, bool unsorted)
{
  return CreateSet(cow_List<int>(), internal, unsorted);
}

inpM_SetHandle CreateSet(cow_List<int> const& ids, bool internal, bool unsorted)
{
  return CreateSet(ids, internal ? inpM_internalSet : inpM_plainSet, unsorted);
}

inpM_SetHandle CreateSet(cow_List<int> const& ids, inpM_SetTypeFlag type, bool unsorted)
{
  return CreateSet(ids, type, unsorted ? inpM_asGiven : inpM_ascending);
}

inpM_SetHandle CreateSet(inpM_BaseSet const& set) { return inpM_SetHandle(set.Clone()); }
