#include "inp_PartSurfaceVisitor.h"

#include "inp_KeywordEnm.h"

void inp_PartSurfaceVisitor::Visit(inp_Keyword& keyword)
{
  if (keyword.Is(inp_kwPart) || IsInPart())
  {
    inp_SurfaceVisitor::Visit(keyword);
  }
}
