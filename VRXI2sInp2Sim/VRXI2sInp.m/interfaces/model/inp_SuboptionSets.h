#pragma once

#include "inp_KeywordEnmFwd.h"
#include "omi_Set.h"
#include "thr_ThreadSingleton.h"

#include <unordered_map>

/// The suboption lists of inp_KeywordTable in a form that answers at once whether a keyword is in a
/// list: the list of a level holds up to two hundred, and each keyword of a deck is asked for.
///
/// Reached as thr_ThreadSingleton<inp_SuboptionSets>::Instance(); some 200 KB a thread that uses
/// it, built at first use and constant afterwards.
class inp_SuboptionSets : public thr_ThreadSingletonBase<inp_SuboptionSets>
{
public:
  inp_SuboptionSets();

  /// The keywords that may stand directly below one; good as long as the thread. Empty for a value
  /// that the table does not hold.
  omi_Set const& Below(inp_KeywordEnm keyword) const;

private:
  std::unordered_map<int, omi_Set> m_below; ///< keywords without suboptions have no entry
  omi_Set m_none;
};
