#pragma once

#include "inpM_BaseSet.h"

/// An empty set: sorted, or in deck order; plain, or internal.
inpM_SetHandle CreateSet(bool internal, bool unsorted);

/// A set with the ids of a list.
inpM_SetHandle CreateSet(cow_List<int> const& ids, bool internal, bool unsorted);
inpM_SetHandle CreateSet(cow_List<int> const& ids, inpM_SetTypeFlag type, bool unsorted);

/// A clone: same kind, type and members. O(1), shares the ids.
inpM_SetHandle CreateSet(inpM_BaseSet const& set);
