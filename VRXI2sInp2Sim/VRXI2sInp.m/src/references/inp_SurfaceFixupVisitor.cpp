#include "inp_SurfaceFixupVisitor.h"

#include "inp_CellRewriter.h"
#include "inp_PlaceRows.h"
#include "inp_PlaceRules.h"

namespace
{

#define INP_PLACES INP_PLACES_ARRAY
#include "inp_SurfaceReferences.def"

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

#define INP_PLACES(stem, ...)                                                                      \
  void inp_SurfaceFixupVisitor::Visit##stem(inp_Keyword& keyword)                                  \
  {                                                                                                \
    ReplacePlaces(keyword, placesOf##stem);                                                        \
  }
#include "inp_SurfaceReferences.def"

inp_ReferencePlace const* inp_SurfaceFixupVisitor::Places(inp_KeywordEnm keyword)
{
  switch (static_cast<int>(keyword))
  {
#define INP_PLACES(stem, ...)                                                                      \
  case inp_kw##stem:                                                                               \
    return placesOf##stem;
#include "inp_SurfaceReferences.def"
  default:
    return nullptr;
  }
}

void inp_SurfaceFixupVisitor::ReplacePlaces(inp_Keyword& keyword, inp_ReferencePlace const* place)
{
  for (; place->what != inp_noReference; ++place)
  {
    if (!inp_PlaceCounts(*place, keyword))
    {
      continue;
    }
    if (place->parameter != nullptr)
    {
      ReplaceSurfaceParameter(keyword, place->parameter);
    }
    else if (place->columns.IsAll())
    {
      ReplaceSurfaceAllData(keyword);
    }
    else
    {
      ReplaceSurfaceData(keyword, place->columns, place->stepLines,
                         BeginsWithNumber(keyword.data, place->numbers) ? 1 : 0);
    }
  }
}

void inp_SurfaceFixupVisitor::ReplaceRows(inp_Keyword& keyword, inp_Columns const& columns,
                                          int rowStep, int firstRow)
{
  inp_CellRewriter cells(keyword);
  cells.EveryRow(
    firstRow, cells.Rows(), rowStep, columns,
    [this](char const* cell) { return MayChange(cell) && !inp_RawDataArrayImpl::IsNoneCell(cell); },
    [this](cow_String const& text)
    { return FixupSurfaceName(text, m_instanceName, m_assemblyName, m_partName); });
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceData(inp_Keyword& keyword, inp_Columns const& columns,
                                                 int rowStep, int firstRow)
{
  ReplaceRows(keyword, columns, rowStep, firstRow);
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceAllData(inp_Keyword& keyword)
{
  ReplaceRows(keyword, inp_Columns::All(), 1, 0);
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceParameter(inp_Keyword& keyword, cow_String const& name)
{
  inp_RewriteParameter(keyword, name,
                       [this](cow_String const& text) {
                         return FixupSurfaceName(text, m_instanceName, m_assemblyName, m_partName);
                       });
}
