#include "inp_OrganizerVisitor.h"

#include "inp_KeywordEnm.h"
#include "inp_KeywordTable.h"
#include "inp_OrganizerMessages.h"
#include "inp_SuboptionSets.h"
#include "pnt_debugPrint.h"
#include "typ_DebugFlags.h"

#include <utility>

namespace
{

/// The keyword that closes a level; "undefined keyword" for one that is no level.
inp_KeywordEnm CloserOf(inp_KeywordEnm keyword)
{
  switch (keyword)
  {
  case inp_kwPart:
    return inp_kwEndPart;
  case inp_kwInstance:
    return inp_kwEndInstance;
  case inp_kwAssembly:
    return inp_kwEndAssembly;
  case inp_kwStep:
    return inp_kwEndStep;
  default:
    return inp_kwUndefined;
  }
}

bool IsCloser(inp_KeywordEnm keyword)
{
  return keyword == inp_kwEndPart || keyword == inp_kwEndInstance || keyword == inp_kwEndAssembly ||
         keyword == inp_kwEndStep;
}

void PrintDebug(char const* action, inp_Keyword const& keyword)
{
  if (typ_DebugFlags::GetDebugFlags(30) >= 1)
  {
    pnt_debugPrint().StartDebug() << action << keyword.Name() << '\n';
    pnt_debugPrint().EndDebug();
  }
}

// Recursion is safe: nothing stands deeper than the longest chain in the table's suboption lists,
// which is of six keywords.
void SetParentKeyOfSuboptions(inp_Keyword& keyword)
{
  for (int i = 0; i < keyword.suboptions.Length(); ++i)
  {
    inp_Keyword& suboption = keyword.suboptions.Get(i);
    suboption.reserved = keyword.keyword;
    SetParentKeyOfSuboptions(suboption);
  }
}

} // namespace

inp_OrganizerVisitor::inp_OrganizerVisitor(bool itsFeatureEnhanced)
  : featureEnhanced(itsFeatureEnhanced)
{
  inp_SuboptionSets const& sets = thr_ThreadSingleton<inp_SuboptionSets>::Instance();
  m_topLevel = sets.Below(inp_kwModel);
  if (!featureEnhanced)
  {
    m_topLevel += sets.Below(inp_kwAssembly);
    m_topLevel += sets.Below(inp_kwInstance);
    m_topLevel += sets.Below(inp_kwPart);
  }
  for (inp_KeywordEnm const keyword : {inp_kwStep, inp_kwEndStep, inp_kwHeading})
  {
    m_topLevelOfSteps.Insert(keyword);
  }
  keywordStack.Append(inp_Keyword());
  suboptionStack.Append(&m_topLevel);
}

bool inp_OrganizerVisitor::CanPopKeyword(inp_Keyword const& open, inp_Keyword const& incoming)
{
  inp_KeywordEnm const closer = CloserOf(open.keyword);
  return closer == inp_kwUndefined || incoming.Is(closer);
}

void inp_OrganizerVisitor::DefaultAction(inp_Keyword& keyword)
{
  bool levelClosed = false;
  while (!HasPlaceOnTop(keyword, levelClosed))
  {
    if (keywordStack.Length() < 2 || !CanPopKeyword(keywordStack.Last(), keyword))
    {
      MisplacedKeywordError(keyword);
      return;
    }
    PrintDebug("OrganizerVisitor - Pop: ", keyword);
    levelClosed = levelClosed || CloserOf(keywordStack.Last().keyword) != inp_kwUndefined;
    PopKeyword();
  }
  PrintDebug("OrganizerVisitor - Push: ", keyword);
  PushKeyword(keyword);
}

void inp_OrganizerVisitor::VisitStep(inp_Keyword& keyword)
{
  suboptionStack.Get(0) = &m_topLevelOfSteps;
  DefaultAction(keyword);
}

void inp_OrganizerVisitor::VisitSuboptions(inp_Keyword&) {}

cow_List<inp_Keyword> inp_OrganizerVisitor::Keywords()
{
  while (keywordStack.Length() > 1)
  {
    PopKeyword();
  }
  cow_List<inp_Keyword>& keywords = keywordStack.Get(0).suboptions;
  for (int i = 0; i < keywords.Length(); ++i)
  {
    SetParentKeyOfSuboptions(keywords.Get(i));
  }
  return keywords;
}

// The table lists closing keywords beside the levels that they close, where one has a place only if
// it has just closed its level.
bool inp_OrganizerVisitor::HasPlaceOnTop(inp_Keyword const& keyword, bool levelClosed) const
{
  return suboptionStack.Last()->IsMember(keyword.keyword) &&
         (levelClosed || !IsCloser(keyword.keyword));
}

void inp_OrganizerVisitor::PushKeyword(inp_Keyword const& keyword)
{
  suboptionStack.Append(&thr_ThreadSingleton<inp_SuboptionSets>::Instance().Below(keyword.keyword));
  keywordStack.Append(keyword);
}

// Nothing else holds the lists of the stack, so that no write here copies one.
void inp_OrganizerVisitor::PopKeyword()
{
  int const top = keywordStack.Length() - 1;
  inp_Keyword closed = std::move(keywordStack.Get(top));
  keywordStack.RemoveLast();
  suboptionStack.RemoveLast();
  keywordStack.Get(top - 1).suboptions.Append(std::move(closed));
}

void inp_OrganizerVisitor::MisplacedKeywordError(inp_Keyword const& keyword)
{
  Say(inp_msgMisplacedKeyword, keyword, ParentNames(keyword.keyword));
}

cow_String const& inp_OrganizerVisitor::ParentNames(inp_KeywordEnm keyword)
{
  auto const [entry, isNew] = m_parentNames.try_emplace(keyword);
  if (isNew)
  {
    inp_KeywordTable const& table = thr_ThreadSingleton<inp_KeywordTable>::Instance();
    entry->second = table.KeywordEnum2String(table.ParentKeywords(keyword));
  }
  return entry->second;
}
