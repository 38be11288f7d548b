#pragma once

#include "inp_NameFixupVisitor.h"

/// The member of the family for rebars. It knows no keyword that names one, deliberately: where a
/// flat deck is divided into parts, the pass that divides it renames its rebars.
class inp_RebarFixupVisitor : public inp_NameFixupVisitor
{
public:
  void DefaultAction(inp_Keyword&) override {}

  virtual cow_String FixupRebarName(cow_String const& name) = 0;

protected:
  bool Serves(inp_referenceEnm) const override { return false; }
  cow_String FixupName(cow_String const& name) override { return FixupRebarName(name); }
};
