#include "inp_InputFile.h"

#include "CapturingSink.h"
#include "DeckKeywords.h"
#include "inp_OrganizerVisitor.h"
#include "pnt_debugPrint.h"
#include "typ_DebugFlags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

using testing::ElementsAre;

TEST(inp_InputFile, AnImportNeedsAnEarlierJobAndNoRezoning)
{
  std::string const both =
    "fatal2: *IMPORT and *MAP SOLUTION (rezoning) cannot be used in the same analysis. ";
  std::string const partMap =
    "fatal2: An import analysis requires the part map from a previous job. Please use the "
    "-oldpartmap command line option to specify it.";
  struct
  {
    char const* deck;
    bool lumen;
    bool restartJob;
    std::vector<std::string> messages;
    std::vector<int> lines;
  } const cases[] = {
    {"*HEADING\n*MAP SOLUTION\n", false, false, {}, {}},
    {"*HEADING\n*IMPORT\n*IMPORT\n", false, false, {partMap}, {2}},
    {"*HEADING\n*IMPORT\n", true, false, {}, {}},
    {"*HEADING\n*IMPORT\n", false, true, {}, {}},
    {"*MAP SOLUTION\n*IMPORT\n*MAP SOLUTION\n", true, false, {both}, {1}},
    {"*IMPORT\n*MAP SOLUTION\n", false, false, {both, partMap}, {2, 1}},
  };
  for (auto const& c : cases)
  {
    inp_InputFile input;
    input.keywords = DeckKeywords(c.deck);
    input.restartJob = c.restartJob;
    CapturingSink sink;
    input.CheckImportValidity(c.lumen);
    EXPECT_EQ(c.messages, sink.Lines()) << c.deck;
    std::vector<int> lines;
    for (wip_Message const& message : sink.Messages())
      lines.push_back(message.text.Origin()->line);
    EXPECT_EQ(c.lines, lines) << c.deck;
  }
}

TEST(inp_InputFile, PartsAreCheckedOnlyWhereTheDeckHasThem)
{
  cow_List<inp_Keyword> list =
    DeckKeywords("*PART, NAME=P\n*SURFACE, TYPE=SEGMENTS, NAME=S\n*NODE\n");
  inp_OrganizerVisitor organizer(true);
  organizer.VisitList(list);
  inp_InputFile input;
  input.keywords = organizer.Keywords();
  input.partElementMap.Insert("P", inp_MapInt2Element());
  std::string const unclosed =
    "error: The following *PART keywords are missing their closing *END PART keywords";
  {
    CapturingSink sink;
    input.CheckOutOfPlace();
    EXPECT_THAT(sink.Lines(), ElementsAre(unclosed));
    EXPECT_TRUE(input.partElementMap.IsMember("P"));
  }
  input.featureEnhanced = true;
  std::ostringstream debug;
  pnt_debugPrint().SetTarget(&debug);
  typ_DebugFlags::SetDebugFlags(30, 1);
  {
    CapturingSink sink;
    input.CheckOutOfPlace();
    EXPECT_THAT(sink.Lines(),
                ElementsAre("error: *SURFACE keyword defining analytical rigid surface S of part P "
                            "is not associated with a rigid body definition.",
                            unclosed));
    EXPECT_FALSE(input.partElementMap.IsMember("P"));
  }
  typ_DebugFlags::SetDebugFlags(30, 0);
  pnt_debugPrint().SetTarget(nullptr);
  EXPECT_TRUE(debug.str().starts_with("Checking out of place keywords - Elapsed time: "))
    << debug.str();
}
