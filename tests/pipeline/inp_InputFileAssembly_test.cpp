#include "inp_InputFile.h"

#include "CapturingSink.h"
#include "DeckKeywords.h"
#include "inp_OrganizerVisitor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

using testing::ElementsAre;

TEST(inp_InputFile, AnImportNeedsAnEarlierJobAndNoRezoning)
{
  std::string const both =
    "fatal2: *IMPORT and *MAP SOLUTION (rezoning) cannot be used in the same analysis. \n";
  std::string const partMap =
    "fatal2: An import analysis requires the part map from a previous job. Please use the "
    "-oldpartmap command line option to specify it.\n";
  struct
  {
    char const* deck;
    bool lumen, restartJob;
    std::string messages;
  } const cases[] = {
    {"*HEADING\n*MAP SOLUTION\n", false, false, ""},
    {"*HEADING\n*IMPORT\n*IMPORT\n", false, false, "2 " + partMap},
    {"*HEADING\n*IMPORT\n", true, false, ""},
    {"*HEADING\n*IMPORT\n", false, true, ""},
    {"*MAP SOLUTION\n*IMPORT\n*MAP SOLUTION\n", true, false, "1 " + both},
    {"*IMPORT\n*MAP SOLUTION\n", false, false, "2 " + both + "1 " + partMap},
  };
  for (auto const& c : cases)
  {
    inp_InputFile input;
    input.keywords = DeckKeywords(c.deck);
    input.restartJob = c.restartJob;
    CapturingSink sink;
    input.CheckImportValidity(c.lumen);
    std::string messages;
    for (std::size_t i = 0; i < sink.Lines().size(); ++i)
      messages +=
        std::to_string(sink.Messages()[i].text.Origin()->line) + " " + sink.Lines()[i] + "\n";
    EXPECT_EQ(c.messages, messages) << c.deck;
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
  for (bool const isLast : {false, true})
  {
    CapturingSink sink;
    isLast ? input.CheckOutOfPlace() : input.CheckParts();
    EXPECT_THAT(sink.Lines(),
                ElementsAre("error: *SURFACE keyword defining analytical rigid surface S of part P "
                            "is not associated with a rigid body definition.",
                            unclosed));
    EXPECT_NE(isLast, input.partElementMap.IsMember("P"));
  }
}
