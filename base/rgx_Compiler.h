#pragma once

#include "rgx_Program.h"

/// Reads a pattern by descent and lays down the steps of its program.
class rgx_Compiler
{
public:
  rgx_Compiler(std::string_view pattern, rgx_Program& program);

  void Compile();

private:
  using Op = rgx_Program::Op;
  using Step = rgx_Program::Step;
  using Steps = std::vector<Step>; // a piece of a program; targets count from the step itself
  using ByteClass = rgx_Program::ByteClass;

  struct Repeat
  {
    int least;
    int most; // -1: without limit
  };

  Steps Alternatives();
  Steps Sequence();
  Steps Atom();
  Steps Group();
  Steps OneOf(ByteClass const& bytes);
  ByteClass Class();
  void ClassMember(ByteClass& bytes);
  unsigned char ClassByte();
  bool NamedClass(ByteClass& bytes);
  unsigned char Escaped();

  bool ReadRepeat(Repeat& repeat);
  Repeat Braces();
  int Number();
  Steps Repeated(Steps const& piece, Repeat repeat, bool isGreedy) const;

  void AppendTo(Steps& steps, Steps const& more) const;
  bool AtEnd() const { return m_at >= m_pattern.size(); }
  char Peek() const { return AtEnd() ? '\0' : m_pattern[m_at]; }
  char Take() { return m_pattern[m_at++]; }
  bool TakeIf(char c);
  [[noreturn]] void Fail(char const* why) const;

  std::string_view m_pattern;
  rgx_Program& m_program;
  std::size_t m_at = 0;
  int m_depth = 0;
};
