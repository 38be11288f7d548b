#pragma once

#include "inp_Reference.h"

#include <functional>

class inp_ModelParameters;

/// Calls back for each name that a keyword gives in a place of the tables of references, in their order: nodes
/// and elements first, then surfaces, orientations, distributions and materials, and what the tables hold
/// beyond the manual's lists. It comes to what the visitors that rewrite come to, and in the same rows; the
/// parameters that define sets are not among them.
///
///     inp_ForEachReference(keyword, scope, model, [&](inp_Reference const& reference)
///     {
///       if (reference.what == inp_refSurface)
///       {
///         used.insert(reference.Name());
///       }
///     });
///
/// Reads alone: nothing is detached, and a text is made only by a call of Name. O(fields of the rows that
/// name something).
void inp_ForEachReference(inp_Keyword const& keyword, inp_Scope const& scope,
                          inp_ModelParameters const& model,
                          std::function<void(inp_Reference const&)> const& callback);
