#pragma once

#include "VRXBasOmiDefaultAllocator.h"
#include "cow_COW.h"
#include "cow_List.h"
#include "omi_IntTable.h"

class inpM_IdMap;

/// Nodes with an area each, by node label: what a surface of nodes is made of.
///
///     inpM_NodeAreaList nodes;
///     nodes.Insert(7, 1.0);
///     nodes.Insert(7, 2.5);            // the later area stands
///
/// A copy costs O(1) and shares; the first of both to write copies the whole list. Areas are in the
/// deck's units. Belongs to one thread at a time.
class inpM_NodeAreaList
{
public:
  using Table = omi_IntTable<double, VRXBasOmiDefaultAllocator>;

  /// Puts a node in, or gives one that is there another area. True when the node is new.
  bool Insert(int node, double area);
  bool Remove(int node); ///< true when the node was present; an absent one copies nothing

  bool IsMember(int node) const { return !m_areas.IsNull() && m_areas->IsMember(node); }
  double ConstGet(int node) const { return m_areas->ConstGet(node); } ///< no test is made
  int Size() const { return m_areas.IsNull() ? 0 : m_areas->Size(); }
  bool IsEmpty() const { return m_areas.IsNull() || m_areas->IsEmpty(); }
  cow_List<int> ConstGetNodes() const; ///< ascending

  // O(nodes of both); what is added stands over what is there.
  void Add(inpM_NodeAreaList const& other);
  void Difference(inpM_NodeAreaList const& other);
  void Intersection(inpM_NodeAreaList const& other); ///< areas stay

  /// Replaces user ids by internal ones, or with `toUser` internal ids by those of the user. A map without
  /// pairs changes nothing; otherwise nodes without an entry are dropped.
  void Renumber(inpM_IdMap const& idMap, bool toUser);

private:
  friend class inpM_NodeAreaListIT;

  cow_COW<Table, cow_Direct<Table>> m_areas; // null in place of an empty table
};

/// Walks the nodes in ascending order. Keeps a share of its own, so that writes to the list do not
/// disturb the walk.
class inpM_NodeAreaListIT
{
public:
  /// Stands on the smallest node.
  explicit inpM_NodeAreaListIT(inpM_NodeAreaList const& list);
  inpM_NodeAreaListIT(inpM_NodeAreaListIT const&) = delete;
  inpM_NodeAreaListIT& operator=(inpM_NodeAreaListIT const&) = delete;

  void Next() { m_iterator.Next(); }
  bool IsDone() const { return m_iterator.IsDone(); }
  int CurrentKey() const { return m_iterator.CurrentKey(); }
  double CurrentValue() const { return m_iterator.CurrentValue(); }

private:
  inpM_NodeAreaList m_share;
  omi_IntTableIterator<double, VRXBasOmiDefaultAllocator> m_iterator;
};
