#include "inp_KwdDataReleaseVisitor.h"

#include "DeckKeywords.h"
#include "inp_ElementDataArrayImpl.h"
#include "inp_NodeDataArrayImpl.h"
#include "inp_OrganizerVisitor.h"
#include "inp_RawDataArrayImpl.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

constexpr char c_deck[] =
  "*PART, NAME=P\n*NODE\n1, 0.\n*ELEMENT, TYPE=MASS\n1, 1\n*NSET, NSET=N\n1\n*ELSET, ELSET=E\n1\n"
  "*SYSTEM\n0., 0.\n*END PART\n"
  "*ASSEMBLY, NAME=A\n*NODE\n1, 0.\n*NSET, NSET=N\n1\n*END ASSEMBLY\n";

char KindOf(inp_DataArrayImpl const& rows)
{
  return dynamic_cast<inp_NodeDataArrayImpl const*>(&rows) != nullptr      ? 'n'
         : dynamic_cast<inp_ElementDataArrayImpl const*>(&rows) != nullptr ? 'e'
                                                                           : 'r';
}

/// Rows and their kind, of all keywords that are no levels: "2r" is a raw array of two rows.
std::string RowsOf(cow_List<inp_Keyword> const& keywords)
{
  std::string text;
  for (inp_Keyword const& level : keywords)
    for (inp_Keyword const& keyword : level.suboptions)
      text += std::to_string(keyword.data.Rows()) + KindOf(keyword.data.Impl()) + " ";
  return text;
}

} // namespace

TEST(inp_KwdDataReleaseVisitor, EmptiesTheMeshKeywordsOfPartsUnlessLumenIsToReadThem)
{
  for (bool const lumen : {false, true})
  {
    cow_List<inp_Keyword> list = DeckKeywords(c_deck);
    inp_OrganizerVisitor organizer(true);
    organizer.VisitList(list);
    cow_List<inp_Keyword> keywords = organizer.Keywords();
    inp_KwdDataReleaseVisitor visitor(true, lumen);
    visitor.VisitList(keywords);
    EXPECT_EQ(lumen, visitor.LumenCompatible());
    EXPECT_EQ(lumen ? "1r 1r 1r 1r 1r 1r 1r " : "0n 0e 0r 0r 1r 1r 1r ", RowsOf(keywords));
  }
}
