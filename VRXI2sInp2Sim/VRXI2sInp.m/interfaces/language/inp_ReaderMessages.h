#pragma once

/// What the reader says: a constant inp_msg<Code> for each row of inp_ReaderMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_ReaderMessages.def"
