#include "rgx_Compiler.h"

#include "atr_Message.h"
#include "nex_Exception.h"

#include <algorithm>

namespace
{

// Limits, so that no pattern can use up memory or stack.
constexpr std::size_t mostSteps = 50000;
constexpr int mostDepth = 200;
constexpr int mostRepeats = 1000;

struct NamedSet
{
  char const* name;
  bool (*has)(int byte);
};

bool IsLower(int c) { return c >= 'a' && c <= 'z'; }
bool IsUpper(int c) { return c >= 'A' && c <= 'Z'; }
bool IsAlpha(int c) { return IsLower(c) || IsUpper(c); }
bool IsDigit(int c) { return c >= '0' && c <= '9'; }
bool IsAlnum(int c) { return IsAlpha(c) || IsDigit(c); }
bool IsXdigit(int c) { return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
bool IsSpace(int c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsBlank(int c) { return c == ' ' || c == '\t'; }
bool IsGraph(int c) { return c > 0x20 && c < 0x7F; }
bool IsPunct(int c) { return IsGraph(c) && !IsAlnum(c); }
bool IsPrint(int c) { return c >= 0x20 && c < 0x7F; }
bool IsCntrl(int c) { return c < 0x20 || c == 0x7F; }

constexpr NamedSet namedSets[] = {
  {"alpha", IsAlpha}, {"digit", IsDigit}, {"alnum", IsAlnum}, {"space", IsSpace},
  {"blank", IsBlank}, {"upper", IsUpper}, {"lower", IsLower}, {"punct", IsPunct},
  {"print", IsPrint}, {"graph", IsGraph}, {"cntrl", IsCntrl}, {"xdigit", IsXdigit},
};

} // namespace

rgx_Compiler::rgx_Compiler(std::string_view pattern, rgx_Program& program)
  : m_pattern(pattern), m_program(program)
{
}

void rgx_Compiler::Compile()
{
  Steps steps = Alternatives();
  if (!AtEnd())
    Fail("\")\" without \"(\"");
  steps.push_back({Op::Match, 0, 0});
  // While pieces were put together, targets were distances from their own step. Now they become indices.
  for (std::size_t i = 0; i < steps.size(); ++i)
    if (steps[i].op == Op::Split || steps[i].op == Op::Jump)
    {
      steps[i].x += static_cast<int>(i);
      steps[i].y += static_cast<int>(i);
    }
  m_program.m_steps = std::move(steps);
}

void rgx_Compiler::Fail(char const* why) const
{
  throw nex_PrimException<atr_String, 1>(
    atr("Invalid regular expression \"%s\": %s.", cow_String(m_pattern), why));
}

bool rgx_Compiler::TakeIf(char c)
{
  if (AtEnd() || m_pattern[m_at] != c)
    return false;
  ++m_at;
  return true;
}

void rgx_Compiler::AppendTo(Steps& steps, Steps const& more) const
{
  if (steps.size() + more.size() > mostSteps)
    Fail("too large");
  steps.insert(steps.end(), more.begin(), more.end());
}

// a|b|c:  split 1, L;  a;  jump end;  L: split 1, M;  b;  jump end;  M: c
rgx_Compiler::Steps rgx_Compiler::Alternatives()
{
  std::vector<Steps> branches{Sequence()};
  while (TakeIf('|'))
    branches.push_back(Sequence());
  Steps steps = std::move(branches.back());
  for (std::size_t i = branches.size() - 1; i-- > 0;)
  {
    int const own = static_cast<int>(branches[i].size());
    Steps head{{Op::Split, 1, own + 2}};
    AppendTo(head, branches[i]);
    head.push_back({Op::Jump, static_cast<int>(steps.size()) + 1, 0});
    AppendTo(head, steps);
    steps = std::move(head);
  }
  return steps;
}

rgx_Compiler::Steps rgx_Compiler::Sequence()
{
  Steps steps;
  while (!AtEnd() && Peek() != '|' && Peek() != ')')
  {
    Steps piece = Atom();
    Repeat repeat{1, 1};
    if (ReadRepeat(repeat))
    {
      bool const isGreedy = !TakeIf('?');
      if (!AtEnd() && std::string_view("*+?{").find(Peek()) != std::string_view::npos)
        Fail("repetition of a repetition");
      piece = Repeated(piece, repeat, isGreedy);
    }
    AppendTo(steps, piece);
  }
  return steps;
}

rgx_Compiler::Steps rgx_Compiler::Atom()
{
  ByteClass bytes;
  char const c = Take();
  switch (c)
  {
  case '^':
    return {{Op::Begin, 0, 0}};
  case '$':
    return {{Op::End, 0, 0}};
  case '(':
    return Group();
  case '[':
    return OneOf(Class());
  case '.':
    bytes.set();
    bytes.reset('\n');
    return OneOf(bytes);
  case '*':
  case '+':
  case '?':
  case '{':
    Fail("nothing to repeat");
  case '\\':
    bytes.set(Escaped());
    return OneOf(bytes);
  default:
    bytes.set(static_cast<unsigned char>(c));
    return OneOf(bytes);
  }
}

rgx_Compiler::Steps rgx_Compiler::Group()
{
  if (++m_depth > mostDepth)
    Fail("too deeply nested");
  Steps steps = Alternatives();
  if (!TakeIf(')'))
    Fail("\"(\" without \")\"");
  --m_depth;
  return steps;
}

rgx_Compiler::Steps rgx_Compiler::OneOf(ByteClass const& bytes)
{
  auto& classes = m_program.m_classes;
  auto const found = std::find(classes.begin(), classes.end(), bytes);
  int const index = static_cast<int>(found - classes.begin());
  if (found == classes.end())
    classes.push_back(bytes);
  return {{Op::Byte, index, 0}};
}

rgx_Compiler::ByteClass rgx_Compiler::Class()
{
  ByteClass bytes;
  bool const isNegated = TakeIf('^');
  bool isFirst = true;
  while (isFirst || Peek() != ']' || AtEnd())
  {
    if (AtEnd())
      Fail("\"[\" without \"]\"");
    ClassMember(bytes);
    isFirst = false;
  }
  Take();
  return isNegated ? ~bytes : bytes;
}

void rgx_Compiler::ClassMember(ByteClass& bytes)
{
  if (NamedClass(bytes))
    return;
  unsigned char const low = ClassByte();
  bool const isRange = Peek() == '-' && m_at + 1 < m_pattern.size() && m_pattern[m_at + 1] != ']';
  unsigned char high = low;
  if (isRange)
  {
    Take();
    high = ClassByte();
  }
  if (high < low)
    Fail("range ends before it begins");
  for (int byte = low; byte <= high; ++byte)
    bytes.set(static_cast<std::size_t>(byte));
}

unsigned char rgx_Compiler::ClassByte()
{
  char const c = Take();
  return c == '\\' ? Escaped() : static_cast<unsigned char>(c);
}

bool rgx_Compiler::NamedClass(ByteClass& bytes)
{
  std::string_view const rest = m_pattern.substr(m_at);
  if (rest.substr(0, 2) != "[:")
    return false;
  std::size_t const end = rest.find(":]", 2);
  if (end == std::string_view::npos)
    return false;
  std::string_view const name = rest.substr(2, end - 2);
  auto const* const set = std::find_if(std::begin(namedSets), std::end(namedSets),
                                       [name](NamedSet const& s) { return name == s.name; });
  if (set == std::end(namedSets))
    Fail("unknown class name");
  for (int byte = 0; byte < 256; ++byte)
    if (set->has(byte))
      bytes.set(static_cast<std::size_t>(byte));
  m_at += end + 2;
  return true;
}

unsigned char rgx_Compiler::Escaped()
{
  if (AtEnd())
    Fail("nothing behind \"\\\"");
  char const c = Take();
  static constexpr std::string_view letters = "tnrfv0";
  static constexpr std::string_view controls("\t\n\r\f\v\0", 6);
  std::size_t const at = letters.find(c);
  if (at != std::string_view::npos)
    return static_cast<unsigned char>(controls[at]);
  if (IsAlnum(static_cast<unsigned char>(c)))
    Fail("unknown escape");
  return static_cast<unsigned char>(c);
}

bool rgx_Compiler::ReadRepeat(Repeat& repeat)
{
  if (TakeIf('*'))
    repeat = {0, -1};
  else if (TakeIf('+'))
    repeat = {1, -1};
  else if (TakeIf('?'))
    repeat = {0, 1};
  else if (TakeIf('{'))
    repeat = Braces();
  else
    return false;
  return true;
}

rgx_Compiler::Repeat rgx_Compiler::Braces()
{
  Repeat repeat;
  repeat.least = Number();
  repeat.most = repeat.least;
  if (TakeIf(','))
    repeat.most = Peek() == '}' ? -1 : Number();
  if (!TakeIf('}'))
    Fail("bad repetition count");
  if (repeat.most >= 0 && repeat.most < repeat.least)
    Fail("repetition counts descend");
  return repeat;
}

int rgx_Compiler::Number()
{
  if (!IsDigit(Peek()))
    Fail("bad repetition count");
  int number = 0;
  while (IsDigit(Peek()))
  {
    number = number * 10 + (Take() - '0');
    if (number > mostRepeats)
      Fail("repetition count too large");
  }
  return number;
}

// x{2,4}: x x then (x(x)?)? as   split 1, end;  x;  split 1, end;  x
// x{1,}:  x then               L: split 1, end;  x;  jump L
rgx_Compiler::Steps rgx_Compiler::Repeated(Steps const& piece, Repeat repeat, bool isGreedy) const
{
  int const size = static_cast<int>(piece.size());
  auto const split = [isGreedy](int end) {
    return isGreedy ? Step{Op::Split, 1, end} : Step{Op::Split, end, 1};
  };
  Steps steps;
  for (int i = 0; i < repeat.least; ++i)
    AppendTo(steps, piece);
  if (repeat.most < 0)
  {
    steps.push_back(split(size + 2));
    AppendTo(steps, piece);
    steps.push_back({Op::Jump, -(size + 1), 0});
    return steps;
  }
  for (int left = repeat.most - repeat.least; left > 0; --left)
  {
    steps.push_back(split(left * (size + 1)));
    AppendTo(steps, piece);
  }
  return steps;
}
