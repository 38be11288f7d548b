#include "inp_MaterialFixupVisitor.h"

#include "inp_KeywordEnm.h"
#define INP_PLACES_VISITOR inp_MaterialFixupVisitor
#define INP_PLACES_TABLE "inp_MaterialReferences.def"
#include "inp_PlaceHandlers.def"
