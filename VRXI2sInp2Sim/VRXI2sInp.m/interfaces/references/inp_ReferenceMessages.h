#pragma once

/// What the references floor says: a constant inp_msg<Code> for each row of
/// inp_ReferenceMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_ReferenceMessages.def"
