#pragma once

#include "inp_Keyword.h"

#include <string>

/// The names of keywords, a line each, two blanks deeper below each parent.
inline std::string KeywordTree(cow_List<inp_Keyword> const& keywords,
                               std::string const& indent = "")
{
  std::string text;
  for (inp_Keyword const& keyword : keywords)
  {
    text += indent + std::string(keyword.Name().View()) + "\n";
    text += KeywordTree(keyword.suboptions, indent + "  ");
  }
  return text;
}
