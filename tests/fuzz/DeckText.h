#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A keyword line with the data lines below it; the first one of a deck may lack the keyword line.
struct DeckBlock
{
  std::string head;              ///< "*NODE, NSET=A", continuation lines included; "" for none
  std::vector<std::string> rows; ///< comments too
};

/// A deck's text taken apart, to be changed piece by piece and put together again.
struct DeckText
{
  static DeckText Of(std::string_view text);
  std::string Joined() const;

  std::vector<DeckBlock> blocks;
  std::string rest; ///< from the first NUL byte on: the data file
};

/// "*NODE, NSET=A" is "*NODE", "NSET=A", and a row its cells. Commas within double quotes are text.
std::vector<std::string> SplitAtCommas(std::string_view line);
std::string JoinedByCommas(std::vector<std::string> const& pieces);
