#pragma once

#include "inp_Visitor.h"
#include "omi_Set.h"

#include <unordered_map>

/// Makes a hierarchy of a flat list of keywords.
///
///     inp_OrganizerVisitor visitor(featureEnhanced);      *PART            part
///     visitor.VisitListAndReport(keywords);               *SOLID SECTION     solidsection
///     keywords = visitor.Keywords();                      *DENSITY    ->   endpart
///                                                         *END PART        ...
///
/// A keyword goes below the nearest open keyword that the keyword table allows it under; everything
/// that was opened behind that one is closed. *PART, *INSTANCE, *ASSEMBLY and *STEP are levels:
/// nothing closes them but the end of the deck and their own closing keywords, which stand beside
/// them and not below. From the first *STEP on, only steps and *HEADING are taken at the top.
///
/// Needs:    expanded keywords. One that comes with suboptions keeps them as they are.
/// Produces: the hierarchy, each keyword with the enumerator of the one above it in its `reserved`.
/// Reports:  an error for each keyword that has no place, which is left out. A level's closing
///           keyword without its opening one is out of place too. A *PART without a name is left
///           out without a word, and so leaves no place for what it holds.
///
/// Time is linear in the number of keywords: what moves is a handle, whatever rows hang on it. The
/// depth is bounded by the table, whose lists of suboptions form no cycle: the longest chain is
/// assembly, instance, gap, friction, design variation.
class inp_OrganizerVisitor : public inp_Visitor
{
public:
  /// A deck that is not `featureEnhanced` may hold at the top whatever an assembly, an instance or
  /// a part could hold.
  explicit inp_OrganizerVisitor(bool featureEnhanced);
  inp_OrganizerVisitor(inp_OrganizerVisitor const&) = delete;
  inp_OrganizerVisitor& operator=(inp_OrganizerVisitor const&) = delete;

  void DefaultAction(inp_Keyword& keyword) override;
  void VisitStep(inp_Keyword& keyword) override;
  /// Suboptions that are there already stay where they are.
  void VisitSuboptions(inp_Keyword& keyword) override;

  /// Closes what is still open, and gives out the hierarchy. To be called behind the walk.
  cow_List<inp_Keyword> Keywords();

protected:
  /// `incoming` may close `open`: only a level can refuse.
  static bool CanPopKeyword(inp_Keyword const& open, inp_Keyword const& incoming);

private:
  bool HasPlaceOnTop(inp_Keyword const& keyword, bool levelClosed) const;
  void PushKeyword(inp_Keyword const& keyword);
  void PopKeyword();
  void MisplacedKeywordError(inp_Keyword const& keyword);
  cow_String const& ParentNames(inp_KeywordEnm keyword);

  bool featureEnhanced;
  cow_List<inp_Keyword> keywordStack;                ///< the open keywords, the root at the bottom
  cow_List<omi_Set const*> suboptionStack;           ///< for each of them, what may stand below it
  omi_Set m_topLevel;                                ///< before the first step
  omi_Set m_topLevelOfSteps;                         ///< from the first step on
  std::unordered_map<int, cow_String> m_parentNames; ///< texts of messages, made once a keyword
};
