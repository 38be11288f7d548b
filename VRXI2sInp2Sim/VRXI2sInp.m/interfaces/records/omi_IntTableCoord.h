#pragma once

#include "inp_Coord.h"
#include "mem_Allocation.h"
#include "omi_IntTable.h"

/// A table from node labels to nodes that it owns. A copy copies every node.
///
/// Nodes are blocks of the pool, 64 bytes each, and are freed without a destructor.
class omi_IntTableCoord : public omi_IntTable<void*, VRXBasOmiDefaultAllocator>
{
public:
  omi_IntTableCoord() = default;
  omi_IntTableCoord(omi_IntTableCoord const& other);
  omi_IntTableCoord& operator=(omi_IntTableCoord const&) = delete;
  ~omi_IntTableCoord() override;

  /// A copy of a node, for a cell of a table.
  static inp_Coord* MakeCoord(inp_Coord const& coord)
  {
    return ::new (mem_OperatorNewThrow(sizeof(inp_Coord))) inp_Coord(coord);
  }

  /// The node under a label that is known to be present.
  inp_Coord const& ConstGetCoord(int label) const
  {
    return *static_cast<inp_Coord const*>(ConstGet(label));
  }
};
