#pragma once

/// What the rules of parts and rigid bodies say: a constant inp_msg<Code> for each row of
/// inp_PartMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_PartMessages.def"
