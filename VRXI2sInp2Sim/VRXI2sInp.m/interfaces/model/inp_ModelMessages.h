#pragma once

/// What the model floor says: a constant inp_msg<Code> for each row of inp_ModelMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_ModelMessages.def"
