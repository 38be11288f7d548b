#pragma once

#include "cow_Map.h"
#include "inp_Item.h"
#include "inp_KeywordEnmFwd.h"
#include "inp_NameFixupVisitor.h"

class inp_ModelParameters;

/// Finds every place where a distribution or its table is named; see
/// inp_DistributionReferences.def. Keeps the default values of the distributions that it meets:
/// those of the record that begins with a blank field in place of a node or an element.
class inp_DistributionFixupVisitor : public inp_NameFixupVisitor
{
public:
  using Defaults = cow_Map<cow_String, cow_List<inp_Item>>;

  /// The model parameters must live as long as the visitor.
  explicit inp_DistributionFixupVisitor(inp_ModelParameters const& itsModelParameters)
    : modelParameters(&itsModelParameters)
  {
  }

#define INP_PLACES(stem, ...) void Visit##stem(inp_Keyword& keyword) override;
#include "inp_DistributionReferences.def"

  virtual cow_String FixupDistributionName(cow_String const& name) = 0;

  /// By the names that the distributions have after the walk.
  Defaults const& ConstGetDefaultsByName() const { return defaultsByName; }
  /// A default value of a distribution, counted from 0 behind the blank field; `otherwise` where
  /// there is none, or no number.
  double GetDefaultDataDouble(cow_String const& distribution, int index,
                              double otherwise = 0.0) const;

  /// The places of a keyword, closed by one that names nothing; null when it has none.
  static inp_ReferencePlace const* Places(inp_KeywordEnm keyword);

protected:
  bool Serves(inp_referenceEnm what) const override
  {
    return what == inp_refDistribution || what == inp_refTable;
  }
  cow_String FixupName(cow_String const& name) override { return FixupDistributionName(name); }

  inp_ModelParameters const* modelParameters;
  Defaults defaultsByName;
};
