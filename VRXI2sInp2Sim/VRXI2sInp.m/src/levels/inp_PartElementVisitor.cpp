#include "inp_PartElementVisitor.h"

#include "inp_KeywordEnm.h"

void inp_PartElementVisitor::Visit(inp_Keyword& keyword)
{
  if (keyword.Is(inp_kwPart) || keyword.Is(inp_kwUserElement) || IsInPart())
  {
    inp_ElementVisitor::Visit(keyword);
  }
}

void inp_PartElementVisitor::VisitPart(inp_Keyword& keyword)
{
  inp_ElementVisitor::VisitPart(keyword);
  if (IsInPart() && !elements.IsMember(m_partName))
  {
    elements.Insert(m_partName, inp_MapInt2Element());
  }
}
