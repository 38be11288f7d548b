#include "inp_ScopedNameVisitors.h"

#include "inp_NameRules.h"

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

// Most sets stand in a part, and have many members: there nothing is to be done.
void inp_ScopedNameSetVisitor::VisitElset(inp_Keyword& keyword)
{
  if (IsOutsideScopes())
  {
    keyword.HasParameter("generate")
      ? ReplaceElementOrElsetData(keyword, inp_Columns::OfFields(1, 2), 1)
      : ReplaceElementOrElsetAllData(keyword);
  }
}

void inp_ScopedNameSetVisitor::VisitNset(inp_Keyword& keyword)
{
  if (IsOutsideScopes())
  {
    ReplaceElementOrElsetParameter(keyword, "elset");
    keyword.HasParameter("generate")
      ? ReplaceNodeOrNsetData(keyword, inp_Columns::OfFields(1, 2), 1)
      : ReplaceNodeOrNsetAllData(keyword);
  }
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

#define INP_NAME_KIND(kind, operation, ...)                                                        \
  cow_String inp_ScopedName##kind##Visitor::operation(__VA_ARGS__)                                 \
  {                                                                                                \
    return IsOutsideScopes() ? inp_WithoutAssembly(name, assemblyName) : name;                     \
  }                                                                                                \
  bool inp_ScopedName##kind##Visitor::RewriteInPlace(char* cell)                                   \
  {                                                                                                \
    return !IsOutsideScopes() || inp_RemoveAssemblyInPlace(cell, assemblyName);                    \
  }
#include "inp_NameKinds.def"
