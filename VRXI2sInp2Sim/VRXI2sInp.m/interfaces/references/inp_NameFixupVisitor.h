#pragma once

#include "inp_ReferenceVisitor.h"

/// Names of this kind are rewritten throughout a deck. The definitions of materials and of distribution tables
/// keep theirs, and so do the references to them.
constexpr bool inp_IsRenamed(inp_referenceEnm what)
{
  return what != inp_refMaterial && what != inp_refTable;
}

/// What the fixups of orientations, distributions, materials and rebars have in common: a name is a
/// parameter or a field, never a number, and one operation says what becomes of it.
/// Messages name the name, and its field or parameter.
class inp_NameFixupVisitor : public inp_ReferenceVisitor
{
public:
  /// An absent parameter is passed over.
  virtual void ReplaceParameter(inp_Keyword& keyword, cow_String const& name);
  /// One value; the caller stores it.
  virtual cow_String ReplaceData(inp_Keyword& keyword, cow_String const& value);

protected:
  /// The name that is to stand in place of `name`.
  virtual cow_String FixupName(cow_String const& name) = 0;

  cow_String FixupReference(inp_Reference const&, cow_String const& name) override
  {
    return FixupName(name);
  }
  bool TakesNumbers() const override { return false; }
  void ReplacePlace(inp_Keyword& keyword, inp_ReferencePlace const& place) override;
  void ReplaceFields(inp_Keyword& keyword, inp_Fields const& fields);
  atr_String FaultMessage(inp_Reference const& reference, cow_String const& name,
                          atr_String const& fault) const override;
};
