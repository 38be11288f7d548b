#pragma once

#include <bitset>
#include <cstddef>
#include <string_view>
#include <vector>

/// A compiled pattern: a small machine whose threads run side by side over the text.
///
/// Each step of a thread either takes one byte or is a split, a jump or a test of the position. All
/// threads take the same byte before any takes the next, and of two that reach the same step the
/// one of lower rank is dropped, so there are never more threads than steps.
class rgx_Program
{
public:
  /// Compiles; raises nex_PrimException for a malformed pattern or one of too many steps.
  explicit rgx_Program(std::string_view pattern);

  /// The first match at or after `from`; position 0 of `text` is where '^' matches.
  bool Search(std::string_view text, std::size_t from, std::size_t& start, std::size_t& end) const;

private:
  friend class rgx_Compiler;
  class Machine;

  enum class Op
  {
    Byte,  // takes a byte of the class `x`
    Split, // goes on at `x`, and with lower rank at `y`
    Jump,  // goes on at `x`
    Begin,
    End,
    Match
  };

  struct Step
  {
    Op op;
    int x;
    int y;
  };

  using ByteClass = std::bitset<256>;

  std::vector<Step> m_steps;
  std::vector<ByteClass> m_classes;
  bool m_onlyAtBegin = false; // no match can start behind position 0
};
