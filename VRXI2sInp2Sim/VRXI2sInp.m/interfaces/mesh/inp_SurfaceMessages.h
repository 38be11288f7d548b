#pragma once

/// What the reader of surfaces says: a constant inp_msg<Code> for each row of
/// inp_SurfaceMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_SurfaceMessages.def"
