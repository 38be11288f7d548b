#pragma once

#include "inp_ElementVisitor.h"

/// Reads the elements and element sets inside *PART; of what stands elsewhere, *USER ELEMENT alone.
///
/// Needs:    a list that is organized.
/// Produces: a table of elements for each part, also for one without elements, and element sets by part.
class inp_PartElementVisitor : public inp_ElementVisitor
{
public:
  explicit inp_PartElementVisitor(bool computesConnectivity)
    : inp_ElementVisitor(computesConnectivity)
  {
  }

  void Visit(inp_Keyword& keyword) override;
  void VisitPart(inp_Keyword& keyword) override;
};
