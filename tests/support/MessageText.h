#pragma once

#include "inp_Keyword.h"
#include "inp_Utils.h"

#include <string>

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

/// All that a visitor has to say, a line each: warnings first, fatal errors last.
template <class Visitor>
std::string MessagesText(Visitor const& visitor, cow_String const& deckFile)
{
  std::string text;
  for (atr_String const& message : visitor.GetWarningList())
    text += MessageText("warning", message, deckFile) + "\n";
  for (atr_String const& message : visitor.GetErrorList())
    text += MessageText("error", message, deckFile) + "\n";
  for (atr_String const& message : visitor.GetFatalErrorList())
    text += MessageText("fatal", message, deckFile) + "\n";
  return text;
}
