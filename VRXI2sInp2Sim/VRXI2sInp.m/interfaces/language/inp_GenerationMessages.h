#pragma once

/// What is said of rows that generate numbers: a constant inp_msg<Code> for each row of
/// inp_GenerationMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_GenerationMessages.def"
