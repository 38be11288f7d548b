#include "inp_SurfaceFixupVisitor.h"

#include "inp_KeywordEnm.h"

#define INP_PLACES_VISITOR inp_SurfaceFixupVisitor
#define INP_PLACES_TABLE "inp_SurfaceReferences.def"
#include "inp_PlaceHandlers.def"

void inp_SurfaceFixupVisitor::ReplacePlace(inp_Keyword& keyword, inp_ReferencePlace const& place)
{
  if (place.parameter != nullptr)
  {
    ReplaceSurfaceParameter(keyword, place.parameter);
  }
  else if (place.columns.IsAll())
  {
    ReplaceSurfaceAllData(keyword);
  }
  else
  {
    inp_Fields const fields = inp_FieldsOf(place, keyword, nullptr);
    ReplaceSurfaceData(keyword, place.columns, fields.rowStep, fields.firstRow);
  }
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceData(inp_Keyword& keyword, inp_Columns const& columns,
                                                 int rowStep, int firstRow)
{
  RewriteFields(keyword, {.columns = columns, .firstRow = firstRow, .rowStep = rowStep},
                [&](cow_String const& text)
                { return Fixed(AtWork(keyword, inp_refSurface), text); });
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceAllData(inp_Keyword& keyword)
{
  ReplaceSurfaceData(keyword, inp_Columns::All(), 1, 0);
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceParameter(inp_Keyword& keyword, cow_String const& name)
{
  RewriteParameter(keyword, name,
                   [&](cow_String const& text)
                   { return Fixed(AtWork(keyword, inp_refSurface), text); });
}
