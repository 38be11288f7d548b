#include "inp_Item.h"

#include <string>

#include <gtest/gtest.h>

#include "inp_ParserExceptions.h"

namespace
{

/// Type and value as one text: "REAL 1.5".
std::string Described(inp_Item const& item)
{
  static char const* const types[] = {"INTEGER", "BOOLEAN", "REAL", "STRING", "NONE"};
  std::string text = types[item.Type()];
  return item.Type() == inp_Types::inp_NONE ? text : text + " " + item.AsString().CStr();
}

/// What a conversion gives, or the words with which it fails.
template <class Convert>
std::string Outcome(Convert convert)
{
  try
  {
    return cow_String(convert()).CStr();
  }
  catch (inp_KeywordException const& fault)
  {
    EXPECT_EQ(fault.Line(), 0);
    EXPECT_EQ(fault.File(), "");
    return fault.UserReport().CStr();
  }
}

} // namespace

TEST(inp_Item, TellsTheTypeOfAText)
{
  struct
  {
    char const* text;
    char const* item;
  } const cases[] = {
    {"", "NONE"},
    {" \t ", "NONE"},
    {"-", "NONE"},
    {"\"\"", "NONE"},
    {"a=b", "NONE"},
    {"\"a", "NONE"},
    {"\r", "NONE"},
    {" 12\t", "INTEGER 12"},
    {"+7", "INTEGER 7"},
    {"2147483648", "INTEGER 2147483647"},
    {"-99999999999999999999999", "INTEGER -2147483648"},
    {"TRUE", "STRING TRUE"},
    {" a b ", "STRING a b"},
    {"abc.12", "STRING abc.12"},
    {"\"a.b\".12", "STRING \"a.b\".12"},
    {"\"a, b\"", "STRING \"a, b\""},
    {"2abc", "STRING 2abc"},
    {"<x>", "STRING <x>"},
    {"e5", "STRING e5"},
    {".", "REAL 0."},
    {"-.5", "REAL -0.5"},
    {"1e5", "REAL 1e+05"},
    {"1.5D3", "REAL 1500."},
    {"1.5d-1", "REAL 0.15"},
    {"1e400", "REAL 1e999"},
  };
  for (auto const& c : cases)
    EXPECT_EQ(Described(inp_Item(cow_String(c.text))), c.item) << "<" << c.text << ">";
}

TEST(inp_Item, ConvertsOrSaysWhyNot)
{
  inp_Item const none;
  inp_Item const items[] = {inp_Item(0),
                            inp_Item(-3),
                            inp_Item(true),
                            inp_Item(false),
                            inp_Item(0.0),
                            inp_Item(2.5),
                            inp_Item(cow_String("a")),
                            none};
  struct
  {
    char const* asInt;
    char const* asDouble;
    bool asBool;
    char const* asString;
  } const expected[] = {
    {"0", "0.", false, "0"},
    {"-3", "-3.", true, "-3"},
    {"integer: TRUE", "double: TRUE", true, "TRUE"},
    {"integer: FALSE", "double: FALSE", false, "FALSE"},
    {"integer: 0.", "0.", false, "0."},
    {"integer: 2.5", "2.5", true, "2.5"},
    {"integer: a", "double: a", true, "a"},
    {"integer: None", "double: None", false, "None"},
  };
  auto const whole = [](std::string const& outcome)
  {
    return outcome.find(": ") == std::string::npos
             ? outcome
             : (outcome[0] == 'i' ? "Value cannot be converted to an "
                                  : "Value cannot be converted to a ") +
                 outcome;
  };
  for (std::size_t i = 0; i < std::size(items); ++i)
  {
    EXPECT_EQ(Outcome([&] { return items[i].AsInt(); }), whole(expected[i].asInt));
    EXPECT_EQ(Outcome([&] { return items[i].AsDouble(); }), whole(expected[i].asDouble));
    EXPECT_EQ(items[i].AsBool(), expected[i].asBool) << Described(items[i]);
    EXPECT_EQ(items[i].AsString(), expected[i].asString);
  }
}
