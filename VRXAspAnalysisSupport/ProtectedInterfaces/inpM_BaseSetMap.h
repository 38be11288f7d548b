#pragma once

#include "cow_Btree.h"
#include "inpM_BaseSet.h"

/// Sets by name, in ascending order of the names.
///
/// A copy shares everything and costs O(1). Operations cost O(log n), also with a hundred thousand sets in
/// one map. What is inserted is a clone of what was given, or shares it.
class inpM_BaseSetMap
{
public:
  bool IsMember(cow_String const& name) const { return m_sets.IsMember(name); }

  /// The set of a name that is known to be present: raises VRXBasAssertException otherwise.
  inpM_BaseSet const& ConstGet(cow_String const& name) const;
  /// The same for writing, good until the map is copied or changed in another way.
  inpM_BaseSet& Get(cow_String const& name);
  /// The set, or null: one search in place of two.
  inpM_BaseSet const* ConstFind(cow_String const& name) const;

  /// Inserts a set, or replaces the one of that name. True when the name is new.
  bool Insert(cow_String const& name, inpM_BaseSet const& set);
  bool Insert(cow_String const& name, inpM_SetHandle const& set); ///< shares

  /// Adds to the set of that name, whose type and kind stay; inserts it when there is none.
  void Add(cow_String const& name, inpM_BaseSet const& set);
  void Add(cow_String const& name, inpM_SetHandle const& set);

  /// Adds every set of the other.
  void Merge(inpM_BaseSetMap const& other);

  int Size() const { return m_sets.Size(); }
  bool IsEmpty() const { return m_sets.Size() == 0; }

  /// The names, ascending.
  cow_List<cow_String> Names() const;

private:
  friend class inpM_BaseSetMapIT;
  using Tree = cow_Btree<cow_String, inpM_SetHandle>;

  Tree m_sets;
};

/// Walks the sets that a map has now in ascending order of their names.
///
///     for (inpM_BaseSetMapSIT it(map); !it.IsDone(); it.Next())
///       Use(it.CurrentKey(), it.CurrentValue());
class inpM_BaseSetMapIT
{
public:
  /// Stands on the first set.
  explicit inpM_BaseSetMapIT(inpM_BaseSetMap const& map) : m_iterator(map.m_sets) { First(); }

  void First() { m_iterator.First(); }
  void Next() { m_iterator.Next(); }
  bool IsDone() const { return m_iterator.IsDone(); }
  cow_String const& CurrentKey() const { return m_iterator.CurrentKey(); }
  inpM_BaseSet const& CurrentValue() const { return *m_iterator.CurrentValue(); }
  /// The set as it is held, for sharing.
  inpM_SetHandle const& CurrentHandle() const { return m_iterator.CurrentValue(); }

private:
  cow_BtreeIterator<cow_String, inpM_SetHandle> m_iterator;
};

using inpM_BaseSetMapSIT = inpM_BaseSetMapIT;
