#pragma once

#include "DeckKeywords.h"
#include "KeywordText.h"
#include "MessageText.h"
#include "inp_KeywordExpansionVisitor.h"

#include <functional>
#include <string>
#include <string_view>

/// A deck's text, and everything that expansion makes of it, as text to compare.
struct DeckExpansion
{
  using Prepare = std::function<void(inp_KeywordExpansionVisitor&)>;

  /// `prepare` sets what the visitor is to be told before it starts.
  explicit DeckExpansion(
    std::string_view deck, Prepare const& prepare = [](inp_KeywordExpansionVisitor&) {})
    : list(DeckKeywords(deck))
  {
    cow_String const deckFile = list.Length() > 0 ? list.ConstGet(0).fileName : cow_String();
    prepare(visitor);
    visitor.VisitList(list);
    for (inp_Keyword const& keyword : list)
      keywords += KeywordText(keyword) + "\n";
    messages = MessagesText(visitor, deckFile);
  }

  cow_List<inp_Keyword> list;
  inp_KeywordExpansionVisitor visitor;
  std::string keywords; ///< a line each, see KeywordText
  std::string messages; ///< a line each, see MessageText; warnings first, fatal errors last
};
