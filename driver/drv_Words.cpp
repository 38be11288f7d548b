#include "drv_Words.h"

#include "cow_String.h"

namespace
{

std::string Joined(drv_Words const& words, char const* lastSeparator)
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

std::string drv_Joined(drv_Words const& words) { return Joined(words, ", "); }

std::string drv_Alternatives(drv_Words const& words) { return Joined(words, " or "); }

std::string drv_FirstOf(drv_Words const& words, std::size_t most)
{
  if (words.size() <= most)
  {
    return drv_Joined(words);
  }
  return drv_Joined(drv_Words(words.data(), words.data() + most)) + ", ...";
}

std::string drv_Upper(std::string_view text)
{
  return std::string(cow_String(text).ToUpper().View());
}
