#include "inpM_SurfaceMap.h"

#include "VRXBasException.h"
#include "inpM_IdMap.h"

namespace
{
using InstanceIterator = cow_BtreeIterator<cow_String, inpM_PartInstanceSurfaceMap>;

inpM_PartInstanceSurfaceMap const& NoSurfaces()
{
  // Thread-local, because the counts of shared data are not atomic.
  static thread_local inpM_PartInstanceSurfaceMap const none;
  return none;
}
} // namespace

inpM_PartInstanceSurfaceMap const&
inpM_SurfaceMap::ConstGetPartInstanceSurfaceMap(cow_String const& instanceName) const
{
  inpM_PartInstanceSurfaceMap const* const surfaces = m_instances.ConstFind(instanceName);
  return surfaces == nullptr ? NoSurfaces() : *surfaces;
}

inpM_PartInstanceSurface const*
inpM_SurfaceMap::ConstFindPartInstanceSurface(cow_String const& instanceName,
                                              cow_String const& name) const
{
  return ConstGetPartInstanceSurfaceMap(instanceName).ConstFind(name);
}

inpM_PartInstanceSurface const&
inpM_SurfaceMap::ConstGetPartInstanceSurface(cow_String const& instanceName,
                                             cow_String const& name) const
{
  return ConstGetPartInstanceSurfaceMap(instanceName).ConstGet(name);
}

inpM_PartInstanceSurfaceMap& inpM_SurfaceMap::MakeInstance(cow_String const& instanceName)
{
  m_instances.InsertUnlessMember(instanceName, inpM_PartInstanceSurfaceMap());
  return *m_instances.Find(instanceName);
}

void inpM_SurfaceMap::InsertPartInstanceSurface(cow_String const& instanceName,
                                                cow_String const& name,
                                                inpM_PartInstanceSurface const& surface)
{
  InsertPartInstanceSurface(instanceName, name, inpM_PartInstanceSurfaceHandle(surface.Copy()));
}

void inpM_SurfaceMap::InsertPartInstanceSurface(cow_String const& instanceName,
                                                cow_String const& name,
                                                inpM_PartInstanceSurfaceHandle const& surface)
{
  inpM_PartInstanceSurfaceHandle const share = surface; // which may live in this map
  MakeInstance(instanceName).Insert(name, share);
}

void inpM_SurfaceMap::InsertPartInstanceSurfaceMap(cow_String const& instanceName,
                                                   inpM_PartInstanceSurfaceMap const& surfaces)
{
  inpM_PartInstanceSurfaceMap const share = surfaces; // which may live in this map
  MakeInstance(instanceName) = share;
}

cow_List<cow_String> inpM_SurfaceMap::Instances() const
{
  cow_List<cow_String> names;
  InstanceIterator it(m_instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    names.Append(it.CurrentKey());
  }
  return names;
}

inpM_AssemblyInstanceSurface const&
inpM_SurfaceMap::ConstGetAssemblyInstanceSurface(cow_String const& name) const
{
  inpM_AssemblyInstanceSurface const* const surface = m_assembly.ConstFind(name);
  VRXBasAssert(surface != nullptr, "IsMemberAssemblyInstanceSurface(name)");
  return *surface;
}

void inpM_SurfaceMap::InsertAssemblyInstanceSurface(cow_String const& name,
                                                    inpM_AssemblyInstanceSurface const& surface)
{
  inpM_AssemblyInstanceSurface const share = surface; // which may live in this map
  if (!m_assembly.InsertUnlessMember(name, share))
  {
    *m_assembly.Find(name) = share;
  }
}

bool inpM_SurfaceMap::IsEmpty() const
{
  InstanceIterator it(m_instances);
  it.First();
  while (!it.IsDone() && it.CurrentValue().IsEmpty())
  {
    it.Next();
  }
  return it.IsDone() && m_assembly.Size() == 0;
}

void inpM_SurfaceMap::Merge(inpM_SurfaceMap const& other)
{
  inpM_SurfaceMap const added = other; // which may be this map
  InstanceIterator it(added.m_instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    MakeInstance(it.CurrentKey()).Merge(it.CurrentValue());
  }
  inpM_AssemblyInstanceSurfaceMapSIT surface(added.m_assembly);
  for (surface.First(); !surface.IsDone(); surface.Next())
  {
    InsertAssemblyInstanceSurface(surface.CurrentKey(), surface.CurrentValue());
  }
}

void inpM_SurfaceMap::Renumber(inpM_IdMap const& nodes, inpM_IdMap const& elements, bool toUser)
{
  InstanceTree const instances = m_instances;
  InstanceIterator it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    inpM_PartInstanceSurfaceMap& renumbered = *m_instances.Find(it.CurrentKey());
    for (inpM_PartInstanceSurfaceMapSIT piece(it.CurrentValue()); !piece.IsDone(); piece.Next())
    {
      inpM_IdMap const& ids = piece.CurrentValue().IsElementSurface() ? elements : nodes;
      renumbered.Get(piece.CurrentKey()).Renumber(ids.ConstGet(it.CurrentKey()), toUser);
    }
  }
  inpM_AssemblyInstanceSurfaceMap const assembly = m_assembly;
  inpM_AssemblyInstanceSurfaceMapSIT surface(assembly);
  for (surface.First(); !surface.IsDone(); surface.Next())
  {
    m_assembly.Find(surface.CurrentKey())->Renumber(nodes, elements, toUser);
  }
}
