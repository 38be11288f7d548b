#include "inp_KeywordsRearranger.h"

#include "CapturingSink.h"
#include "DeckKeywords.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

/// The lines at which the keywords of a deck stand when rearranged, and the messages with theirs.
struct Rearranged
{
  explicit Rearranged(std::string const& deck)
  {
    cow_List<inp_Keyword> keywords = DeckKeywords(deck);
    CapturingSink sink;
    inp_KeywordsRearranger().Rearrange(keywords);
    for (inp_Keyword const& keyword : keywords)
      order += (order.empty() ? "" : " ") + std::to_string(keyword.lineNumber);
    for (wip_Message const& message : sink.Messages())
      messages += std::to_string(message.text.Origin()->line) + " " +
                  std::to_string(message.level) + ": " + message.text.CStr() + "\n";
  }

  std::string order, messages;
};

std::string Twice(char const* line, char const* keywords, char const* name)
{
  return std::string(line) + " 2: There are more than one " + keywords +
         " keywords associated with the analytical surface " + name +
         ".  Please check input data.\n";
}

} // namespace

TEST(inp_KeywordsRearranger, DefinesSurfacesAboveTheirRigidBodies)
{
  struct
  {
    char const *what, *deck, *order;
    std::string messages;
  } const cases[] = {
    {"body and surface change places",
     "*NODE\n*RIGID BODY, ANALYTICAL SURFACE=A\n*NODE\n*SURFACE, TYPE=CYLINDER, NAME=A\n*NODE\n",
     "1 4 3 2 5", ""},
    {"the right order stays",
     "*SURFACE, TYPE=CYLINDER, NAME=A\n*RIGID BODY, ANALYTICAL SURFACE=A\n", "1 2", ""},
    {"*RIGID SURFACE of any type counts",
     "*RIGID BODY, ANALYTICAL SURFACE=A\n*RIGID SURFACE, NAME=A\n", "2 1", ""},
    {"a surface of elements does not",
     "*RIGID BODY, ANALYTICAL SURFACE=A\n*SURFACE, TYPE=ELEMENT, NAME=A\n*SURFACE, NAME=A\n",
     "1 2 3", ""},
    {"a body without an analytical surface, and a surface without a name, are let alone",
     "*RIGID BODY, ELSET=A\n*RIGID SURFACE, TYPE=SEGMENTS\n*SURFACE, TYPE=SEGMENTS, NAME=A\n",
     "1 2 3", ""},
    {"names are compared as they are",
     "*RIGID BODY, ANALYTICAL SURFACE=a\n*SURFACE, TYPE=SEGMENTS, NAME=A\n", "1 2", ""},
    {"pairs do not disturb each other",
     "*RIGID BODY, ANALYTICAL SURFACE=B\n*RIGID BODY, ANALYTICAL SURFACE=A\n"
     "*SURFACE, TYPE=USER, NAME=A\n*SURFACE, TYPE=BEZIER, NAME=B\n",
     "4 3 2 1", ""},
    {"the first body counts",
     "*RIGID BODY, ANALYTICAL SURFACE=A\n*SURFACE, TYPE=SEGMENTS, NAME=A\n"
     "*RIGID BODY, ANALYTICAL SURFACE=A\n",
     "2 1 3", Twice("3", "*RIGID BODY", "A")},
    {"the first definition counts",
     "*SURFACE, TYPE=SEGMENTS, NAME=A\n*RIGID BODY, ANALYTICAL SURFACE=A\n"
     "*RIGID SURFACE, NAME=A\n*RIGID SURFACE, NAME=A\n",
     "1 2 3 4", Twice("3", "rigid surface", "A") + Twice("4", "rigid surface", "A")},
  };
  for (auto const& c : cases)
  {
    Rearranged const rearranged(c.deck);
    EXPECT_EQ(c.order, rearranged.order) << c.what;
    EXPECT_EQ(c.messages, rearranged.messages) << c.what;
  }
}
