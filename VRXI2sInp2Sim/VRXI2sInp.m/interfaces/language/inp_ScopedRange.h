#pragma once

#include "cow_String.h"

#include <cstdint>

/// The numbers of a row start, end[, increment] whose ends an instance may precede: I.3, I.9, 2.
struct inp_ScopedRange
{
  cow_String prefix; ///< before each number: "I.", or nothing
  int start = 0;
  int end = 0; ///< the steps lead to it
  int step = 1;

  std::int64_t Count() const { return (std::int64_t{end} - start) / step + 1; }
  /// From 0 on.
  int Number(std::int64_t place) const { return static_cast<int>(start + place * step); }
  /// The same numbers, the lowest first.
  inp_ScopedRange Ascending() const
  {
    return step > 0 || start == end ? *this : inp_ScopedRange{prefix, end, start, -step};
  }
};
