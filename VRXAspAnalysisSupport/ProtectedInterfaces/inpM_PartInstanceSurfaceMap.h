#pragma once

#include "cow_Btree.h"
#include "inpM_PartInstanceSurface.h"

/// Surfaces by name, in ascending order of the names; or the pieces of one surface by instance.
///
/// A copy shares everything and costs O(1); operations cost O(log n). What is inserted is a copy or a
/// share of what was given.
class inpM_PartInstanceSurfaceMap
{
public:
  bool IsMember(cow_String const& name) const { return m_surfaces.IsMember(name); }

  /// The surface of a name that is known to be present: raises VRXBasAssertException otherwise. The one
  /// for writing is good until the map is copied or changed in another way.
  inpM_PartInstanceSurface const& ConstGet(cow_String const& name) const;
  inpM_PartInstanceSurface& Get(cow_String const& name);

  /// The surface, or null: one search in place of two.
  inpM_PartInstanceSurface const* ConstFind(cow_String const& name) const;
  inpM_PartInstanceSurface* Find(cow_String const& name);

  /// Inserts a surface, or replaces the one of that name. True when the name is new.
  bool Insert(cow_String const& name, inpM_PartInstanceSurface const& surface);
  bool Insert(cow_String const& name, inpM_PartInstanceSurfaceHandle const& surface); ///< shares

  /// Adds to the surface of that name, or inserts it when there is none.
  void Add(cow_String const& name, inpM_PartInstanceSurface const& surface);

  /// Inserts every surface of the other; one of the same name is replaced.
  void Merge(inpM_PartInstanceSurfaceMap const& other);

  int Size() const { return m_surfaces.Size(); }
  bool IsEmpty() const { return m_surfaces.Size() == 0; }

private:
  friend class inpM_PartInstanceSurfaceMapSIT;

  cow_Btree<cow_String, inpM_PartInstanceSurfaceHandle> m_surfaces;
};

/// Walks the surfaces that a map has now in ascending order of their names.
///
///     for (inpM_PartInstanceSurfaceMapSIT it(map); !it.IsDone(); it.Next())
///       Use(it.CurrentKey(), it.CurrentValue());
class inpM_PartInstanceSurfaceMapSIT
{
public:
  /// Stands on the first surface.
  explicit inpM_PartInstanceSurfaceMapSIT(inpM_PartInstanceSurfaceMap const& map)
    : m_iterator(map.m_surfaces)
  {
    First();
  }

  void First() { m_iterator.First(); }
  void Next() { m_iterator.Next(); }
  bool IsDone() const { return m_iterator.IsDone(); }
  cow_String const& CurrentKey() const { return m_iterator.CurrentKey(); }
  inpM_PartInstanceSurface const& CurrentValue() const { return *m_iterator.CurrentValue(); }
  /// The surface as it is held, for sharing.
  inpM_PartInstanceSurfaceHandle const& CurrentHandle() const { return m_iterator.CurrentValue(); }

private:
  cow_BtreeIterator<cow_String, inpM_PartInstanceSurfaceHandle> m_iterator;
};
