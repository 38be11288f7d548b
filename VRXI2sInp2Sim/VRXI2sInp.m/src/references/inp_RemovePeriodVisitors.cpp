#include "inp_RemovePeriodVisitors.h"

#include "inp_PlaceRows.h"

#include <cstring>

namespace
{

#define INP_PLACES INP_PLACES_ARRAY
#include "inp_SetDefinitions.def"

/// A real number is no name: where a table lets all fields count, numbers stand between the names.
cow_String WithoutPeriods(cow_String const& name)
{
  bool const isReal = inp_Types::IsDouble(name.View()) || inp_Types::IsDoubleD(name.View());
  return isReal ? name : inp_Utils::ReplaceUnquotedPeriodWithUnderscore(name);
}

bool HasPeriod(char const* cell) { return std::strchr(cell, '.') != nullptr; }

} // namespace

inp_RemovePeriodSetVisitor::inp_RemovePeriodSetVisitor(
  inp_ModelParameters const& itsModelParameters)
  : inp_SetFixupVisitor(inpM_SetMap(), inpM_SetMap(), inpM_IdMap(), inpM_IdMap(),
                        itsModelParameters)
{
}

#define INP_PLACES(stem, ...)                                                                      \
  void inp_RemovePeriodSetVisitor::Visit##stem(inp_Keyword& keyword)                               \
  {                                                                                                \
    ReplacePlaces(keyword, placesOf##stem);                                                        \
    inp_SetFixupVisitor::Visit##stem(keyword);                                                     \
  }
#include "inp_SetDefinitions.def"

cow_String inp_RemovePeriodSetVisitor::FixupIdOrSet(inp_Keyword const&, cow_String const& value,
                                                    inpM_SetMap const&, inpM_IdMap const&,
                                                    cow_String const&, cow_String const&,
                                                    cow_String const&, inp_SetType,
                                                    cow_String const&)
{
  return WithoutPeriods(value);
}

bool inp_RemovePeriodSetVisitor::MayChange(char const* cell) const { return HasPeriod(cell); }

inp_RemovePeriodSurfaceVisitor::inp_RemovePeriodSurfaceVisitor()
  : inp_SurfaceFixupVisitor(inpM_SurfaceMap())
{
}

cow_String inp_RemovePeriodSurfaceVisitor::FixupSurfaceName(cow_String const& name,
                                                            cow_String const&, cow_String const&,
                                                            cow_String const&)
{
  return WithoutPeriods(name);
}

bool inp_RemovePeriodSurfaceVisitor::MayChange(char const* cell) const { return HasPeriod(cell); }

cow_String inp_RemovePeriodDistributionVisitor::FixupDistributionName(cow_String const& name)
{
  return WithoutPeriods(name);
}

bool inp_RemovePeriodDistributionVisitor::MayChange(char const* cell) const
{
  return HasPeriod(cell);
}

cow_String inp_RemovePeriodOrientationVisitor::FixupOrientationName(cow_String const& name)
{
  return WithoutPeriods(name);
}

bool inp_RemovePeriodOrientationVisitor::MayChange(char const* cell) const
{
  return HasPeriod(cell);
}

cow_String inp_RemovePeriodRebarVisitor::FixupRebarName(cow_String const& name)
{
  return WithoutPeriods(name);
}

cow_String inp_RemovePeriodMaterialVisitor::FixupMaterialName(cow_String const& name)
{
  return WithoutPeriods(name);
}

bool inp_RemovePeriodMaterialVisitor::MayChange(char const* cell) const { return HasPeriod(cell); }
