#include "srv_Words.h"

#include "cow_String.h"

namespace
{

std::string Joined(srv_Words const& words, char const* lastSeparator)
{
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i)
  {
    bool const isLast = i + 1 == words.size();
    text += i == 0 ? "" : isLast ? lastSeparator : ", ";
    text += words[i];
  }
  return text;
}

} // namespace

std::string srv_Joined(srv_Words const& words) { return Joined(words, ", "); }

std::string srv_Alternatives(srv_Words const& words) { return Joined(words, " or "); }

std::string srv_FirstOf(srv_Words const& words, std::size_t most)
{
  if (words.size() <= most)
  {
    return srv_Joined(words);
  }
  return srv_Joined(srv_Words(words.data(), words.data() + most)) + ", ...";
}

std::string srv_Upper(std::string_view text)
{
  return std::string(cow_String(text).ToUpper().View());
}
