#pragma once

#include <cstdint>

/// Labels that users give to nodes and elements are 1 to this.
constexpr int inpM_largestLabel = 999999999;
/// The digits of the largest label.
constexpr int inpM_longestLabel = 9;

constexpr bool inpM_IsLabel(std::int64_t label) { return label >= 1 && label <= inpM_largestLabel; }
