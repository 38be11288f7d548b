#pragma once

#include "cow_String.h"
#include "inp_KeywordEnmFwd.h"
#include "inp_ReferencePlace.h"

#include <vector>

/// All places of a keyword that the visitors of this floor know: nodes and elements first, then
/// surfaces, orientations, distributions and materials, each in the order in which they are
/// rewritten, and those of inp_FurtherReferences.def behind. Empty for most keywords. The parameters that define sets are not among them.
std::vector<inp_ReferencePlace> inp_ReferencePlaces(inp_KeywordEnm keyword);

/// What a place names: "nodes or node sets".
char const* inp_NamedThings(inp_referenceEnm what);

/// Where it does, in words: "field 1 of every line", "NSET, unless it is a real number".
cow_String inp_PlaceWords(inp_ReferencePlace const& place);

/// When, in words: "TYPE is VOLUME", "BOLT is given, ..."; empty for always.
cow_String inp_ConditionWords(inp_ReferencePlace const& place);
