#pragma once

#include "inp_SetVisitor.h"

/// A field of a row of a set in assembly scope, taken apart: [assembly.][instance.]last.
struct inp_ScopedField
{
  bool fits = false;       ///< it has no more pieces than it may, and none but the last is empty
  cow_String instanceName; ///< empty for a field of one piece
  cow_String last;

  /// `assemblyName` is the first piece that a field of three must have; none may when it is empty.
  inp_ScopedField(cow_String const& text, cow_String assemblyName);

  /// The last piece as an id; false when it is none.
  bool GetId(int& id) const;
};

/// What is wrong in the rows of one keyword.
struct inp_SetVisitor::Faults
{
  cow_List<cow_String> invalid;  ///< fields that can stand for nothing
  cow_List<cow_String> missing;  ///< sets, and ids of instances, that do not exist
  cow_List<cow_String> tooLarge; ///< sets for whose ids there is no room
};
