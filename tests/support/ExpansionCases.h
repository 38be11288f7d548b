#pragma once

#include "DeckExpansion.h"

#include <gtest/gtest.h>

/// A deck, and what is to come of it.
struct ExpansionCase
{
  char const* what;
  std::string deck;
  char const* keywords; ///< see DeckExpansion
  std::string messages;
};

template <std::size_t Size>
void CheckExpansions(ExpansionCase const (&cases)[Size])
{
  for (ExpansionCase const& c : cases)
  {
    SCOPED_TRACE(c.what);
    DeckExpansion const expansion(c.deck);
    EXPECT_EQ(expansion.keywords, c.keywords);
    EXPECT_EQ(expansion.messages, c.messages);
  }
}
