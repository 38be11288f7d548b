#pragma once

#include "VRXBasOmiDefaultAllocator.h"
#include "omi_BlkBitVect.h"
#include "omi_BlockedArray.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <memory>
#include <utility>

/// One node of an omi_UintTable: the values of a stretch of keys, and which of them are alive.
///
/// A slot's value means something only while its member bit is set.
template <class T>
class omi_UintTableBlock
{
public:
  explicit omi_UintTableBlock(unsigned valueShift) : values(valueShift) {}

  bool IsMember(unsigned slot) const { return members.GetBit(slot); }

  /// The value of a slot that is a member; no test is made.
  T const& ConstGet(unsigned slot) const
  {
    return values.blockTable[slot >> values.blockShift][slot & values.cellMask];
  }
  T& Get(unsigned slot)
  {
    return values.blockTable[slot >> values.blockShift][slot & values.cellMask];
  }

  static void* operator new(std::size_t size) { return VRXBasOmiDefaultAllocator::allocate(size); }
  static void operator delete(void* memory) { VRXBasOmiDefaultAllocator::deallocate(memory); }

  omi_BlockedArray<T> values;
  omi_BlkBitVect members;
};

/// A table from unsigned numbers to values: three shifts and masks, no hashing, no comparison.
///
///     key     tttttttttttssssssssssssss       t = key >> topShift      entry of the top table
///                        bbbbbbbbcccccc       s = key & slotMask       slot of that node
///                                             b, c = the slot's value block and cell
///     topTable -> [ * | 0 | * | 0 ]
///                   |       |
///                 node    node -> values   [ 0 | * | 0 ]   64 cells a block
///                              -> members  a bit a slot, word s >> 5 of members.words
///
/// A test of membership touches the top table, the node and one word of its bits, and no value. Keys
/// come in ascending order by walking the bits.
///
/// The top shift grows with the highest key: half of the key's bits and 3 more, so that the top table
/// and a node's table of value blocks are about equally long (13 for a million keys, 18 for nine
/// digits). Growing joins neighbouring nodes by moving the pointers to their value blocks; a value
/// never moves, and a reference to one stays good until `Clear`.
///
/// Figures, for values of 8 bytes on a two-core x86-64 virtual machine; lookups are IsMember and
/// ConstGet in random order. Bytes are those asked of the allocator, and inserts find its memory
/// warm: scattered keys take ten times as long where each block is a fresh page.
///
///     keys                                  bytes a key    insert   lookup    next
///     1 .. 1000000                                 8.3       5 ns     7 ns    4 ns
///     100000 from 100000001 on                     8.5       5 ns     3 ns    4 ns
///     900 runs of 1000, nine digits                 29      19 ns    19 ns    6 ns
///     every 1000th to 100000000                    771     150 ns    40 ns   54 ns
///     100000 at random up to 1000000000           2030    1300 ns    62 ns  320 ns
///     ten small ones                     672 in all
///     999999999 alone                    54960 in all
///
/// So runs cost next to nothing beside their values; a key that is alone in its stretch costs a block
/// of values and a part of a node's tables.
///
/// The fields are public to be read in hot loops. Nobody but this class writes them.
template <class T>
class omi_UintTable
{
public:
  omi_UintTable() = default; // allocates nothing
  omi_UintTable(omi_UintTable const& other);
  omi_UintTable(omi_UintTable&& other) noexcept { Swap(other); }
  omi_UintTable& operator=(omi_UintTable other) noexcept
  {
    Swap(other);
    return *this;
  }
  ~omi_UintTable() { Clear(); }

  /// Puts a value under a key, over the one that stands there. True when the key is new.
  ///
  /// A table of owning pointers must not insert under a key that it has: it would lose the pointer.
  bool Insert(unsigned key, T const& value)
  {
    if (key >> topShift >= topCount)
    {
      MakeRoom(key);
    }
    omi_UintTableBlock<T>*& node = topTable[key >> topShift];
    if (node == nullptr)
    {
      node = new omi_UintTableBlock<T>(cellsShift);
    }
    node->values.MakeCell(key & slotMask) = value;
    bool const isNew = node->members.SetBit(key & slotMask);
    size += isNew ? 1 : 0;
    return isNew;
  }

  /// Takes a key out; true when it was present. The value cell stays as it is: who holds owning
  /// pointers frees the pointee first.
  bool Remove(unsigned key)
  {
    omi_UintTableBlock<T>* const node = FindTableBlock(key);
    bool const wasMember = node != nullptr && node->members.ClearBit(key & slotMask);
    size -= wasMember ? 1 : 0;
    return wasMember;
  }

  /// Neither allocates nor writes.
  bool IsMember(unsigned key) const
  {
    omi_UintTableBlock<T> const* const node = FindTableBlock(key);
    return node != nullptr && node->IsMember(key & slotMask);
  }

  /// The value of a key that is known to be present; no test is made.
  T const& ConstGet(unsigned key) const
  {
    return topTable[key >> topShift]->ConstGet(key & slotMask);
  }
  T& Get(unsigned key) { return topTable[key >> topShift]->Get(key & slotMask); }

  /// Reads the value of any key; false, and `value` as it was, when the key is absent.
  bool ConstGetValue(unsigned key, T& value) const
  {
    omi_UintTableBlock<T> const* const node = FindTableBlock(key);
    if (node == nullptr || !node->IsMember(key & slotMask))
    {
      return false;
    }
    value = node->ConstGet(key & slotMask);
    return true;
  }

  /// The node that a key falls into, or null.
  omi_UintTableBlock<T>* FindTableBlock(unsigned key) const
  {
    unsigned const top = key >> topShift;
    return top < topCount ? topTable[top] : nullptr;
  }

  bool IsEmpty() const { return size == 0; }
  int Size() const { return static_cast<int>(size); }

  /// Frees all nodes; pointees of pointer values are left alone.
  void Clear();
  void Swap(omi_UintTable& other) noexcept;

  /// The lowest key at or above `from`, and the highest at or below it; false when there is none.
  bool FindAtOrAbove(unsigned from, unsigned& found) const;
  bool FindAtOrBelow(unsigned from, unsigned& found) const;

  /// Bytes on the heap, without what the allocator adds.
  std::size_t Bytes() const;

  static void* operator new(std::size_t size) { return VRXBasOmiDefaultAllocator::allocate(size); }
  static void operator delete(void* memory) { VRXBasOmiDefaultAllocator::deallocate(memory); }

  /// log2 of the values a block. Larger blocks make a leap to a far key cheaper and scattered keys
  /// dearer; runs cost the same. Bytes for 999999999 alone, bytes a key for every 1000th key:
  /// 32 cells 74864, 640; 64 cells 54960, 771; 128 cells 44048, 1216; 256 cells 28008, 2209.
  static constexpr unsigned cellsShift = 6;

  omi_UintTableBlock<T>** topTable{nullptr};
  unsigned size{0};     // live keys
  unsigned topCount{0}; // entries of the top table
  unsigned slotMask{(1u << cellsShift) - 1};
  unsigned topShift{cellsShift};

private:
  static unsigned TopShiftFor(unsigned key)
  {
    unsigned const width = static_cast<unsigned>(std::bit_width(key));
    return std::max(cellsShift, (width + cellsShift) / 2);
  }

  void Reserve(unsigned count);
  void MakeRoom(unsigned key);
  void Widen(unsigned shift);
  static void Join(omi_UintTableBlock<T>& to, omi_UintTableBlock<T>& from, unsigned slot);
};

template <class T>
omi_UintTable<T>::omi_UintTable(omi_UintTable const& other)
{
  omi_UintTable copy; // frees what is done so far when the memory gives out
  copy.slotMask = other.slotMask;
  copy.topShift = other.topShift;
  copy.Reserve(other.topCount);
  for (unsigned top = 0; top < other.topCount; ++top)
  {
    if (other.topTable[top] != nullptr)
    {
      copy.topTable[top] = new omi_UintTableBlock<T>(*other.topTable[top]);
    }
  }
  copy.size = other.size;
  Swap(copy);
}

template <class T>
void omi_UintTable<T>::Reserve(unsigned count)
{
  if (count <= topCount)
  {
    return;
  }
  unsigned const newCount = omi_GrownCount(topCount, count);
  auto** const newTable = static_cast<omi_UintTableBlock<T>**>(
    VRXBasOmiDefaultAllocator::allocate(std::size_t{newCount} * sizeof(*topTable)));
  std::copy_n(topTable, topCount, newTable);
  VRXBasOmiDefaultAllocator::deallocate(topTable);
  topTable = newTable;
  topCount = newCount;
}

template <class T>
void omi_UintTable<T>::MakeRoom(unsigned key)
{
  if (unsigned const shift = TopShiftFor(key); shift > topShift)
  {
    Widen(shift);
  }
  Reserve((key >> topShift) + 1);
}

// In place, as a joined node stands at or before the first of its parts.
template <class T>
void omi_UintTable<T>::Widen(unsigned shift)
{
  unsigned const step = shift - topShift;
  for (unsigned top = 0; top < topCount; ++top)
  {
    std::unique_ptr<omi_UintTableBlock<T>> node(std::exchange(topTable[top], nullptr));
    if (node == nullptr)
    {
      continue;
    }
    unsigned const joined = top >> step;
    if (top == joined << step)
    {
      topTable[joined] = node.release();
      continue;
    }
    if (topTable[joined] == nullptr)
    {
      topTable[joined] = new omi_UintTableBlock<T>(cellsShift);
    }
    Join(*topTable[joined], *node, (top - (joined << step)) << topShift);
  }
  topShift = shift;
  slotMask = (1u << shift) - 1;
}

template <class T>
void omi_UintTable<T>::Join(omi_UintTableBlock<T>& to, omi_UintTableBlock<T>& from, unsigned slot)
{
  to.values.Adopt(from.values, slot >> cellsShift);
  to.members.Merge(from.members, slot >> 5);
  to.members.BitCount(); // so that no reader has to write it
}

template <class T>
void omi_UintTable<T>::Clear()
{
  for (unsigned top = 0; top < topCount; ++top)
  {
    delete topTable[top];
  }
  VRXBasOmiDefaultAllocator::deallocate(topTable);
  topTable = nullptr;
  size = 0;
  topCount = 0;
  slotMask = (1u << cellsShift) - 1;
  topShift = cellsShift;
}

template <class T>
void omi_UintTable<T>::Swap(omi_UintTable& other) noexcept
{
  std::swap(topTable, other.topTable);
  std::swap(size, other.size);
  std::swap(topCount, other.topCount);
  std::swap(slotMask, other.slotMask);
  std::swap(topShift, other.topShift);
}

template <class T>
bool omi_UintTable<T>::FindAtOrAbove(unsigned from, unsigned& found) const
{
  unsigned slot = from & slotMask;
  for (unsigned top = from >> topShift; top < topCount; ++top)
  {
    if (topTable[top] != nullptr && topTable[top]->members.FindAtOrAbove(slot, found))
    {
      found += top << topShift;
      return true;
    }
    slot = 0;
  }
  return false;
}

template <class T>
bool omi_UintTable<T>::FindAtOrBelow(unsigned from, unsigned& found) const
{
  if (topCount == 0)
  {
    return false;
  }
  unsigned top = std::min(from >> topShift, topCount - 1);
  unsigned slot = top == from >> topShift ? from & slotMask : slotMask;
  for (; top < topCount; --top)
  {
    if (topTable[top] != nullptr && topTable[top]->members.FindAtOrBelow(slot, found))
    {
      found += top << topShift;
      return true;
    }
    slot = slotMask;
  }
  return false;
}

template <class T>
std::size_t omi_UintTable<T>::Bytes() const
{
  std::size_t bytes = std::size_t{topCount} * sizeof(*topTable);
  for (unsigned top = 0; top < topCount; ++top)
  {
    if (topTable[top] != nullptr)
    {
      bytes += sizeof(**topTable) + topTable[top]->values.Bytes() + topTable[top]->members.Bytes();
    }
  }
  return bytes;
}

/// Walks the keys of a table in either direction.
///
/// The walk keeps a key and no pointer into the table: keys may be put in and taken out meanwhile, and
/// each step sees what then lies ahead.
template <class T, class Allocator = VRXBasOmiDefaultAllocator>
class omi_UintTableIterator
{
public:
  /// Stands on the smallest key.
  explicit omi_UintTableIterator(omi_UintTable<T> const& table) : m_table(&table) { First(); }

  void First() { m_isDone = !m_table->FindAtOrAbove(0, m_key); }
  void Last() { m_isDone = !m_table->FindAtOrBelow(~0u, m_key); }
  void Next() { m_isDone = m_key == ~0u || !m_table->FindAtOrAbove(m_key + 1, m_key); }
  void Previous() { m_isDone = m_key == 0 || !m_table->FindAtOrBelow(m_key - 1, m_key); }
  bool IsDone() const { return m_isDone; }

  unsigned CurrentKey() const { return m_key; }
  T const& CurrentValue() const { return m_table->ConstGet(m_key); }

private:
  omi_UintTable<T> const* m_table;
  unsigned m_key{0};
  bool m_isDone{true};
};
