#include "inp_OrganizerVisitor.h"

#include "DeckKeywords.h"
#include "KeywordTree.h"
#include "MessageText.h"
#include "inp_KeywordEnm.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

constexpr bool flat = false;
constexpr bool assembly = true;

/// The hierarchy of a deck, and what was said.
struct Organized
{
  Organized(std::string const& deck, bool featureEnhanced)
    : Organized(DeckKeywords(deck), featureEnhanced)
  {
  }
  Organized(cow_List<inp_Keyword> list, bool featureEnhanced)
  {
    cow_String const file = list.Length() > 0 ? list.ConstGet(0).fileName : cow_String();
    inp_OrganizerVisitor visitor(featureEnhanced);
    visitor.VisitList(list);
    keywords = visitor.Keywords();
    errors = visitor.GetErrorList().Length();
    for (atr_String const& message : visitor.GetErrorList().Slice(0, 10))
      messages += MessageText("error", message, file) + "\n";
    EXPECT_FALSE(visitor.IsWarning());
    EXPECT_EQ(0, visitor.GetFatalErrorList().Length());
  }

  std::string Tree() const { return KeywordTree(keywords); }

  cow_List<inp_Keyword> keywords;
  int errors = 0;
  std::string messages;
};

std::string Misplaced(int line, std::string const& parents)
{
  return std::to_string(line) +
         " error: The keyword is misplaced. It can be suboption for the following "
         "keyword(s)/level(s): " +
         parents + "\n";
}

/// `head`, and then `body` again and again; all are named, as levels must be.
cow_List<inp_Keyword> Repeated(std::vector<inp_KeywordEnm> const& head,
                               std::vector<inp_KeywordEnm> const& body, int times)
{
  cow_List<inp_Keyword> list;
  auto const append = [&list](inp_KeywordEnm value)
  {
    inp_Keyword keyword(value);
    keyword.parameters.Insert("name", inp_Item(cow_String("A")));
    list.Append(keyword);
  };
  std::for_each(head.begin(), head.end(), append);
  for (int i = 0; i < times; ++i)
    std::for_each(body.begin(), body.end(), append);
  return list;
}

} // namespace

TEST(inp_OrganizerVisitor, PutsKeywordsBelowTheOpenOneThatTakesThem)
{
  struct
  {
    char const* what;
    bool featureEnhanced;
    char const *deck, *tree;
  } const cases[] = {
    {"at the top of a flat deck stands what parts, instances and assemblies take", flat,
     "*HEADING\n*NODE\n*ELEMENT\n*MATERIAL\n*ELASTIC\n*PLASTIC\n*RATE DEPENDENT\n*DENSITY\n"
     "*RIGID SURFACE\n*TIE\n*NODE\n",
     "heading\nnode\nelement\nmaterial\n  elastic\n  plastic\n    ratedependent\n  density\n"
     "rigidsurface\ntie\nnode\n"},
    {"closing keywords stand beside their levels", assembly,
     "*PART, NAME=P\n*NODE\n*SOLID SECTION\n*HOURGLASS STIFFNESS\n*NSET\n*END PART\n"
     "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=P-1, PART=P\n*NODE\n*END INSTANCE\n*NSET\n*COUPLING\n"
     "*KINEMATIC\n*END ASSEMBLY\n*MATERIAL\n*ELASTIC\n"
     "*STEP, NAME=S\n*STATIC\n*OUTPUT\n*NODE OUTPUT\n*BOUNDARY\n*END STEP\n",
     "part\n  node\n  solidsection\n    hourglassstiffness\n  nset\nendpart\n"
     "assembly\n  instance\n    node\n  endinstance\n  nset\n  coupling\n    "
     "kinematic\nendassembly\n"
     "material\n  elastic\n"
     "step\n  static\n  output\n    nodeoutput\n  boundary\nendstep\n"},
    {"a load case is closed by whatever does not belong to it", assembly,
     "*STEP, NAME=S\n*LOAD CASE\n*CLOAD\n*END LOAD CASE\n*LOAD CASE\n*CLOAD\n*STATIC\n*CLOAD\n",
     "step\n  loadcase\n    cload\n  endloadcase\n  loadcase\n    cload\n  static\n  cload\n"},
    {"the end of the deck closes what is open", assembly,
     "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I\n*GAP\n*FRICTION\n*DESIGN VARIATION\n",
     "assembly\n  instance\n    gap\n      friction\n        designvariation\n"},
    {"between steps stand headings", flat,
     "*STEP, NAME=S\n*END STEP\n*HEADING\n*STEP, NAME=T\n*END STEP\n",
     "step\nendstep\nheading\nstep\nendstep\n"},
    {"a flat deck may open levels too", flat,
     "*PART, NAME=P\n*NODE\n*END PART\n*INSTANCE, NAME=I\n*NODE\n*END INSTANCE\n*NODE\n",
     "part\n  node\nendpart\ninstance\n  node\nendinstance\nnode\n"},
  };
  for (auto const& c : cases)
  {
    Organized const organized(c.deck, c.featureEnhanced);
    EXPECT_EQ(c.tree, organized.Tree()) << c.what;
    EXPECT_EQ("", organized.messages) << c.what;
  }
}

TEST(inp_OrganizerVisitor, LeavesOutAndReportsWhatHasNoPlace)
{
  std::string const nodes = "assembly, instance, part";
  struct
  {
    char const* what;
    bool featureEnhanced;
    char const *deck, *tree;
    std::string messages;
  } const cases[] = {
    {"an end of part without a part", assembly,
     "*PART, NAME=P\n*END PART\n*END PART\n*MATERIAL\n*END PART\n", "part\nendpart\nmaterial\n",
     Misplaced(3, "__model__") + Misplaced(5, "__model__")},
    {"ends of other levels without their beginnings", assembly,
     "*END ASSEMBLY\n*ASSEMBLY, NAME=A\n*END INSTANCE\n*END ASSEMBLY\n*END STEP\n",
     "assembly\nendassembly\n",
     Misplaced(1, "__model__") + Misplaced(3, "assembly") + Misplaced(5, "__model__")},
    {"a part stays open at a keyword that it does not take", assembly,
     "*PART, NAME=P\n*SOLID SECTION\n*MATERIAL\n*NODE\n*END PART\n",
     "part\n  solidsection\n  node\nendpart\n", Misplaced(3, "__model__")},
    {"an instance stays open at another one, and closes at the first end", assembly,
     "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I\n*INSTANCE, NAME=J\n*NODE\n*END INSTANCE\n"
     "*END INSTANCE\n*END ASSEMBLY\n",
     "assembly\n  instance\n    node\n  endinstance\nendassembly\n",
     Misplaced(3, "assembly") + Misplaced(6, "assembly")},
    {"an instance outside the assembly", assembly,
     "*INSTANCE, NAME=I\n*NODE\n*END INSTANCE\n*ASSEMBLY, NAME=A\n*END ASSEMBLY\n",
     "assembly\nendassembly\n",
     Misplaced(1, "assembly") + Misplaced(2, nodes) + Misplaced(3, "assembly")},
    {"a keyword without a place closes all that is no level", assembly,
     "*MATERIAL\n*PLASTIC\n*CLOAD\n*ELASTIC\n", "material\n  plastic\n",
     Misplaced(3, "substructureloadcase, loadcase, step") + Misplaced(4, "material")},
    {"model data behind the first step", flat,
     "*NODE\n*STEP, NAME=S\n*END STEP\n*MATERIAL\n*ELASTIC\n*NODE\n*HEADING\n",
     "node\nstep\nendstep\nheading\n",
     Misplaced(4, "__model__") + Misplaced(5, "material") + Misplaced(6, nodes)},
    {"a second step in the first", flat,
     "*STEP, NAME=S\n*STATIC\n*STEP, NAME=T\n*STATIC\n*END STEP\n*END STEP\n",
     "step\n  static\n  static\nendstep\n", Misplaced(3, "__model__") + Misplaced(6, "__model__")},
    {"a step in a part is refused, and yet leaves no place for model data", assembly,
     "*PART, NAME=P\n*STEP, NAME=S\n*NODE\n*END PART\n*MATERIAL\n*STEP, NAME=T\n",
     "part\n  node\nstep\n",
     Misplaced(2, "__model__") + Misplaced(4, "__model__") + Misplaced(5, "__model__")},
    {"a part without a name goes without a word, but leaves no place for what it holds", assembly,
     "*PART\n*NODE\n*END PART\n", "", Misplaced(2, nodes) + Misplaced(3, "__model__")},
  };
  for (auto const& c : cases)
  {
    Organized const organized(c.deck, c.featureEnhanced);
    EXPECT_EQ(c.tree, organized.Tree()) << c.what;
    EXPECT_EQ(c.messages, organized.messages) << c.what;
  }
}

TEST(inp_OrganizerVisitor, MarksEachSuboptionWithItsParent)
{
  Organized const organized(
    "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I\n*GAP\n*FRICTION\n*END INSTANCE\n", assembly);
  inp_Keyword const& level = organized.keywords.ConstGet(0);
  inp_Keyword const& instance = level.suboptions.ConstGet(0);
  inp_Keyword const& gap = instance.suboptions.ConstGet(0);
  EXPECT_EQ(0, level.reserved);
  EXPECT_EQ(inp_kwAssembly, instance.reserved);
  EXPECT_EQ(inp_kwInstance, gap.reserved);
  EXPECT_EQ(inp_kwGap, gap.suboptions.ConstGet(0).reserved);
  EXPECT_EQ(inp_kwAssembly, level.suboptions.ConstGet(1).reserved);
}

TEST(inp_OrganizerVisitor, OrganizedKeywordsStayAsTheyAreAndKeepTheirRows)
{
  cow_List<inp_Keyword> const list =
    DeckKeywords("*PART, NAME=P\n*NODE\n1, 0.\n*SOLID SECTION\n*HOURGLASS STIFFNESS\n*END PART\n"
                 "*DISTRIBUTION\n*EXTERNAL FIELD\n*STEP, NAME=S\n*STATIC\n*END STEP\n");
  Organized const once(list, assembly);
  Organized const twice(once.keywords, assembly);
  EXPECT_EQ(once.Tree(), twice.Tree());
  EXPECT_EQ("", twice.messages);
  EXPECT_EQ(&list.ConstGet(1).data.Impl(),
            &twice.keywords.ConstGet(0).suboptions.ConstGet(0).data.Impl())
    << "moved, not copied";
}

// Decks of which every keyword stands at one place, or at none: no work may grow with what stands
// there already, and no walk may go deeper with every keyword.
TEST(inp_OrganizerVisitor, HoldsAHundredThousandKeywordsAnywhere)
{
  int const count = 100000;
  struct
  {
    char const* what;
    bool featureEnhanced;
    std::vector<inp_KeywordEnm> head, body;
    int topLevel, errors;
  } const cases[] = {
    {"at the top", flat, {}, {inp_kwNode}, count, 0},
    {"in one part", assembly, {inp_kwPart}, {inp_kwNode}, 1, 0},
    {"as parts within parts", assembly, {}, {inp_kwPart}, 1, count - 1},
    {"as steps within steps", flat, {}, {inp_kwStep, inp_kwStatic}, 1, count - 1},
    {"as ends of nothing", assembly, {}, {inp_kwEndPart, inp_kwEndStep}, 0, 2 * count},
    {"nowhere, in a step", flat, {inp_kwStep}, {inp_kwElastic}, 1, count},
  };
  for (auto const& c : cases)
  {
    Organized const organized(Repeated(c.head, c.body, count), c.featureEnhanced);
    EXPECT_EQ(c.topLevel, organized.keywords.Length()) << c.what;
    EXPECT_EQ(c.errors, organized.errors) << c.what;
  }
}
