// Changes decks by what they are made of, in place of libFuzzer's blind changes: keywords with their
// rows, parameters, rows and cells come, go, move and change. One change in four is a blind one all the
// same, of a cell or of the whole. The words come from the vocabulary's tables, see DeckWords.

#include "DeckText.h"
#include "DeckWords.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace
{

struct Change
{
  Random& random;
  DeckText& deck;
  DeckWords words;

  DeckBlock& Block() { return deck.blocks[Below(random, deck.blocks.size())]; }
  std::ptrdiff_t Place()
  {
    return static_cast<std::ptrdiff_t>(Below(random, deck.blocks.size() + 1));
  }
};

template <class List>
auto At(List& list, std::size_t index)
{
  return list.begin() + static_cast<std::ptrdiff_t>(index);
}

/// Changes the line's pieces from `first` on by `work`, which gets them and the number of one.
template <class Work>
void ChangePiece(Change& change, std::string& line, std::size_t first, Work const& work)
{
  std::vector<std::string> pieces = SplitAtCommas(line);
  if (pieces.size() > first)
  {
    work(pieces, first + Below(change.random, pieces.size() - first));
    line = JoinedByCommas(pieces);
  }
}

/// The same for a cell of one of a block's rows.
template <class Work>
void ChangeCell(Change& change, Work const& work)
{
  DeckBlock& block = change.Block();
  if (!block.rows.empty())
  {
    ChangePiece(change, block.rows[Below(change.random, block.rows.size())], 0,
                [&](auto& cells, std::size_t at) { work(cells, at, KeywordOf(block.head)); });
  }
}

// ---- keywords ----

void AddKeyword(Change& change)
{
  std::ptrdiff_t const place = change.Place();
  auto const at = change.deck.blocks.begin() + place;
  inp_KeywordEnm const above = place > 0 ? KeywordOf((at - 1)->head) : inp_kwUndefined;
  change.deck.blocks.insert(at, change.words.Block(above));
}

void RemoveKeyword(Change& change)
{
  change.deck.blocks.erase(At(change.deck.blocks, Below(change.random, change.deck.blocks.size())));
}

void RepeatKeyword(Change& change)
{
  DeckBlock const copy = change.Block();
  change.deck.blocks.insert(change.deck.blocks.begin() + change.Place(), copy);
}

void SwapKeywords(Change& change) { std::swap(change.Block(), change.Block()); }

/// The rows of one keyword go below another.
void MoveRows(Change& change) { std::swap(change.Block().rows, change.Block().rows); }

// ---- parameters ----

void AddParameter(Change& change)
{
  DeckBlock& block = change.Block();
  block.head += ", " + change.words.Parameter(KeywordOf(block.head));
}

void RemoveParameter(Change& change)
{
  ChangePiece(change, change.Block().head, 1,
              [](auto& pieces, std::size_t at) { pieces.erase(At(pieces, at)); });
}

void ChangeValue(Change& change)
{
  DeckBlock& block = change.Block();
  inp_KeywordEnm const keyword = KeywordOf(block.head);
  ChangePiece(change, block.head, 1,
              [&](auto& pieces, std::size_t at)
              {
                std::string const name = pieces[at].substr(0, pieces[at].find('='));
                std::string lower = name.substr(std::min(name.find_first_not_of(' '), name.size()));
                std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
                pieces[at] = name + "=" + change.words.Value(keyword, lower);
              });
}

// ---- rows ----

void AddRow(Change& change)
{
  DeckBlock& block = change.Block();
  std::string const row = change.words.Row(KeywordOf(block.head));
  block.rows.insert(At(block.rows, Below(change.random, block.rows.size() + 1)), row);
}

void RemoveRow(Change& change)
{
  std::vector<std::string>& rows = change.Block().rows;
  if (!rows.empty())
  {
    rows.erase(At(rows, Below(change.random, rows.size())));
  }
}

void RepeatRow(Change& change)
{
  std::vector<std::string> const& from = change.Block().rows;
  if (!from.empty())
  {
    std::string const row = OneOf(change.random, from);
    change.Block().rows.push_back(row);
  }
}

// ---- cells ----

void ReplaceCell(Change& change)
{
  ChangeCell(change, [&](auto& cells, std::size_t at, inp_KeywordEnm keyword)
             { cells[at] = change.words.Cell(keyword); });
}

void ShiftNumber(Change& change)
{
  ChangeCell(change, [&](auto& cells, std::size_t at, inp_KeywordEnm)
             { cells[at] = change.words.Near(cells[at]); });
}

void AddCell(Change& change)
{
  ChangeCell(change, [&](auto& cells, std::size_t at, inp_KeywordEnm keyword)
             { cells.insert(At(cells, at), change.words.Cell(keyword)); });
}

void RemoveCell(Change& change)
{
  ChangeCell(change,
             [](auto& cells, std::size_t at, inp_KeywordEnm) { cells.erase(At(cells, at)); });
}

void RepeatCell(Change& change)
{
  ChangeCell(change, [](auto& cells, std::size_t at, inp_KeywordEnm)
             { cells.insert(At(cells, at), std::string(cells[at])); });
}

void BlurCell(Change& change)
{
  ChangeCell(change,
             [](auto& cells, std::size_t at, inp_KeywordEnm)
             {
               std::uint8_t bytes[64] = {};
               std::size_t const size = std::min(cells[at].size(), sizeof bytes);
               std::memcpy(bytes, cells[at].data(), size);
               cells[at].assign(bytes, bytes + LLVMFuzzerMutate(bytes, size, sizeof bytes));
             });
}

using Operation = void (*)(Change& change);

constexpr Operation c_operations[] = {
  AddKeyword,  AddKeyword,  RemoveKeyword, RepeatKeyword,   SwapKeywords, MoveRows,    AddRow,
  RemoveRow,   RepeatRow,   AddParameter,  RemoveParameter, ChangeValue,  ChangeValue, ReplaceCell,
  ReplaceCell, ReplaceCell, ShiftNumber,   AddCell,         RemoveCell,   RepeatCell,  BlurCell};

std::string_view TextOf(std::uint8_t const* data, std::size_t size)
{
  return {reinterpret_cast<char const*>(data), size};
}

std::size_t Write(std::string const& text, std::uint8_t* to, std::size_t maxSize)
{
  std::size_t const size = std::min(text.size(), maxSize);
  std::memcpy(to, text.data(), size);
  return size;
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed)
{
  Random random(seed);
  if (Below(random, 5) == 0)
  {
    return LLVMFuzzerMutate(data, size, maxSize);
  }
  DeckText deck = DeckText::Of(TextOf(data, size));
  Change change{random, deck, DeckWords(random, deck)};
  for (std::size_t count = 1 + Below(random, 3); count > 0; --count)
  {
    Operation const operation = deck.blocks.empty() ? AddKeyword : OneOf(random, c_operations);
    operation(change);
  }
  return Write(deck.Joined(), data, maxSize);
}

/// Some keywords of the one, some of the other.
extern "C" std::size_t LLVMFuzzerCustomCrossOver(std::uint8_t const* data1, std::size_t size1,
                                                 std::uint8_t const* data2, std::size_t size2,
                                                 std::uint8_t* out, std::size_t maxSize,
                                                 unsigned seed)
{
  Random random(seed);
  DeckText deck = DeckText::Of(TextOf(data1, size1));
  DeckText const other = DeckText::Of(TextOf(data2, size2));
  std::size_t place = Below(random, deck.blocks.size() + 1);
  for (DeckBlock const& block : other.blocks)
  {
    if (Below(random, 2) == 0)
    {
      deck.blocks.insert(At(deck.blocks, place++), block);
    }
  }
  return Write(deck.Joined(), out, maxSize);
}
