#include "inp_PartNodeVisitor.h"

#include "inp_KeywordEnm.h"

inp_PartNodeVisitor::inp_PartNodeVisitor(inp_LevelMaps const& known, bool itComputesGeometry)
  : inp_NodeVisitor(known.elements, known.elsets, inpM_SetMap(), itComputesGeometry)
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
