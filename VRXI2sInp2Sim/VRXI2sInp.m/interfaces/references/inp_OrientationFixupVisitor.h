#pragma once

#include "cow_Map.h"
#include "inp_Item.h"
#include "inp_KeywordEnmFwd.h"
#include "inp_NameFixupVisitor.h"

/// Finds every place where an orientation is named; see inp_OrientationReferences.def.
class inp_OrientationFixupVisitor : public inp_NameFixupVisitor
{
public:
  using Defaults = cow_Map<cow_String, cow_List<inp_Item>>;

  /// Given the default values of the distributions, by name: an orientation may be a distribution.
  explicit inp_OrientationFixupVisitor(Defaults const& itsDefaultsByName)
    : defaultsByName(itsDefaultsByName)
  {
  }

#define INP_PLACES(stem, ...) void Visit##stem(inp_Keyword& keyword) override;
#include "inp_OrientationReferences.def"

  virtual cow_String FixupOrientationName(cow_String const& name) = 0;

  /// Every line that is long enough; the column counts from 0.
  void ReplaceDataAtColumn(inp_Keyword& keyword, int column);

  /// The places of a keyword, closed by one that names nothing; null when it has none.
  static inp_ReferencePlace const* Places(inp_KeywordEnm keyword);

protected:
  bool Serves(inp_referenceEnm what) const override
  {
    return what == inp_refOrientation || what == inp_refInflator;
  }
  cow_String FixupName(cow_String const& name) override { return FixupOrientationName(name); }

  Defaults defaultsByName;
};
