#pragma once

/// What the walks over one level say: a constant inp_msg<Code> for each row of inp_LevelMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_LevelMessages.def"
