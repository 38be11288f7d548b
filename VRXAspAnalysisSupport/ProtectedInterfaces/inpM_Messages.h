#pragma once

#include "atr_Message.h"

/// The rows of inpM_Messages.def as constants: inpM_msg<id>, for atr_Say.
#define INPM_MESSAGE(id, severity, text)                                                           \
  inline constexpr atr_MessageRow<atr_CountPlaceholders(text)> inpM_msg##id{#id, severity, text};
#include "inpM_Messages.def"
