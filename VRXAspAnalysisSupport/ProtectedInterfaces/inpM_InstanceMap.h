#pragma once

#include "VRXBasException.h"
#include "cow_Btree.h"
#include "cow_COW.h"
#include "cow_List.h"
#include "cow_String.h"
#include "inpM_Messages.h"
#include "omi_IntTable.h"
#include "omi_Singleton.h"
#include "wip_WIP.h"

#include <utility>

class inpM_IdMap;

/// A value of a model level, and by instance name the values of the levels below.
///
///     inpM_InstanceMap<gsl_Matrix> positions;
///     positions.Insert("WHEEL-1", matrix);        // a child of that name, made when there is none
///     positions.ConstGet("WHEEL-1");
///
/// A copy shares the values and the children, and copies of either are made where one is written to.
/// The own value may be missing; a child made by Insert has one. Names are compared byte by byte, and
/// every walk over them goes in ascending order, whatever the order of insertion.
///
/// Reading or writing a value that is missing raises VRXBasAssertException. An unknown instance is a
/// fatal error at the message sink; what is then returned is an empty map, whose value is missing.
template <class T>
class inpM_InstanceMap
{
public:
  inpM_InstanceMap() = default; // no value, no children
  explicit inpM_InstanceMap(T const& value) : item(new T(value)) {}
  inpM_InstanceMap(inpM_InstanceMap const& other)
    : item(other.item),
      instances(other.instances == nullptr ? nullptr : new Children(*other.instances))
  {
  }
  inpM_InstanceMap(inpM_InstanceMap&& other) noexcept
    : item(std::move(other.item)), instances(std::exchange(other.instances, nullptr))
  {
  }
  inpM_InstanceMap& operator=(inpM_InstanceMap other) noexcept
  {
    Swap(other);
    return *this;
  }
  virtual ~inpM_InstanceMap() { delete instances; }

  bool HasValue() const { return !item.IsNull(); }
  T const& ConstGet() const;
  T& Get(); // copies the value when it is shared

  /// The value of an instance.
  T const& ConstGet(cow_String const& instanceName) const;
  T& Get(cow_String const& instanceName);

  /// The map of an instance, with its value and its children. A reference to be written through is
  /// good until this map is copied or changed in another way.
  inpM_InstanceMap const& ConstGetMap(cow_String const& instanceName) const;
  inpM_InstanceMap& GetMap(cow_String const& instanceName);

  /// Gives this level a value of its own, in place of the one it has.
  void Insert(T const& value) { item = new T(value); }

  /// Gives an instance a value, in place of the one it has; its children stay.
  void Insert(cow_String const& instanceName, T const& value);

  bool IsMember(cow_String const& instanceName) const
  {
    return instances != nullptr && instances->IsMember(instanceName);
  }

  /// The names of the children, ascending.
  cow_List<cow_String> Instances() const;

  /// Element maps only, and defined with them: numbers the elements anew from `first` up, own ones
  /// first and then each instance's in name order, and returns both directions. With `keepIds` every
  /// label stays and is mapped to itself.
  inpM_IdMap Renumber(int first, bool keepIds);
  /// Element maps only: as above, with numbers taken from a table. Children are not visited.
  inpM_IdMap Renumber(int& next, bool keepIds, omi_IntTable<int> const& assigned);
  /// Element maps only: puts the new numbers of nodes into the connectivity, instances included.
  void Update(inpM_IdMap const& idMap);

private:
  using Children = cow_Btree<cow_String, inpM_InstanceMap>;

  void Swap(inpM_InstanceMap& other) noexcept
  {
    item.Swap(other.item);
    std::swap(instances, other.instances);
  }
  static inpM_InstanceMap& Unknown(cow_String const& instanceName);

  cow_COW<T, cow_Direct<T>> item;
  Children* instances{nullptr}; // owned; null until the first Insert
};

template <class T>
T const& inpM_InstanceMap<T>::ConstGet() const
{
  VRXBasAssert(HasValue(), "item.HasValue()");
  return *item;
}

template <class T>
T& inpM_InstanceMap<T>::Get()
{
  VRXBasAssert(HasValue(), "item.HasValue()");
  return *item.Get();
}

template <class T>
T const& inpM_InstanceMap<T>::ConstGet(cow_String const& instanceName) const
{
  inpM_InstanceMap const& child = ConstGetMap(instanceName);
  VRXBasAssert(child.HasValue(), "ConstGetMap(instanceName).item.HasValue()");
  return *child.item;
}

template <class T>
T& inpM_InstanceMap<T>::Get(cow_String const& instanceName)
{
  inpM_InstanceMap& child = GetMap(instanceName);
  VRXBasAssert(child.HasValue(), "GetMap(instanceName).item.HasValue()");
  return *child.item.Get();
}

template <class T>
inpM_InstanceMap<T> const& inpM_InstanceMap<T>::ConstGetMap(cow_String const& instanceName) const
{
  return IsMember(instanceName) ? *instances->ConstFind(instanceName) : Unknown(instanceName);
}

template <class T>
inpM_InstanceMap<T>& inpM_InstanceMap<T>::GetMap(cow_String const& instanceName)
{
  return IsMember(instanceName) ? *instances->Find(instanceName) : Unknown(instanceName);
}

template <class T>
void inpM_InstanceMap<T>::Insert(cow_String const& instanceName, T const& value)
{
  if (instances == nullptr)
  {
    instances = new Children;
  }
  if (inpM_InstanceMap* const child = instances->Find(instanceName))
  {
    child->item = new T(value);
    return;
  }
  instances->InsertUnlessMember(instanceName, inpM_InstanceMap(value));
}

template <class T>
cow_List<cow_String> inpM_InstanceMap<T>::Instances() const
{
  cow_List<cow_String> names;
  if (instances != nullptr)
  {
    cow_BtreeIterator<cow_String, inpM_InstanceMap> it(*instances);
    for (it.First(); !it.IsDone(); it.Next())
    {
      names.Append(it.CurrentKey());
    }
  }
  return names;
}

// The map is emptied each time, as an earlier caller may have written to it. Thread-local, because the
// counts of shared data are not atomic.
template <class T>
inpM_InstanceMap<T>& inpM_InstanceMap<T>::Unknown(cow_String const& instanceName)
{
  static thread_local inpM_InstanceMap none;
  none = inpM_InstanceMap();
  omi_Singleton<wip_WIP>::Instance().Error(atr_Say(inpM_msgUnknownInstance, instanceName),
                                           wip_passFatal);
  return none;
}
