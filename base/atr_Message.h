#pragma once

#include "VRXBasStringMode.h"
#include "atr_String.h"

#include <string_view>
#include <type_traits>
#include <vector>

/// A placeholder of a format; length 0 when there is none.
struct atr_Placeholder
{
  std::size_t start = 0;
  std::size_t length = 0;
  int number = 0;          ///< from 1, of a numbered placeholder
  bool isNumbered = false; ///< "%2$s"; otherwise "%s" or, with a name, "%name$s"
  std::string_view name;   ///< at least two characters
};

namespace atr_detail
{

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsNameChar(char c)
{
  return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}
constexpr bool IsConversion(char c) { return c == 's' || c == 'd'; }

// The placeholder that begins with the '%' at `start`, if one does.
constexpr atr_Placeholder PlaceholderAt(std::string_view format, std::size_t start)
{
  std::size_t end = start + 1;
  while (end < format.size() && IsNameChar(format[end]))
    ++end;
  std::string_view const word = format.substr(start + 1, end - start - 1);
  bool const closes =
    end + 1 < format.size() && format[end] == '$' && IsConversion(format[end + 1]);
  bool allDigits = !word.empty();
  int number = 0;
  for (char c : word)
  {
    allDigits = allDigits && IsDigit(c);
    if (allDigits && number < 1000)
      number = number * 10 + (c - '0');
  }
  atr_Placeholder placeholder;
  placeholder.start = start;
  if (closes && allDigits && number > 0)
  {
    placeholder.length = end + 2 - start;
    placeholder.number = number;
    placeholder.isNumbered = true;
  }
  else if (closes && word.size() > 1 && !IsDigit(word[0]))
  {
    placeholder.length = end + 2 - start;
    placeholder.name = word;
  }
  else if (!word.empty() && IsConversion(word[0]))
  {
    placeholder.length = 2;
  }
  return placeholder;
}

} // namespace atr_detail

/// The next placeholder of a format at or after `from`. "%%" holds none.
constexpr atr_Placeholder atr_NextPlaceholder(std::string_view format, std::size_t from)
{
  for (std::size_t at = format.find('%', from); at < format.size(); at = format.find('%', at))
  {
    atr_Placeholder const placeholder = atr_detail::PlaceholderAt(format, at);
    if (placeholder.length > 0)
      return placeholder;
    at += at + 1 < format.size() && format[at + 1] == '%' ? 2 : 1;
  }
  return {};
}

/// The number of arguments that a format takes: its unnumbered placeholders or its highest number,
/// whichever is more.
constexpr int atr_CountPlaceholders(char const* format)
{
  std::string_view const text(format);
  int unnumbered = 0;
  int highest = 0;
  for (atr_Placeholder placeholder = atr_NextPlaceholder(text, 0); placeholder.length > 0;
       placeholder = atr_NextPlaceholder(text, placeholder.start + placeholder.length))
  {
    if (placeholder.isNumbered)
      highest = placeholder.number > highest ? placeholder.number : highest;
    else if (placeholder.name.empty())
      ++unnumbered;
  }
  return unnumbered > highest ? unnumbered : highest;
}

/// A format on its way to a message: collects the arguments, then makes the text in one pass.
///
/// Because the format is read once, a placeholder within an argument stays as it stands. So does a
/// placeholder that gets no argument, and a '%' that begins none.
class atr_translate
{
public:
  explicit atr_translate(char const* format, VRXBasStringMode mode = VRXBasStringMode());

  atr_String Result(VRXBasStringMode mode = VRXBasStringMode()) const;

  /// Gives the argument for the placeholders of an index, which counts from 1.
  void Set(int index, cow_String const& value);
  /// An argument that is itself a message: its origin becomes the result's, unless one is there.
  void Set(int index, atr_String const& value);

private:
  struct Argument
  {
    bool isSet = false;
    cow_String text;
  };

  Argument const* Find(int index) const noexcept;

  char const* m_format;
  std::vector<Argument> m_arguments;
  atr_String m_originHolder; // carries an origin, no text
};

void atr_SubstituteFormat(atr_translate& translator, int index, int value,
                          VRXBasStringMode mode = VRXBasStringMode());
void atr_SubstituteFormat(atr_translate& translator, int index, char const* value,
                          VRXBasStringMode mode = VRXBasStringMode());
void atr_SubstituteFormat(atr_translate& translator, int index, atr_StringBase const& value,
                          VRXBasStringMode mode = VRXBasStringMode());
void atr_SubstituteFormat(atr_translate& translator, int index, atr_String const& value,
                          VRXBasStringMode mode = VRXBasStringMode());
void atr_SubstituteFormat(atr_translate& translator, int index, double value,
                          VRXBasStringMode mode = VRXBasStringMode()) = delete;

namespace atr_detail
{

// An argument goes to its placeholder; a closing mode is no argument.
template <class Argument>
void Substitute(atr_translate& translator, int index, Argument const& argument)
{
  if constexpr (!std::is_same_v<Argument, VRXBasStringMode>)
    atr_SubstituteFormat(translator, index, argument, VRXBasStringMode());
}

} // namespace atr_detail

/// Makes a message from a format and its arguments: integers, C strings and strings. The mode may
/// stand last.
template <class... Arguments>
atr_String atr(char const* format, Arguments... arguments)
{
  atr_translate translator(format);
  [[maybe_unused]] int index = 0;
  (atr_detail::Substitute(translator, ++index, arguments), ...);
  return translator.Result();
}

/// A message that is never translated and still holds its placeholders, for ReplaceNonTranslated.
atr_String atr_raw(char const* text, VRXBasStringMode mode = VRXBasStringMode());

enum atr_severityEnm
{
  atr_warning,
  atr_error,
  atr_fatal
};

/// One row of a family's message list: stable code, severity, format.
///
/// A family lists its rows in a .def file and makes a constant of each:
///
///     inline constexpr atr_MessageRow<atr_CountPlaceholders(text)> inp_msgX{"X", atr_error, text};
template <int Placeholders>
struct atr_MessageRow
{
  char const* code;
  atr_severityEnm severity;
  char const* text;
};

/// Makes a row's message. Its origin has the row's code and, where an argument is itself a message, the file,
/// line and keyword of that one.
template <int Placeholders, class... Arguments>
atr_String atr_Say(atr_MessageRow<Placeholders> const& row, Arguments const&... arguments)
{
  static_assert(sizeof...(Arguments) == Placeholders,
                "one argument for each placeholder of the row");
  atr_translate translator(row.text);
  [[maybe_unused]] int index = 0;
  (atr_SubstituteFormat(translator, ++index, arguments), ...);
  atr_String message = translator.Result();
  atr_Origin origin = message.Origin() != nullptr ? *message.Origin() : atr_Origin();
  origin.code = row.code;
  message.SetOrigin(origin);
  return message;
}
