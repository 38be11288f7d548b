#pragma once

#include "inpM_NodeAreaSurface.h"
#include "inpM_PartInstanceSurfaceMap.h"

#include <cstdint>

/// A surface of the assembly: a piece in each of some instances, and nodes of the assembly itself.
///
///     *SURFACE, NAME=GRIP            WHEEL-1   S1  elements of its set RIM
///     WHEEL-1.RIM, S1                WHEEL-2   S1
///     WHEEL-2.RIM, S1
///
/// The assembly's own elements are the piece of an instance with the name "". A piece that has become empty
/// may stay. A copy shares everything and costs O(1).
class inpM_AssemblyInstanceSurface
{
public:
  void Add(cow_String const& instanceName, inpM_PartInstanceSurface const& piece);
  void Add(inpM_NodeAreaSurface const& nodes) { m_nodes.Add(nodes); }
  void Add(inpM_AssemblyInstanceSurface const& other); ///< stays internal, or not

  /// Keeps only what is also in a piece of an instance, or in another surface. With a piece, all other
  /// instances and the assembly's own nodes are dropped.
  void Intersection(cow_String const& instanceName, inpM_PartInstanceSurface const& piece);
  void Intersection(inpM_AssemblyInstanceSurface const& other);

  /// Removes what is in a piece of an instance, or in another surface.
  void Difference(cow_String const& instanceName, inpM_PartInstanceSurface const& piece);
  void Difference(inpM_AssemblyInstanceSurface const& other);

  /// An internal surface was picked in a pre-processor and has no name of the user's.
  void SetInternal(bool isInternal) { m_isInternal = isInternal; }
  bool IsInternal() const { return m_isInternal; }

  inpM_PartInstanceSurfaceMap const& ConstGetInstance2PartInstanceSurfaceMap() const
  {
    return m_pieces;
  }
  inpM_NodeAreaSurface const& ConstGetNodeSurface() const { return m_nodes; }

  /// A surface of nodes that lie in several instances.
  bool IsCrossInstanceNodeBasedSurface() const;

  /// True unless the surface is made of nodes; also when it is empty.
  bool IsElementSurface() const;
  bool IsEmpty() const;

  /// The number of facets and nodes, repeats included; O(instances).
  std::int64_t Count() const;
  void DropRepeats(); ///< see inpM_PartInstanceSurface

  /// Each instance by the id maps' children of its name; see inpM_PartInstanceSurface::Renumber.
  void Renumber(inpM_IdMap const& nodes, inpM_IdMap const& elements, bool toUser);

private:
  inpM_PartInstanceSurfaceMap m_pieces;
  inpM_NodeAreaSurface m_nodes;
  bool m_isInternal{false};
};
