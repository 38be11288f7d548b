#pragma once

#include "inpM_BaseSet.h"

#include <memory>

/// A set of labels in the order in which the deck gives them, repeats included; within an instance
/// too. Takes 4 bytes an id.
class inpM_UnsortedSet : public inpM_BaseSet
{
public:
  static int TypeId() { return c_unsorted; }

  inpM_UnsortedSet() = default;
  explicit inpM_UnsortedSet(cow_List<int> const& ids) : m_ids(ids) {} // shares
  inpM_UnsortedSet(inpM_UnsortedSet const& other);                    // shares
  ~inpM_UnsortedSet() override;

  inpM_UnsortedSet* Clone() const override { return new inpM_UnsortedSet(*this); }

  // All of them append; what comes as a sorted set goes in ascending.
  void Add(cow_String const& instanceName, cow_List<int> const& ids) override;
  void Add(cow_List<int> const& ids) override;
  void Add(cow_String const& instanceName, inpM_OmiSet const& ids) override;
  void Add(inpM_BaseSet const& other) override;
  void Add(inpM_OmiSet const& ids) override;
  bool IsUnsorted() const override { return true; }

  cow_List<int> ConstGetIds() const override { return m_ids; } // O(1), shares
  cow_List<int> ConstGetIds(cow_String const& instanceName) const override;
  inpM_OmiSet ConstGetOwnIds() const override { return inpM_OmiSet(m_ids); }
  InstanceTree ConstGetInstanceTree() const override;

  void TrimGeneratedSets(int first, int last, int step) override;
  int DynTypeId() const override { return TypeId(); }
  bool IsEmpty() const override { return m_ids.Empty() && m_instances == nullptr; }
  bool IsMember(int id) const override { return m_ids.IsMember(id); }
  void Renumber(inpM_IdMap const& idMap, bool toUser) override;
  std::size_t Bytes() const override;
  std::size_t CountIds() const override;

private:
  using ListTree = cow_Btree<cow_String, cow_List<int>>;

  static cow_List<int> Trimmed(cow_List<int> const& ids, int first, int last, int step);
  static cow_List<int> Renumbered(cow_List<int> const& ids, inpM_IdMap const& idMap, bool toUser);
  ListTree Lists() const { return m_instances ? *m_instances : ListTree(); }
  template <class Change>
  void ChangeInstances(Change const& change);

  cow_List<int> m_ids;
  std::unique_ptr<ListTree> m_instances; // null when no instance has ids
};
