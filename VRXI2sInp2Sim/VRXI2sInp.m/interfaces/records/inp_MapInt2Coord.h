#pragma once

#include "cow_COW.h"
#include "omi_IntTableCoord.h"

#include <cstddef>

/// Nodes by label, as a value: a copy costs O(1), and the first to write copies the whole table.
///
///     nodes.Insert(5, inp_Coord(1.0, 0.0, 0.0));
///     if (nodes.IsMember(5))
///       Use(nodes.ConstGet(5).x);
///
/// Takes 73 bytes a node in runs of labels. An empty map is a handle alone. A look-up costs two walks of
/// omi_IntTable and the node itself. Belongs to one thread at a time.
class inp_MapInt2Coord
{
public:
  /// Puts a copy in, over the node of that label. True when the label is new.
  bool Insert(int const& label, inp_Coord const& coord);

  /// The node of a label that is known to be present; no test is made. Good until the next write.
  inp_Coord const& ConstGet(int const& label) const { return m_table->ConstGetCoord(label); }
  bool IsMember(int const& label) const { return !m_table.IsNull() && m_table->IsMember(label); }

  /// The node, or null: one call in place of two.
  inp_Coord const* ConstFind(int label) const
  {
    return IsMember(label) ? &m_table->ConstGetCoord(label) : nullptr;
  }

  /// True when the label was present. An absent one copies nothing.
  bool Remove(int const& label);
  void Clear() { m_table = nullptr; }

  bool IsEmpty() const { return m_table.IsNull() || m_table->IsEmpty(); }
  int Size() const { return m_table.IsNull() ? 0 : m_table->Size(); }

  /// Bytes on the heap, with what the allocator rounds up.
  std::size_t Bytes() const;

private:
  friend class inp_MapInt2CoordSIT;

  cow_COW<omi_IntTableCoord, cow_Direct<omi_IntTableCoord>> m_table;
};

/// Walks a map in ascending order of its labels.
///
/// Keeps a share of its own: what is written to the map during the walk goes to a copy of the whole
/// table, and the walk goes on over what the map held at first.
class inp_MapInt2CoordSIT
{
public:
  /// Stands on the smallest label.
  explicit inp_MapInt2CoordSIT(inp_MapInt2Coord const& map);

  void First() { m_iterator.First(); }
  void Last() { m_iterator.Last(); } ///< the largest label, without a walk
  void Next() { m_iterator.Next(); }
  bool IsDone() const { return m_iterator.IsDone(); }
  int CurrentKey() const { return m_iterator.CurrentKey(); }
  inp_Coord const& CurrentValue() const
  {
    return *static_cast<inp_Coord const*>(m_iterator.CurrentValue());
  }

private:
  inp_MapInt2Coord m_share;
  omi_IntTableIterator<void*> m_iterator;
};
