#pragma once

#include "omi_BlockedArray.h"

#include <bit>
#include <cstddef>
#include <cstdint>

/// A bit vector that holds only the blocks of words in which a bit was set.
///
///     index   ......bbbbbbbbwwwwwwwwiiiii     i = index & 31            bit of a word
///                                             w, b = the word's cell and block in `words`
///
/// The words of a block start at 8, 256 bits, and grow with the highest index: 128 words for a million,
/// 1024 for nine digits. Figures, as in omi_UintTable.h:
///
///     bits                                     bytes    SetBit    GetBit     next
///     none                                         0
///     ten small ones                              40
///     1 .. 1000000                            127488      4 ns      2 ns     3 ns
///     every 1000th to 100000000             12566528     14 ns      5 ns    30 ns
///     900 runs of 1000, nine digits          4059136      5 ns      2 ns     3 ns
///     999999999 alone                         248240
///
/// The fields are public to be read, as those of omi_BlockedArray.
class omi_BlkBitVect
{
public:
  omi_BlkBitVect();

  /// Sets a bit; true when it was clear. Joins blocks to larger ones as the highest index grows.
  bool SetBit(unsigned index)
  {
    unsigned const word = index >> 5;
    if (word >> words.blockShift >= words.blockCount)
    {
      MakeRoom(word);
    }
    unsigned& cell = words.MakeCell(word);
    unsigned const bit = 1u << (index & 31);
    bool const isNew = (cell & bit) == 0;
    cell |= bit;
    bitCount += isNew ? 1 : 0;
    return isNew;
  }

  /// Tells whether a bit is set; false where there is no block. Never allocates.
  bool GetBit(unsigned index) const
  {
    unsigned const word = index >> 5;
    unsigned const block = word >> words.blockShift;
    if (block >= words.blockCount || words.blockTable[block] == nullptr)
    {
      return false;
    }
    return (words.blockTable[block][word & words.cellMask] >> (index & 31) & 1u) != 0;
  }

  /// Clears a bit; true when it was set. Frees nothing.
  bool ClearBit(unsigned index);

  /// Sets all bits from `first` to `last`, whole words at once; nothing when `first` is above `last`.
  void SetRange(unsigned first, unsigned last);

  /// Sets all bits that the other has, moved up by `firstWord` words. A word at a time.
  void Merge(omi_BlkBitVect const& other, unsigned firstWord = 0);

  /// Number of set bits. O(1), or one pass over the words after a SetRange.
  unsigned BitCount() const
  {
    if (stale)
    {
      Recount();
    }
    return bitCount;
  }

  /// Frees all blocks.
  void Clear();

  /// The lowest set bit at or above `from`; false when there is none.
  bool FindAtOrAbove(unsigned from, unsigned& found) const
  {
    // Within a run the bit itself is set. The processor predicts this branch, and goes on with the next bit
    // before the word of this one has been loaded.
    if (GetBit(from)) [[likely]]
    {
      found = from;
      return true;
    }
    unsigned const* const word = words.GetCell(from >> 5);
    if (word == nullptr || *word >> (from & 31) == 0)
    {
      return FindInWordsAbove(from >> 5, found);
    }
    found = from + static_cast<unsigned>(std::countr_zero(*word >> (from & 31)));
    return true;
  }

  /// The highest set bit at or below `from`; false when there is none. Starts at the top block.
  bool FindAtOrBelow(unsigned from, unsigned& found) const;

  /// Bytes on the heap, without what the allocator adds.
  std::size_t Bytes() const { return words.Bytes(); }

  /// Upper bound of `Bytes` for a vector of `count` bits that all lie from `first` to `last`.
  static std::size_t EstimateBytes(unsigned first, unsigned last, std::size_t count);

  omi_BlockedArray<unsigned> words;
  mutable unsigned bitCount{0};
  mutable bool stale{false}; // bitCount must be rebuilt before it is read

private:
  void MakeRoom(unsigned word);
  void Recount() const;
  bool FindInWordsAbove(unsigned word, unsigned& found) const;
};

/// Walks the set bits of a vector in either direction.
///
/// Nothing of the vector is kept but its address, so bits may come and go during the walk: it sees
/// what lies ahead of it at the time of each step.
class omi_BlkBitVectTrav
{
public:
  explicit omi_BlkBitVectTrav(omi_BlkBitVect const& bits);

  /// Deliver the lowest set bit, or the next above the last one delivered; false when exhausted.
  bool First(unsigned& index);
  bool Next(unsigned& index)
  {
    unsigned found = 0;
    if (m_position < m_end && m_bits->FindAtOrAbove(static_cast<unsigned>(m_position), found))
    {
      return Deliver(found, index);
    }
    m_position = m_end;
    return false;
  }

  /// Deliver the highest set bit, or the next below the last one delivered; false when exhausted.
  bool Last(unsigned& index);
  bool Previous(unsigned& index);

  /// True while `Next` has something to deliver: the limit lies behind the highest bit that was set
  /// when the walk began.
  bool More() const { return m_position < m_limit; }

private:
  bool Deliver(unsigned found, unsigned& index)
  {
    index = found;
    m_position = std::uint64_t{found} + 1;
    return true;
  }

  static constexpr std::uint64_t m_end = std::uint64_t{1} << 32; // behind every index

  omi_BlkBitVect const* m_bits;
  std::uint64_t m_position{0}; // one above the bit last delivered, 0 before the first
  std::uint64_t m_limit{0};
};
