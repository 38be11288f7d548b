#include "inp_Types.h"

#include <cstddef>

omn_FixedString inp_Types::integerPat()
{
  return omn_FixedString(R"(^[ \t]*([-+]?[0-9]+)[ \t]*$)");
}

omn_FixedString inp_Types::doublePat()
{
  return omn_FixedString(
    R"(^[ \t]*([-+]?[0-9]*\.[0-9]*)[ \t]*$|^[ \t]*([-+]?[0-9]*\.?[0-9]*[eE][-+]?[0-9]+)[ \t]*$)");
}

omn_FixedString inp_Types::doublePatD()
{
  return omn_FixedString(
    R"(^[ \t]*([-+]?[0-9]*\.[0-9]*)[ \t]*$|^[ \t]*([-+]?[0-9]*\.?[0-9]*[dD][-+]?[0-9]+)[ \t]*$)");
}

omn_FixedString inp_Types::stringPat()
{
  return omn_FixedString(R"(^[ \t]*([a-zA-Z_][^,=\n]*?)[ \t]*$|^[ \t]*(\"[^\"\n]*\")[ \t]*$)");
}

omn_FixedString inp_Types::paramPat()
{
  return omn_FixedString(R"(^[ \t]*([a-zA-Z][-a-zA-Z0-9 \t]*?[a-zA-Z0-9]*)[ \t]*$)");
}

omn_FixedString inp_Types::setNamePat()
{
  return omn_FixedString(R"(^[ \t]*((([a-zA-Z_][^,=\n]*?)|(\"[^\"\n]+\"))(\.(([a-zA-Z_][^,=\n]*?)|)"
                         R"((\"[^\"\n]+\")))*?)[ \t]*$)");
}

omn_FixedString inp_Types::scopedIDPat()
{
  return omn_FixedString(R"(^[ \t]*(([a-zA-Z_][^\.]*|\"[^\"]+\")\.)*[0-9]+[ \t]*$)");
}

omn_FixedString inp_Types::fileNamePat()
{
  return omn_FixedString(
    R"(^[ \t\<]*([a-zA-Z0-9_$%/\.][^,=\n]*?)[ \t\>]*$|^[ \t\<]*(\"[^\"\n]+\")[ \t\>]*$)");
}

omn_FixedString inp_Types::superelementIDPat()
{
  return omn_FixedString(R"(^[ \t]*([Zz][0-9]+)[ \t]*$)");
}

omn_FixedString inp_Types::userElementIDPat()
{
  return omn_FixedString(R"(^[ \t]*([Vv]*[Uu][0-9]+)[ \t]*$)");
}

omn_FixedString inp_Types::fakeName() { return omn_FixedString("FAKE"); }

namespace
{

// Letters and digits are those of ASCII: what a deck means does not depend on the locale.
bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool BeginsName(char c) { return IsLetter(c) || c == '_'; }
bool EndsPlainText(char c) { return c == ',' || c == '=' || c == '\n'; }

/// Reads a text from left to right. Skip returns how many characters it has passed.
class Scanner
{
public:
  explicit Scanner(std::string_view text) : m_at(text.data()), m_end(text.data() + text.size()) {}

  bool AtEnd() const { return m_at == m_end; }
  char Peek() const { return AtEnd() ? '\0' : *m_at; }

  template <class Test>
  std::size_t Skip(Test test)
  {
    char const* const from = m_at;
    while (m_at != m_end && test(*m_at))
    {
      ++m_at;
    }
    return static_cast<std::size_t>(m_at - from);
  }

  template <class Test>
  bool SkipOne(Test test)
  {
    bool const passes = m_at != m_end && test(*m_at);
    m_at += passes;
    return passes;
  }

  bool SkipOne(char c)
  {
    return SkipOne([c](char other) { return c == other; });
  }

  bool OnlyBlanksLeft()
  {
    Skip(IsBlank);
    return AtEnd();
  }

private:
  char const* m_at;
  char const* m_end;
};

bool IsSign(char c) { return c == '-' || c == '+'; }

bool IsRealWithExponent(std::string_view text, char lower, char upper)
{
  Scanner scan(text);
  scan.Skip(IsBlank);
  scan.SkipOne(IsSign);
  scan.Skip(IsDigit);
  bool const hasPeriod = scan.SkipOne('.');
  scan.Skip(IsDigit);
  if (scan.SkipOne([=](char c) { return c == lower || c == upper; }))
  {
    scan.SkipOne(IsSign);
    return scan.Skip(IsDigit) > 0 && scan.OnlyBlanksLeft();
  }
  return hasPeriod && scan.OnlyBlanksLeft();
}

/// A text in double quotes of at least `least` characters, none of them a quote or line feed.
bool SkipQuoted(Scanner& scan, std::size_t least)
{
  return scan.SkipOne('"') && scan.Skip([](char c) { return c != '"' && c != '\n'; }) >= least &&
         scan.SkipOne('"');
}

// A set name is pieces joined by periods, each a plain name or a text in quotes. A plain name may hold
// periods and quotes itself, so `A."B` may still be one name, or a second piece that is not closed yet. The
// text is read once, from left to right, with all readings that are possible so far: each is a state, a
// bit of a number. A text is a set name when a state in which it may end is left.
//
//     leadingBlanks, pieceBegins ── letter ──► inName ── . ──► pieceBegins
//                │
//                └── " ──► quoteOpened ──► inQuotes ── " ──► quoteClosed ── . ──► pieceBegins
//                                                                └── blank ──► trailingBlanks
enum nameStateEnm : unsigned
{
  c_leadingBlanks = 1,
  c_pieceBegins = 2,
  c_inName = 4,
  c_quoteOpened = 8,
  c_inQuotes = 16,
  c_quoteClosed = 32,
  c_trailingBlanks = 64
};

/// The states of a set name behind one more character.
unsigned StatesBehind(unsigned states, char c)
{
  unsigned next = 0;
  if ((states & (c_leadingBlanks | c_pieceBegins)) != 0)
  {
    next |= BeginsName(c) ? c_inName : 0U;
    next |= c == '"' ? c_quoteOpened : 0U;
  }
  if (IsBlank(c))
  {
    next |= states & c_leadingBlanks;
    next |= (states & (c_quoteClosed | c_trailingBlanks)) != 0 ? c_trailingBlanks : 0U;
  }
  if ((states & c_inName) != 0 && !EndsPlainText(c))
  {
    next |= c_inName;
  }
  if ((states & (c_quoteOpened | c_inQuotes)) != 0 && c != '"' && c != '\n')
  {
    next |= c_inQuotes;
  }
  if ((states & c_inQuotes) != 0 && c == '"')
  {
    next |= c_quoteClosed;
  }
  if ((states & (c_inName | c_quoteClosed)) != 0 && c == '.')
  {
    next |= c_pieceBegins;
  }
  return next;
}

} // namespace

bool inp_Types::IsInteger(std::string_view text)
{
  Scanner scan(text);
  scan.Skip(IsBlank);
  scan.SkipOne(IsSign);
  return scan.Skip(IsDigit) > 0 && scan.OnlyBlanksLeft();
}

bool inp_Types::IsDouble(std::string_view text) { return IsRealWithExponent(text, 'e', 'E'); }

bool inp_Types::IsDoubleD(std::string_view text) { return IsRealWithExponent(text, 'd', 'D'); }

bool inp_Types::IsString(std::string_view text)
{
  Scanner scan(text);
  scan.Skip(IsBlank);
  if (scan.SkipOne(BeginsName))
  {
    scan.Skip([](char c) { return !EndsPlainText(c); });
    return scan.AtEnd();
  }
  return SkipQuoted(scan, 0) && scan.OnlyBlanksLeft();
}

bool inp_Types::IsParameter(std::string_view text)
{
  Scanner scan(text);
  scan.Skip(IsBlank);
  if (!scan.SkipOne(IsLetter))
  {
    return false;
  }
  scan.Skip([](char c) { return IsLetter(c) || IsDigit(c) || c == '-' || IsBlank(c); });
  return scan.AtEnd();
}

bool inp_Types::IsSetName(std::string_view text)
{
  unsigned states = c_leadingBlanks;
  for (char const c : text)
  {
    states = StatesBehind(states, c);
    if (states == 0)
    {
      return false;
    }
  }
  return (states & (c_inName | c_quoteClosed | c_trailingBlanks)) != 0;
}

bool inp_Types::IsScopedID(std::string_view text)
{
  Scanner scan(text);
  scan.Skip(IsBlank);
  while (!IsDigit(scan.Peek()))
  {
    if (scan.SkipOne(BeginsName))
    {
      scan.Skip([](char c) { return c != '.'; });
    }
    else if (!scan.SkipOne('"') || scan.Skip([](char c) { return c != '"'; }) == 0 ||
             !scan.SkipOne('"'))
    {
      return false;
    }
    if (!scan.SkipOne('.'))
    {
      return false;
    }
  }
  scan.Skip(IsDigit);
  return scan.OnlyBlanksLeft();
}

bool inp_Types::IsFileName(std::string_view text)
{
  Scanner scan(text);
  scan.Skip([](char c) { return IsBlank(c) || c == '<'; });
  if (scan.SkipOne(
        [](char c)
        { return BeginsName(c) || IsDigit(c) || c == '$' || c == '%' || c == '/' || c == '.'; }))
  {
    scan.Skip([](char c) { return !EndsPlainText(c); });
    return scan.AtEnd();
  }
  if (!SkipQuoted(scan, 1))
  {
    return false;
  }
  scan.Skip([](char c) { return IsBlank(c) || c == '>'; });
  return scan.AtEnd();
}

bool inp_Types::IsSuperelementID(std::string_view text)
{
  Scanner scan(text);
  scan.Skip(IsBlank);
  return scan.SkipOne([](char c) { return c == 'Z' || c == 'z'; }) && scan.Skip(IsDigit) > 0 &&
         scan.OnlyBlanksLeft();
}

bool inp_Types::IsUserElementID(std::string_view text)
{
  Scanner scan(text);
  scan.Skip(IsBlank);
  scan.Skip([](char c) { return c == 'V' || c == 'v'; });
  return scan.SkipOne([](char c) { return c == 'U' || c == 'u'; }) && scan.Skip(IsDigit) > 0 &&
         scan.OnlyBlanksLeft();
}
