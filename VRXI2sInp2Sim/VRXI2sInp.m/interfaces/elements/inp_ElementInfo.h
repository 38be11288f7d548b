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

  /// The type of that name, whatever its case; null when there is none. O(log types): visitors need no
  /// table of their own.
  static inp_ElementInfo const* elementInfo(cow_String const& type);

  /// All types, by the number of their nodes.
  static std::span<inp_ElementInfo const> AllTypes();
};
