#pragma once

#include "DeckText.h"
#include "inp_KeywordEnm.h"

#include <random>
#include <string>
#include <vector>

using Random = std::minstd_rand;

/// A number below `end`, which is above 0.
inline std::size_t Below(Random& random, std::size_t end) { return random() % end; }

template <class List>
auto const& OneOf(Random& random, List const& list)
{
  return list[Below(random, std::size(list))];
}

/// The keyword that a line begins with, abbreviated or not; inp_kwUndefined when it is none.
inp_KeywordEnm KeywordOf(std::string const& head);

/// Makes pieces of decks: of the vocabulary's tables, and of the names that the deck at hand uses.
class DeckWords
{
public:
  DeckWords(Random& random, DeckText const& deck);

  /// A keyword with some of its parameters and a few rows. One that may stand below `above` is
  /// likelier than others, and so is one of those that the program is about.
  DeckBlock Block(inp_KeywordEnm above);
  /// "NSET=A", one that the keyword takes.
  std::string Parameter(inp_KeywordEnm keyword);
  std::string Value(inp_KeywordEnm keyword, std::string const& parameter);
  std::string Row(inp_KeywordEnm keyword);
  std::string Cell(inp_KeywordEnm keyword);
  /// A number near to the given one, where it is one.
  std::string Near(std::string const& cell);

private:
  inp_KeywordEnm Keyword(inp_KeywordEnm above);
  std::string Number();
  std::string Name();

  Random& m_random;
  std::vector<std::string> m_names;
};

/// The keywords that a program is about, ended by inp_kwUndefined. Each program has its own.
extern inp_KeywordEnm const fuzzedKeywords[];
