#pragma once

#include "cow_String.h"

#include <span>

/// The order that turns a mirrored element of a type outside in again: place i of the copy takes the
/// node at place order[i] - 1. Empty for a type that is no continuum element.
///
/// The order of a type with optional nodes has a place for each of them; an element without them uses
/// the entries that point into its list.
std::span<int const> inp_ReflectionOrder(cow_String const& type);

/// Puts the nodes of a mirrored element into that order; false, and no change, for a type without one.
bool inp_ReflectNodes(cow_String const& type, std::span<int> nodes);
