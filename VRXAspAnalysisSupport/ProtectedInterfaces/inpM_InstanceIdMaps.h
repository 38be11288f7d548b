#pragma once

#include "cow_Btree.h"
#include "cow_IntTableInt.h"
#include "cow_List.h"
#include "cow_String.h"

/// The id tables of one instance: forward from user ids to internal ones, and reverse.
struct inpM_InstanceMaps
{
  cow_IntTableInt forward;
  cow_IntTableInt reverse;
};

/// The id tables of instances by name. A copy shares and costs O(1).
class inpM_InstanceIdMaps
{
public:
  /// In place of the tables that the instance has.
  void Insert(cow_String const& instanceName, inpM_InstanceMaps const& maps);

  bool IsMember(cow_String const& instanceName) const { return m_maps.IsMember(instanceName); }

  /// The tables of an instance that is known to be present: raises VRXBasAssertException otherwise.
  /// Those for writing are good until the object is copied or changed in another way.
  inpM_InstanceMaps& Get(cow_String const& instanceName);
  inpM_InstanceMaps const& ConstGet(cow_String const& instanceName) const;

  cow_List<cow_String> Instances() const; ///< ascending

private:
  cow_Btree<cow_String, inpM_InstanceMaps> m_maps;
};
