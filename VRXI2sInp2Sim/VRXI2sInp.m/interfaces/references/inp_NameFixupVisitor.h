#pragma once

#include "inp_Columns.h"
#include "inp_ReferenceVisitor.h"

/// What the fixups of orientations, distributions, materials and rebars have in common: a name is a
/// parameter or a field, never a number, and one operation says what becomes of it.
///
/// Reports:  an exception that the operation raises, with the name and its field or parameter; the
///           name stays and the walk goes on with the next. Memory failures leave the walk.
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

  bool TakesNumbers() const override { return false; }
  void ReplacePlace(inp_Keyword& keyword, inp_ReferencePlace const& place) override;
  /// Lines count from 1; 0 is the last.
  void ReplaceFields(inp_Keyword& keyword, inp_Columns const& columns, int firstLine, int lastLine);
  atr_String FaultMessage(inp_Keyword const& keyword, cow_String const& name,
                          atr_String const& fault) const override;
};
