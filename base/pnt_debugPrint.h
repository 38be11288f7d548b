#pragma once

#include "atr_StringBase.h"

#include <iosfwd>
#include <string>

/// The process's stream for debug lines.
///
/// What is written between StartDebug and EndDebug goes out in one piece at EndDebug, anything else
/// at once. Pairs may be nested: the outermost counts. One thread at a time.
class pnt_DebugPrint
{
public:
  pnt_DebugPrint& StartDebug();
  pnt_DebugPrint& EndDebug();

  pnt_DebugPrint& operator<<(char const* text) { return Write(atr_ViewOf(text)); }
  pnt_DebugPrint& operator<<(std::string_view text) { return Write(text); }
  pnt_DebugPrint& operator<<(atr_StringBase const& text) { return Write(text.View()); }
  pnt_DebugPrint& operator<<(char c) { return Write({&c, 1}); }
  pnt_DebugPrint& operator<<(int value);
  pnt_DebugPrint& operator<<(double value);

  /// Null stands for the standard error stream, which is the target at first. The stream is not
  /// owned.
  void SetTarget(std::ostream* target) noexcept { m_target = target; }

private:
  pnt_DebugPrint& Write(std::string_view text);
  std::ostream& Target() const noexcept;

  std::ostream* m_target = nullptr;
  std::string m_text;
  int m_depth = 0;
};

pnt_DebugPrint& pnt_debugPrint();
