#include "inpM_SortedSet.h"

#include "inpM_IdMap.h"

#include <algorithm>
#include <cstdint>

inpM_SortedSet::inpM_SortedSet(inpM_SortedSet const& other)
  : inpM_BaseSet(other),
    m_ids(other.m_ids),
    m_instances(other.m_instances ? std::make_unique<InstanceTree>(*other.m_instances) : nullptr)
{
}

inpM_SortedSet::~inpM_SortedSet() = default;

void inpM_SortedSet::Add(cow_String const& instanceName, cow_List<int> const& ids)
{
  Add(instanceName, inpM_OmiSet(ids));
}

// A few ids are put in one by one, since most sets are read row by row; many are merged at once.
void inpM_SortedSet::Add(cow_List<int> const& ids)
{
  if (ids.Length() > 32)
  {
    m_ids += inpM_OmiSet(ids);
    return;
  }
  for (int id : ids)
  {
    m_ids.Insert(id);
  }
}

void inpM_SortedSet::Add(cow_String const& instanceName, inpM_OmiSet const& ids)
{
  if (ids.IsEmpty())
  {
    return;
  }
  if (instanceName.Length() == 0)
  {
    m_ids += ids;
    return;
  }
  if (!m_instances)
  {
    m_instances = std::make_unique<InstanceTree>();
  }
  if (!m_instances->InsertUnlessMember(instanceName, ids))
  {
    *m_instances->Find(instanceName) += ids;
  }
}

void inpM_SortedSet::Add(inpM_BaseSet const& other)
{
  m_ids += other.ConstGetOwnIds();
  InstanceTree const added = other.ConstGetInstanceTree();
  if (!m_instances && added.Size() != 0)
  {
    m_instances = std::make_unique<InstanceTree>(added);
    return;
  }
  cow_BtreeIterator<cow_String, inpM_OmiSet> it(added);
  for (it.First(); !it.IsDone(); it.Next())
  {
    Add(it.CurrentKey(), it.CurrentValue());
  }
}

cow_List<int> inpM_SortedSet::ConstGetIds(cow_String const& instanceName) const
{
  if (instanceName.Length() == 0)
  {
    return ConstGetIds();
  }
  inpM_OmiSet const* const ids = m_instances ? m_instances->ConstFind(instanceName) : nullptr;
  return ids == nullptr ? cow_List<int>() : ids->ConstGetArrayCounterpart();
}

inpM_BaseSet::InstanceTree inpM_SortedSet::ConstGetInstanceTree() const
{
  return m_instances ? *m_instances : InstanceTree();
}

// Changes the ids of every instance; instances without ids are then dropped.
template <class Change>
void inpM_SortedSet::ChangeInstances(Change const& change)
{
  InstanceTree const old = ConstGetInstanceTree();
  m_instances.reset();
  cow_BtreeIterator<cow_String, inpM_OmiSet> it(old);
  for (it.First(); !it.IsDone(); it.Next())
  {
    Add(it.CurrentKey(), change(it.CurrentKey(), it.CurrentValue()));
  }
}

// Visits the numbers of the range or the ids, whichever are fewer: the ids may be a run of 999999999.
inpM_OmiSet inpM_SortedSet::Trimmed(inpM_OmiSet const& ids, int first, int last, int step)
{
  inpM_OmiSet kept;
  std::int64_t const stride = std::max(step, 1);
  if ((std::int64_t{last} - first) / stride < ids.Size())
  {
    for (std::int64_t id = first; id <= last; id += stride)
    {
      if (ids.IsMember(static_cast<int>(id)))
      {
        kept.Insert(static_cast<int>(id));
      }
    }
    return kept;
  }
  for (inpM_OmiSetIT it(ids); !it.IsDone(); it.Next())
  {
    if (IsOnRange(it.CurrentItem(), first, last, step))
    {
      kept.Insert(it.CurrentItem());
    }
  }
  return kept;
}

inpM_OmiSet inpM_SortedSet::Renumbered(inpM_OmiSet const& ids, inpM_IdMap const& idMap, bool toUser)
{
  cow_IntTableInt const* const numbers = NumbersOf(idMap, toUser);
  if (numbers == nullptr)
  {
    return ids;
  }
  inpM_OmiSet renumbered;
  for (inpM_OmiSetIT it(ids); !it.IsDone(); it.Next())
  {
    int number = 0;
    if (numbers->ConstGetValue(it.CurrentItem(), number))
    {
      renumbered.Insert(number);
    }
  }
  return renumbered;
}

void inpM_SortedSet::TrimGeneratedSets(int first, int last, int step)
{
  m_ids = Trimmed(m_ids, first, last, step);
  ChangeInstances([&](cow_String const&, inpM_OmiSet const& ids)
                  { return Trimmed(ids, first, last, step); });
}

void inpM_SortedSet::Renumber(inpM_IdMap const& idMap, bool toUser)
{
  m_ids = Renumbered(m_ids, idMap, toUser);
  ChangeInstances([&](cow_String const& name, inpM_OmiSet const& ids)
                  { return Renumbered(ids, idMap.ConstGet(name), toUser); });
}

std::size_t inpM_SortedSet::Bytes() const
{
  std::size_t bytes = sizeof(*this) + m_ids.Bytes();
  InstanceTree const instances = ConstGetInstanceTree();
  cow_BtreeIterator<cow_String, inpM_OmiSet> it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    bytes += sizeof(cow_String) + sizeof(inpM_OmiSet) + it.CurrentValue().Bytes();
  }
  return bytes;
}

std::size_t inpM_SortedSet::CountIds() const
{
  auto count = static_cast<std::size_t>(m_ids.Size());
  InstanceTree const instances = ConstGetInstanceTree();
  cow_BtreeIterator<cow_String, inpM_OmiSet> it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    count += static_cast<std::size_t>(it.CurrentValue().Size());
  }
  return count;
}
