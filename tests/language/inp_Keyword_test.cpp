#include "inp_Keyword.h"

#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "aio_ostream.h"
#include "inp_KeywordEnm.h"

namespace
{

inp_Keyword Made(inp_KeywordEnm keyword, std::initializer_list<char const*> rows)
{
  inp_Keyword made(keyword);
  for (char const* row : rows)
    made.data.Append(row);
  return made;
}

std::string DeckLines(inp_Keyword const& keyword, bool withSuboptions = false)
{
  std::ostringstream text;
  aio_ostream stream(text);
  keyword.Print(stream, withSuboptions);
  return text.str();
}

inp_Keyword WithParameter(std::size_t valueLength)
{
  inp_Keyword keyword(inp_kwNode);
  keyword.parameters.Insert("nset", inp_Item(cow_String(std::string(valueLength, 'a'))));
  return keyword;
}

} // namespace

TEST(inp_Keyword, IsMadeByNameOrAbbreviationAndGivesParametersOfTheRightTypeOnly)
{
  inp_Keyword keyword(cow_String("shellsec"));
  EXPECT_TRUE(keyword.Is(inp_kwShellSection));
  EXPECT_TRUE(inp_Keyword(cow_String("nonsense")).Is(inp_kwUndefined));
  keyword.parameters.Insert("i", inp_Item(5));
  keyword.parameters.Insert("r", inp_Item(2.5));
  keyword.parameters.Insert("s", inp_Item(cow_String("Text")));
  keyword.parameters.Insert("b", inp_Item(true));
  std::string found;
  for (char const* name : {"i", "r", "s", "b", "absent"})
    found += std::to_string(keyword.GetParameterAsInt(name, -1)) + "/" +
             cow_String(keyword.GetParameterAsDouble(name, -1.0)).CStr() + "/" +
             keyword.GetParameterAsString(name, "-").CStr() + " ";
  EXPECT_EQ(found, "5/5./- -1/2.5/- -1/-1./Text -1/-1./- -1/-1./- ");
  EXPECT_TRUE(keyword.HasParameter("b"));
  EXPECT_FALSE(keyword.HasParameter("absent"));
}

TEST(inp_Keyword, TellsWhatAParameterGivesAsAName)
{
  std::pair<inp_Item, char const*> const cases[] = {
    {inp_Item(cow_String("\"a b\"")), "given \"a b\""},
    {inp_Item(7), "given 7"},
    {inp_Item(1.5), "given 1.5"},
    {inp_Item(true), "switch "},
    {inp_Item::Text(""), "empty "},
    {inp_Item(cow_String("-")), "no name "},
  };
  char const* const states[] = {"given", "absent", "switch", "empty", "no name"};
  inp_Keyword keyword(inp_kwNode);
  for (auto const& [item, expected] : cases)
  {
    keyword.parameters.Insert("name", item);
    inp_NameParameter const name = keyword.ReadName("name");
    EXPECT_EQ(std::string(states[name.state]) + " " + name.text.CStr(), expected);
    EXPECT_EQ(name.IsGiven(), name.text.Length() > 0) << expected;
  }
  EXPECT_EQ(keyword.ReadName("nset").state, inp_NameParameter::c_absent);
  EXPECT_EQ(keyword.NameIn("nset"), "");
}

TEST(inp_Keyword, PrintsAsTextAndAsDeckLines)
{
  inp_Keyword keyword = Made(inp_kwElset, {"Left end, 1 2 ,\"a b\",", "", "xy"});
  keyword.parameters.Insert("elset", inp_Item(cow_String("\"My set\"")));
  keyword.parameters.Insert("generate", inp_Item(true));
  keyword.parameters.Insert("factor", inp_Item(1500.0));
  keyword.parameters.Insert("none", inp_Item());
  keyword.suboptions.Append(Made(inp_kwNode, {"1, left end"}));
  keyword.suboptions.Get(0).suboptions.Append(Made(inp_kwNset, {"a\tb, a b"}));

  // In map order, which hangs on the bits of the names.
  EXPECT_EQ(keyword.Print(false), "*elset, elset = \"My set\", factor = 1500., none, generate\n"
                                  "LEFTEND, 12, \"a b\", \n"
                                  "\n"
                                  "XY\n");
  EXPECT_EQ(DeckLines(keyword), "*elset, elset=\"My set\", factor=1500., none, generate\n"
                                "\"Left end\", \"1 2\", \"a b\", \n"
                                "\n"
                                "XY\n");
  EXPECT_EQ(std::string(keyword.Print(true).View()).substr(keyword.Print(false).View().size()),
            "*node\n1, LEFTEND\n*nset\nAB, AB\n");
  EXPECT_EQ(DeckLines(keyword, true).substr(DeckLines(keyword).size()),
            "*node\n1, LEFTEND\n*nset\nAB, \"a b\"\n");
}

TEST(inp_Keyword, BreaksParameterLinesAtTheBudget)
{
  // "*node" counts 5, the parameter its name and value and 3 (text) or 5 (deck lines).
  std::string const long243(243, 'a'), long244(244, 'a'), long241(241, 'a'), long242(242, 'a');
  EXPECT_EQ(WithParameter(243).Print(false), ("*node, nset = " + long243 + "\n").c_str());
  EXPECT_EQ(WithParameter(244).Print(false), ("*node, \nnset = " + long244 + "\n").c_str());
  EXPECT_EQ(DeckLines(WithParameter(241)), "*node, nset=" + long241 + "\n");
  EXPECT_EQ(DeckLines(WithParameter(242)), "*node,\nnset=" + long242 + "\n");
}

TEST(inp_Keyword, ARunningLengthRestartsBehindABreak)
{
  // Behind the break "nset" counts 4 + 223 and 1 (text) or 3 (deck lines); "input", which the map
  // gives next, counts 5, its value, and 3 or 5.
  struct
  {
    std::size_t valueLength;
    bool textBreaks, deckBreaks;
  } const cases[] = {{15, false, false}, {16, false, true}, {19, false, true}, {20, true, true}};
  for (auto const& c : cases)
  {
    inp_Keyword keyword(inp_kwConnectorConstitutiveReference);
    keyword.parameters.Insert("nset", inp_Item(cow_String(std::string(223, 'b'))));
    keyword.parameters.Insert("input", inp_Item(cow_String(std::string(c.valueLength, 'c'))));
    std::string const text = keyword.Print(false).CStr();
    std::string const deck = DeckLines(keyword);
    EXPECT_EQ(text.find(", \nnset = "), 31U) << text;
    EXPECT_EQ(text.find(", \ninput = ") != std::string::npos, c.textBreaks) << c.valueLength;
    EXPECT_EQ(deck.find(",\ninput=") != std::string::npos, c.deckBreaks) << c.valueLength;
  }
}

TEST(inp_Keyword, ACopySharesItsDataAndADeepCopyDoesNot)
{
  inp_Keyword original(inp_kwPart, "f.inp");
  original.reserved = 3;
  original.lineNumber = 12;
  original.encrypted = true;
  original.rawSource = true;
  original.comments.Append("a comment");
  original.parameters.Insert("name", inp_Item(cow_String("A")));
  original.data.Append("1,2");
  original.suboptions.Append(Made(inp_kwNode, {"7"}));

  inp_Keyword copy = original;
  copy.data.Set(0, 0, 5);
  copy.parameters.Insert("name", inp_Item(cow_String("B")));
  EXPECT_EQ(original.Print(false), "*part, name = A\n5, 2\n");

  inp_Keyword deep = original.DeepCopy();
  EXPECT_EQ(deep.Print(true), original.Print(true));
  EXPECT_TRUE(deep.reserved == 3 && deep.lineNumber == 12 && deep.fileName == "f.inp");
  EXPECT_TRUE(deep.encrypted && !deep.rawSource && deep.comments.Length() == 0);
  deep.data.Set(0, 0, 6);
  deep.suboptions.Get(0).data.Set(0, 0, 8);
  EXPECT_EQ(original.Print(true), "*part, name = A\n5, 2\n*node\n7\n");
  EXPECT_TRUE(original.hasSuboption(inp_kwNode));
  EXPECT_FALSE(original.hasSuboption(inp_kwPart));
}
