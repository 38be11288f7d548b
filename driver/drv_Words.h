#pragma once

#include <string>
#include <string_view>
#include <vector>

using drv_Words = std::vector<std::string>;

/// "a, b, c".
std::string drv_Joined(drv_Words const& words);

/// The first `most` of them, then ", ..." if there are more.
std::string drv_FirstOf(drv_Words const& words, std::size_t most);

/// "a", "a or b", "a, b or c".
std::string drv_Alternatives(drv_Words const& words);

/// The text with its ASCII letters in upper case.
std::string drv_Upper(std::string_view text);
