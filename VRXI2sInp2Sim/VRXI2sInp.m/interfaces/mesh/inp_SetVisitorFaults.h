#pragma once

#include "inp_ScopedField.h"
#include "inp_SetVisitor.h"

/// What is wrong in the rows of one keyword.
struct inp_SetVisitor::Faults
{
  cow_List<cow_String> invalid;  ///< fields that can stand for nothing
  cow_List<cow_String> missing;  ///< sets, and ids of instances, that do not exist
  cow_List<cow_String> tooLarge; ///< sets for whose ids there is no room
};
