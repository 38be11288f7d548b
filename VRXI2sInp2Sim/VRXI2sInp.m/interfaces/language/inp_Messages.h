#pragma once

#include "atr_Message.h"

// How a family's list of messages becomes constants. A family's header reads
//
//     #include "inp_Messages.h"
//     #define INP_MESSAGE INP_MESSAGE_CONSTANT
//     #include "inp_XxxMessages.def"
//
// and atr_Say(inp_msg<Code>, arguments...) makes the message; a wrong number of arguments does not
// compile.
#define INP_MESSAGE_Error atr_error
#define INP_MESSAGE_Warning atr_warning
#define INP_MESSAGE_Fatal atr_fatal
#define INP_MESSAGE_CONSTANT(code, severity, text)                                                 \
  inline constexpr atr_MessageRow<atr_CountPlaceholders(text)> inp_msg##code{                      \
    #code, INP_MESSAGE_##severity, text};
