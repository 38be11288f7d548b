#pragma once

#include "cow_List.h"
#include "cow_String.h"

#include <cstddef>
#include <memory>

// Regular expressions over bytes.
//
//   ^ $            start and end of the whole text, never of a line
//   .              any byte but a line feed
//   [a-z_] [^,]    classes, with ranges, [:alpha:] and its like, escapes; a first ']' is literal
//   ( ) |          groups and alternatives
//   * + ? {m} {m,} {m,n}    greedy, and with a '?' behind them as short as possible
//   \t \n \r \f \v \0       control bytes; any other escaped punctuation stands for itself
//
// Among matches the leftmost wins; among those that begin together, the one that a backtracking
// search finds first. The time of one search grows linearly with the text, and its memory does not
// depend on it. A pattern is compiled once in a thread. A malformed one, or one too large, raises
// nex_PrimException.

class rgx_Program;

/// The matches of a pattern in a text, from left to right, none overlapping the one before.
///
/// Stands on the first match when made. Holds the text by sharing.
class rgx_ReIterator
{
public:
  rgx_ReIterator(std::shared_ptr<rgx_Program const> program, cow_String const& subject);

  /// The number of matches in the whole text; the first call walks through them.
  int Count() const;
  /// There is a match at all; does not walk.
  bool Matched() const noexcept { return m_matched; }

  void First();
  void Next();
  bool IsDone() const noexcept { return m_isDone; }

  /// The whole text of the current match; "" when the walk is done.
  cow_String String() const;
  /// Position of the current match in the text; only while the walk is not done.
  int Start() const noexcept { return static_cast<int>(m_start); }
  int End() const noexcept { return static_cast<int>(m_end); }

private:
  void Search(std::size_t from);

  std::shared_ptr<rgx_Program const> m_program;
  cow_String m_subject;
  std::size_t m_start = 0;
  std::size_t m_end = 0;
  bool m_isDone = false;
  bool m_matched = false;
  mutable int m_count = -1; // not yet counted
};

rgx_ReIterator rgx_match(cow_String const& pattern, cow_String const& subject);
rgx_ReIterator rgx_match(omn_FixedString pattern, cow_String const& subject);
rgx_ReIterator rgx_match(char const* pattern, cow_String const& subject);

/// The pieces between the separators: always one more than there are separators. An empty match
/// does not separate.
cow_List<cow_String> rgx_split(char const* separatorPattern, cow_String const& subject);

/// The pieces with the separator between each two.
cow_String rgx_join(cow_List<cow_String> const& pieces, cow_String const& separator);
