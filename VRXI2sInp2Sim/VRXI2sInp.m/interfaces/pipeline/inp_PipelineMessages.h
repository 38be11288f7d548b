#pragma once

/// What the stages themselves say: a constant inp_msg<Code> for each row of inp_PipelineMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_PipelineMessages.def"
