#include "inpM_SetMap.h"

#include "aio_ostream.h"
#include "inpM_CreateSet.h"
#include "inpM_IdMap.h"

#include <algorithm>
#include <vector>

namespace
{
using TreeIterator = cow_BtreeIterator<cow_String, inpM_BaseSetMap>;

inpM_BaseSetMap const& NoSets()
{
  // Thread-local, because the counts of shared data are not atomic.
  static thread_local inpM_BaseSetMap const none;
  return none;
}

inpM_BaseSetMap Kept(inpM_BaseSetMap const& sets, std::vector<cow_String> const& sortedNames)
{
  inpM_BaseSetMap kept;
  for (inpM_BaseSetMapIT it(sets); !it.IsDone(); it.Next())
  {
    if (std::binary_search(sortedNames.begin(), sortedNames.end(), it.CurrentKey()))
    {
      kept.Insert(it.CurrentKey(), it.CurrentHandle());
    }
  }
  return kept;
}

inpM_BaseSetMap Renumbered(inpM_BaseSetMap const& sets, inpM_IdMap const& idMap, bool toUser)
{
  inpM_BaseSetMap renumbered;
  for (inpM_BaseSetMapIT it(sets); !it.IsDone(); it.Next())
  {
    inpM_SetHandle set = CreateSet(it.CurrentValue());
    set.Get()->Renumber(idMap, toUser);
    renumbered.Insert(it.CurrentKey(), set);
  }
  return renumbered;
}

void PrintIds(aio_ostream& stream, cow_String const& prefix, cow_List<int> const& ids)
{
  int const idsInLine = 16;
  for (int i = 0; i < ids.Length(); ++i)
  {
    bool const endsLine = i % idsInLine == idsInLine - 1 || i + 1 == ids.Length();
    stream << prefix.View() << ids[i] << (endsLine ? '\n' : ' ');
  }
}

void PrintSets(aio_ostream& stream, inpM_BaseSetMap const& sets)
{
  for (inpM_BaseSetMapIT set(sets); !set.IsDone(); set.Next())
  {
    stream << set.CurrentKey().View() << '\n';
    PrintIds(stream, "", set.CurrentValue().ConstGetIds());
    inpM_BaseSet::InstanceTree const instances = set.CurrentValue().ConstGetInstanceTree();
    cow_BtreeIterator<cow_String, inpM_OmiSet> it(instances);
    for (it.First(); !it.IsDone(); it.Next())
    {
      PrintIds(stream, it.CurrentKey() + ".", set.CurrentValue().ConstGetIds(it.CurrentKey()));
    }
  }
}
} // namespace

bool inpM_SetMap::HasNestedSet(cow_String const& instanceName, cow_String const& name) const
{
  return ConstFindNestedSet(instanceName, name) != nullptr;
}

inpM_BaseSet const& inpM_SetMap::ConstGetNestedSet(cow_String const& instanceName,
                                                   cow_String const& name) const
{
  return ConstGetNestedSetMap(instanceName).ConstGet(name);
}

inpM_BaseSet const* inpM_SetMap::ConstFindNestedSet(cow_String const& instanceName,
                                                    cow_String const& name) const
{
  return ConstGetNestedSetMap(instanceName).ConstFind(name);
}

inpM_BaseSetMap& inpM_SetMap::MakeNested(cow_String const& instanceName)
{
  if (instanceName.Length() == 0)
  {
    return m_sets;
  }
  m_instances.InsertUnlessMember(instanceName, inpM_BaseSetMap());
  return *m_instances.Find(instanceName);
}

void inpM_SetMap::InsertNestedSet(cow_String const& instanceName, cow_String const& name,
                                  inpM_BaseSet const& set)
{
  InsertNestedSet(instanceName, name, CreateSet(set));
}

void inpM_SetMap::InsertNestedSet(cow_String const& instanceName, cow_String const& name,
                                  inpM_SetHandle const& set)
{
  inpM_SetHandle const share = set; // which may live in this map
  MakeNested(instanceName).Insert(name, share);
}

void inpM_SetMap::AddToNestedSet(cow_String const& instanceName, cow_String const& name,
                                 inpM_BaseSet const& set)
{
  inpM_SetHandle const added = CreateSet(set); // which may live in this map
  MakeNested(instanceName).Add(name, added);
}

inpM_BaseSetMap const& inpM_SetMap::ConstGetNestedSetMap(cow_String const& instanceName) const
{
  if (instanceName.Length() == 0)
  {
    return m_sets;
  }
  inpM_BaseSetMap const* const sets = m_instances.ConstFind(instanceName);
  return sets == nullptr ? NoSets() : *sets;
}

void inpM_SetMap::InsertNestedSetMap(cow_String const& instanceName, inpM_BaseSetMap const& sets)
{
  inpM_BaseSetMap const share = sets; // which may live in this map
  MakeNested(instanceName) = share;
}

cow_List<cow_String> inpM_SetMap::Instances() const
{
  cow_List<cow_String> names;
  TreeIterator it(m_instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    names.Append(it.CurrentKey());
  }
  return names;
}

// The tree of instances cannot remove a name, so it is built anew: renaming is rare.
void inpM_SetMap::ChangeInstanceName(cow_String const& from, cow_String const& to)
{
  if (from == to || !HasInstance(from))
  {
    return;
  }
  InstanceTree renamed;
  renamed.InsertUnlessMember(to, *m_instances.ConstFind(from));
  TreeIterator it(m_instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    if (!(it.CurrentKey() == from))
    {
      renamed.InsertUnlessMember(it.CurrentKey(), it.CurrentValue());
    }
  }
  m_instances = renamed;
}

bool inpM_SetMap::IsEmpty() const
{
  TreeIterator it(m_instances);
  it.First();
  while (!it.IsDone() && it.CurrentValue().IsEmpty())
  {
    it.Next();
  }
  return m_sets.IsEmpty() && it.IsDone();
}

void inpM_SetMap::Merge(inpM_SetMap const& other)
{
  inpM_SetMap const added = other; // which may be this map
  m_sets.Merge(added.m_sets);
  TreeIterator it(added.m_instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    MakeNested(it.CurrentKey()).Merge(it.CurrentValue());
  }
}

void inpM_SetMap::DeleteAllSetsExceptThoseListed(cow_List<cow_String> const& names)
{
  std::vector<cow_String> sorted(names.begin(), names.end());
  std::sort(sorted.begin(), sorted.end());
  m_sets = Kept(m_sets, sorted);
  for (cow_String const& instanceName : Instances())
  {
    inpM_BaseSetMap& sets = *m_instances.Find(instanceName);
    sets = Kept(sets, sorted);
  }
}

void inpM_SetMap::Renumber(inpM_IdMap const& idMap, bool toUser)
{
  m_sets = Renumbered(m_sets, idMap, toUser);
  for (cow_String const& instanceName : Instances())
  {
    inpM_BaseSetMap& sets = *m_instances.Find(instanceName);
    sets = Renumbered(sets, idMap.ConstGet(instanceName), toUser);
  }
}

bool inpM_SetMap::SearchAssemblyAndInstancesForSet(cow_String const& name,
                                                   cow_String& instanceName) const
{
  if (HasSet(name))
  {
    instanceName = "";
    return true;
  }
  TreeIterator it(m_instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    if (it.CurrentValue().IsMember(name))
    {
      instanceName = it.CurrentKey();
      return true;
    }
  }
  return false;
}

void inpM_SetMap::Print(aio_ostream& stream) const
{
  PrintSets(stream, m_sets);
  TreeIterator it(m_instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    stream << it.CurrentKey().View() << '\n';
    PrintSets(stream, it.CurrentValue());
  }
}
