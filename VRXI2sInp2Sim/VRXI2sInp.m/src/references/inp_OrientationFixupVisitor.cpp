#include "inp_OrientationFixupVisitor.h"

#include "inp_KeywordEnm.h"
#define INP_PLACES_VISITOR inp_OrientationFixupVisitor
#define INP_PLACES_TABLE "inp_OrientationReferences.def"
#include "inp_PlaceHandlers.def"

void inp_OrientationFixupVisitor::ReplaceDataAtColumn(inp_Keyword& keyword, int column)
{
  ReplaceFields(keyword, {.columns = inp_Columns::Of(column)});
}
