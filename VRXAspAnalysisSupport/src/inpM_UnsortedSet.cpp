#include "inpM_UnsortedSet.h"

#include "inpM_IdMap.h"

inpM_UnsortedSet::inpM_UnsortedSet(inpM_UnsortedSet const& other)
  : inpM_BaseSet(other),
    m_ids(other.m_ids),
    m_instances(other.m_instances ? std::make_unique<ListTree>(*other.m_instances) : nullptr)
{
}

inpM_UnsortedSet::~inpM_UnsortedSet() = default;

void inpM_UnsortedSet::Add(cow_String const& instanceName, cow_List<int> const& ids)
{
  if (ids.Empty())
  {
    return;
  }
  if (instanceName.Length() == 0)
  {
    Add(ids);
    return;
  }
  if (!m_instances)
  {
    m_instances = std::make_unique<ListTree>();
  }
  if (!m_instances->InsertUnlessMember(instanceName, ids))
  {
    cow_List<int> const added = ids; // which may be the list itself
    m_instances->Find(instanceName)->Concatenate(added);
  }
}

void inpM_UnsortedSet::Add(cow_List<int> const& ids)
{
  if (m_ids.Empty())
  {
    m_ids = ids;
    return;
  }
  cow_List<int> const added = ids; // which may be the list itself
  m_ids.Concatenate(added);
}

void inpM_UnsortedSet::Add(cow_String const& instanceName, inpM_OmiSet const& ids)
{
  Add(instanceName, ids.ConstGetArrayCounterpart());
}

void inpM_UnsortedSet::Add(inpM_OmiSet const& ids) { Add(ids.ConstGetArrayCounterpart()); }

void inpM_UnsortedSet::Add(inpM_BaseSet const& other)
{
  Add(other.ConstGetIds());
  if (other.IsUnsorted())
  {
    ListTree const added = static_cast<inpM_UnsortedSet const&>(other).Lists();
    cow_BtreeIterator<cow_String, cow_List<int>> list(added);
    for (list.First(); !list.IsDone(); list.Next())
    {
      Add(list.CurrentKey(), list.CurrentValue());
    }
    return;
  }
  InstanceTree const added = other.ConstGetInstanceTree();
  cow_BtreeIterator<cow_String, inpM_OmiSet> set(added);
  for (set.First(); !set.IsDone(); set.Next())
  {
    Add(set.CurrentKey(), set.CurrentValue());
  }
}

cow_List<int> inpM_UnsortedSet::ConstGetIds(cow_String const& instanceName) const
{
  if (instanceName.Length() == 0)
  {
    return m_ids;
  }
  cow_List<int> const* const ids = m_instances ? m_instances->ConstFind(instanceName) : nullptr;
  return ids == nullptr ? cow_List<int>() : *ids;
}

inpM_BaseSet::InstanceTree inpM_UnsortedSet::ConstGetInstanceTree() const
{
  InstanceTree sets;
  ListTree const lists = Lists();
  cow_BtreeIterator<cow_String, cow_List<int>> it(lists);
  for (it.First(); !it.IsDone(); it.Next())
  {
    sets.InsertUnlessMember(it.CurrentKey(), inpM_OmiSet(it.CurrentValue()));
  }
  return sets;
}

// Changes the ids of every instance; instances without ids are then dropped.
template <class Change>
void inpM_UnsortedSet::ChangeInstances(Change const& change)
{
  ListTree const old = Lists();
  m_instances.reset();
  cow_BtreeIterator<cow_String, cow_List<int>> it(old);
  for (it.First(); !it.IsDone(); it.Next())
  {
    Add(it.CurrentKey(), change(it.CurrentKey(), it.CurrentValue()));
  }
}

cow_List<int> inpM_UnsortedSet::Trimmed(cow_List<int> const& ids, int first, int last, int step)
{
  cow_List<int> kept;
  for (int id : ids)
  {
    if (IsOnRange(id, first, last, step))
    {
      kept.Append(id);
    }
  }
  return kept;
}

cow_List<int> inpM_UnsortedSet::Renumbered(cow_List<int> const& ids, inpM_IdMap const& idMap,
                                           bool toUser)
{
  cow_IntTableInt const* const numbers = NumbersOf(idMap, toUser);
  if (numbers == nullptr)
  {
    return ids;
  }
  cow_List<int> renumbered;
  for (int id : ids)
  {
    int number = 0;
    if (numbers->ConstGetValue(id, number))
    {
      renumbered.Append(number);
    }
  }
  return renumbered;
}

void inpM_UnsortedSet::TrimGeneratedSets(int first, int last, int step)
{
  m_ids = Trimmed(m_ids, first, last, step);
  ChangeInstances([&](cow_String const&, cow_List<int> const& ids)
                  { return Trimmed(ids, first, last, step); });
}

void inpM_UnsortedSet::Renumber(inpM_IdMap const& idMap, bool toUser)
{
  m_ids = Renumbered(m_ids, idMap, toUser);
  ChangeInstances([&](cow_String const& name, cow_List<int> const& ids)
                  { return Renumbered(ids, idMap.ConstGet(name), toUser); });
}

std::size_t inpM_UnsortedSet::Bytes() const
{
  std::size_t bytes = sizeof(*this) + static_cast<std::size_t>(m_ids.Length()) * sizeof(int);
  ListTree const lists = Lists();
  cow_BtreeIterator<cow_String, cow_List<int>> it(lists);
  for (it.First(); !it.IsDone(); it.Next())
  {
    bytes += sizeof(cow_String) + sizeof(cow_List<int>) +
             static_cast<std::size_t>(it.CurrentValue().Length()) * sizeof(int);
  }
  return bytes;
}

std::size_t inpM_UnsortedSet::CountIds() const
{
  auto count = static_cast<std::size_t>(m_ids.Length());
  ListTree const lists = Lists();
  cow_BtreeIterator<cow_String, cow_List<int>> it(lists);
  for (it.First(); !it.IsDone(); it.Next())
  {
    count += static_cast<std::size_t>(it.CurrentValue().Length());
  }
  return count;
}
