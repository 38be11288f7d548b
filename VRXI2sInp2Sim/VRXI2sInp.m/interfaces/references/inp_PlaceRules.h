#pragma once

#include "inp_KeywordEnmFwd.h"
#include "inp_ReferencePlace.h"

class inp_Keyword;
class inp_ModelParameters;

/// A keyword's places in inp_FurtherReferences.def, closed by one that names nothing; null when it
/// has none there.
inp_ReferencePlace const* inp_FurtherPlaces(inp_KeywordEnm keyword);

/// The keyword's parameters are such that the place counts.
bool inp_PlaceCounts(inp_ReferencePlace const& place, inp_Keyword const& keyword);

/// Lines from one record of the place to the next; below 1 when nothing is to be touched.
int inp_RowStep(inp_ReferencePlace const& place, inp_Keyword const& keyword,
                inp_ModelParameters const& model);

/// Lines of a *DISTRIBUTION from one location to the next; below 1 when that is not known.
int inp_DistributionRowStep(inp_Keyword const& keyword, inp_ModelParameters const& model);
