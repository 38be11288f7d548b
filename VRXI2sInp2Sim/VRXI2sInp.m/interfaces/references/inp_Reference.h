#pragma once

#include "cow_String.h"
#include "inp_ReferencePlace.h"
#include "inp_Scope.h"
#include "inp_SetType.h"

class inp_Keyword;
class inpM_IdMap;
class inpM_SetMap;

/// A name that a keyword gives: what it names, and where it stands. Made by a walk, and good as long as the
/// walk stands there.
///
/// A field is known by its row and column, which count from 0; a parameter by its name.
struct inp_Reference
{
  inp_referenceEnm what = inp_noReference;
  inp_Keyword const* keyword = nullptr;
  inp_Scope const* scope = nullptr; ///< of the keyword
  cow_String parameter;             ///< empty for a field
  int row = 0;
  int column = 0;
  char const* cell = nullptr; ///< the field as it is stored, or null

  // Of nodes and elements: what the walk has for them, and the type that FixupIdOrSet is told.
  inpM_SetMap const* sets = nullptr;
  inpM_IdMap const* ids = nullptr;
  inp_SetType setType = inp_anySet;

  bool IsField() const { return cell != nullptr; }
  /// The name as AsString gives it: without blanks, in upper case outside of quotes. Makes a text.
  cow_String Name() const;
  /// "field 3 of data line 1", "ORIENTATION"; empty for a value by itself.
  cow_String PlaceWords() const;
};
