#include "inpM_IdMap.h"

#include "inpM_InstanceIdMaps.h"
#include "inpM_LabelRange.h"
#include "inpM_Messages.h"
#include "nex_Exception.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace
{
[[noreturn]] void RaiseUnknown(int id)
{
  throw nex_PrimException<atr_String>(atr_Say(inpM_msgUnknownId, id));
}

int Find(cow_IntTableInt const& table, int id)
{
  int found = 0;
  if (!table.ConstGetValue(id, found))
  {
    RaiseUnknown(id);
  }
  return found;
}

void AddAbsent(cow_IntTableInt& table, cow_IntTableInt const& added)
{
  if (table.IsEmpty())
  {
    table = added;
    return;
  }
  for (cow_IntTableIntIT it(added); !it.IsDone(); it.Next())
  {
    if (!table.IsMember(it.CurrentKey()))
    {
      table.Insert(it.CurrentKey(), it.CurrentValue());
    }
  }
}

// Ids that the table has already keep their numbers.
void AddShifted(cow_IntTableInt& table, cow_IntTableInt const& original, int offset, int count)
{
  for (std::int64_t copy = 1; copy <= count && copy * offset <= inpM_largestLabel; ++copy)
  {
    std::int64_t const shift = copy * offset;
    for (cow_IntTableIntIT it(original); !it.IsDone(); it.Next())
    {
      std::int64_t const key = it.CurrentKey() + shift;
      std::int64_t const value = it.CurrentValue() + shift;
      if (std::max(key, value) <= inpM_largestLabel && !table.IsMember(static_cast<int>(key)))
      {
        table.Insert(static_cast<int>(key), static_cast<int>(value));
      }
    }
  }
}
} // namespace

inpM_IdMap::inpM_IdMap(inpM_InstanceIdMaps const& maps)
{
  for (cow_String const& name : maps.Instances())
  {
    inpM_IdMap child;
    child.toNew = maps.ConstGet(name).forward;
    child.toUser = maps.ConstGet(name).reverse;
    child.hasIds = !child.toNew.IsEmpty();
    Insert(name, child);
  }
}

void inpM_IdMap::Insert(int user, int internal)
{
  toNew.Insert(user, internal);
  toUser.Insert(internal, user);
  hasIds = true;
  Touch();
}

void inpM_IdMap::Insert(cow_String const& instanceName, inpM_IdMap const& ids)
{
  Touch();
  instances.Insert(instanceName, Handle(new inpM_IdMap(ids)));
}

inpM_IdMap const& inpM_IdMap::ConstGet(cow_String const& instanceName) const
{
  // Thread-local, because the counts of shared data are not atomic.
  static thread_local inpM_IdMap const none;
  Handle const* const child = instances.ConstFind(instanceName);
  return child == nullptr ? none : **child;
}

inpM_IdMap& inpM_IdMap::Get(cow_String const& instanceName)
{
  Touch();
  if (!IsMember(instanceName))
  {
    Insert(instanceName, inpM_IdMap());
  }
  return *instances.Find(instanceName)->Get();
}

cow_List<cow_String> inpM_IdMap::Instances() const
{
  cow_List<cow_String> names;
  cow_BtreeIterator<cow_String, Handle> it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    names.Append(it.CurrentKey());
  }
  return names;
}

int inpM_IdMap::ConstGet(int user) const { return Find(toNew, user); }
int inpM_IdMap::ConstGetUserId(int internal) const { return Find(toUser, internal); }

void inpM_IdMap::Renumber(int* ids, int count) const
{
  cow_IntTableInt::Table const& table = toNew.ConstGetTable();
  for (int* id = ids; id != ids + count; ++id)
  {
    if (*id != 0 && !table.ConstGetValue(*id, *id))
    {
      RaiseUnknown(*id);
    }
  }
}

cow_List<int> inpM_IdMap::Renumber(cow_List<int> const& ids, bool back) const
{
  cow_List<int> numbers(cow_ListConstruct(), ids.Length());
  for (int id : ids)
  {
    numbers.Append(id == 0 ? 0 : Find(back ? toUser : toNew, id));
  }
  return numbers;
}

int inpM_IdMap::NumberIds() const
{
  int count = toNew.Size();
  cow_BtreeIterator<cow_String, Handle> it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    count += it.CurrentValue()->NumberIds();
  }
  return count;
}

inpM_IdMap::Range inpM_IdMap::UserIdRange() const
{
  if (m_hasRange)
  {
    return range;
  }
  Range ends{std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
  if (!toNew.IsEmpty())
  {
    cow_IntTableIntIT it(toNew);
    ends.smallest = it.CurrentKey();
    it.Last();
    ends.largest = it.CurrentKey();
  }
  cow_BtreeIterator<cow_String, Handle> child(instances);
  for (child.First(); !child.IsDone(); child.Next())
  {
    Range const below = child.CurrentValue()->UserIdRange();
    ends.smallest = std::min(ends.smallest, below.smallest);
    ends.largest = std::max(ends.largest, below.largest);
  }
  return ends;
}

int inpM_IdMap::SmallestId() const
{
  Range const ends = UserIdRange();
  return ends.smallest > ends.largest ? 0 : ends.smallest;
}

int inpM_IdMap::LargestId() const
{
  Range const ends = UserIdRange();
  return ends.smallest > ends.largest ? 0 : ends.largest;
}

void inpM_IdMap::ComputeRemapUserIdRange()
{
  range = UserIdRange();
  m_hasRange = true;
}

void inpM_IdMap::Merge(inpM_IdMap const& other)
{
  inpM_IdMap const added = other; // which may be this map or a part of it
  AddAbsent(toNew, added.toNew);
  AddAbsent(toUser, added.toUser);
  hasIds = hasIds || added.hasIds;
  Touch();
  for (cow_String const& name : added.Instances())
  {
    Get(name).Merge(added.ConstGet(name));
  }
}

void inpM_IdMap::InsertDuplicateOffsetIds(int offset, int count)
{
  if (offset < 1)
  {
    return;
  }
  cow_IntTableInt const originalToNew = toNew;
  cow_IntTableInt const originalToUser = toUser;
  AddShifted(toNew, originalToNew, offset, count);
  AddShifted(toUser, originalToUser, offset, count);
  Touch();
  for (cow_String const& name : Instances())
  {
    Get(name).InsertDuplicateOffsetIds(offset, count);
  }
}

void inpM_IdMap::RenumberUserIdsWithOffset(int offset)
{
  cow_IntTableInt const original = toNew;
  toNew.Clear();
  toUser.Clear();
  for (cow_IntTableIntIT it(original); !it.IsDone(); it.Next())
  {
    std::int64_t const user = std::int64_t{it.CurrentKey()} + offset;
    if (inpM_IsLabel(user))
    {
      toNew.Insert(static_cast<int>(user), it.CurrentValue());
      toUser.Insert(it.CurrentValue(), static_cast<int>(user));
    }
  }
  Touch();
  for (cow_String const& name : Instances())
  {
    Get(name).RenumberUserIdsWithOffset(offset);
  }
}
