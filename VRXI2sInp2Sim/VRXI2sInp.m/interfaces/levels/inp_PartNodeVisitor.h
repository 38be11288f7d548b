#pragma once

#include "inp_LevelMaps.h"
#include "inp_NodeVisitor.h"

/// Reads the nodes and node sets inside *PART; what stands elsewhere is passed over.
///
/// Needs:    a list that is organized, and the elements and element sets of the parts.
/// Produces: a child of the map of nodes for each part, also for one without nodes, and node sets by part.
///           Each part begins without a local system.
class inp_PartNodeVisitor : public inp_NodeVisitor
{
public:
  /// `known` holds the elements and element sets.
  inp_PartNodeVisitor(inp_LevelMaps const& known, bool itComputesGeometry);

  void Visit(inp_Keyword& keyword) override;
  void VisitPart(inp_Keyword& keyword) override;
};
