#pragma once

#include "cow_String.h"

#include <cstdint>
#include <span>

/// A type of element that a deck may name, and how many nodes an element of it lists.
struct inp_ElementInfo
{
  char const* name; ///< upper case
  std::int32_t minNodes;
  std::int32_t maxNodes;
};

/// The type of that name, whatever its case; null when there is none.
inp_ElementInfo const* inp_FindElementInfo(cow_String const& type);

/// All types, by the number of their nodes.
std::span<inp_ElementInfo const> inp_AllElementInfo();
