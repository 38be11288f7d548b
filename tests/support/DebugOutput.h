#pragma once

#include "pnt_debugPrint.h"
#include "typ_DebugFlags.h"

#include <sstream>
#include <string>

/// Collects, while it lives, what the reading of decks prints for debugging at a level.
class DebugOutput
{
public:
  explicit DebugOutput(int level)
  {
    pnt_debugPrint().SetTarget(&m_text);
    typ_DebugFlags::SetDebugFlags(30, level);
  }
  ~DebugOutput()
  {
    typ_DebugFlags::SetDebugFlags(30, 0);
    pnt_debugPrint().SetTarget(nullptr);
  }
  DebugOutput(DebugOutput const&) = delete;
  DebugOutput& operator=(DebugOutput const&) = delete;

  std::string Text() const { return m_text.str(); }

private:
  std::ostringstream m_text;
};
