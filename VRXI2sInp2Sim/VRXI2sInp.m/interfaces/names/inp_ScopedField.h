#pragma once

#include "cow_String.h"

/// A field of a row in assembly scope, taken apart: [assembly.][instance.]last.
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
