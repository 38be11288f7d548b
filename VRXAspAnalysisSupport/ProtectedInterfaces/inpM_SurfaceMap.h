#pragma once

#include "cow_Btree.h"
#include "cow_List.h"
#include "inpM_AssemblyInstanceSurface.h"
#include "inpM_PartInstanceSurfaceMap.h"

class inpM_IdMap;

/// Surfaces of the assembly by name, ascending.
using inpM_AssemblyInstanceSurfaceMap = cow_Btree<cow_String, inpM_AssemblyInstanceSurface>;
using inpM_AssemblyInstanceSurfaceMapSIT =
  cow_BtreeIterator<cow_String, inpM_AssemblyInstanceSurface>;

/// All surfaces of a model: those of the assembly, and by part or instance those within it.
///
/// An unknown name reads as absent. A copy shares everything and costs O(1); operations cost
/// O(log n). Names are compared byte by byte, and walks go in ascending order.
class inpM_SurfaceMap
{
public:
  using InstanceTree = cow_Btree<cow_String, inpM_PartInstanceSurfaceMap>;

  // Surfaces within a part or instance.
  bool IsMemberPartInstanceSurface(cow_String const& instanceName, cow_String const& name) const
  {
    return ConstFindPartInstanceSurface(instanceName, name) != nullptr;
  }
  /// The surface must be present: raises VRXBasAssertException otherwise.
  inpM_PartInstanceSurface const& ConstGetPartInstanceSurface(cow_String const& instanceName,
                                                              cow_String const& name) const;
  /// The surface, or null: one search in place of two.
  inpM_PartInstanceSurface const* ConstFindPartInstanceSurface(cow_String const& instanceName,
                                                               cow_String const& name) const;
  /// In place of the surface of that name; a copy, or a share.
  void InsertPartInstanceSurface(cow_String const& instanceName, cow_String const& name,
                                 inpM_PartInstanceSurface const& surface);
  void InsertPartInstanceSurface(cow_String const& instanceName, cow_String const& name,
                                 inpM_PartInstanceSurfaceHandle const& surface);
  /// In place of all surfaces that the instance has.
  void InsertPartInstanceSurfaceMap(cow_String const& instanceName,
                                    inpM_PartInstanceSurfaceMap const& surfaces);
  /// All surfaces of an instance; an unknown one has none.
  inpM_PartInstanceSurfaceMap const&
  ConstGetPartInstanceSurfaceMap(cow_String const& instanceName) const;
  bool HasInstanceInPartInstanceSurfaceMap(cow_String const& instanceName) const
  {
    return m_instances.IsMember(instanceName);
  }
  cow_List<cow_String> Instances() const; ///< ascending
  InstanceTree const& ConstGetInstanceMap() const { return m_instances; }

  // Surfaces of the assembly.
  bool IsMemberAssemblyInstanceSurface(cow_String const& name) const
  {
    return m_assembly.IsMember(name);
  }
  /// The surface must be present: raises VRXBasAssertException otherwise.
  inpM_AssemblyInstanceSurface const& ConstGetAssemblyInstanceSurface(cow_String const& name) const;
  inpM_AssemblyInstanceSurface const* ConstFindAssemblyInstanceSurface(cow_String const& name) const
  {
    return m_assembly.ConstFind(name);
  }
  void InsertAssemblyInstanceSurface(cow_String const& name,
                                     inpM_AssemblyInstanceSurface const& surface);
  inpM_AssemblyInstanceSurfaceMap const& ConstGetAssemblyInstanceSurfaceMap() const
  {
    return m_assembly;
  }

  bool IsEmpty() const; ///< no surface at any level

  /// Inserts every surface of the other. One of the same level and name is replaced: a surface that is
  /// defined again is another surface.
  void Merge(inpM_SurfaceMap const& other);

  /// Renumbers the surfaces of every level, those of an instance by the id maps' children of its name; see
  /// inpM_PartInstanceSurface::Renumber.
  void Renumber(inpM_IdMap const& nodes, inpM_IdMap const& elements, bool toUser);

private:
  inpM_PartInstanceSurfaceMap& MakeInstance(cow_String const& instanceName);

  InstanceTree m_instances;
  inpM_AssemblyInstanceSurfaceMap m_assembly;
};
