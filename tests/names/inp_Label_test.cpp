#include "inp_Label.h"

#include <string>

#include <gtest/gtest.h>

TEST(inp_Label, TakesANameApart)
{
  struct
  {
    char const* label;
    bool scoped, isId;
    int id;
    char const *assembly, *instance, *set;
  } const cases[] = {
    {"", false, false, 0, "", "", ""},
    {"SETA", false, false, 0, "", "", "SETA"},
    {"\"a.b\"", false, false, 0, "", "", "a.b"},
    {"\"\"", false, false, 0, "", "", "\"\""},
    {"a.\"b", true, false, 0, "", "a", "\"b"},
    {"15", false, true, 0, "", "", ""}, // a plain number is no id of a scope
    {"part-1.15", true, true, 15, "", "part-1", "15"},
    {"p. -3 ", true, true, -3, "", "p", " -3 "},
    {"p.1e5", true, false, 0, "", "p", "1e5"},
    {"asm.\"in 1\".\"s.t\"", true, false, 0, "asm", "in 1", "s.t"},
    {"x.asm.in.set", true, false, 0, "asm", "in", "set"},
    {".set", true, false, 0, "", "", "set"},
    {"in.", true, false, 0, "", "in", ""},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.label);
    inp_Label const label{cow_String(c.label)};
    EXPECT_EQ(label.IsScoped(), c.scoped);
    EXPECT_EQ(label.IsId(), c.isId);
    EXPECT_EQ(label.GetId(), c.id);
    EXPECT_EQ(label.GetAssemblyName(), c.assembly);
    EXPECT_EQ(label.GetInstanceName(), c.instance);
    EXPECT_EQ(label.GetSetName(), c.set);
  }
  EXPECT_FALSE(inp_Label().IsScoped());
  EXPECT_EQ(inp_Label().GetSetName(), "");
}
