#include "inp_RemovePeriodVisitors.h"

#include "inp_NameRules.h"
#include "inp_PlaceRows.h"

namespace
{

#define INP_PLACES INP_PLACES_ARRAY
#include "inp_SetDefinitions.def"

} // namespace

inp_RemovePeriodSetVisitor::inp_RemovePeriodSetVisitor(
  inp_ModelParameters const& itsModelParameters)
  : inp_SetFixupVisitor(inpM_SetMap(), inpM_SetMap(), inpM_IdMap(), inpM_IdMap(),
                        itsModelParameters)
{
}

inp_RemovePeriodSurfaceVisitor::inp_RemovePeriodSurfaceVisitor()
  : inp_SurfaceFixupVisitor(inpM_SurfaceMap())
{
}

#define INP_PLACES(stem, ...)                                                                      \
  void inp_RemovePeriodSetVisitor::Visit##stem(inp_Keyword& keyword)                               \
  {                                                                                                \
    ReplacePlaces(keyword, placesOf##stem);                                                        \
    inp_SetFixupVisitor::Visit##stem(keyword);                                                     \
  }
#include "inp_SetDefinitions.def"

#define INP_NAME_KIND(kind, operation, ...)                                                        \
  cow_String inp_RemovePeriod##kind##Visitor::operation(__VA_ARGS__)                               \
  {                                                                                                \
    return inp_WithoutPeriods(name);                                                               \
  }                                                                                                \
  bool inp_RemovePeriod##kind##Visitor::RewriteInPlace(char* cell)                                 \
  {                                                                                                \
    return inp_RemovePeriodsInPlace(cell);                                                         \
  }
#include "inp_NameKinds.def"
