#pragma once

#include "atr_StringBase.h"

#include <iosfwd>
#include <string>

/// The text stream to which listings are written: buffered, and without any locale.
///
/// Stands over another stream, which must outlive it and gets the text at the latest when this one
/// is destroyed. The line width is recorded for those who lay out lines; nothing is folded here. Numbers are
/// written as atr_FormatNumber writes them.
class eli_eostream
{
public:
  explicit eli_eostream(std::ostream& target, int lineWidth = 1024);
  ~eli_eostream();
  eli_eostream(eli_eostream const&) = delete;
  eli_eostream& operator=(eli_eostream const&) = delete;

  int LineWidth() const noexcept { return m_lineWidth; }

  eli_eostream& operator<<(char const* text) { return Write(atr_ViewOf(text)); }
  eli_eostream& operator<<(std::string_view text) { return Write(text); }
  eli_eostream& operator<<(atr_StringBase const& text) { return Write(text.View()); }
  eli_eostream& operator<<(char c) { return Write({&c, 1}); }
  eli_eostream& operator<<(int value);
  eli_eostream& operator<<(double value);

  /// Hands the buffered text to the target.
  void Flush();
  /// Flushes, and says whether the target has taken all text so far.
  bool Good();

private:
  eli_eostream& Write(std::string_view text);

  std::ostream& m_target;
  std::string m_buffer;
  int m_lineWidth;
};
