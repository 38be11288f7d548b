#include "DeckText.h"

#include <algorithm>
#include <cctype>

namespace
{

bool IsKeyword(std::string_view line)
{
  return line.size() > 1 && line[0] == '*' &&
         std::isalpha(static_cast<unsigned char>(line[1])) != 0;
}

bool GoesOn(DeckBlock const& block) { return block.rows.empty() && block.head.ends_with(','); }

void AddLine(std::vector<DeckBlock>& blocks, std::string_view line)
{
  if (IsKeyword(line))
  {
    blocks.push_back({std::string(line), {}});
    return;
  }
  if (blocks.empty())
  {
    blocks.emplace_back();
  }
  if (GoesOn(blocks.back()))
  {
    blocks.back().head.append("\n").append(line);
    return;
  }
  blocks.back().rows.emplace_back(line);
}

} // namespace

DeckText DeckText::Of(std::string_view text)
{
  DeckText deck;
  std::size_t const cut = std::min(text.find('\0'), text.size());
  deck.rest = text.substr(cut);
  text = text.substr(0, cut);
  while (!text.empty())
  {
    std::size_t const feed = std::min(text.find('\n'), text.size());
    AddLine(deck.blocks, text.substr(0, feed));
    text.remove_prefix(std::min(feed + 1, text.size()));
  }
  return deck;
}

std::string DeckText::Joined() const
{
  std::string text;
  for (DeckBlock const& block : blocks)
  {
    if (!block.head.empty())
    {
      text.append(block.head).append("\n");
    }
    for (std::string const& row : block.rows)
    {
      text.append(row).append("\n");
    }
  }
  return text.append(rest);
}

std::vector<std::string> SplitAtCommas(std::string_view line)
{
  std::vector<std::string> pieces(1);
  bool inQuotes = false;
  for (char const c : line)
  {
    inQuotes = inQuotes != (c == '"');
    if (c == ',' && !inQuotes)
    {
      pieces.emplace_back();
      continue;
    }
    pieces.back() += c;
  }
  return pieces;
}

std::string JoinedByCommas(std::vector<std::string> const& pieces)
{
  std::string line;
  for (std::size_t i = 0; i < pieces.size(); ++i)
  {
    line.append(i > 0 ? "," : "").append(pieces[i]);
  }
  return line;
}
