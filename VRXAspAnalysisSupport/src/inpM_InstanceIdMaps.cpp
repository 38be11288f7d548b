#include "inpM_InstanceIdMaps.h"

#include "VRXBasException.h"

void inpM_InstanceIdMaps::Insert(cow_String const& instanceName, inpM_InstanceMaps const& maps)
{
  inpM_InstanceMaps const share = maps; // which may live in the tree
  if (!m_maps.InsertUnlessMember(instanceName, share))
  {
    *m_maps.Find(instanceName) = share;
  }
}

inpM_InstanceMaps& inpM_InstanceIdMaps::Get(cow_String const& instanceName)
{
  inpM_InstanceMaps* const maps = m_maps.Find(instanceName);
  VRXBasAssert(maps != nullptr, "IsMember(instanceName)");
  return *maps;
}

inpM_InstanceMaps const& inpM_InstanceIdMaps::ConstGet(cow_String const& instanceName) const
{
  inpM_InstanceMaps const* const maps = m_maps.ConstFind(instanceName);
  VRXBasAssert(maps != nullptr, "IsMember(instanceName)");
  return *maps;
}

cow_List<cow_String> inpM_InstanceIdMaps::Instances() const
{
  cow_List<cow_String> names;
  cow_BtreeIterator<cow_String, inpM_InstanceMaps> it(m_maps);
  for (it.First(); !it.IsDone(); it.Next())
  {
    names.Append(it.CurrentKey());
  }
  return names;
}
