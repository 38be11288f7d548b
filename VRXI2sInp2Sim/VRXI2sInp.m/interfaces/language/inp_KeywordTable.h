#pragma once

#include <vector>

#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inp_KeywordEnmFwd.h"
#include "thr_ThreadSingleton.h"

/// A row of the static table. A null name ends the table.
struct inp_KeywordRow
{
  char const* name;
  int value;
  int const* suboptions; ///< values of the keywords allowed below, ended by 0; null for none
};

/// The vocabulary of the deck language: names, values, and what may stand below what.
///
/// Reached as thr_ThreadSingleton<inp_KeywordTable>::Instance(): one table a thread, built at first
/// use and constant afterwards, because the counts inside its containers belong to one thread.
///
/// Names are lower case without blanks, and names that are looked up must be too. A name may be
/// abbreviated to any beginning that it shares with no other; an exact name always wins.
///
/// Name and Suboptions need a value that the table holds; there is no way to fail.
class inp_KeywordTable : public thr_ThreadSingletonBase<inp_KeywordTable>
{
public:
  inp_KeywordTable();

  /// The table's name for a name or abbreviation. O(log rows), and no copy of text.
  /// Raises inp_UnknownKeywordException or inp_AmbiguousKeywordException, both with line 0 and no
  /// file; the caller knows the place.
  cow_String const& FullName(cow_String const& name) const;

  /// The same look-up, with inp_kwUndefined in place of the exceptions.
  inp_KeywordEnm Enum(cow_String const& name) const;

  cow_String const& Name(inp_KeywordEnm value) const;
  cow_List<int> const& Suboptions(int const& value) const;

  /// The keywords below which the given one may stand, each once, in the order of the table's map.
  cow_List<int> ParentKeywords(inp_KeywordEnm value) const;

  /// Every value, ascending.
  cow_List<int> AllKeywords() const;

  /// All that may stand below a level at any depth, depth first; a keyword that is allowed in two
  /// places occurs twice. The assembly's list is without its instances, the model's without its
  /// assembly and parts.
  cow_List<int> AssemblySuboptions() const;
  cow_List<int> InstanceSuboptions() const;
  cow_List<int> PartSuboptions() const;
  cow_List<int> ModelSuboptions() const;

  /// The names joined by ", ".
  cow_String KeywordEnum2String(cow_List<int> const& values) const;

  /// The names that were perhaps meant, the likeliest first, at most `limit`; none when nothing is
  /// near. For an ambiguous abbreviation these are its completions, the shortest first. Looks at
  /// every name: meant for messages, not for the reading of a deck.
  cow_List<cow_String> NearestNames(cow_String const& name, int limit) const;

  /// The static table in its own order, ended by a row with a null name.
  static inp_KeywordRow const* Rows();

  /// The outcome of a look-up, for callers to whom a miss is nothing exceptional.
  struct Match
  {
    cow_String const* name; ///< null unless there is exactly one
    bool ambiguous;
  };
  Match Resolve(cow_String const& name) const;

private:
  cow_List<int> AllKeywordsBelow(int value) const;
  cow_List<int> AllKeywordsBelow(cow_List<int> const& values) const;

  cow_Map<int, cow_List<int>> m_suboptions;
  cow_Map<cow_String, inp_KeywordEnm> m_nameToEnum;
  cow_Map<int, cow_String> m_enumToName;
  std::vector<cow_String> m_sortedNames; ///< of all rows, byte-wise ascending
};
