#pragma once

#include "cow_String.h"

#include <string_view>

/// Where a message comes from: its stable code, and the file, line and keyword that it speaks of.
struct atr_Origin
{
  char const* code = ""; ///< the message row's id; a literal
  cow_String file{};     ///< empty when no file is meant
  int line = 0;          ///< from 1; 0 when no line is meant
  cow_String keyword{};  ///< name of the keyword without the asterisk; empty when none is meant
  cow_String subject{};  ///< the word at fault, such as a parameter's name; may be empty
};

struct atr_StringDetail;

/// A finished message for a user: text, and optionally an origin that goes with it to the sink.
///
/// Origin and text are shared by copies and copied when one of the holders writes. A message made
/// by atr_raw still holds placeholders, which ReplaceNonTranslated fills.
class atr_String : public atr_StringBase
{
public:
  atr_String() noexcept = default;
  atr_String(char const* text) : atr_StringBase(atr_ViewOf(text)) {}
  atr_String(char const* text, int length);
  explicit atr_String(std::string_view text) : atr_StringBase(text) {}
  /// Shares; a text that is no message has no origin.
  explicit atr_String(atr_StringBase const& other) noexcept : atr_StringBase(other) {}
  explicit atr_String(int value) : atr_StringBase(value) {}
  explicit atr_String(double value) : atr_StringBase(value) {}
  atr_String(bool) = delete;
  atr_String(char) = delete;

  atr_String(atr_String const& other) noexcept;
  atr_String(atr_String&& other) noexcept;
  atr_String& operator=(atr_String const& other) noexcept;
  atr_String& operator=(atr_String&& other) noexcept;
  ~atr_String();

  /// Null when the message has none. Good until the next write to this message.
  atr_Origin const* Origin() const noexcept;
  void SetOrigin(atr_Origin const& origin);

  /// A message without an origin takes over that of what is appended or inserted.
  atr_String& Append(atr_String const& text);
  atr_String& Append(atr_StringBase const& text);
  atr_String& Append(char const* text);
  atr_String& AppendNewLine();
  /// Puts a text before the byte at `index`, which is clamped to the text.
  atr_String& Insert(int index, atr_String const& text);
  atr_String& Insert(int index, atr_StringBase const& text);
  atr_String& Insert(int index, char const* text);

  char const* text() const noexcept { return CStr(); }

  /// Text that is no well-formed UTF-8 is taken as Latin-1 and written anew as UTF-8.
  atr_String& LocaleToUTF8();

  /// Fills the placeholders of a number: "%2$s" by number, "%s" and "%d" by their turn among the
  /// unnumbered ones. A text put in is never searched for placeholders. Returns the message.
  atr_String& ReplaceNonTranslated(int index, int value);
  atr_String& ReplaceNonTranslated(int index, char const* value);
  atr_String& ReplaceNonTranslated(int index, atr_StringBase const& value);
  /// Fills the placeholders of a name: "%name$s".
  atr_String& ReplaceNonTranslated(char const* name, atr_StringBase const& value);

private:
  friend class atr_translate;

  atr_StringDetail& OwnDetail();
  void TakeOriginOf(atr_String const& other);
  void InsertText(int index, std::string_view text);
  template <class IsMeant>
  void FillPlaceholders(IsMeant const& isMeant, std::string_view value);
  void DropDetail() noexcept;

  atr_StringDetail* m_detail = nullptr;
};

atr_String operator+(atr_String a, atr_StringBase const& b);
atr_String operator+(atr_String a, atr_String const& b);
atr_String operator+(atr_String a, char const* b);
atr_String operator+(char const* a, atr_String const& b);
