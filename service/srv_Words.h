#pragma once

#include <string>
#include <string_view>
#include <vector>

using srv_Words = std::vector<std::string>;

/// "a, b, c".
std::string srv_Joined(srv_Words const& words);

/// The first `most` of them, then ", ..." if there are more.
std::string srv_FirstOf(srv_Words const& words, std::size_t most);

/// "a", "a or b", "a, b or c".
std::string srv_Alternatives(srv_Words const& words);

/// The text with its ASCII letters in upper case.
std::string srv_Upper(std::string_view text);
