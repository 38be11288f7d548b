#pragma once

#include <string_view>
#include <vector>

/// The candidates that were perhaps meant by a word, the likeliest first, at most `limit`; none when
/// nothing is near. Words that begin with the given one are as near as can be, the shortest first.
/// Compares bytes, so both sides must be in the same case. Looks at every candidate, of at most 64
/// bytes: meant for messages, not for the reading of a deck.
std::vector<std::string_view> inp_NearestWords(std::string_view wanted,
                                               std::vector<std::string_view> const& candidates,
                                               int limit);
