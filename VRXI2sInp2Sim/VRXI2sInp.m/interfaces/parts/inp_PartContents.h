#pragma once

#include "atr_String.h"
#include "cow_Btree.h"
#include "cow_String.h"

/// What is known of an analytical surface under the name that it has at one level.
struct inp_SurfaceUses
{
  unsigned int count = 0;   ///< rigid bodies of this level that refer to it
  bool isDefined = false;   ///< at this level
  bool isRefused = false;   ///< an instance defines what its part defines
  bool isUsedAbove = false; ///< a rigid body of a level above refers to it, and to no other
  cow_String instanceName;  ///< empty in a part
  cow_String surfaceName;
  atr_Origin place; ///< of the definition, or else of the first reference
};

/// What one part holds, as far as the rules of parts ask.
struct inp_PartContents
{
  bool hasRigidBody = false; ///< defined within the part
  bool hasRigidElements = false;
  bool hasDeformableElements = false;
  int numAnalyticalSurfaces = 0;
  cow_Btree<cow_String, inp_SurfaceUses> analyticalSurfaces; ///< defined or referred to, by name
  atr_Origin place;                                          ///< of the *PART
};
