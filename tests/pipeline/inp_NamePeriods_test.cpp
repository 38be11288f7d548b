#include "inp_NamePeriods.h"

#include "DeckKeywords.h"
#include "inp_OrganizerVisitor.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

/// The line of the keyword that is found; 0 for none.
int LineOf(cow_List<inp_Keyword> const& keywords)
{
  inp_Keyword const* const found = inp_FindPeriodInNames(keywords);
  return found != nullptr ? found->lineNumber : 0;
}

} // namespace

TEST(inp_NamePeriods, ThoseOutsideQuotesAreFound)
{
  struct
  {
    char const* deck;
    int line;
  } const cases[] = {
    {"", 0},
    {"*NSET, NSET=A\n*ELSET, ELSET=B\n", 0},
    {"*NSET, NSET=\"A.B\"\n*PART, NAME=\"P.1\"\n", 0},
    {"*NSET, NSET=\"A.B\".C\n", 1},
    // every keyword with its parameters
    {"*HEADING\n*ASSEMBLY, NAME=A.1\n", 2},
    {"*INSTANCE, NAME=I.1, PART=P\n", 1},
    {"*PART, NAME=P.1\n", 1},
    {"*RIGID SURFACE, NAME=S.1\n", 1},
    {"*SURFACE, NAME=S.1\n", 1},
    {"*ORIENTATION, NAME=O.1\n", 1},
    {"*REBAR, NAME=R.1\n", 1},
    {"*ELEMENT, ELSET=E.1\n", 1},
    {"*ELGEN, ELSET=E.1\n", 1},
    {"*ELSET, ELSET=E.1\n", 1},
    {"*NFILL, NSET=N.1\n", 1},
    {"*NGEN, NSET=N.1\n", 1},
    {"*NODE, NSET=N.1\n", 1},
    {"*NMAP, NSET=N.1\n", 1},
    {"*NSET, NSET=N.1\n", 1},
    {"*ELCOPY, NEW SET=N.1\n", 1},
    {"*ELCOPY, OLD SET=N.1\n", 1},
    {"*NCOPY, NEW SET=N, OLD SET=N.1\n", 1},
    // references, other keywords, and a number for a name
    {"*INSTANCE, NAME=I, PART=P.1\n*SOLID SECTION, ELSET=I.E\n*MATERIAL, NAME=M.1\n", 0},
    {"*NSET, NSET=N, ELSET=I.E\n", 0},
    {"*NSET, NSET=1.5\n", 1},
    // the first one
    {"*NODE\n*NSET, NSET=A.B\n*NSET, NSET=C.D\n", 2},
  };
  for (auto const& c : cases)
  {
    EXPECT_EQ(c.line, LineOf(DeckKeywords(c.deck))) << c.deck;
  }
}

TEST(inp_NamePeriods, AKeywordComesBeforeItsSuboptionsAndTheseBeforeTheNext)
{
  struct
  {
    char const* deck;
    int line;
  } const cases[] = {
    {"*PART, NAME=P.1\n*NODE, NSET=A.B\n*END PART\n", 1},
    {"*PART, NAME=P\n*NODE, NSET=A.B\n*END PART\n*PART, NAME=Q.1\n*END PART\n", 2},
    {"*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*NSET, NSET=A.B\n*END INSTANCE\n", 3},
  };
  for (auto const& c : cases)
  {
    cow_List<inp_Keyword> list = DeckKeywords(c.deck);
    inp_OrganizerVisitor organizer(true);
    organizer.VisitList(list);
    EXPECT_EQ(c.line, LineOf(organizer.Keywords())) << c.deck;
  }
}
