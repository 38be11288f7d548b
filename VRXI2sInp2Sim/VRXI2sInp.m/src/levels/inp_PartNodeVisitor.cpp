#include "inp_PartNodeVisitor.h"

#include "inp_KeywordEnm.h"

inp_PartNodeVisitor::inp_PartNodeVisitor(inpM_InstanceMap<inp_MapInt2Element> const& itsElements,
                                         inpM_SetMap const& itsElementSets, bool itComputesGeometry)
  : inp_NodeVisitor(itsElements, itsElementSets, inpM_SetMap(), itComputesGeometry)
{
  reportBlended = true;
}

void inp_PartNodeVisitor::Visit(inp_Keyword& keyword)
{
  if (keyword.Is(inp_kwPart) || IsInPart())
  {
    inp_NodeVisitor::Visit(keyword);
  }
}

void inp_PartNodeVisitor::VisitPart(inp_Keyword& keyword)
{
  inp_NodeVisitor::VisitPart(keyword);
  systemTransform.FillIdentity();
  if (IsInPart() && !coordMap.IsMember(m_partName))
  {
    coordMap.Insert(m_partName, inp_CoordMap());
  }
}

void inp_PartNodeVisitor::VisitNcopy(inp_Keyword& keyword)
{
  if (IsInPart())
  {
    inp_NodeVisitor::VisitNcopy(keyword);
  }
}

void inp_PartNodeVisitor::VisitNfill(inp_Keyword& keyword)
{
  if (IsInPart())
  {
    inp_NodeVisitor::VisitNfill(keyword);
  }
}

void inp_PartNodeVisitor::VisitNgen(inp_Keyword& keyword)
{
  if (IsInPart())
  {
    inp_NodeVisitor::VisitNgen(keyword);
  }
}

void inp_PartNodeVisitor::VisitNmap(inp_Keyword& keyword)
{
  if (IsInPart())
  {
    inp_NodeVisitor::VisitNmap(keyword);
  }
}

void inp_PartNodeVisitor::VisitNode(inp_Keyword& keyword)
{
  if (IsInPart())
  {
    inp_NodeVisitor::VisitNode(keyword);
  }
}

void inp_PartNodeVisitor::VisitNset(inp_Keyword& keyword)
{
  if (IsInPart())
  {
    inp_NodeVisitor::VisitNset(keyword);
  }
}
