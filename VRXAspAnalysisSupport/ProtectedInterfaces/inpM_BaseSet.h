#pragma once

#include "cow_Btree.h"
#include "cow_COW.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_OmiSet.h"
#include "mem_Allocation.h"

#include <cstddef>

class cow_IntTableInt;
class inpM_IdMap;

/// What a set is to the user. An internal one was picked in a pre-processor and has no name of the
/// user's.
enum inpM_SetTypeFlag
{
  inpM_plainSet = 1,
  inpM_internalSet = 2
};

/// A set of node or element labels: ids of the level that it lives at, and by instance name ids of the
/// levels below.
///
///     *NSET, NSET=ENDS           own ids        1, 5
///     1, 5, WHEEL-1.7            of WHEEL-1     7
///
/// Two kinds: inpM_SortedSet, and inpM_UnsortedSet, which keeps the order of the deck and repeats.
/// Sets are held by inpM_SetHandle, whose copies share until one is written to; a clone shares the ids
/// likewise. An empty instance name stands for the own level in every operation.
///
/// Adding takes time for the members added, and in a small sorted set for those that must move. The own ids
/// are shared with the container in which the set keeps them; to get them as one of the other containers
/// takes time for all of them. Belongs to one thread at a time.
class inpM_BaseSet : public mem_AllocationOperators
{
public:
  /// By instance name, ascending; every instance in it has ids.
  using InstanceTree = cow_Btree<cow_String, inpM_OmiSet>;

  /// Kind of set, as DynTypeId tells it.
  enum typeIdEnm
  {
    c_base = 1,
    c_unsorted = 2,
    c_sorted = 3
  };
  static int TypeId() { return c_base; }

  virtual ~inpM_BaseSet();

  /// A set of the same kind, type and members; the caller's to delete.
  virtual inpM_BaseSet* Clone() const = 0;
  inpM_BaseSet* Copy() const { return Clone(); }

  virtual void Add(cow_String const& instanceName, cow_List<int> const& ids) = 0;
  virtual void Add(cow_List<int> const& ids) = 0;
  virtual void Add(cow_String const& instanceName, inpM_OmiSet const& ids) = 0;
  virtual void Add(inpM_BaseSet const& other) = 0; ///< type and kind stay
  virtual bool IsUnsorted() const = 0;

  /// The own ids in the set's order: ascending, or as the deck gives them.
  virtual cow_List<int> ConstGetIds() const = 0;
  /// The own ids, ascending.
  virtual inpM_OmiSet ConstGetOwnIds() const = 0;
  /// The ids by instance. For sets that span thousands of instances ConstGetInstanceTree is quicker.
  virtual cow_Map<cow_String, inpM_OmiSet> ConstGetInstanceIds() const;
  virtual void Add(inpM_OmiSet const& ids) = 0;

  /// Keeps, at every level, the ids first, first + step and so on up to last, and drops all others. A step
  /// below 1 counts as 1.
  virtual void TrimGeneratedSets(int first, int last, int step) = 0;

  virtual int DynTypeId() const = 0;

  virtual InstanceTree ConstGetInstanceTree() const = 0;
  /// The ids in an instance in the set's order; none for an instance that the set does not reach.
  virtual cow_List<int> ConstGetIds(cow_String const& instanceName) const = 0;
  virtual bool IsEmpty() const = 0; ///< at every level

  /// Tells whether an own id is in the set. Linear in an unsorted set.
  virtual bool IsMember(int id) const = 0;

  /// Replaces user ids by internal ones, or with `toUser` internal ids by those of the user. A level for
  /// which the map has no pairs stays as it is; at others, ids without an entry are dropped.
  virtual void Renumber(inpM_IdMap const& idMap, bool toUser) = 0;

  /// Bytes on the heap, without what the allocator adds.
  virtual std::size_t Bytes() const = 0;

  /// The ids of all levels; repeats count.
  virtual std::size_t CountIds() const = 0;

  /// The own ids from 0 up as bits.
  omi_BlkBitVect ConstGetBits() const { return ConstGetOwnIds().ConstGetBits(); }

  void AssignSetType(inpM_SetTypeFlag type) { m_type = type; }
  inpM_SetTypeFlag SetType() const { return m_type; }
  /// Tells whether the set is internal.
  bool IsPicked() const { return m_type == inpM_internalSet; }

  /// Upper bound of the bytes that a generated range takes in a new set, so that one that cannot be held
  /// is refused before it is made. Whole ranges are cheap in a sorted set: 120 MiB for 1 to 999999999,
  /// where an unsorted one takes 4 bytes an id.
  static std::size_t EstimateBytes(int start, int end, int step, bool unsorted);

protected:
  inpM_BaseSet() = default;
  inpM_BaseSet(inpM_BaseSet const&) = default;
  inpM_BaseSet& operator=(inpM_BaseSet const&) = delete;

  /// Whether trimming keeps an id.
  static bool IsOnRange(int id, int first, int last, int step);
  /// The table that Renumber reads; null where nothing is to be renumbered.
  static cow_IntTableInt const* NumbersOf(inpM_IdMap const& idMap, bool toUser);

private:
  inpM_SetTypeFlag m_type{inpM_plainSet};
};

/// How sets are held: copies share, and the first to write gets a clone.
using inpM_SetHandle = cow_ArrayCOW<inpM_BaseSet, cow_Virtual<inpM_BaseSet>>;
