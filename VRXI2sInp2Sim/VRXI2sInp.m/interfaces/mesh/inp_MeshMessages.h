#pragma once

/// What the readers of nodes and of sets say: a constant inp_msg<Code> for each row of
/// inp_MeshMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_MeshMessages.def"
