#pragma once

#include "VRXBasSharedPtr.h"
#include "inpM_IdMap.h"
#include "inpM_InstanceMap.h"
#include "omi_IntTableElement.h"

#include <cstddef>

/// Elements by label. A handle, and no value: all copies see one table and each other's writes.
///
///     inp_MapInt2Element elements;
///     inp_MapInt2Element same = elements;                      // O(1)
///     same.InsertPtr(7, inp_Element::Make(type, 8, nodes, 8, 0, 0));
///     elements.ConstGet(7).topology()[0];                      // the same element
///
/// Element tables are the largest objects of a model and go from stage to stage without a copy; who
/// wants a table of its own takes one by AdoptNewTable. Takes 89 bytes for an element of eight nodes in
/// runs of labels, all counted. Belongs to one thread at a time.
class inp_MapInt2Element
{
public:
  inp_MapInt2Element() : m_table(new omi_IntTableElement) {}

  /// Puts a copy in; the element of that label, when there is one, is assigned over. True when the
  /// label is new.
  bool Insert(int const& label, inp_Element const& element);

  /// Puts an element made with new or inp_Element::Make in and owns it from then on, also when this
  /// raises; the one of that label is deleted. Null is allowed. True when the label is new.
  bool InsertPtr(int const& label, inp_Element const* element);

  /// The element of a label that is known to be present and not null; no test is made.
  inp_Element const& ConstGet(int const& label) const { return *m_table->GetElement(label); }

  /// The element, or null. Writes through it are seen by all copies.
  inp_Element const* GetEltPtr(int label) const
  {
    return IsMember(label) ? m_table->GetElement(label) : nullptr;
  }
  inp_Element* GetEltPtr(int label)
  {
    return IsMember(label) ? m_table->GetElement(label) : nullptr;
  }

  bool IsMember(int const& label) const { return m_table && m_table->IsMember(label); }
  bool Remove(int const& label); ///< deletes the element; true when the label was present
  void Clear();                  ///< deletes all elements, for all copies
  bool IsEmpty() const { return !m_table || m_table->IsEmpty(); }
  int Size() const { return m_table ? m_table->Size() : 0; }

  /// Leaves the shared table to the other copies and begins an empty one.
  void AdoptNewTable() { m_table.reset(new omi_IntTableElement); }
  /// Leaves the shared table to the other copies, or deletes it. The map then reads as empty, and the
  /// first insertion begins a table.
  void ReleaseTable() { m_table.reset(); }
  /// The number of maps that share the table; 0 after ReleaseTable.
  int UseCount() const { return m_table.use_count(); }

  /// Bytes on the heap, with what the allocator rounds up; the types' names are not counted.
  std::size_t Bytes() const;

private:
  friend class inpM_InstanceMap<inp_MapInt2Element>;
  friend class inp_MapInt2ElementIT;

  omi_IntTableElement& Table();
  template <class Numbering>
  inp_MapInt2Element Renumbered(Numbering const& numberOf);

  VRXBasSharedPtr<omi_IntTableElement> m_table;
};

/// Walks a map in ascending order of its labels; null cells are passed over.
///
/// Elements may be put in and taken out during the walk, which sees those that lie ahead of it. It
/// counts as one that shares the table.
class inp_MapInt2ElementIT
{
public:
  /// Stands on the first element.
  explicit inp_MapInt2ElementIT(inp_MapInt2Element const& map);

  void First();
  void Next();
  bool IsDone() const { return m_iterator.IsDone(); }
  int CurrentKey() const { return m_iterator.CurrentKey(); }
  inp_Element const& CurrentValue() const { return *Element(); }

protected:
  inp_Element* Element() const { return static_cast<inp_Element*>(m_iterator.CurrentValue()); }

private:
  void PassNull();

  VRXBasSharedPtr<omi_IntTableElement> m_share;
  omi_IntTableIterator<void*> m_iterator;
};

/// The same walk for those who write to the elements.
class inp_MapInt2ElementSIT : public inp_MapInt2ElementIT
{
public:
  using inp_MapInt2ElementIT::inp_MapInt2ElementIT;

  inp_Element* CurrentValuePtr() const { return Element(); }
};

/// Numbers the elements anew; see inpM_InstanceMap.h. Where this map is the only one to hold a table,
/// its elements are moved and not copied. O(elements).
template <>
inpM_IdMap inpM_InstanceMap<inp_MapInt2Element>::Renumber(int first, bool keepIds);

/// An element without an entry in `assigned` gets `next`, which does not advance: the table must have all
/// labels.
template <>
inpM_IdMap inpM_InstanceMap<inp_MapInt2Element>::Renumber(int& next, bool keepIds,
                                                          omi_IntTable<int> const& assigned);

/// Rewrites the connectivity in place, in the tables that others may share. Empty places stay. Raises
/// inp_ElementUndefinedNodesError, with at most 100 labels of one level, when nodes have no entry; the
/// connectivity of that level is then partly done. O(connectivity).
template <>
void inpM_InstanceMap<inp_MapInt2Element>::Update(inpM_IdMap const& idMap);
