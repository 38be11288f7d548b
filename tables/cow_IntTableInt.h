#pragma once

#include "cow_COW.h"
#include "omi_IntTable.h"

#include <cstddef>

/// A table from ints to ints that copies in constant time: the type of every id-to-id table.
///
/// A copy shares the table until one of the holders writes; that one then copies the whole table. An
/// empty table is a handle alone. Belongs to one thread at a time.
class cow_IntTableInt
{
public:
  using Table = omi_IntTable<int, VRXBasOmiDefaultAllocator>;

  /// Puts a value under a key, over the one that stands there. True when the key is new.
  bool Insert(int const& key, int const& value);

  /// Takes a key out; true when it was present. An absent key copies nothing.
  bool Remove(int const& key);

  bool IsMember(int const& key) const { return ConstGetTable().IsMember(key); }

  /// The value of a key that is known to be present; no test is made.
  int const& ConstGet(int const& key) const { return m_table->ConstGet(key); }

  /// Reads the value of any key; false, and `value` as it was, when the key is absent.
  bool ConstGetValue(int const& key, int& value) const
  {
    return ConstGetTable().ConstGetValue(key, value);
  }

  int Size() const { return ConstGetTable().Size(); }
  bool IsEmpty() const { return ConstGetTable().IsEmpty(); }
  void Clear() { m_table = nullptr; }

  /// The table itself, for loops that look up by the fields; good until the next write.
  Table const& ConstGetTable() const { return m_table.IsNull() ? EmptyTable() : *m_table; }

private:
  static Table const& EmptyTable();

  cow_COW<Table, cow_Direct<Table>> m_table;
};

/// Walks a table in ascending order of its keys.
///
/// Keeps a share of its own: what is written to the table during the walk goes to a copy, and the walk
/// goes on over what the table held at first.
class cow_IntTableIntIT
{
public:
  /// Stands on the smallest key.
  explicit cow_IntTableIntIT(cow_IntTableInt const& table)
    : m_share(table), m_iterator(m_share.ConstGetTable())
  {
  }

  void First() { m_iterator.First(); }
  void Last() { m_iterator.Last(); }
  void Next() { m_iterator.Next(); }
  bool IsDone() const { return m_iterator.IsDone(); }
  int CurrentKey() const { return m_iterator.CurrentKey(); }
  int const& CurrentValue() const { return m_iterator.CurrentValue(); }

private:
  cow_IntTableInt m_share;
  omi_IntTableIterator<int, VRXBasOmiDefaultAllocator> m_iterator;
};

/// The table with keys and values exchanged. Of several keys with one value the largest remains.
cow_IntTableInt Invert(cow_IntTableInt const& table);
