#pragma once

/// What expansion says of keywords: a constant inp_msg<Code> for each row of
/// inp_ExpansionMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_ExpansionMessages.def"
