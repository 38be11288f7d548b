#pragma once

#include "atr_StringBase.h"

/// A Unicode text, here reduced to the one question that is asked of it: was it well-formed?
class VRXString
{
public:
  /// Reads bytes as UTF-8. Overlong forms, surrogates, code points above U+10FFFF and cut
  /// sequences are not well-formed; a NUL byte is.
  [[nodiscard]] static VRXString BuildFromUTF8(atr_StringBase const& text);
  [[nodiscard]] static VRXString BuildFromUTF8(char const* text);

  /// The bytes were not well-formed UTF-8.
  bool IsBAD() const noexcept { return m_isBad; }

private:
  explicit VRXString(bool isBad) noexcept : m_isBad(isBad) {}

  bool m_isBad;
};
