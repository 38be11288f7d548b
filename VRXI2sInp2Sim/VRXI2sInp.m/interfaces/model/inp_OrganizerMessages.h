#pragma once

/// What the ordering of keywords says: a constant inp_msg<Code> for each row of
/// inp_OrganizerMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_OrganizerMessages.def"
