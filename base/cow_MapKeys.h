#pragma once

// What the maps ask of their keys, for integers and for texts.

#include <limits>

#include "cow_String.h"

/// A key and its value, as maps hold them.
template <class K, class V>
struct cow_MapEntry
{
  K key;
  V value;
};

/// Bit number `depth` of an integer key, beginning again every 32.
inline int cow_MapBit(int key, int depth) noexcept
{
  return static_cast<int>((static_cast<unsigned>(key) >> (depth & 31)) & 1U);
}

/// The low bit of one byte of a text, taken alternately from the front (even depths) and the back.
/// Beyond the length of the text the bit is 0.
inline int cow_MapBit(cow_String const& key, int depth) noexcept
{
  int const length = key.Length();
  if (depth > length)
    return 0;
  int const half = depth >> 1;
  // Depth 0 of the empty text reads the closing NUL.
  int const at = (depth & 1) == 0 ? half : length - half - 1;
  return key.CStr()[at] & 1;
}

/// The depth from which on every bit of the key is 0; the bits of an integer never end.
inline int cow_MapBitsEnd(int) noexcept { return std::numeric_limits<int>::max(); }
inline int cow_MapBitsEnd(cow_String const& key) noexcept { return key.Length() + 1; }

/// Below, equal to or above 0: the order of sorted iteration. Texts compare by bytes.
inline int cow_CompareKeys(int a, int b) noexcept { return a < b ? -1 : a > b ? 1 : 0; }

inline int cow_CompareKeys(cow_String const& a, cow_String const& b) noexcept
{
  int const order = a.View().compare(b.View());
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}
