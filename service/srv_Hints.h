#pragma once

#include <string>

struct atr_Origin;

/// What a user may have meant, or may do, by the code of a message; "" when nothing helps.
std::string srv_HintFor(atr_Origin const& origin, std::string const& includePath);

/// The names of keywords that are near to one that does not exist, or that an ambiguous one may
/// stand for, as a question; "" when there are none.
std::string srv_DidYouMeanKeyword(std::string const& name);
