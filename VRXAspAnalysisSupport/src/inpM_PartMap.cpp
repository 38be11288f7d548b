#include "inpM_PartMap.h"

#include <cstddef>
#include <functional>
#include <unordered_map>

namespace
{
using InstanceIterator = cow_BtreeIterator<cow_String, inpM_OmiSet>;

void Mix(std::size_t& hash, std::size_t value) { hash = (hash ^ value) * 1099511628211u; }

std::size_t HashOfMembers(inpM_BaseSet const& set)
{
  std::size_t hash = 14695981039346656037u;
  for (int id : set.ConstGetIds())
  {
    Mix(hash, static_cast<unsigned>(id));
  }
  inpM_BaseSet::InstanceTree const instances = set.ConstGetInstanceTree();
  InstanceIterator it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    Mix(hash, std::hash<cow_String>()(it.CurrentKey()));
    for (int id : set.ConstGetIds(it.CurrentKey()))
    {
      Mix(hash, static_cast<unsigned>(id));
    }
  }
  return hash;
}

bool HaveSameMembers(inpM_BaseSet const& a, inpM_BaseSet const& b)
{
  inpM_BaseSet::InstanceTree const instances = a.ConstGetInstanceTree();
  if (!(a.ConstGetIds() == b.ConstGetIds()) || instances.Size() != b.ConstGetInstanceTree().Size())
  {
    return false;
  }
  InstanceIterator it(instances);
  it.First();
  while (!it.IsDone() && a.ConstGetIds(it.CurrentKey()) == b.ConstGetIds(it.CurrentKey()))
  {
    it.Next();
  }
  return it.IsDone();
}

/// The sets that are kept, found again by a hash of their members.
class KeptSets
{
public:
  void Keep(inpM_BaseSet const& set) { m_sets.emplace(HashOfMembers(set), &set); }
  bool HasSameMembers(inpM_BaseSet const& set) const
  {
    auto const [begin, end] = m_sets.equal_range(HashOfMembers(set));
    auto it = begin;
    while (it != end && !HaveSameMembers(*it->second, set))
    {
      ++it;
    }
    return it != end;
  }

private:
  std::unordered_multimap<std::size_t, inpM_BaseSet const*> m_sets;
};

inpM_BaseSetMap WithoutRedundant(inpM_BaseSetMap const& sets)
{
  KeptSets kept;
  for (inpM_BaseSetMapIT it(sets); !it.IsDone(); it.Next())
  {
    if (!it.CurrentValue().IsPicked())
    {
      kept.Keep(it.CurrentValue());
    }
  }
  inpM_BaseSetMap remaining;
  for (inpM_BaseSetMapIT it(sets); !it.IsDone(); it.Next())
  {
    bool const isPicked = it.CurrentValue().IsPicked();
    if (isPicked && kept.HasSameMembers(it.CurrentValue()))
    {
      continue;
    }
    remaining.Insert(it.CurrentKey(), it.CurrentHandle());
    if (isPicked)
    {
      kept.Keep(it.CurrentValue());
    }
  }
  return remaining;
}

inpM_SetMap WithoutRedundant(inpM_SetMap const& sets)
{
  inpM_SetMap remaining;
  remaining.InsertNestedSetMap("", WithoutRedundant(sets.ConstGetMap()));
  for (cow_String const& name : sets.Instances())
  {
    remaining.InsertNestedSetMap(name, WithoutRedundant(sets.ConstGetNestedSetMap(name)));
  }
  return remaining;
}
} // namespace

inpM_SurfaceMap const& inpM_PartMap::ConstGetSurfaceMap() const
{
  VRXBasAssert(HasSurfaceMap(), "HasSurfaceMap()");
  return *m_surfaces;
}

void inpM_PartMap::RemoveRedundantInternalSets()
{
  m_nsets = WithoutRedundant(m_nsets);
  m_elsets = WithoutRedundant(m_elsets);
}
