#pragma once

#include "inp_KeywordEnmFwd.h"
#include "inp_NameFixupVisitor.h"

/// Finds the places where a material is named that inp_MaterialReferences.def lists.
class inp_MaterialFixupVisitor : public inp_NameFixupVisitor
{
public:
#define INP_PLACES(stem, ...) void Visit##stem(inp_Keyword& keyword) override;
#include "inp_MaterialReferences.def"

  virtual cow_String FixupMaterialName(cow_String const& name) = 0;

  /// The places of a keyword, closed by one that names nothing; null when it has none.
  static inp_ReferencePlace const* Places(inp_KeywordEnm keyword);

protected:
  bool Serves(inp_referenceEnm what) const override
  {
    return what == inp_refMaterial || what == inp_refGenerator;
  }
  cow_String FixupName(cow_String const& name) override { return FixupMaterialName(name); }
};
