#pragma once

#include "cow_List.h"
#include "inp_Keyword.h"

/// Declares the *DISTRIBUTION TABLE keywords of an expanded flat list to this thread's
/// inp_DistributionTableDB, each with the kinds of its columns: for those who look at distributions later.
/// A column of unknown kind counts as undefined, and the first table of a name stands. Reports nothing.
void srv_DeclareDistributionTables(cow_List<inp_Keyword> const& keywords);
