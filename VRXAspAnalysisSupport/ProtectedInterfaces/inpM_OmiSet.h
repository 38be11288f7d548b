#pragma once

#include "cow_COW.h"
#include "cow_List.h"
#include "omi_Set.h"

#include <cstddef>

struct inpM_OmiSetData;

/// A set of labels in ascending order that copies in constant time: the ids of every sorted set.
///
///     inpM_OmiSet nodes;
///     nodes.Insert(1, 1000, 1);        // whole words at once
///     inpM_OmiSet copy = nodes;        // O(1), shares; the first of both to write copies
///     copy += others;                  // 32 members at a time
///
/// Up to 16384 members stand in a sorted array as long as bits would need more than twice its memory;
/// all else is an omi_Set. So ten members cost 116 bytes with the handle, wherever they lie, and a
/// million consecutive ones 128 KB. A run is stored bit by bit: 1 to 999999999 takes 125 MB. Ask
/// `EstimateBytes` before inserting a run whose ends come from a deck.
///
/// Labels are 1 to 999999999, yet every int is taken. Sizes are ints: a set of more than 2^31 - 1
/// members is beyond them. Belongs to one thread at a time.
class inpM_OmiSet
{
public:
  inpM_OmiSet();
  explicit inpM_OmiSet(cow_List<int> const& items);
  inpM_OmiSet(inpM_OmiSet const& other); // O(1), shares
  inpM_OmiSet(inpM_OmiSet&& other) noexcept;
  inpM_OmiSet& operator=(inpM_OmiSet const& other); // O(1), shares
  inpM_OmiSet& operator=(inpM_OmiSet&& other) noexcept;
  ~inpM_OmiSet();

  /// Puts a label in; true when it is new. O(1) for a set of bits; a sorted array moves what follows.
  bool Insert(int item);

  /// Puts in `start`, `start + step` and so on, up to `end` or, for a negative step, down to it. An end
  /// that the steps miss is left out; a step that leads away from it, or is 0, puts in `start` when it
  /// is `end` and nothing otherwise.
  void Insert(int start, int end, int step);

  /// Puts in all members of the other. An empty set takes a share.
  inpM_OmiSet& operator+=(inpM_OmiSet const& other);

  /// Takes a label out; true when it was present. An absent one copies nothing.
  bool Remove(int item);
  void Clear();

  bool IsMember(int item) const; // O(1), or a binary search in the array
  int Size() const;
  bool IsEmpty() const;

  /// The members in ascending order. O(size), builds a list.
  cow_List<int> ConstGetArrayCounterpart() const;

  /// The members from 0 up as a bit vector. O(words), copies.
  omi_BlkBitVect ConstGetBits() const;

  /// Tells whether the members form one arithmetic run, and which: start below end, step above 0. One
  /// member is a run of step 1. False for an empty set; the arguments are then as they were, as they
  /// are when the members form no run or their step passes the range of an int.
  bool IsGenerated(int& start, int& end, int& step) const;

  friend bool operator==(inpM_OmiSet const& a, inpM_OmiSet const& b);

  /// Bytes on the heap, without what the allocator adds.
  std::size_t Bytes() const;

  /// Upper bound of the bytes that Insert(start, end, step) into an empty set takes.
  static std::size_t EstimateBytes(int start, int end, int step);

private:
  friend class inpM_OmiSetIT;

  inpM_OmiSetData& Writable();

  cow_COW<inpM_OmiSetData, cow_Direct<inpM_OmiSetData>> m_data;
};

/// Walks a set in ascending or descending order.
///
/// Keeps a share of its own, so that writes to the set do not disturb the walk.
///
///     for (inpM_OmiSetIT it(set, true); !it.IsDone(); it.Next())
///       Use(it.CurrentItem());
class inpM_OmiSetIT
{
public:
  /// Stands on the first member of its direction.
  explicit inpM_OmiSetIT(inpM_OmiSet const& set, bool isAscending = true);
  inpM_OmiSetIT(inpM_OmiSetIT const&) = delete;
  inpM_OmiSetIT& operator=(inpM_OmiSetIT const&) = delete;
  ~inpM_OmiSetIT();

  void First();
  void Next();
  bool IsDone() const { return m_few == nullptr ? m_many.IsDone() : m_place >= m_count; }
  int CurrentItem() const
  {
    return m_few == nullptr ? m_many.CurrentItem()
                            : m_few[m_isAscending ? m_place : m_count - 1 - m_place];
  }

private:
  inpM_OmiSet m_share;
  bool m_isAscending;
  int const* m_few;       // the sorted array, or null for a set of bits
  std::size_t m_count{0}; // of the array
  std::size_t m_place{0};
  omi_SetIT m_many;
};
