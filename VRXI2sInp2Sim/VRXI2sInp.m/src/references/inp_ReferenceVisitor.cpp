#include "inp_ReferenceVisitor.h"

#include "inp_PlaceRules.h"

void inp_ReferenceVisitor::ReplacePlaces(inp_Keyword& keyword, inp_ReferencePlace const* place)
{
  for (; place->what != inp_noReference; ++place)
  {
    if (inp_PlaceCounts(*place, keyword))
    {
      ReplacePlace(keyword, *place);
    }
  }
}
