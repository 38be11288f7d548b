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

void inp_PartElementVisitor::VisitElcopy(inp_Keyword& keyword)
{
  if (IsInPart())
  {
    inp_ElementVisitor::VisitElcopy(keyword);
  }
}

void inp_PartElementVisitor::VisitElement(inp_Keyword& keyword)
{
  if (IsInPart())
  {
    inp_ElementVisitor::VisitElement(keyword);
  }
}

void inp_PartElementVisitor::VisitElgen(inp_Keyword& keyword)
{
  if (IsInPart())
  {
    inp_ElementVisitor::VisitElgen(keyword);
  }
}

void inp_PartElementVisitor::VisitElset(inp_Keyword& keyword)
{
  if (IsInPart())
  {
    inp_ElementVisitor::VisitElset(keyword);
  }
}
