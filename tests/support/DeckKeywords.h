#pragma once

#include "inp_Parser.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <unistd.h>

/// The flat list that the reader makes of a deck's text; what the reader has to say fails the test.
/// Nothing is expanded: write names in full, and values in upper case where a pass expects that.
inline cow_List<inp_Keyword> DeckKeywords(std::string_view deck)
{
  std::string name = testing::TempDir() + "deck-XXXXXX";
  int const file = mkstemp(name.data());
  EXPECT_NE(-1, file) << name;
  close(file);
  std::ofstream(name, std::ios::binary) << deck;
  inp_Parser parser(name.c_str(), "", {}, "", true, true, false, 0, 0);
  cow_List<inp_Keyword> const keywords = parser.Parse(true);
  std::remove(name.c_str());
  for (auto const* list : {&parser.GetFatalErrors(), &parser.GetErrors(), &parser.GetWarnings()})
    for (atr_String const& message : *list)
      ADD_FAILURE() << message.View() << "\nin\n" << deck;
  return keywords;
}
