#pragma once

/// What the reader of elements and the generator of their nodes say: a constant inp_msg<Code> for each
/// row of inp_ElementMessages.def.
#include "inp_Messages.h"
#define INP_MESSAGE INP_MESSAGE_CONSTANT
#include "inp_ElementMessages.def"
