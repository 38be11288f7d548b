#include "DeckWords.h"

#include "inp_ElementInfo.h"
#include "inp_ExpansionRules.h"
#include "inp_KeywordTable.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

namespace
{

inp_KeywordTable const& Table() { return thr_ThreadSingleton<inp_KeywordTable>::Instance(); }

std::string Upper(std::string text)
{
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return text;
}

std::string WithoutBlanks(std::string text)
{
  std::erase_if(text, [](unsigned char c) { return std::isspace(c) != 0; });
  return text;
}

std::vector<inp_KeywordEnm> AllKeywords()
{
  std::vector<inp_KeywordEnm> all;
  for (inp_KeywordRow const* row = inp_KeywordTable::Rows(); row->name != nullptr; ++row)
  {
    if (row->value != inp_kwUndefined)
    {
      all.push_back(static_cast<inp_KeywordEnm>(row->value));
    }
  }
  return all;
}

/// The words that a rule knows: those of one parameter, or all of them for "".
std::vector<std::string> WordsOf(inp_KeywordEnm keyword, std::string const& parameter)
{
  std::vector<std::string> words;
  inp_ExpansionRule const* const rule = inp_ExpansionRuleOf(keyword);
  char const* const* values = rule != nullptr ? rule->values : nullptr;
  for (; values != nullptr && *values != nullptr; values = inp_NextValues(values))
  {
    if (parameter.empty() || parameter == *values)
    {
      for (char const* const* word = values + 1; *word != nullptr; ++word)
      {
        words.emplace_back(*word);
      }
    }
  }
  return words;
}

bool NamesFile(std::string const& parameter)
{
  return parameter == "input" || parameter == "file" || parameter == "library";
}

constexpr std::array c_numbers = {
  "0",   "1",     "2",     "3",         "4",           "5",          "8",     "10",
  "100", "-1",    "-2",    "999999999", "1000000000",  "2147483647", "1.",    "0.5",
  "-1.", "0.",    "2.",    "90.",       "180.",        "1e-9",       "1e300", "-1e300",
  "1e5", "1.5D3", "1e999", ".",         "-2147483648", "999999998"};

constexpr std::array c_odd = {"",      " ",        "S1",       "S2",      "SPOS", "S1.A",
                              "A.B.C", "A.1",      "\"a b\"",  "\"A.B\"", "\"",   "<a>",
                              "-",     "d.inp",    "GENERATE", "I.A",     "I.1",  "P",
                              "I",     "PART-1-1", "_A",       "1A",      "1, 2"};

} // namespace

inp_KeywordEnm KeywordOf(std::string const& head)
{
  std::string const name = WithoutBlanks(head.substr(0, std::min(head.find(','), head.size())));
  if (name.size() < 2)
  {
    return inp_kwUndefined;
  }
  return Table().Enum(cow_String(name.c_str() + 1).ToLower());
}

DeckWords::DeckWords(Random& random, DeckText const& deck)
  : m_random(random), m_names{"A", "P", "I"}
{
  for (DeckBlock const& block : deck.blocks)
  {
    for (std::string const& piece : SplitAtCommas(block.head))
    {
      std::size_t const equals = piece.find('=');
      if (equals != std::string::npos)
      {
        m_names.push_back(piece.substr(equals + 1));
      }
    }
  }
}

inp_KeywordEnm DeckWords::Keyword(inp_KeywordEnm above)
{
  static std::vector<inp_KeywordEnm> const all = AllKeywords();
  static std::size_t const favourites = static_cast<std::size_t>(
    std::find(fuzzedKeywords, fuzzedKeywords + 100, inp_kwUndefined) - fuzzedKeywords);
  std::size_t const choice = Below(m_random, 8);
  if (choice < 4 && favourites > 0)
  {
    return fuzzedKeywords[Below(m_random, favourites)];
  }
  if (choice < 7 && above != inp_kwUndefined && !Table().Suboptions(above).Empty())
  {
    cow_List<int> const& below = Table().Suboptions(above);
    return static_cast<inp_KeywordEnm>(
      below[static_cast<int>(Below(m_random, static_cast<std::size_t>(below.Length())))]);
  }
  return OneOf(m_random, all);
}

DeckBlock DeckWords::Block(inp_KeywordEnm above)
{
  inp_KeywordEnm const keyword = Keyword(above);
  DeckBlock block{"*" + Upper(std::string(Table().Name(keyword).View())), {}};
  for (std::size_t count = Below(m_random, 4); count > 0; --count)
  {
    block.head += ", " + Parameter(keyword);
  }
  for (std::size_t count = Below(m_random, 4); count > 0; --count)
  {
    block.rows.push_back(Row(keyword));
  }
  return block;
}

std::string DeckWords::Parameter(inp_KeywordEnm keyword)
{
  inp_ExpansionRule const* const rule = inp_ExpansionRuleOf(keyword);
  std::vector<std::string> names;
  for (char const* const* name = rule != nullptr ? rule->parameters : nullptr;
       name != nullptr && *name != nullptr; ++name)
  {
    names.emplace_back(*name);
  }
  std::string const name = names.empty() ? "name" : OneOf(m_random, names);
  std::string const value = Value(keyword, name);
  return Upper(name) + (value.empty() ? "" : "=") + value;
}

std::string DeckWords::Value(inp_KeywordEnm keyword, std::string const& parameter)
{
  std::vector<std::string> const words = WordsOf(keyword, parameter);
  std::size_t const choice = Below(m_random, 16);
  if (choice == 0)
  {
    return "";
  }
  if (!words.empty() && choice < 14)
  {
    return OneOf(m_random, words);
  }
  if (keyword == inp_kwElement && parameter == "type")
  {
    return OneOf(m_random, inp_ElementInfo::AllTypes()).name;
  }
  if (NamesFile(parameter))
  {
    return "d.inp";
  }
  return choice < 11 ? Name() : Number();
}

std::string DeckWords::Row(inp_KeywordEnm keyword)
{
  std::string row = Cell(keyword);
  for (std::size_t count = Below(m_random, 5); count > 0; --count)
  {
    row += ", " + Cell(keyword);
  }
  return row;
}

std::string DeckWords::Cell(inp_KeywordEnm keyword)
{
  std::size_t const choice = Below(m_random, 16);
  if (choice == 0)
  {
    std::vector<std::string> const words = WordsOf(keyword, "");
    return words.empty() ? "" : OneOf(m_random, words);
  }
  if (choice == 1)
  {
    return OneOf(m_random, c_odd);
  }
  if (choice < 5)
  {
    return Name();
  }
  if (choice < 7)
  {
    return Name() + "." + (choice == 5 ? Name() : Number());
  }
  return Number();
}

std::string DeckWords::Near(std::string const& cell)
{
  std::string const digits = WithoutBlanks(cell);
  int value = 0;
  auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size())
  {
    return Number();
  }
  std::array<long, 6> const steps = {1, -1, 2, 10, 1000, -static_cast<long>(value)};
  return std::to_string(value + OneOf(m_random, steps));
}

std::string DeckWords::Number()
{
  bool const isSmall = Below(m_random, 2) == 0;
  return isSmall ? std::to_string(Below(m_random, 20)) : OneOf(m_random, c_numbers);
}

std::string DeckWords::Name() { return OneOf(m_random, m_names); }
