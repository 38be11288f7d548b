#pragma once

#include "omi_Timer.h"

/// Measures a stage from its making to its end, and then prints the stage's time to the debug stream
/// when debug flag 30 is at level 1 or above.
class inp_StageTimer
{
public:
  /// `label` must outlive the timer: a literal.
  explicit inp_StageTimer(char const* label);
  ~inp_StageTimer();
  inp_StageTimer(inp_StageTimer const&) = delete;
  inp_StageTimer& operator=(inp_StageTimer const&) = delete;

private:
  char const* m_label;
  omi_Timer m_timer;
};
