#pragma once

/// A text that stands in the program: a thin wrapper around a literal, never null, never freed.
class omn_FixedString
{
public:
  constexpr omn_FixedString() noexcept = default;
  constexpr omn_FixedString(char const* text) noexcept : m_text(text != nullptr ? text : "") {}

  constexpr char const* CStr() const noexcept { return m_text; }

private:
  char const* m_text = "";
};
