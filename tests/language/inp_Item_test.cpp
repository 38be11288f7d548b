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
    char const *text, *item;
  } const cases[] = {
    {"", "NONE"},
    {"-", "NONE"},
    {"a=b", "NONE"},
    {"\"a", "NONE"},
    {" 12\t", "INTEGER 12"},
    {"2147483647", "INTEGER 2147483647"},
    {"2147483648", "STRING 2147483648"},
    {"-2147483648", "INTEGER -2147483648"},
    {" -2147483649\t", "STRING -2147483649"},
    {"+99999999999999999999999", "STRING +99999999999999999999999"},
    {"0000000000000000000000001", "INTEGER 1"},
    {"TRUE", "STRING TRUE"},
    {" a b ", "STRING a b"},
    {"\"a, b\"", "STRING \"a, b\""},
    {"2abc", "STRING 2abc"},
    {"<x>", "STRING <x>"},
    {".", "REAL 0."},
    {"1.5D3", "REAL 1500."},
    {"1.5d-1", "REAL 0.15"},
    {"1e400", "REAL 1e999"},
  };
  for (auto const& c : cases)
    EXPECT_EQ(Described(inp_Item(cow_String(c.text))), c.item) << "<" << c.text << ">";
}

TEST(inp_Item, ConvertsOrSaysWhyNot)
{
  struct
  {
    inp_Item item;
    char const *asInt, *asDouble, *asString; ///< null: refused
    bool asBool;
  } const cases[] = {
    {inp_Item(0), "0", "0.", "0", false},
    {inp_Item(-3), "-3", "-3.", "-3", true},
    {inp_Item(true), nullptr, nullptr, "TRUE", true},
    {inp_Item(false), nullptr, nullptr, "FALSE", false},
    {inp_Item(0.0), nullptr, "0.", "0.", false},
    {inp_Item(2.5), nullptr, "2.5", "2.5", true},
    {inp_Item(cow_String("a")), nullptr, nullptr, "a", true},
    {inp_Item(), nullptr, nullptr, "None", false},
  };
  for (auto const& c : cases)
  {
    std::string const refused = "Value cannot be converted to a";
    EXPECT_EQ(Outcome([&] { return c.item.AsInt(); }),
              c.asInt != nullptr ? c.asInt : refused + "n integer: " + c.asString);
    EXPECT_EQ(Outcome([&] { return c.item.AsDouble(); }),
              c.asDouble != nullptr ? c.asDouble : refused + " double: " + c.asString);
    EXPECT_EQ(c.item.AsBool(), c.asBool) << Described(c.item);
    EXPECT_EQ(c.item.AsString(), c.asString);
  }
}
