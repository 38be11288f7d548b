// Writes the words of the deck language as a dictionary for the programs that fuzz, a line a word: what
// the tables hold, so that it is never behind them, and the marks between words.

#include "inp_ElementInfo.h"
#include "inp_ExpansionRules.h"
#include "inp_KeywordTable.h"

#include <cctype>
#include <cstdio>
#include <set>
#include <string>

namespace
{

// In the spelling of a dictionary, where a byte may be "\xNN".
constexpr char const* c_marks[] = {"**",
                                   "** encrypted input",
                                   "*END PART\\x0a",
                                   "*END ASSEMBLY\\x0a",
                                   "<a>",
                                   ", ",
                                   "=",
                                   "\\\"",
                                   "\\\"a.b\\\"",
                                   "a.b",
                                   "I.1",
                                   "1e5",
                                   "1.5D3",
                                   "-",
                                   "999999999",
                                   "2147483648",
                                   "\\x0d\\x0a",
                                   "\\x0a",
                                   "\\x09",
                                   "\\x0b",
                                   "\\x00",
                                   "\\xef\\xbb\\xbf",
                                   "\\xff\\xfe",
                                   "INPUT=d.inp",
                                   "STARTLINE=",
                                   "PASSWORD="};

using Words = std::set<std::string>;

std::string Upper(char const* word)
{
  std::string upper(word);
  for (char& c : upper)
  {
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
  return upper;
}

void AddRule(Words& words, inp_ExpansionRule const& rule)
{
  for (char const* const* name = rule.parameters; *name != nullptr; ++name)
  {
    words.insert(", " + Upper(*name) + "=");
  }
  for (char const* const* values = rule.values; *values != nullptr; values = inp_NextValues(values))
  {
    for (char const* const* word = values + 1; *word != nullptr; ++word)
    {
      words.insert(*word);
    }
  }
}

Words AllWords()
{
  Words words;
  for (inp_KeywordRow const* row = inp_KeywordTable::Rows(); row->name != nullptr; ++row)
  {
    words.insert("*" + Upper(row->name));
  }
  for (inp_ExpansionRule const* rule = inp_ExpansionRules(); rule->handler != nullptr; ++rule)
  {
    AddRule(words, *rule);
  }
  for (inp_ElementInfo const& type : inp_ElementInfo::AllTypes())
  {
    words.insert(type.name);
  }
  return words;
}

} // namespace

int main()
{
  for (char const* mark : c_marks)
  {
    std::printf("\"%s\"\n", mark);
  }
  for (std::string const& word : AllWords())
  {
    std::printf("\"%s\"\n", word.c_str());
  }
}
