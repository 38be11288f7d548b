#pragma once

#include "cow_List.h"
#include "inp_Keyword.h"

/// The first keyword that gives a set, surface, orientation, rebar, part, instance or assembly a
/// name with a period outside double quotes; null when there is none. A keyword comes before its
/// suboptions. Good as long as the list.
inp_Keyword const* inp_FindPeriodInNames(cow_List<inp_Keyword> const& list);
