#include "inpM_BaseSetMap.h"

#include "VRXBasException.h"
#include "inpM_CreateSet.h"

inpM_BaseSet const& inpM_BaseSetMap::ConstGet(cow_String const& name) const
{
  inpM_BaseSet const* const set = ConstFind(name);
  VRXBasAssert(set != nullptr, "IsMember(name)");
  return *set;
}

inpM_BaseSet& inpM_BaseSetMap::Get(cow_String const& name)
{
  inpM_SetHandle* const handle = m_sets.Find(name);
  VRXBasAssert(handle != nullptr, "IsMember(name)");
  return *handle->Get();
}

inpM_BaseSet const* inpM_BaseSetMap::ConstFind(cow_String const& name) const
{
  inpM_SetHandle const* const handle = m_sets.ConstFind(name);
  return handle == nullptr ? nullptr : handle->ConstGet();
}

bool inpM_BaseSetMap::Insert(cow_String const& name, inpM_BaseSet const& set)
{
  return Insert(name, CreateSet(set));
}

bool inpM_BaseSetMap::Insert(cow_String const& name, inpM_SetHandle const& set)
{
  if (m_sets.InsertUnlessMember(name, set))
  {
    return true;
  }
  inpM_SetHandle const share = set; // which may live in the map
  *m_sets.Find(name) = share;
  return false;
}

void inpM_BaseSetMap::Add(cow_String const& name, inpM_BaseSet const& set)
{
  if (!IsMember(name))
  {
    Insert(name, set);
    return;
  }
  Add(name, CreateSet(set));
}

void inpM_BaseSetMap::Add(cow_String const& name, inpM_SetHandle const& set)
{
  inpM_SetHandle const share = set; // which may live in the map
  if (!m_sets.InsertUnlessMember(name, share))
  {
    Get(name).Add(*share);
  }
}

void inpM_BaseSetMap::Merge(inpM_BaseSetMap const& other)
{
  if (IsEmpty())
  {
    *this = other;
    return;
  }
  for (inpM_BaseSetMapIT it(other); !it.IsDone(); it.Next())
  {
    Add(it.CurrentKey(), it.CurrentHandle());
  }
}

cow_List<cow_String> inpM_BaseSetMap::Names() const
{
  cow_List<cow_String> names;
  for (inpM_BaseSetMapIT it(*this); !it.IsDone(); it.Next())
  {
    names.Append(it.CurrentKey());
  }
  return names;
}
