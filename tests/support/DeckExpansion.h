#pragma once

#include "DeckKeywords.h"
#include "KeywordText.h"
#include "inp_KeywordExpansionVisitor.h"

#include <functional>
#include <string>
#include <string_view>

/// A message of a visitor as one line to compare: "line severity: words", with the file's name in
/// front unless it is the deck's. Words that do not stand behind the title with the keyword's place
/// are marked "untitled".
inline std::string MessageText(char const* severity, atr_String const& message,
                               cow_String const& deckFile)
{
  atr_Origin const* const origin = message.Origin();
  if (origin == nullptr)
    return std::string("without origin: ") + message.CStr();
  inp_Keyword keyword(origin->keyword);
  keyword.fileName = origin->file;
  keyword.lineNumber = origin->line;
  std::string const title(inp_Utils::FormTitleForMessage(keyword).View());
  std::string words(message.View());
  words = words.starts_with(title) ? words.substr(title.size()) : "untitled: " + words;
  std::string const file(origin->file.View());
  std::string const place = origin->file == deckFile ? "" : file.substr(file.rfind('/') + 1) + ":";
  return place + std::to_string(origin->line) + " " + severity + ": " + words;
}

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
    AddMessages("warning", visitor.GetWarningList(), deckFile);
    AddMessages("error", visitor.GetErrorList(), deckFile);
    AddMessages("fatal", visitor.GetFatalErrorList(), deckFile);
  }

  cow_List<inp_Keyword> list;
  inp_KeywordExpansionVisitor visitor;
  std::string keywords; ///< a line each, see KeywordText
  std::string messages; ///< a line each, see MessageText; warnings first, fatal errors last

private:
  void AddMessages(char const* severity, cow_List<atr_String> const& texts,
                   cow_String const& deckFile)
  {
    for (atr_String const& message : texts)
      messages += MessageText(severity, message, deckFile) + "\n";
  }
};
