#pragma once

#include "VRXBasOmiDefaultAllocator.h"
#include "omi_UintTable.h"

#include <cstddef>
#include <memory>
#include <utility>

/// A table from ints to values, made of two omi_UintTable: one a sign.
///
///     key >= 0    nonNegatives, under the key
///     key <  0    negatives, under its magnitude: -key modulo 2^32, so that INT_MIN needs no case
///
/// Both halves live as long as the table; an empty table is some 100 bytes. Keys come in ascending
/// order, the negative ones first. Every operation is the choice of a half and one call on it; what
/// holds for omi_UintTable holds here. A copy is deep in the values, but not in what pointers point to:
/// tables of owning pointers derive from this one and bring copying and freeing themselves.
template <class T, class Allocator = VRXBasOmiDefaultAllocator>
class omi_IntTable
{
public:
  omi_IntTable() : omi_IntTable(new omi_UintTable<T>) {}
  omi_IntTable(omi_IntTable const& other) : omi_IntTable()
  {
    *negatives = *other.negatives;
    *nonNegatives = *other.nonNegatives;
  }
  omi_IntTable(omi_IntTable&& other) : omi_IntTable() { Swap(other); }
  omi_IntTable& operator=(omi_IntTable const& other)
  {
    omi_IntTable copy(other);
    Swap(copy);
    return *this;
  }
  omi_IntTable& operator=(omi_IntTable&& other) noexcept
  {
    Swap(other);
    return *this;
  }
  virtual ~omi_IntTable()
  {
    delete nonNegatives;
    delete negatives;
  }

  /// Puts a value under a key, over the one that stands there. True when the key is new.
  bool Insert(int key, T const& value) { return Half(key).Insert(Magnitude(key), value); }

  /// Takes a key out; true when it was present.
  bool Remove(int key) { return Half(key).Remove(Magnitude(key)); }

  bool IsMember(int key) const { return Half(key).IsMember(Magnitude(key)); }

  /// The value of a key that is known to be present; no test is made.
  T const& ConstGet(int key) const { return Half(key).ConstGet(Magnitude(key)); }
  T& Get(int key) { return Half(key).Get(Magnitude(key)); }

  /// Reads the value of any key; false, and `value` as it was, when the key is absent.
  bool ConstGetValue(int key, T& value) const
  {
    return Half(key).ConstGetValue(Magnitude(key), value);
  }

  /// The node that a key falls into, or null.
  omi_UintTableBlock<T>* FindTableBlock(int key) const
  {
    return Half(key).FindTableBlock(Magnitude(key));
  }

  bool IsEmpty() const { return negatives->IsEmpty() && nonNegatives->IsEmpty(); }
  int Size() const { return negatives->Size() + nonNegatives->Size(); }

  /// Empties both halves; pointees of pointer values are left alone.
  void Clear()
  {
    negatives->Clear();
    nonNegatives->Clear();
  }

  /// Bytes on the heap besides the table itself, without what the allocator adds.
  std::size_t Bytes() const
  {
    return 2 * sizeof(omi_UintTable<T>) + negatives->Bytes() + nonNegatives->Bytes();
  }

  static void* operator new(std::size_t size) { return Allocator::allocate(size); }
  static void operator delete(void* memory) { Allocator::deallocate(memory); }

  omi_UintTable<T>* negatives;
  omi_UintTable<T>* nonNegatives;

protected:
  void Swap(omi_IntTable& other) noexcept
  {
    std::swap(negatives, other.negatives);
    std::swap(nonNegatives, other.nonNegatives);
  }

private:
  // Two steps, so that the first half is freed when there is no memory for the second.
  explicit omi_IntTable(omi_UintTable<T>* half) : negatives(half)
  {
    std::unique_ptr<omi_UintTable<T>> guard(half);
    nonNegatives = new omi_UintTable<T>;
    static_cast<void>(guard.release());
  }

  static unsigned Magnitude(int key)
  {
    return key < 0 ? 0u - static_cast<unsigned>(key) : static_cast<unsigned>(key);
  }
  omi_UintTable<T>& Half(int key) const { return key < 0 ? *negatives : *nonNegatives; }
};

/// Walks a table from its smallest key up: the negative half from its largest magnitude down, then
/// the other half.
///
/// Keys may be put in and taken out during the walk; the table itself must stay.
///
///     for (omi_IntTableIterator<int> it(table); !it.IsDone(); it.Next())
///       Use(it.CurrentKey(), it.CurrentValue());
template <class T, class Allocator = VRXBasOmiDefaultAllocator>
class omi_IntTableIterator
{
public:
  /// Stands on the smallest key.
  explicit omi_IntTableIterator(omi_IntTable<T, Allocator> const& table)
    : m_negatives(*table.negatives), m_nonNegatives(*table.nonNegatives)
  {
    First();
  }

  void First()
  {
    m_negatives.Last();
    m_nonNegatives.First();
    m_isBelowZero = !m_negatives.IsDone();
  }

  /// Goes to the largest key. Looks at the top end of a half only, not at the keys below.
  void Last()
  {
    m_negatives.First();
    m_nonNegatives.Last();
    m_isBelowZero = m_nonNegatives.IsDone() && !m_negatives.IsDone();
  }

  void Next()
  {
    if (!m_isBelowZero)
    {
      m_nonNegatives.Next();
      return;
    }
    m_negatives.Previous();
    if (m_negatives.IsDone())
    {
      m_isBelowZero = false;
      m_nonNegatives.First();
    }
  }

  bool IsDone() const { return !m_isBelowZero && m_nonNegatives.IsDone(); }

  int CurrentKey() const
  {
    return static_cast<int>(m_isBelowZero ? 0u - m_negatives.CurrentKey()
                                          : m_nonNegatives.CurrentKey());
  }
  T const& CurrentValue() const
  {
    return m_isBelowZero ? m_negatives.CurrentValue() : m_nonNegatives.CurrentValue();
  }

private:
  omi_UintTableIterator<T, Allocator> m_negatives;
  omi_UintTableIterator<T, Allocator> m_nonNegatives;
  bool m_isBelowZero{false};
};
