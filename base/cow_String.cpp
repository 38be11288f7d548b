#include "cow_String.h"

#include <algorithm>

namespace
{

std::string_view Bytes(char const* text, int length)
{
  if (text == nullptr || length <= 0)
    return {};
  return {text, static_cast<std::size_t>(length)};
}

struct Span
{
  int start;
  int count;
};

// Clamps a start and a count to a text; safe for any two integers.
Span Clamp(int start, int count, int length)
{
  int const first = std::clamp(start, 0, length);
  return {first, std::clamp(count, 0, length - first)};
}

} // namespace

cow_String::cow_String(char const* text, int length) : atr_StringBase(Bytes(text, length)) {}

cow_String& cow_String::operator=(char const* text)
{
  Assign(atr_ViewOf(text));
  return *this;
}

cow_String& cow_String::Append(atr_StringBase const& text)
{
  // To append to an empty text is to share the other one.
  if (Empty())
    return *this = cow_String(text);
  AppendText(text.View());
  return *this;
}

cow_String& cow_String::Append(char const* text)
{
  AppendText(atr_ViewOf(text));
  return *this;
}

cow_String& cow_String::Append(std::string_view text)
{
  AppendText(text);
  return *this;
}

cow_String& cow_String::Append(char c)
{
  AppendText({&c, 1});
  return *this;
}

cow_String& cow_String::Erase() noexcept
{
  MakeEmpty();
  return *this;
}

cow_String& cow_String::Erase(int start, int count)
{
  Span const span = Clamp(start, count, Length());
  if (span.count == Length())
    MakeEmpty();
  else if (span.count > 0)
    Splice(span.start, span.count, {});
  return *this;
}

cow_String& cow_String::LeftTrim(char const* chars)
{
  RemoveSet(atr_ViewOf(chars), true, false, false);
  return *this;
}

cow_String& cow_String::RightTrim(char const* chars)
{
  RemoveSet(atr_ViewOf(chars), false, true, false);
  return *this;
}

cow_String& cow_String::Trim(char const* chars)
{
  RemoveSet(atr_ViewOf(chars), true, true, true);
  return *this;
}

cow_String& cow_String::Substitute(char const* from, char const* to, int count)
{
  SubstituteText(atr_ViewOf(from), atr_ViewOf(to), count);
  return *this;
}

cow_String& cow_String::Substitute(cow_String const& from, cow_String const& to, int count)
{
  // Copies, since one of the arguments may be this text.
  cow_String const keptFrom(from);
  cow_String const keptTo(to);
  SubstituteText(keptFrom.View(), keptTo.View(), count);
  return *this;
}

cow_String cow_String::Substr(int start, int count) const
{
  Span const span = Clamp(start, count, Length());
  if (span.count == Length())
    return *this;
  return cow_String(CStr() + span.start, span.count);
}

cow_String& cow_String::ToLower()
{
  ChangeCase(false);
  return *this;
}

cow_String& cow_String::ToUpper()
{
  ChangeCase(true);
  return *this;
}

cow_String operator+(cow_String a, atr_StringBase const& b)
{
  a.Append(b);
  return a;
}

cow_String operator+(cow_String a, char const* b)
{
  a.Append(b);
  return a;
}

cow_String operator+(char const* a, cow_String const& b)
{
  cow_String result(a);
  result.Append(b);
  return result;
}
