#pragma once

#include "atr_StringBase.h"

/// Plain text: names, file names, parameter values. See atr_StringBase for sharing and limits.
///
/// The operations that change a text change it in place and return it.
class cow_String : public atr_StringBase
{
public:
  cow_String() noexcept = default;
  cow_String(char const* text) : atr_StringBase(atr_ViewOf(text)) {}
  /// `length` bytes, whatever they are; a length below 1 gives the empty text.
  cow_String(char const* text, int length);
  explicit cow_String(std::string_view text) : atr_StringBase(text) {}
  /// Shares.
  cow_String(atr_StringBase const& other) noexcept : atr_StringBase(other) {}
  cow_String(omn_FixedString text) : cow_String(text.CStr()) {}
  cow_String(omn_FixedString text, int length) : cow_String(text.CStr(), length) {}
  /// Decimal digits.
  explicit cow_String(int value) : atr_StringBase(value) {}
  /// The form of atr_FormatNumber.
  explicit cow_String(double value) : atr_StringBase(value) {}
  cow_String(bool) = delete;
  cow_String(char) = delete;

  cow_String(cow_String const&) noexcept = default;
  cow_String(cow_String&&) noexcept = default;
  cow_String& operator=(cow_String const&) noexcept = default;
  cow_String& operator=(cow_String&&) noexcept = default;
  cow_String& operator=(char const* text);
  cow_String& operator=(omn_FixedString text) { return *this = text.CStr(); }
  ~cow_String() = default;

  /// A byte of a writable text: read as a char, or assigned one.
  class Byte
  {
  public:
    Byte(cow_String& text, int index) noexcept : m_text(text), m_index(index) {}
    Byte(Byte const&) noexcept = default;
    operator char() const noexcept { return m_text.ReadAt(m_index); }
    Byte& operator=(char c)
    {
      m_text.WritableAt(m_index) = c;
      return *this;
    }
    Byte& operator=(Byte const& other) { return *this = static_cast<char>(other); }

  private:
    cow_String& m_text;
    int m_index;
  };

  using atr_StringBase::operator[];
  /// Only the assignment detaches; to assign outside the text is a broken invariant.
  Byte operator[](int index) noexcept { return {*this, index}; }

  cow_String& Append(atr_StringBase const& text);
  cow_String& Append(char const* text);
  cow_String& Append(std::string_view text);
  cow_String& Append(char c);

  cow_String& Erase() noexcept;
  /// Removes `count` bytes from `start` on, clamped as in Substr.
  cow_String& Erase(int start, int count);

  /// Removes the bytes of the set from the left end, from the right end, or wherever they stand.
  cow_String& LeftTrim(char const* chars);
  cow_String& RightTrim(char const* chars);
  cow_String& Trim(char const* chars);

  /// Replaces up to `count` occurrences, left to right; what was put in is not searched again.
  cow_String& Substitute(char const* from, char const* to, int count = All);
  cow_String& Substitute(cow_String const& from, cow_String const& to, int count = All);

  /// A start below 0 counts as 0, the count is cut to what is left; nothing left gives "".
  cow_String Substr(int start, int count = All) const;

  cow_String& ToLower();
  cow_String& ToUpper();
};

cow_String operator+(cow_String a, atr_StringBase const& b);
cow_String operator+(cow_String a, char const* b);
cow_String operator+(char const* a, cow_String const& b);

template <>
struct std::hash<cow_String>
{
  std::size_t operator()(cow_String const& text) const noexcept
  {
    return std::hash<std::string_view>()(text.View());
  }
};
