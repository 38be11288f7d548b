#pragma once

#include "cow_String.h"

#include <span>

/// The order in which a mirrored element of a type lists its nodes: node i of the copy is node order[i] - 1
/// of the original. Empty for a type that is no continuum element.
///
/// The order of a type with optional nodes has an entry for each of them; an element without them uses the
/// entries that point into its list.
std::span<int const> inp_ReflectionOrder(cow_String const& type);

/// Puts the nodes of a mirrored element into that order; false, and no change, for a type without one.
bool inp_ReflectNodes(cow_String const& type, std::span<int> nodes);
