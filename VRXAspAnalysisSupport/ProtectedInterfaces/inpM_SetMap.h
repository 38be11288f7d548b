#pragma once

#include "inpM_BaseSetMap.h"

class aio_ostream;
class inpM_IdMap;

/// The node sets or the element sets of a level, and by instance name those of the levels below.
///
/// A nested operation with an empty instance name works on the own level. A copy shares everything and
/// costs O(1). Names are compared byte by byte, and walks go in ascending order.
class inpM_SetMap
{
public:
  using InstanceTree = cow_Btree<cow_String, inpM_BaseSetMap>;

  bool HasSet(cow_String const& name) const { return m_sets.IsMember(name); }
  /// The set must be present, as in inpM_BaseSetMap.
  inpM_BaseSet const& ConstGetSet(cow_String const& name) const { return m_sets.ConstGet(name); }
  /// In place of the set of that name; a clone, or a share.
  void InsertSet(cow_String const& name, inpM_BaseSet const& set) { m_sets.Insert(name, set); }
  void InsertSet(cow_String const& name, inpM_SetHandle const& set) { m_sets.Insert(name, set); }

  bool HasNestedSet(cow_String const& instanceName, cow_String const& name) const;
  inpM_BaseSet const& ConstGetNestedSet(cow_String const& instanceName,
                                        cow_String const& name) const;
  /// The set, or null: one search in place of two.
  inpM_BaseSet const* ConstFindNestedSet(cow_String const& instanceName,
                                         cow_String const& name) const;
  /// Makes the child when there is none.
  void InsertNestedSet(cow_String const& instanceName, cow_String const& name,
                       inpM_BaseSet const& set);
  void InsertNestedSet(cow_String const& instanceName, cow_String const& name,
                       inpM_SetHandle const& set);

  /// Adds to the set of that name, whose type and kind stay; inserts it when there is none. Works in place,
  /// so that a set which grows by many small additions is not copied each time.
  void AddToNestedSet(cow_String const& instanceName, cow_String const& name,
                      inpM_BaseSet const& set);

  /// All sets of an instance; an unknown one has none.
  inpM_BaseSetMap const& ConstGetNestedSetMap(cow_String const& instanceName) const;
  inpM_BaseSetMap const& ConstGet(cow_String const& instanceName) const
  {
    return ConstGetNestedSetMap(instanceName);
  }
  /// In place of all sets that the instance has.
  void InsertNestedSetMap(cow_String const& instanceName, inpM_BaseSetMap const& sets);

  /// The sets of the own level.
  inpM_BaseSetMap const& ConstGetMap() const { return m_sets; }
  inpM_BaseSetMap const& ConstGetSetMap() const { return m_sets; }
  /// The sets of the levels below.
  InstanceTree const& ConstGetInstanceMap() const { return m_instances; }

  bool HasInstance(cow_String const& name) const { return m_instances.IsMember(name); }
  cow_List<cow_String> Instances() const; ///< ascending

  /// Moves the sets of an instance, over those that the new name has. An unknown old name changes
  /// nothing.
  void ChangeInstanceName(cow_String const& from, cow_String const& to);

  bool IsEmpty() const; ///< no set at any level

  /// Adds every set of the other to the one of its level and name.
  void Merge(inpM_SetMap const& other);

  /// Drops, at every level, the sets whose names are not in the list.
  void DeleteAllSetsExceptThoseListed(cow_List<cow_String> const& names);

  /// Renumbers the sets of every level, those of an instance by the id map's child of its name; see
  /// inpM_BaseSet::Renumber.
  void Renumber(inpM_IdMap const& idMap, bool toUser);

  /// True when the set stands at the own level or in an instance; `instanceName` is then the first such
  /// instance, ascending, or "" for the own level.
  bool SearchAssemblyAndInstancesForSet(cow_String const& name, cow_String& instanceName) const;

  /// A line for each set's name, its ids below, then each instance's name and its sets.
  void Print(aio_ostream& stream) const;

private:
  inpM_BaseSetMap& MakeNested(cow_String const& instanceName);

  inpM_BaseSetMap m_sets;
  InstanceTree m_instances;
};
