#include "inp_NamePeriods.h"

#include "DeckKeywords.h"
#include "inp_OrganizerVisitor.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

/// The line of the keyword that is found in a deck with its hierarchy; 0 for none.
int LineOf(std::string const& deck)
{
  cow_List<inp_Keyword> list = DeckKeywords(deck);
  inp_OrganizerVisitor organizer(true);
  organizer.VisitList(list);
  cow_List<inp_Keyword> const keywords = organizer.Keywords();
  inp_Keyword const* const found = inp_FindPeriodInNames(keywords);
  return found != nullptr ? found->lineNumber : 0;
}

} // namespace

TEST(inp_NamePeriods, ThoseOutsideQuotesAreFoundInTheOrderOfTheDeck)
{
  struct
  {
    char const* deck;
    int line;
  } const cases[] = {
    {"", 0},
    {"*PART, NAME=\"P.1\"\n*NSET, NSET=\"A.B\"\n*ELSET, ELSET=B\n", 0},
    {"*PART, NAME=P\n*NSET, NSET=\"A.B\".C\n", 2},
    {"*HEADING\n*ASSEMBLY, NAME=A.1\n", 2},
    // references, other keywords, and a number for a name
    {"*PART, NAME=P\n*NSET, NSET=N, ELSET=I.E\n*END PART\n*ASSEMBLY, NAME=A\n"
     "*INSTANCE, NAME=I, PART=P.1\n*SOLID SECTION, ELSET=I.E\n*END INSTANCE\n*END ASSEMBLY\n"
     "*MATERIAL, NAME=M.1\n",
     0},
    {"*PART, NAME=P\n*NSET, NSET=1.5\n", 2},
    // a keyword comes before its suboptions, and these before the next
    {"*PART, NAME=P.1\n*NODE, NSET=A.B\n*END PART\n", 1},
    {"*PART, NAME=P\n*NODE, NSET=A.B\n*END PART\n*PART, NAME=Q.1\n*END PART\n", 2},
    {"*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*NSET, NSET=A.B\n*END INSTANCE\n", 3},
  };
  for (auto const& c : cases)
    EXPECT_EQ(c.line, LineOf(c.deck)) << c.deck;
  for (char const* keyword :
       {"INSTANCE, NAME=I.1", "RIGID SURFACE, NAME=S.1", "SURFACE, NAME=S.1",
        "ORIENTATION, NAME=O.1", "REBAR, NAME=R.1", "ELEMENT, ELSET=E.1", "ELGEN, ELSET=E.1",
        "ELSET, ELSET=E.1", "NFILL, NSET=N.1", "NGEN, NSET=N.1", "NODE, NSET=N.1", "NMAP, NSET=N.1",
        "NSET, NSET=N.1", "ELCOPY, NEW SET=N.1", "ELCOPY, OLD SET=N.1",
        "NCOPY, NEW SET=N, OLD SET=N.1"})
  {
    cow_List<inp_Keyword> const keywords = DeckKeywords(std::string("*") + keyword + "\n");
    EXPECT_EQ(&keywords.ConstGet(0), inp_FindPeriodInNames(keywords)) << keyword;
  }
}
