#include "inp_Utils.h"

#include "VRXBasException.h"
#include "inp_Types.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace
{

// No item of a deck is longer: names are rewritten in buffers of this size.
constexpr int c_longestItem = 255;

bool IsQuoted(cow_String const& name)
{
  int const length = name.Length();
  return length > 0 && name[0] == '"' && name[length - 1] == '"';
}

cow_String WithoutOuterQuotes(cow_String name) { return name.Trim("\""); }

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r'; }

/// Calls take(character, is quoted) for each character, until `take` returns false. The quotes themselves
/// count as quoted.
template <class Take>
void WalkQuoted(std::string_view text, Take take)
{
  bool inQuotes = false;
  for (char const c : text)
  {
    bool const isQuote = c == '"';
    if (!take(c, inQuotes || isQuote))
    {
      return;
    }
    inQuotes = inQuotes != isQuote;
  }
}

/// The name with every unquoted period replaced by a character, or left out where that is NUL.
cow_String ReplaceUnquotedPeriods(cow_String const& name, char by)
{
  if (!inp_Utils::HasNameUnquotedPeriod(name))
  {
    return name;
  }
  char buffer[c_longestItem];
  int length = 0;
  WalkQuoted(name.View(),
             [&](char c, bool quoted)
             {
               char const kept = c == '.' && !quoted ? by : c;
               if (kept != '\0')
               {
                 buffer[length++] = kept;
               }
               return length < c_longestItem;
             });
  return cow_String(buffer, length);
}

/// Calls put(character, is quoted) for each character of a text, leaving out unquoted white space.
template <class Put>
void WalkWithoutSpaces(std::string_view text, Put put)
{
  WalkQuoted(text,
             [&](char c, bool quoted)
             {
               if (quoted || !IsSpace(c))
               {
                 put(c, quoted);
               }
               return c != '\n';
             });
}

template <class Change>
cow_String TakeOutSpaces(std::string_view text, Change change)
{
  char buffer[c_longestItem + 1];
  int length = 0;
  WalkWithoutSpaces(text,
                    [&](char c, bool quoted)
                    {
                      VRXBasAssert(length < c_longestItem, "length < sizeof(buffer) - 1");
                      buffer[length++] = quoted ? c : change(c);
                    });
  return cow_String(buffer, length);
}

} // namespace

cow_String inp_Utils::CreateFlattenedName(cow_String const& a, cow_String const& b)
{
  bool const quoted = IsQuoted(a) || IsQuoted(b);
  cow_String const first = IsQuoted(a) ? WithoutOuterQuotes(a) : a;
  cow_String const second = IsQuoted(b) ? WithoutOuterQuotes(b) : b;
  cow_String const joined = first + "_" + second;
  return quoted ? "\"" + joined + "\"" : joined;
}

cow_String inp_Utils::CreateFlattenedName(cow_String const& a, cow_String const& b,
                                          cow_String const& c)
{
  return CreateFlattenedName(a, CreateFlattenedName(b, c));
}

cow_List<cow_String> inp_Utils::SplitScopedSet(cow_String const& name)
{
  cow_List<cow_String> pieces;
  int begin = 0;
  int at = 0;
  WalkQuoted(name.View(),
             [&](char c, bool quoted)
             {
               if (c == '.' && !quoted)
               {
                 pieces.Append(name.Substr(begin, at - begin));
                 begin = at + 1;
               }
               ++at;
               return true;
             });
  pieces.Append(name.Substr(begin, name.Length() - begin));
  return pieces;
}

bool inp_Utils::HasNameUnquotedPeriod(cow_String const& name)
{
  bool found = false;
  WalkQuoted(name.View(),
             [&](char c, bool quoted)
             {
               found = c == '.' && !quoted;
               return !found;
             });
  return found;
}

bool inp_Utils::IsId(cow_String const& name)
{
  return std::isdigit(static_cast<unsigned char>(name[0])) != 0;
}

bool inp_Utils::IsSetName(cow_String const& name) { return inp_Types::IsSetName(name.View()); }

bool inp_Utils::IsScopedSetName(cow_List<cow_String> const& pieces)
{
  return pieces.Length() >= 2 && inp_Types::IsSetName(pieces.Last().View());
}

bool inp_Utils::IsScopedSetId(cow_List<cow_String> const& pieces)
{
  return pieces.Length() >= 2 && inp_Types::IsInteger(pieces.Last().View());
}

bool inp_Utils::IsAnalyticalSurfaceType(cow_String const& type)
{
  static constexpr std::string_view types[] = {"SEGMENTS", "CYLINDER", "REVOLUTION",
                                               "BEZIER",   "BSPLINE",  "USER"};
  return std::find(std::begin(types), std::end(types), type.View()) != std::end(types);
}

cow_String inp_Utils::RemovePeriod(cow_String const& name)
{
  return IsId(name) ? name : cow_String(name).Substitute(".", "_");
}

cow_String inp_Utils::RemoveUnquotedPeriod(cow_String const& name)
{
  return ReplaceUnquotedPeriods(name, '\0');
}

cow_String inp_Utils::ReplaceUnquotedPeriodWithUnderscore(cow_String const& name)
{
  return ReplaceUnquotedPeriods(name, '_');
}

cow_String inp_Utils::TakeOutSpacesOutsideQuoted(cow_String const& text)
{
  return TakeOutSpaces(text.View(), [](char c) { return c; });
}

cow_String inp_Utils::TakeOutSpacesAndUpperOutsideQuoted(cow_String const& text)
{
  return CleanedText(text.View());
}

cow_String inp_Utils::CleanedText(std::string_view text)
{
  return TakeOutSpaces(text, [](char c)
                       { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
}

cow_String inp_Utils::WithoutQuotes(cow_String const& fileName)
{
  int const length = fileName.Length();
  char const* const text = fileName.CStr();
  bool const isQuoted = length > 2 && text[0] == '"' && text[length - 1] == '"';
  return isQuoted ? fileName.Substr(1, length - 2) : fileName;
}

int inp_Utils::LengthWithoutSpaces(char const* text)
{
  int length = 0;
  WalkWithoutSpaces(text, [&](char, bool) { ++length; });
  return length;
}
