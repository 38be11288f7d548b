#include "inp_SetFixupVisitor.h"

#include "DeckExpansion.h"
#include "ReferenceMarks.h"

#include <gtest/gtest.h>

namespace
{

/// Writes down all that it is told; a value BAD is refused.
class Listening : public inp_SetFixupVisitor
{
public:
  explicit Listening(inp_ModelParameters const& model)
    : inp_SetFixupVisitor(inpM_SetMap(), inpM_SetMap(), inpM_IdMap(), inpM_IdMap(), model)
  {
  }
  cow_String FixupIdOrSet(inp_Keyword const& keyword, cow_String const& value, inpM_SetMap const&,
                          inpM_IdMap const&, cow_String const& assembly, cow_String const& instance,
                          cow_String const& part, inp_SetType setType,
                          cow_String const& parameterName) override
  {
    if (value == "MEMORY")
      throw inp_MemoryException();
    if (value == "BAD")
      throw nex_AtrException(atr_String("No such set."));
    for (cow_String const& piece : {keyword.Name(), value, assembly, instance, part,
                                    SetTypeEnm2String(setType), parameterName})
      heard += std::string(piece.View()) + "|";
    heard += "\n";
    return value == "GONE" ? cow_String() : value;
  }

  using inp_SetFixupVisitor::mostListed;
  std::string heard;
};

std::string ErrorsOf(inp_Visitor const& visitor)
{
  std::string text;
  for (atr_String const& message : visitor.GetErrorList())
    text += MessageText("error", message, message.Origin()->file) + "\n";
  return text;
}

} // namespace

TEST(inp_SetFixupVisitor, TellsPlaceTypeAndParameter)
{
  cow_List<inp_Keyword> keywords =
    DeckKeywords("*PART, NAME=P\n*MASS, ELSET=M\n*END PART\n"
                 "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*MOTION\n5\n*END INSTANCE\n"
                 "*EMBEDDED ELEMENT\n7\n*END ASSEMBLY\n*PERIODIC MEDIA\ne, n\n");
  inp_ModelParameters const model;
  Listening visitor(model);
  visitor.VisitList(keywords);
  EXPECT_EQ(visitor.heard, "mass|M|||P||elset|\n"
                           "motion|5|A|I||node ||\n"
                           "embeddedelement|7|A|||||\n"
                           "periodicmedia|E||||element ||\n"
                           "periodicmedia|N||||node ||\n");
}

TEST(inp_SetFixupVisitor, ReportsWhatIsRaisedAndGoesOn)
{
  cow_List<inp_Keyword> keywords =
    DeckKeywords("*NODE OUTPUT, NSET=BAD\n"
                 "*PRESSURE PENETRATION\nbad, gone, 1\nGONE, 2\n"
                 "*CLOAD\nBAD, 1\nGONE, 1\n"
                 "*SLIDE LINE, GENERATE, ELSET=BAD\n1, 2, 3\n5, 6\n");
  inp_ModelParameters const model;
  Listening visitor(model);
  visitor.VisitList(keywords);
  EXPECT_EQ(ErrorsOf(visitor),
            "1 error: No such set.\n"
            "2 error: No such set.\n"
            "5 error: No such set.\n"
            "8 error: untitled: Increment of 3 cannot be used to step from 1 to 2 "
            "on slideline keyword.\n"
            "8 error: No such set.\n");
  EXPECT_EQ(KeywordText(keywords.ConstGet(0)), "nodeoutput nset=BAD");
  EXPECT_EQ(KeywordText(keywords.ConstGet(1)), "pressurepenetration: bad||1 / |2");
  EXPECT_EQ(KeywordText(keywords.ConstGet(2)), "cload: BAD|1 / |1");
  EXPECT_EQ(KeywordText(keywords.ConstGet(3)), "slideline elset=BAD, generate: 1|2|3 / 5|6");

  keywords = DeckKeywords("*BOUNDARY\nMEMORY\n");
  EXPECT_THROW(visitor.VisitList(keywords), inp_MemoryException);
}

TEST(inp_SetFixupVisitor, WritesOutNoMoreRangesThanAWalkMay)
{
  cow_List<inp_Keyword> keywords =
    DeckKeywords("*SLIDE LINE, GENERATE\n1, 5\n*SLIDE LINE, GENERATE\n1, 2\n7, 9\n"
                 "*SLIDE LINE, GENERATE\n3, 2, -1\n3, 3\n4, 4\n");
  inp_ModelParameters const model;
  Listening visitor(model);
  visitor.mostListed = 9;
  visitor.VisitList(keywords);
  EXPECT_EQ(ErrorsOf(visitor),
            "3 error: untitled: The range from 7 to 9 with a step of 1 on slideline "
            "holds more ids than a set can. It is left out.\n");
  EXPECT_EQ(KeywordText(keywords.ConstGet(0)), "slideline: 1|2|3|4|5");
  EXPECT_EQ(KeywordText(keywords.ConstGet(1)), "slideline generate: 1|2 / 7|9");
  EXPECT_EQ(KeywordText(keywords.ConstGet(2)), "slideline: 2|3|3|4");
}

TEST(inp_SetFixupVisitor, LeavesWhatComesBackUnchangedAsWritten)
{
  std::string const deck = "*BOUNDARY\n p-1 . 5 , 1 , \"a b\"\n*SECTION PRINT, AXES=LOCAL\nP-1.5\n"
                           "*MONITOR, NODE=5\n";
  cow_List<inp_Keyword> keywords = DeckKeywords(deck);
  inp_ModelParameters const model;
  Listening visitor(model);
  visitor.VisitList(keywords);
  EXPECT_EQ(visitor.heard, "boundary|P-1.5||||node ||\n"
                           "sectionprint|5||||||\n"
                           "monitor|5|||||node|\n");
  EXPECT_EQ(KeywordText(keywords.ConstGet(0)), "boundary: p-1 . 5|1|\"a b\"");
  EXPECT_EQ(KeywordText(keywords.ConstGet(1)), "sectionprint axes=LOCAL: P-1.5");
  EXPECT_EQ(keywords.ConstGet(2).GetParameterAsInt("node", 0), 5);
}

TEST(inp_SetFixupVisitor, SingleFields)
{
  inp_ModelParameters const model;
  MarkSets visitor(model);
  inp_Keyword keyword = DeckKeywords("*OUTPUT\n1, A, P-1.7\n").ConstGet(0);
  inpM_SetMap const sets;
  inpM_IdMap const ids;
  visitor.ReplaceIdOrSetSingleDatum(keyword, 0, 1, sets, ids);
  visitor.ReplaceIdSingleDatum(keyword, 0, 2, sets, ids);
  EXPECT_EQ(KeywordText(keyword), "output: 1|A#E|7#E");
  for (auto const& [row, column] : {std::pair{0, 3}, {1, 0}, {-1, 0}, {0, -1}, {0, 100}})
  {
    visitor.ReplaceIdOrSetSingleDatum(keyword, row, column, sets, ids);
    visitor.ReplaceIdSingleDatum(keyword, row, column, sets, ids);
  }
  EXPECT_EQ(KeywordText(keyword), "output: 1|A#E|7#E");
}

TEST(inp_NameFixupVisitor, ReportsWhatIsRaisedAndGoesOn)
{
  struct Refusing : inp_OrientationFixupVisitor
  {
    Refusing() : inp_OrientationFixupVisitor({}) {}
    cow_String FixupOrientationName(cow_String const& name) override
    {
      return name == "BAD" ? throw nex_AtrException(atr_String("No such name.")) : name + "#O";
    }
  } visitor;
  cow_List<inp_Keyword> keywords =
    DeckKeywords("*SPRING, ORIENTATION=BAD\n*CONTACT PAIR\nS, T, bad, O\n");
  visitor.VisitList(keywords);
  EXPECT_EQ(ErrorsOf(visitor),
            "1 error: untitled: There are errors in the *spring data lines: No such name. "
            "(\"BAD\" in ORIENTATION)\n"
            "2 error: untitled: There are errors in the *contactpair data lines: No such name. "
            "(\"BAD\" in field 3 of data line 1)\n");
  EXPECT_EQ(visitor.GetErrorList().ConstGet(1).Origin()->subject, "BAD");
  EXPECT_EQ(KeywordText(keywords.ConstGet(1)), "contactpair: S|T|bad|O#O");
}

namespace
{

/// Puts the scope in front of names, counts how often it is asked, and refuses BAD.
class Scoping : public inp_SetFixupVisitor
{
public:
  explicit Scoping(inp_ModelParameters const& model) : inp_SetFixupVisitor({}, {}, {}, {}, model) {}
  cow_String FixupReference(inp_Reference const& reference, cow_String const& name) override
  {
    ++asked;
    if (name == "BAD")
      throw nex_AtrException(atr_String("No such set in ") + reference.PlaceWords() + ".");
    return reference.scope->MeshScope() + (reference.what == inp_refNodes ? ".N." : ".E.") + name;
  }
  cow_String FixupIdOrSet(inp_Keyword const&, cow_String const& value, inpM_SetMap const&,
                          inpM_IdMap const&, cow_String const&, cow_String const&,
                          cow_String const&, inp_SetType, cow_String const&) override
  {
    return value;
  }
  bool AnswersByName() const override { return true; }
  int asked = 0;
};

} // namespace

// What one scope, or one kind, was answered must not be taken for another; faults are told each time.
TEST(inp_SetFixupVisitor, AsksOnceForANameInAScope)
{
  cow_List<inp_Keyword> keywords = DeckKeywords(
    "*PART, NAME=P\n*CLOAD\nTIP, 1, 5.\nTIP, 2, 5.\n tip , 3, 5.\nBAD, 1\nBAD, 1\n"
    "*NORMAL\nTIP, TIP, 1.\n*END PART\n*PART, NAME=Q\n*CFLUX\nTIP, 11\nTIP, 11\n*END PART\n");
  inp_ModelParameters const model;
  Scoping visitor(model);
  visitor.VisitList(keywords);
  EXPECT_EQ(KeywordText(keywords.ConstGet(1)),
            "cload: P.N.TIP|1|5. / P.N.TIP|2|5. / P.N.TIP|3|5. / BAD|1 / BAD|1");
  EXPECT_EQ(KeywordText(keywords.ConstGet(2)), "normal: P.E.TIP|P.N.TIP|1.");
  EXPECT_EQ(KeywordText(keywords.ConstGet(5)), "cflux: Q.N.TIP|11 / Q.N.TIP|11");
  EXPECT_EQ(visitor.asked, 6);
  EXPECT_EQ(ErrorsOf(visitor), "2 error: No such set in field 1 of data line 4.\n"
                               "2 error: No such set in field 1 of data line 5.\n");
}

TEST(inp_SetFixupVisitor, RewritesRowsThatKeywordsShareOnce)
{
  cow_List<inp_Keyword> keywords = DeckKeywords("*CFLUX\nTIP, 11\n");
  keywords.Append(keywords.ConstGet(0));
  keywords.Append(keywords.ConstGet(0).DeepCopy());
  inp_ModelParameters const model;
  Scoping visitor(model);
  for (char const* row : {".N.TIP|11", ".N..N.TIP|11"}) // each walk once
  {
    visitor.VisitList(keywords);
    for (inp_Keyword const& keyword : keywords)
      EXPECT_EQ(KeywordText(keyword), std::string("cflux: ") + row);
  }
}
