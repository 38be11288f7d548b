#include "inp_ScopedNameVisitors.h"

#include <cstring>

namespace
{

/// The name behind the first period when the text before it is the assembly's name.
cow_String WithoutAssembly(bool isOutsideScopes, cow_String const& name,
                           cow_String const& assemblyName)
{
  int const period = name.Find('.');
  bool const isScoped =
    isOutsideScopes && period < name.Length() &&
    name.View().substr(0, static_cast<std::size_t>(period)) == assemblyName.View();
  return isScoped ? name.Substr(period + 1) : name;
}

bool MayBeScoped(bool isOutsideScopes, char const* cell)
{
  return isOutsideScopes && std::strchr(cell, '.') != nullptr;
}

} // namespace

inp_ScopedNameSetVisitor::inp_ScopedNameSetVisitor(inpM_SetMap const& itsNsets,
                                                   inpM_SetMap const& itsElsets,
                                                   inpM_IdMap const& itsNodeIdMap,
                                                   inpM_IdMap const& itsElementIdMap,
                                                   cow_String const& itsAssemblyName,
                                                   inp_ModelParameters const& itsModelParameters)
  : inp_SetFixupVisitor(itsNsets, itsElsets, itsNodeIdMap, itsElementIdMap, itsModelParameters),
    assemblyName(itsAssemblyName)
{
}

void inp_ScopedNameSetVisitor::VisitElset(inp_Keyword& keyword)
{
  keyword.HasParameter("generate")
    ? ReplaceElementOrElsetData(keyword, inp_Columns::OfFields(1, 2), 1)
    : ReplaceElementOrElsetAllData(keyword);
}

void inp_ScopedNameSetVisitor::VisitNset(inp_Keyword& keyword)
{
  keyword.HasParameter("generate") ? ReplaceNodeOrNsetData(keyword, inp_Columns::OfFields(1, 2), 1)
                                   : ReplaceNodeOrNsetAllData(keyword);
}

cow_String inp_ScopedNameSetVisitor::FixupIdOrSet(inp_Keyword const&, cow_String const& value,
                                                  inpM_SetMap const&, inpM_IdMap const&,
                                                  cow_String const&, cow_String const&,
                                                  cow_String const&, inp_SetType, cow_String const&)
{
  return WithoutAssembly(IsOutsideScopes(), value, assemblyName);
}

bool inp_ScopedNameSetVisitor::MayChange(char const* cell) const
{
  return MayBeScoped(IsOutsideScopes(), cell);
}

inp_ScopedNameSurfaceVisitor::inp_ScopedNameSurfaceVisitor(inpM_SurfaceMap const& itsSurfaces,
                                                           cow_String const& itsAssemblyName,
                                                           bool /*restartJob*/)
  : inp_SurfaceFixupVisitor(itsSurfaces), assemblyName(itsAssemblyName)
{
}

void inp_ScopedNameSurfaceVisitor::VisitSurfaceDefinition(inp_Keyword& keyword)
{
  ReplaceSurfaceParameter(keyword, "name");
}

cow_String inp_ScopedNameSurfaceVisitor::FixupSurfaceName(cow_String const& name, cow_String const&,
                                                          cow_String const&, cow_String const&)
{
  return WithoutAssembly(IsOutsideScopes(), name, assemblyName);
}

bool inp_ScopedNameSurfaceVisitor::MayChange(char const* cell) const
{
  return MayBeScoped(IsOutsideScopes(), cell);
}

inp_ScopedNameDistributionVisitor::inp_ScopedNameDistributionVisitor(
  cow_String const& itsAssemblyName, inp_ModelParameters const& itsModelParameters)
  : inp_DistributionFixupVisitor(itsModelParameters), assemblyName(itsAssemblyName)
{
}

cow_String inp_ScopedNameDistributionVisitor::FixupDistributionName(cow_String const& name)
{
  return WithoutAssembly(IsOutsideScopes(), name, assemblyName);
}

bool inp_ScopedNameDistributionVisitor::MayChange(char const* cell) const
{
  return MayBeScoped(IsOutsideScopes(), cell);
}

inp_ScopedNameOrientationVisitor::inp_ScopedNameOrientationVisitor(
  cow_String const& itsAssemblyName, Defaults const& itsDefaultsByName)
  : inp_OrientationFixupVisitor(itsDefaultsByName), assemblyName(itsAssemblyName)
{
}

cow_String inp_ScopedNameOrientationVisitor::FixupOrientationName(cow_String const& name)
{
  return WithoutAssembly(IsOutsideScopes(), name, assemblyName);
}

bool inp_ScopedNameOrientationVisitor::MayChange(char const* cell) const
{
  return MayBeScoped(IsOutsideScopes(), cell);
}

inp_ScopedNameRebarVisitor::inp_ScopedNameRebarVisitor(cow_String const& itsAssemblyName)
  : assemblyName(itsAssemblyName)
{
}

cow_String inp_ScopedNameRebarVisitor::FixupRebarName(cow_String const& name)
{
  return WithoutAssembly(IsOutsideScopes(), name, assemblyName);
}

inp_ScopedNameMaterialVisitor::inp_ScopedNameMaterialVisitor(cow_String const& itsAssemblyName)
  : assemblyName(itsAssemblyName)
{
}

cow_String inp_ScopedNameMaterialVisitor::FixupMaterialName(cow_String const& name)
{
  return WithoutAssembly(IsOutsideScopes(), name, assemblyName);
}

bool inp_ScopedNameMaterialVisitor::MayChange(char const* cell) const
{
  return MayBeScoped(IsOutsideScopes(), cell);
}
