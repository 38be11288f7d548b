#pragma once

#include "inpM_BaseSet.h"

#include <memory>

/// A set of labels in ascending order, each once.
///
/// Ten own ids take some 250 bytes in all, with the handle and the entry in a map of sets; ranges are
/// bits (see inpM_OmiSet).
class inpM_SortedSet : public inpM_BaseSet
{
public:
  static int TypeId() { return c_sorted; }

  inpM_SortedSet() = default;
  explicit inpM_SortedSet(inpM_OmiSet const& ids) : m_ids(ids) {} // shares
  inpM_SortedSet(inpM_SortedSet const& other);                    // shares
  ~inpM_SortedSet() override;

  inpM_SortedSet* Clone() const override { return new inpM_SortedSet(*this); }

  void Add(cow_String const& instanceName, cow_List<int> const& ids) override;
  void Add(cow_List<int> const& ids) override;
  void Add(cow_String const& instanceName, inpM_OmiSet const& ids) override;
  void Add(inpM_BaseSet const& other) override;
  void Add(inpM_OmiSet const& ids) override { m_ids += ids; }
  bool IsUnsorted() const override { return false; }

  cow_List<int> ConstGetIds() const override { return m_ids.ConstGetArrayCounterpart(); }
  cow_List<int> ConstGetIds(cow_String const& instanceName) const override;
  inpM_OmiSet ConstGetOwnIds() const override { return m_ids; } // O(1), shares
  InstanceTree ConstGetInstanceTree() const override;           // O(1), shares

  /// The own ids as they are kept.
  inpM_OmiSet const& ConstGetIdsGrid() const { return m_ids; }

  void TrimGeneratedSets(int first, int last, int step) override;
  int DynTypeId() const override { return TypeId(); }
  bool IsEmpty() const override { return m_ids.IsEmpty() && m_instances == nullptr; }
  bool IsMember(int id) const override { return m_ids.IsMember(id); }
  void Renumber(inpM_IdMap const& idMap, bool toUser) override;
  std::size_t Bytes() const override;
  std::size_t CountIds() const override;

private:
  static inpM_OmiSet Trimmed(inpM_OmiSet const& ids, int first, int last, int step);
  static inpM_OmiSet Renumbered(inpM_OmiSet const& ids, inpM_IdMap const& idMap, bool toUser);
  template <class Change>
  void ChangeInstances(Change const& change);

  inpM_OmiSet m_ids;
  std::unique_ptr<InstanceTree> m_instances; // null when no instance has ids
};
