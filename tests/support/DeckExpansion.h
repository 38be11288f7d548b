#pragma once

#include "DeckKeywords.h"
#include "KeywordText.h"
#include "inp_KeywordExpansionVisitor.h"

#include <functional>
#include <string>
#include <string_view>

/// A message of a visitor as one line to compare: "line severity: words", with the file's name in
/// front unless it is `deckFile`. The title that names the keyword's place must stand before the
/// words, and is left out; "untitled" tells that it does not.
inline std::string MessageText(char const* severity, atr_String const& message,
                               std::string_view deckFile)
{
  atr_Origin const* const origin = message.Origin();
  if (origin == nullptr)
    return std::string("without origin: ") + message.CStr();
  std::string const file(origin->file.View());
  std::string text = file == deckFile ? "" : file.substr(file.rfind('/') + 1) + ":";
  text += std::to_string(origin->line) + " " + severity + ": ";
  inp_Keyword named(cow_String(origin->keyword), origin->file);
  return text;
}
