#include "DeckExpansion.h"

#include "inp_KeywordEnm.h"

#include <string>

#include <gtest/gtest.h>

namespace
{

char const* const c_words[] = {"EXPLICIT", "IMPLICIT", "IMPLIED", nullptr};

/// A handler that is to come: it tests one parameter, "p1", in one way.
class Checks : public inp_KeywordExpansionVisitor
{
public:
  using Check = void (Checks::*)(inp_Keyword&);

  void Boolean(inp_Keyword& keyword) { CheckBoolean(keyword, "p1"); }
  void Integer(inp_Keyword& keyword) { CheckInteger(keyword, "p1"); }
  void Double(inp_Keyword& keyword) { CheckDouble(keyword, "p1"); }
  void Label(inp_Keyword& keyword) { CheckLabel(keyword, "p1"); }
  void FileName(inp_Keyword& keyword) { CheckFileName(keyword, "p1"); }
  void DoubleOrLabel(inp_Keyword& keyword) { CheckDoubleOrLabel(keyword, "p1"); }
  void IntegerOrLabel(inp_Keyword& keyword) { CheckIntegerOrLabel(keyword, "p1"); }
  void IntegerOrWord(inp_Keyword& keyword) { CheckIntegerOrEnumerated(keyword, c_words, "p1"); }
  void Word(inp_Keyword& keyword) { CheckEnumerated(keyword, c_words, "p1"); }
  void None(inp_Keyword& keyword) { CheckNone(keyword, "p1"); }
  void Required(inp_Keyword& keyword)
  {
    char const* const names[] = {"p1", "p2", "p3", nullptr};
    bool const required[] = {true, false, true};
    CheckRequiredParameters(keyword, names, required);
  }
};

inp_Keyword KeywordWith(inp_Item const& item)
{
  inp_Keyword keyword(inp_kwStatic);
  keyword.parameters.Insert("p1", item);
  return keyword;
}

std::string MessagesOf(Checks::Check check, inp_Keyword keyword)
{
  Checks checks;
  (checks.*check)(keyword);
  return MessagesText(checks, "");
}

} // namespace

TEST(inp_ExpansionChecks, TakeTheTypesThatTheyName)
{
  struct
  {
    char const* name;
    inp_Item item;
    char const* text;
  } const values[] = {
    {"flag", inp_Item(true), "TRUE"},     {"none", inp_Item(), "None"},
    {"integer", inp_Item(3), "3"},        {"real", inp_Item(2.5), "2.5"},
    {"text", inp_Item::Text("aB"), "aB"},
  };
  struct
  {
    Checks::Check check;
    std::string accepted;
    char const* kind;
  } const cases[] = {
    {&Checks::Boolean, "flag none ", "a boolean"},
    {&Checks::Integer, "integer ", "an integer"},
    {&Checks::Double, "integer real ", "a float"},
    {&Checks::Label, "text ", "a label"},
    {&Checks::FileName, "text ", "a label"},
    {&Checks::DoubleOrLabel, "real text ", "a float or label"},
    {&Checks::IntegerOrLabel, "integer text ", "an integer or label"},
    {&Checks::IntegerOrWord, "integer ", "an integer or an enumerated value"},
    {&Checks::None, "none ", "a boolean"},
  };
  for (auto const& c : cases)
  {
    std::string accepted;
    for (auto const& value : values)
    {
      std::string const messages = MessagesOf(c.check, KeywordWith(value.item));
      if (messages.empty())
        accepted += std::string(value.name) + " ";
      else
        EXPECT_EQ(messages, std::string("0 error: Value for parameter P1 cannot be converted to ") +
                              c.kind + ": " + value.text + "\n");
    }
    EXPECT_EQ(accepted, c.accepted) << c.kind;
    EXPECT_EQ(MessagesOf(c.check, inp_Keyword(inp_kwStatic)), "") << "without the parameter";
  }
}

TEST(inp_ExpansionChecks, CompleteWords)
{
  for (Checks::Check const check : {&Checks::Word, &Checks::IntegerOrWord})
  {
    Checks checks;
    inp_Keyword keyword = KeywordWith(inp_Item::Text("expl"));
    (checks.*check)(keyword);
    EXPECT_EQ(KeywordText(keyword), "static p1=EXPLICIT");
    EXPECT_EQ(MessagesText(checks, ""), "");
    EXPECT_EQ(MessagesOf(check, KeywordWith(inp_Item::Text("IMPL"))),
              "0 error: Ambiguous value \"IMPL\" for parameter \"p1\".\n");
    EXPECT_EQ(MessagesOf(check, KeywordWith(inp_Item::Text("<a>"))), "") << "a reference";
  }
  EXPECT_EQ(MessagesOf(&Checks::Word, KeywordWith(inp_Item(3))),
            "0 error: Illegal value \"3\" for parameter \"p1\".  The value may be misspelled, "
            "obsolete, or invalid.\n");
  EXPECT_EQ(MessagesOf(&Checks::Word, KeywordWith(inp_Item(true))), "");
  EXPECT_EQ(MessagesOf(&Checks::Word, inp_Keyword(inp_kwStatic)), "");
}

TEST(inp_ExpansionChecks, NameEveryParameterThatIsMissing)
{
  EXPECT_EQ(MessagesOf(&Checks::Required, inp_Keyword(inp_kwStatic)),
            "0 error: Parameter P1 is a required parameter.\n"
            "0 error: Parameter P3 is a required parameter.\n");
  EXPECT_EQ(MessagesOf(&Checks::Required, KeywordWith(inp_Item(true))),
            "0 error: Parameter P3 is a required parameter.\n");
}
