#pragma once

#include "inpM_BaseSet.h"

/// How a set keeps its ids: each once and ascending, or as the deck gives them, repeats included.
enum inpM_SetOrder
{
  inpM_ascending,
  inpM_asGiven
};

/// A set with the ids of a list, an empty one without.
inpM_SetHandle CreateSet(cow_List<int> const& ids = cow_List<int>(),
                         inpM_SetTypeFlag type = inpM_plainSet,
                         inpM_SetOrder order = inpM_ascending);

// The same for those who know type and order as truth values.
inpM_SetHandle CreateSet(bool internal, bool unsorted);
inpM_SetHandle CreateSet(cow_List<int> const& ids, bool internal, bool unsorted);
inpM_SetHandle CreateSet(cow_List<int> const& ids, inpM_SetTypeFlag type, bool unsorted);

/// A clone: same kind, type and members. O(1), shares the ids.
inpM_SetHandle CreateSet(inpM_BaseSet const& set);
