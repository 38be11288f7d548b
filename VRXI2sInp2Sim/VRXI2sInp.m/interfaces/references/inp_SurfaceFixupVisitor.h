#pragma once

#include "inpM_SurfaceMap.h"
#include "inp_Columns.h"
#include "inp_ReferenceVisitor.h"

/// Finds every place where a surface is named, and stores what FixupSurfaceName makes of the name.
/// The places stand in inp_SurfaceReferences.def.
class inp_SurfaceFixupVisitor : public inp_ReferenceVisitor
{
public:
  explicit inp_SurfaceFixupVisitor(inpM_SurfaceMap const& itsSurfaces) : surfaces(itsSurfaces) {}

#define INP_PLACES(stem, ...) void Visit##stem(inp_Keyword& keyword) override;
#include "inp_SurfaceReferences.def"

  /// The name that is to stand in place of `name`; the others are the walk's place.
  virtual cow_String FixupSurfaceName(cow_String const& name, cow_String const& instance,
                                      cow_String const& assembly, cow_String const& part) = 0;

  /// Columns of every `rowStep`-th line from `firstRow` on; a step below 1 touches none.
  virtual void ReplaceSurfaceData(inp_Keyword& keyword, inp_Columns const& columns, int rowStep,
                                  int firstRow);
  virtual void ReplaceSurfaceAllData(inp_Keyword& keyword);
  /// An absent parameter is passed over.
  virtual void ReplaceSurfaceParameter(inp_Keyword& keyword, cow_String const& name);

  /// The places of a keyword, closed by one that names nothing; null when it has none.
  static inp_ReferencePlace const* Places(inp_KeywordEnm keyword);

protected:
  bool Serves(inp_referenceEnm what) const override { return what == inp_refSurface; }
  cow_String FixupReference(inp_Reference const& reference, cow_String const& name) override
  {
    inp_Scope const& scope = *reference.scope;
    return FixupSurfaceName(name, scope.m_instanceName, scope.m_assemblyName, scope.m_partName);
  }
  void ReplacePlace(inp_Keyword& keyword, inp_ReferencePlace const& place) override;

  inpM_SurfaceMap surfaces;
};
