#include "omi_BlkBitVect.h"

#include <algorithm>
#include <bit>

namespace
{
unsigned const smallestShift = 3;

// log2 of the words per block of a vector whose highest word is `word`.
//
// Up to 2^16 words, two million labels, blocks grow with the square root of the words, so that a block and
// the table of blocks are about equally long. Beyond, they grow more slowly: labels of that size come as
// many short runs far apart, each of which costs a block (see the figures in the header).
unsigned ShiftFor(unsigned word)
{
  unsigned const width = static_cast<unsigned>(std::bit_width(word));
  return width <= 16 ? std::max(smallestShift, width / 2) : 8 + (width - 16) / 4;
}

unsigned BitsFrom(unsigned bit) { return ~0u << bit; }
unsigned BitsUpTo(unsigned bit) { return ~0u >> (31 - bit); }
} // namespace

omi_BlkBitVect::omi_BlkBitVect() : words(smallestShift) {}

void omi_BlkBitVect::MakeRoom(unsigned word)
{
  words.Reshape(ShiftFor(word));
  words.Reserve((word >> words.blockShift) + 1);
}

bool omi_BlkBitVect::ClearBit(unsigned index)
{
  if (!GetBit(index))
  {
    return false;
  }
  *words.GetCell(index >> 5) &= ~(1u << (index & 31));
  --bitCount;
  return true;
}

void omi_BlkBitVect::SetRange(unsigned first, unsigned last)
{
  if (first > last)
  {
    return;
  }
  unsigned const lastWord = last >> 5;
  if (lastWord >> words.blockShift >= words.blockCount)
  {
    MakeRoom(lastWord);
  }
  stale = true;
  unsigned word = first >> 5;
  if (word == lastWord)
  {
    words.MakeCell(word) |= BitsFrom(first & 31) & BitsUpTo(last & 31);
    return;
  }
  words.MakeCell(word) |= BitsFrom(first & 31);
  for (++word; word < lastWord;)
  {
    unsigned const blockEnd = (word | words.cellMask) + 1;
    unsigned const count = std::min(blockEnd, lastWord) - word;
    std::fill_n(&words.MakeCell(word), count, ~0u);
    word += count;
  }
  words.MakeCell(lastWord) |= BitsUpTo(last & 31);
}

void omi_BlkBitVect::Merge(omi_BlkBitVect const& other, unsigned firstWord)
{
  unsigned highest = 0;
  if (!other.FindAtOrBelow(~0u, highest))
  {
    return;
  }
  unsigned const lastWord = firstWord + (highest >> 5);
  if (lastWord >> words.blockShift >= words.blockCount)
  {
    MakeRoom(lastWord);
  }
  for (unsigned block = 0; block <= highest >> 5 >> other.words.blockShift; ++block)
  {
    unsigned const* const source = other.words.blockTable[block];
    if (source == nullptr)
    {
      continue;
    }
    unsigned const start = firstWord + (block << other.words.blockShift);
    for (unsigned cell = 0; cell < other.words.cellsPerBlock; ++cell)
    {
      if (source[cell] != 0)
      {
        unsigned& target = words.MakeCell(start + cell);
        bitCount += static_cast<unsigned>(std::popcount(source[cell] & ~target)); // unless stale
        target |= source[cell];
      }
    }
  }
}

void omi_BlkBitVect::Clear()
{
  words = omi_BlockedArray<unsigned>(smallestShift);
  bitCount = 0;
  stale = false;
}

void omi_BlkBitVect::Recount() const
{
  bitCount = 0;
  for (unsigned block = 0; block < words.blockCount; ++block)
  {
    unsigned const* const cells = words.blockTable[block];
    for (unsigned cell = 0; cells != nullptr && cell < words.cellsPerBlock; ++cell)
    {
      bitCount += static_cast<unsigned>(std::popcount(cells[cell]));
    }
  }
  stale = false;
}

// The lowest set bit in the words above the given one.
bool omi_BlkBitVect::FindInWordsAbove(unsigned word, unsigned& found) const
{
  unsigned cell = (word & words.cellMask) + 1;
  for (unsigned block = word >> words.blockShift; block < words.blockCount; ++block)
  {
    unsigned const* const cells = words.blockTable[block];
    for (; cells != nullptr && cell < words.cellsPerBlock; ++cell)
    {
      if (cells[cell] != 0)
      {
        found = (((block << words.blockShift) + cell) << 5) +
                static_cast<unsigned>(std::countr_zero(cells[cell]));
        return true;
      }
    }
    cell = 0;
  }
  return false;
}

bool omi_BlkBitVect::FindAtOrBelow(unsigned from, unsigned& found) const
{
  unsigned wanted = BitsUpTo(from & 31);
  unsigned const word = from >> 5;
  unsigned block = word >> words.blockShift;
  unsigned cell = word & words.cellMask;
  if (block >= words.blockCount)
  {
    block = words.blockCount - 1; // wraps on an empty vector, and ends the loop at once
    cell = words.cellMask;
    wanted = ~0u;
  }
  for (; block < words.blockCount; --block)
  {
    unsigned const* const cells = words.blockTable[block];
    for (; cells != nullptr && cell <= words.cellMask; --cell)
    {
      if (unsigned const bits = cells[cell] & wanted; bits != 0)
      {
        found = (((block << words.blockShift) + cell) << 5) + 31 -
                static_cast<unsigned>(std::countl_zero(bits));
        return true;
      }
      wanted = ~0u;
    }
    wanted = ~0u;
    cell = words.cellMask;
  }
  return false;
}

std::size_t omi_BlkBitVect::EstimateBytes(unsigned first, unsigned last, std::size_t count)
{
  unsigned const lastWord = last >> 5;
  unsigned const shift = ShiftFor(lastWord);
  std::size_t const entries = std::bit_ceil((lastWord >> shift) + 1);
  std::size_t const spanned = (lastWord >> shift) - (first >> 5 >> shift) + std::size_t{1};
  return entries * sizeof(unsigned*) + (std::min(spanned, count) * sizeof(unsigned) << shift);
}

omi_BlkBitVectTrav::omi_BlkBitVectTrav(omi_BlkBitVect const& bits) : m_bits(&bits)
{
  unsigned highest = 0;
  m_limit = bits.FindAtOrBelow(~0u, highest) ? std::uint64_t{highest} + 1 : 0;
}

bool omi_BlkBitVectTrav::First(unsigned& index)
{
  *this = omi_BlkBitVectTrav(*m_bits);
  return Next(index);
}

bool omi_BlkBitVectTrav::Last(unsigned& index)
{
  *this = omi_BlkBitVectTrav(*m_bits);
  unsigned found = 0;
  return m_bits->FindAtOrBelow(~0u, found) && Deliver(found, index);
}

bool omi_BlkBitVectTrav::Previous(unsigned& index)
{
  unsigned found = 0;
  return m_position >= 2 && m_bits->FindAtOrBelow(static_cast<unsigned>(m_position - 2), found) &&
         Deliver(found, index);
}
