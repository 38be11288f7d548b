#pragma once

/// What is said of node and element rows: a constant inp_msg<Code> for each row of
/// inp_RecordMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_RecordMessages.def"
