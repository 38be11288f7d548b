#pragma once

#include "inp_NodeVisitor.h"

/// Reads the nodes and node sets inside *PART; what stands elsewhere is passed over.
///
/// Needs:    a list that is organized, and the elements and element sets of the parts.
/// Produces: a child of the map of nodes for each part, also for one without nodes, and node sets by part.
///           Each part begins without a local system.
class inp_PartNodeVisitor : public inp_NodeVisitor
{
public:
  inp_PartNodeVisitor(inpM_InstanceMap<inp_MapInt2Element> const& itsElements,
                      inpM_SetMap const& itsElementSets, bool itComputesGeometry);

  void Visit(inp_Keyword& keyword) override;
  void VisitPart(inp_Keyword& keyword) override;
  void VisitNcopy(inp_Keyword& keyword) override;
  void VisitNfill(inp_Keyword& keyword) override;
  void VisitNgen(inp_Keyword& keyword) override;
  void VisitNmap(inp_Keyword& keyword) override;
  void VisitNode(inp_Keyword& keyword) override;
  void VisitNset(inp_Keyword& keyword) override;

private:
  bool IsInPart() const { return m_partName.Length() > 0; }
};
