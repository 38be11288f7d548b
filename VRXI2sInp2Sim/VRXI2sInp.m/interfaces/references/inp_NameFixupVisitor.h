#pragma once

#include "inp_Columns.h"
#include "inp_ReferencePlace.h"
#include "inp_Visitor.h"

/// What the fixups of orientations, distributions and materials have in common: a name is a
/// parameter or a field, never a number, and one operation says what becomes of it.
///
/// Fields go in and are stored as in inp_SetFixupVisitor; those that read as numbers, and blank
/// ones, stay.
///
/// Reports:  an exception that the operation raises; the name stays and the walk goes on with the
///           next. Memory failures leave the walk.
class inp_NameFixupVisitor : public inp_Visitor
{
public:
  void DefaultAction(inp_Keyword&) override {}

  /// An absent parameter is passed over.
  virtual void ReplaceParameter(inp_Keyword& keyword, cow_String const& name);
  /// One value; the caller stores it.
  virtual cow_String ReplaceData(inp_Keyword& keyword, cow_String const& value);

protected:
  /// The name that is to stand in place of `name`.
  virtual cow_String FixupName(cow_String const& name) = 0;
  /// False for a field that FixupName would give back as it is.
  virtual bool MayChange(char const*) const { return true; }

  /// Rewrites the places that count, up to the one that names nothing.
  void ReplacePlaces(inp_Keyword& keyword, inp_ReferencePlace const* place);
  /// Lines count from 1; 0 is the last.
  void ReplaceFields(inp_Keyword& keyword, inp_Columns const& columns, int firstLine, int lastLine);
};
