#pragma once

#include "inpM_NodeAreaSurface.h"
#include "inpM_PartInstanceSurfaceMap.h"

#include <cstdint>

/// A surface of the assembly: by instance a piece within it, and nodes of the assembly's own.
///
///     *SURFACE, NAME=GRIP            WHEEL-1   S1  elements of its set RIM
///     WHEEL-1.RIM, S1                WHEEL-2   S1
///     WHEEL-2.RIM, S1
///
/// Elements of the assembly's own are the piece of the instance "". A piece of which nothing is left may
/// stay, empty. A copy shares everything and costs O(1).
class inpM_AssemblyInstanceSurface
{
public:
  void Add(cow_String const& instanceName, inpM_PartInstanceSurface const& piece);
  void Add(inpM_NodeAreaSurface const& nodes) { m_nodes.Add(nodes); }
  void Add(inpM_AssemblyInstanceSurface const& other); ///< whether internal stays

  /// Leaves what is in a piece of an instance, or in another surface. With a piece, no other instance
  /// and none of the assembly's own nodes remains.
  void Intersection(cow_String const& instanceName, inpM_PartInstanceSurface const& piece);
  void Intersection(inpM_AssemblyInstanceSurface const& other);

  /// Takes away what is in a piece of an instance, or in another surface.
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

  /// Not made of nodes; so is one without anything in it.
  bool IsElementSurface() const;
  bool IsEmpty() const;

  /// Facets and nodes, with all repeats; O(instances).
  std::int64_t Count() const;
  void DropRepeats(); ///< see inpM_PartInstanceSurface

  /// By the id map's child of the same name for an instance; see inpM_PartInstanceSurface::Renumber.
  void Renumber(inpM_IdMap const& nodes, inpM_IdMap const& elements, bool toUser);

private:
  inpM_PartInstanceSurfaceMap m_pieces;
  inpM_NodeAreaSurface m_nodes;
  bool m_isInternal{false};
};
