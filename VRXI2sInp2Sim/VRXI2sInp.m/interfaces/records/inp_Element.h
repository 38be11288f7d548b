#pragma once

#include "cow_List.h"
#include "cow_String.h"
#include "mem_Allocation.h"

#include <cstddef>
#include <cstdint>

/// One element: its type and its nodes in connectivity order. Copies are deep.
///
/// An element made by `Make` is one block of the pool with its nodes behind it, 80 bytes for eight
/// nodes; that is how maps hold them. Any other element has its nodes in a block of their own. The
/// type's name is shared with all elements that were given the same cow_String.
///
///     +-- block of Make -----------------------------------+
///     | type  file  topology *  counts, offset | n1 n2 ... |
///     +---------------------|---------------------^--------+
///                           +---------------------+
///
/// At most 32767 nodes: more raise VRXBasAssertException, so who reads a deck asks c_mostNodes first.
/// When memory gives out, inp_MemoryException is raised.
class inp_Element : public mem_AllocationOperators
{
public:
  static constexpr int c_mostNodes = INT16_MAX;

  inp_Element() noexcept = default; // no type, no nodes, all zero
  inp_Element(cow_String type, cow_String file, cow_List<int> const& nodes, int numNodesDefined);
  inp_Element(cow_String type, cow_List<int> const& nodes, int numNodesDefined, int nodeOffset,
              int solidElementNumbering);
  /// Copies `count` node labels.
  inp_Element(cow_String type, int count, int const* nodes, int numNodesDefined, int nodeOffset,
              int solidElementNumbering);
  inp_Element(inp_Element const& other);
  inp_Element(inp_Element&& other);
  /// Takes over the node labels in place when there are as many as before.
  inp_Element& operator=(inp_Element const& other);
  ~inp_Element();

  /// A heap element in one block, to be deleted by the caller or given to inp_MapInt2Element::InsertPtr.
  static inp_Element* Make(cow_String const& type, int count, int const* nodes, int numNodesDefined,
                           int nodeOffset, int solidElementNumbering);
  static inp_Element* Make(inp_Element const& other);

  cow_String const& type() const { return m_type; }
  /// Name of the substructure's file; empty for an ordinary element.
  cow_String file() const { return m_file == nullptr ? cow_String() : *m_file; }
  void setFile(cow_String const& file);
  bool isSubstructure() const { return m_file != nullptr; }

  /// The node labels, for reading and writing; 0 is a node that is not given. Null when there are none.
  int* topology() { return m_topology; }
  int const* topology() const { return m_topology; }
  int numNodesPerElement() const { return m_numNodesPerElement; }
  /// How many node labels the deck gave.
  int numNodesDefined() const { return m_numNodesDefined; }
  int nodeOffset() const { return m_nodeOffset; }
  int solidElementNumbering() const { return m_solidElementNumbering; }

  /// Bytes that this element takes when it is on the heap itself, with what the allocator rounds up.
  std::size_t Bytes() const;

private:
  inp_Element(cow_String const& type, int count, int numNodesDefined, int nodeOffset,
              int solidElementNumbering);
  void TakeNodes(int count, int const* nodes);
  void FreeNodes();

  cow_String m_type;
  cow_String* m_file{nullptr}; // owned; null in place of an empty name
  int* m_topology{nullptr};    // owned, or behind this element in its block
  std::int16_t m_numNodesPerElement{0};
  std::int16_t m_solidElementNumbering{0};
  std::int16_t m_numNodesDefined{0};
  bool m_hasNodesBehind{false};
  std::int32_t m_nodeOffset{0};
};
