#include "inp_MaterialFixupVisitor.h"

#include "inp_PlaceRows.h"

namespace
{

#define INP_PLACES INP_PLACES_ARRAY
#include "inp_MaterialReferences.def"

} // namespace

#define INP_PLACES(stem, ...)                                                                      \
  void inp_MaterialFixupVisitor::Visit##stem(inp_Keyword& keyword)                                 \
  {                                                                                                \
    ReplacePlaces(keyword, placesOf##stem);                                                        \
  }
#include "inp_MaterialReferences.def"

inp_ReferencePlace const* inp_MaterialFixupVisitor::Places(inp_KeywordEnm keyword)
{
  switch (static_cast<int>(keyword))
  {
#define INP_PLACES(stem, ...)                                                                      \
  case inp_kw##stem:                                                                               \
    return placesOf##stem;
#include "inp_MaterialReferences.def"
  default:
    return nullptr;
  }
}
