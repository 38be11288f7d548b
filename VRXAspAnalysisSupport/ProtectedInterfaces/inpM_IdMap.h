#pragma once

#include "cow_Btree.h"
#include "cow_COW.h"
#include "cow_IntTableInt.h"
#include "cow_List.h"
#include "cow_String.h"

class inpM_InstanceIdMaps;

/// The result of a renumbering: user ids to internal ids and back, and by instance name those of the
/// levels below.
///
///     inpM_IdMap ids = coords.Renumber(1, false);
///     ids.ConstGet("WHEEL-1").ConstGet(5);        // the internal number of node 5 of WHEEL-1
///     ids.Renumber(connectivity, 8);              // all of them, in place
///
/// User ids may repeat between instances, but not within a level. A copy shares and costs O(1); look-ups
/// cost as those of omi_IntTable, and take 8 bytes a pair in runs.
class inpM_IdMap
{
public:
  inpM_IdMap() = default; // no pairs, no instances
  /// A child for each instance, which shares its tables.
  explicit inpM_IdMap(inpM_InstanceIdMaps const& maps);

  /// Enters a pair in both directions, over what either id is mapped to.
  void Insert(int user, int internal);

  /// The maps of the levels below. An unknown name reads as a map without pairs; Get makes one, and what it
  /// returns is good until this map is copied or changed in another way.
  void Insert(cow_String const& instanceName, inpM_IdMap const& ids);
  bool IsMember(cow_String const& instanceName) const { return instances.IsMember(instanceName); }
  inpM_IdMap const& ConstGet(cow_String const& instanceName) const;
  inpM_IdMap& Get(cow_String const& instanceName);
  cow_List<cow_String> Instances() const; ///< ascending

  /// Tells whether a pair was entered at this level.
  bool HasIds() const { return hasIds; }
  bool IsMember(int user) const { return toNew.IsMember(user); }
  bool IsInternalMember(int internal) const { return toUser.IsMember(internal); }

  /// The internal id of a user id of this level, and back; raises nex_PrimException<atr_String> for an id
  /// without an entry.
  int ConstGet(int user) const;
  int ConstGetUserId(int internal) const;

  /// Replaces each of `count` user ids by its internal id, in place. A zero stays. Raises
  /// nex_PrimException<atr_String> at the first id without an entry; those before it are then replaced.
  void Renumber(int* ids, int count) const;

  /// The same on a list, whose counterpart it returns; with `back` from internal ids to user ids.
  cow_List<int> Renumber(cow_List<int> const& ids, bool back) const;

  int NumberIds() const; ///< pairs, with those of all children

  /// The smallest and the largest user id, children included; 0 when there is no pair. O(levels).
  int SmallestId() const;
  int LargestId() const;

  /// Computes both once, so that they cost O(1) until the map is written to. To be called when a map is
  /// finished.
  void ComputeRemapUserIdRange();

  /// Adds, at every level, the ids of the other that are not there yet.
  void Merge(inpM_IdMap const& other);

  /// Adds, at every level, `count` copies of every pair: copy k with both ids shifted by k * `offset`. Ids
  /// that the map has already keep their numbers. Copies beyond 999999999 are left out; with an offset below
  /// 1 all of them are.
  void InsertDuplicateOffsetIds(int offset, int count);

  /// Shifts the user ids of every level; internal ones stay. An id that would leave the range of labels,
  /// 1 to 999999999, goes.
  void RenumberUserIdsWithOffset(int offset);

  /// The tables themselves, for loops.
  cow_IntTableInt const& ConstGetToNew() const { return toNew; }
  cow_IntTableInt const& ConstGetToUser() const { return toUser; }

private:
  using Handle = cow_COW<inpM_IdMap, cow_Direct<inpM_IdMap>>;

  /// Ends of the user ids; smallest is above largest when there are none.
  struct Range
  {
    int smallest;
    int largest;
  };
  Range UserIdRange() const;
  void Touch() { m_hasRange = false; }

  cow_Btree<cow_String, Handle> instances;
  cow_IntTableInt toNew;
  cow_IntTableInt toUser;
  bool hasIds{false};
  bool m_hasRange{false};
  Range range{0, 0};
};
