#pragma once

#include "cow_String.h"

/// What a parameter says as the name of something: a text, or why there is none.
///
///     *SURFACE, NAME=7     c_given, "7"
///     *SURFACE, NAME       c_switch
///     *SURFACE             c_absent
///
/// A number is a name like any other here: who wants a letter in front looks at the text.
struct inp_NameParameter
{
  enum stateEnm
  {
    c_given,
    c_absent,
    c_switch, ///< the parameter stands without a value
    c_empty,  ///< the value is an empty text
    c_notName ///< the value can stand for nothing
  };

  bool IsGiven() const { return state == c_given; }

  stateEnm state = c_absent;
  cow_String text; ///< empty unless it is given
};
