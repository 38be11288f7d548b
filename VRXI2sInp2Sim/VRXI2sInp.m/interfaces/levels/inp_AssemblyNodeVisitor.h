#pragma once

#include "inp_LevelMaps.h"
#include "inp_NodeVisitor.h"

class inp_NodeNumbers;

/// Reads what stands outside of *PART: positions of instances, nodes and node sets within them, and those
/// of the assembly.
///
///     *INSTANCE, NAME=WHEEL-1, PART=WHEEL
///     5., 0., 0.                            moved by this vector,
///     5., 0., 0., 5., 0., 1., 90.           then turned about the axis a to b, by degrees
///
/// Needs:    a list that is organized; the nodes and node sets of the parts; the elements and element
///           sets of the instances.
/// Produces: for each instance a share of its part's nodes, with the position that is applied to what is
///           read, and of its part's node sets; the position itself; and the nodes and sets that are new.
///           An instance costs O(1), whatever its part holds, until it gets nodes of its own.
/// Reports:  an instance that defines a node set of its part again; fields of a position that are no
///           numbers; a rotation that cannot be read as a whole, or whose axis has no direction, which
///           leaves the instance moved and not turned.
class inp_AssemblyNodeVisitor : public inp_NodeVisitor
{
public:
  /// `known` holds the elements and element sets of the instances, and node sets that the assembly and
  /// its instances have before the walk.
  inp_AssemblyNodeVisitor(inp_LevelMaps const& known, inp_PartMaps const& parts,
                          bool itComputesGeometry);

  /// The position of each instance.
  inpM_InstanceMap<gsl_Matrix> const& GetPositions() const { return m_instancePositions; }

  /// Behind the walk, when the elements of the assembly have their nodes, by these numbers.
  void FinishNodeSets(inp_NodeNumbers& numbers);

  void Visit(inp_Keyword& keyword) override;
  void VisitInstance(inp_Keyword& keyword) override;
  void VisitEndInstance(inp_Keyword& keyword) override;

protected:
  bool MayChangeSet(inp_Keyword const& keyword, cow_String const& name) override;
  bool IsValidInstanceName(cow_String const& name) const override;
  NodePlace PlaceOfAssemblyNode(int node) override;

private:
  void ReadPosition(inp_Keyword const& keyword);
  void ReadRotation(inp_Keyword const& keyword);

  inp_CoordMap m_partCoordMap;
  inpM_SetMap m_partNodeSets;
  inp_NodeNumbers* m_numbers = nullptr; ///< while sets are finished
};
