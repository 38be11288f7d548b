#pragma once

#include "cow_String.h"

// What becomes of a name where a deck's names are rewritten as a whole. Each rule stands twice: for
// a text, and for a field as it is stored, where it answers whether all is done; see
// inp_ReferenceVisitor::RewriteInPlace.

/// Periods outside double quotes become "_". A real number is no name: where a table lets all
/// fields count, numbers stand between the names.
cow_String inp_WithoutPeriods(cow_String const& name);
bool inp_RemovePeriodsInPlace(char* cell);

/// The name behind the first period when the text before it is the assembly's name.
cow_String inp_WithoutAssembly(cow_String const& name, cow_String const& assembly);
bool inp_RemoveAssemblyInPlace(char* cell, cow_String const& assembly);
