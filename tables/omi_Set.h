#pragma once

#include "omi_BlkBitVect.h"

#include <cstddef>

/// A set of ints as two bit vectors, one a sign: `negatives` by magnitude, `nonNegatives` as they are.
///
/// Dense members cost a bit each; a member alone in its stretch costs a block of words (see
/// omi_BlkBitVect). Sets of a few scattered labels are better off in inpM_OmiSet.
class omi_Set
{
public:
  /// Puts a number in; true when it is new.
  bool Insert(int item) { return Half(item).SetBit(Magnitude(item)); }

  /// Puts in `first`, `first + step` and so on up to `last`; nothing when `first` is above `last`.
  /// `step` is 1 or more. A step of 1 fills whole words at once.
  void InsertRun(int first, int last, unsigned step);

  /// Takes a number out; true when it was present.
  bool Remove(int item) { return Half(item).ClearBit(Magnitude(item)); }

  bool IsMember(int item) const
  {
    return (item < 0 ? negatives : nonNegatives).GetBit(Magnitude(item));
  }

  /// Puts in all members of the other, 32 at a time.
  omi_Set& operator+=(omi_Set const& other)
  {
    negatives.Merge(other.negatives);
    nonNegatives.Merge(other.nonNegatives);
    return *this;
  }

  int Size() const { return static_cast<int>(negatives.BitCount() + nonNegatives.BitCount()); }
  bool IsEmpty() const { return Size() == 0; }
  void Clear()
  {
    negatives.Clear();
    nonNegatives.Clear();
  }

  /// Bytes on the heap, without what the allocator adds.
  std::size_t Bytes() const { return negatives.Bytes() + nonNegatives.Bytes(); }

  /// Upper bound of `Bytes` for a set of `count` members that all lie from `first` to `last`.
  static std::size_t EstimateBytes(int first, int last, std::size_t count);

  omi_BlkBitVect negatives;
  omi_BlkBitVect nonNegatives;

private:
  static unsigned Magnitude(int item)
  {
    return item < 0 ? 0u - static_cast<unsigned>(item) : static_cast<unsigned>(item);
  }
  omi_BlkBitVect& Half(int item) { return item < 0 ? negatives : nonNegatives; }
};

/// Walks a set in ascending order. Members may come and go during the walk; the set must stay.
class omi_SetIT
{
public:
  /// Stands on the smallest member.
  explicit omi_SetIT(omi_Set const& set)
    : m_negatives(set.negatives), m_nonNegatives(set.nonNegatives)
  {
    First();
  }

  void First();
  void Last();
  void Next();
  void Previous();
  bool IsDone() const { return m_isDone; }
  int CurrentItem() const { return m_item; }

private:
  void StandOnNegative(unsigned magnitude);
  void StandOnNonNegative(unsigned magnitude);

  omi_BlkBitVectTrav m_negatives;
  omi_BlkBitVectTrav m_nonNegatives;
  int m_item{0};
  bool m_isDone{true};
};
