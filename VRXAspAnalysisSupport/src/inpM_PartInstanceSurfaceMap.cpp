#include "inpM_PartInstanceSurfaceMap.h"

#include "VRXBasException.h"

inpM_PartInstanceSurface const& inpM_PartInstanceSurfaceMap::ConstGet(cow_String const& name) const
{
  inpM_PartInstanceSurface const* const surface = ConstFind(name);
  VRXBasAssert(surface != nullptr, "IsMember(name)");
  return *surface;
}

inpM_PartInstanceSurface& inpM_PartInstanceSurfaceMap::Get(cow_String const& name)
{
  inpM_PartInstanceSurface* const surface = Find(name);
  VRXBasAssert(surface != nullptr, "IsMember(name)");
  return *surface;
}

inpM_PartInstanceSurface const* inpM_PartInstanceSurfaceMap::ConstFind(cow_String const& name) const
{
  inpM_PartInstanceSurfaceHandle const* const handle = m_surfaces.ConstFind(name);
  return handle == nullptr ? nullptr : handle->ConstGet();
}

inpM_PartInstanceSurface* inpM_PartInstanceSurfaceMap::Find(cow_String const& name)
{
  inpM_PartInstanceSurfaceHandle* const handle = m_surfaces.Find(name);
  return handle == nullptr ? nullptr : handle->Get();
}

bool inpM_PartInstanceSurfaceMap::Insert(cow_String const& name,
                                         inpM_PartInstanceSurface const& surface)
{
  return Insert(name, inpM_PartInstanceSurfaceHandle(surface.Copy()));
}

bool inpM_PartInstanceSurfaceMap::Insert(cow_String const& name,
                                         inpM_PartInstanceSurfaceHandle const& surface)
{
  inpM_PartInstanceSurfaceHandle const share = surface; // which may live in the map
  if (m_surfaces.InsertUnlessMember(name, share))
  {
    return true;
  }
  *m_surfaces.Find(name) = share;
  return false;
}

void inpM_PartInstanceSurfaceMap::Add(cow_String const& name,
                                      inpM_PartInstanceSurface const& surface)
{
  inpM_PartInstanceSurface* const own = Find(name);
  if (own == nullptr)
  {
    Insert(name, surface);
    return;
  }
  own->Add(surface);
}

void inpM_PartInstanceSurfaceMap::Merge(inpM_PartInstanceSurfaceMap const& other)
{
  if (IsEmpty())
  {
    *this = other;
    return;
  }
  for (inpM_PartInstanceSurfaceMapSIT it(other); !it.IsDone(); it.Next())
  {
    Insert(it.CurrentKey(), it.CurrentHandle());
  }
}
