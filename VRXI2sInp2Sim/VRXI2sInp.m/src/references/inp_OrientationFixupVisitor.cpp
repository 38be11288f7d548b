#include "inp_OrientationFixupVisitor.h"

#include "inp_PlaceRows.h"

namespace
{

#define INP_PLACES INP_PLACES_ARRAY
#include "inp_OrientationReferences.def"

} // namespace

#define INP_PLACES(stem, ...)                                                                      \
  void inp_OrientationFixupVisitor::Visit##stem(inp_Keyword& keyword)                              \
  {                                                                                                \
    ReplacePlaces(keyword, placesOf##stem);                                                        \
  }
#include "inp_OrientationReferences.def"

inp_ReferencePlace const* inp_OrientationFixupVisitor::Places(inp_KeywordEnm keyword)
{
  switch (static_cast<int>(keyword))
  {
#define INP_PLACES(stem, ...)                                                                      \
  case inp_kw##stem:                                                                               \
    return placesOf##stem;
#include "inp_OrientationReferences.def"
  default:
    return nullptr;
  }
}

void inp_OrientationFixupVisitor::ReplaceDataAtColumn(inp_Keyword& keyword, int column)
{
  ReplaceFields(keyword, inp_Columns::Of(column), 1, 0);
}
