#include "inp_SurfaceFixupVisitor.h"

#include "inp_KeywordEnm.h"

#define INP_PLACES_VISITOR inp_SurfaceFixupVisitor
#define INP_PLACES_TABLE "inp_SurfaceReferences.def"
#include "inp_PlaceHandlers.def"

namespace
{

bool BeginsWithNumber(inp_DataArray const& data, inp_numbersEnm kind)
{
  if (kind == inp_noNumbers || data.Rows() == 0)
  {
    return false;
  }
  cow_String const first = data.AsString(0, 0);
  return inp_Types::IsDouble(first.View()) ||
         (kind == inp_numbersWithD && inp_Types::IsDoubleD(first.View()));
}

} // namespace

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
    ReplaceSurfaceData(keyword, place.columns, place.stepLines,
                       BeginsWithNumber(keyword.data, place.numbers) ? 1 : 0);
  }
}

cow_String inp_SurfaceFixupVisitor::Fixed(cow_String const& name)
{
  return FixupSurfaceName(name, m_instanceName, m_assemblyName, m_partName);
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceData(inp_Keyword& keyword, inp_Columns const& columns,
                                                 int rowStep, int firstRow)
{
  RewriteFields(keyword, {.columns = columns, .firstRow = firstRow, .rowStep = rowStep},
                [this](cow_String const& text) { return Fixed(text); });
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceAllData(inp_Keyword& keyword)
{
  ReplaceSurfaceData(keyword, inp_Columns::All(), 1, 0);
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceParameter(inp_Keyword& keyword, cow_String const& name)
{
  RewriteParameter(keyword, name, [this](cow_String const& text) { return Fixed(text); });
}
