#pragma once

/// Says whether a text is in the encoding of the locale; without an argument it is not.
class VRXBasStringMode
{
public:
  constexpr VRXBasStringMode() noexcept = default;
  constexpr explicit VRXBasStringMode(bool isLocale) noexcept : m_isLocale(isLocale) {}

  constexpr bool IsLocale() const noexcept { return m_isLocale; }

private:
  bool m_isLocale = false;
};
