#include <set>
#include <string_view>

#include <gtest/gtest.h>

namespace
{
struct Type
{
  std::string_view name;
  int fewest, most;
};

constexpr Type types[] = {
#define INP_ELEMENT_TYPE(name, fewest, most) {name, fewest, most},
#include "inp_ElementTypes.def"
};
} // namespace

TEST(inp_ElementTypes, NamesAreUniqueAndNodeCountsMakeSense)
{
  std::set<std::string_view> names;
  for (Type const& type : types)
  {
    EXPECT_TRUE(names.insert(type.name).second) << type.name;
    EXPECT_EQ(type.name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_"),
              std::string::npos)
      << type.name;
    EXPECT_LE(type.name.size(), 21u) << type.name;
    EXPECT_GE(type.fewest, 1) << type.name;
    EXPECT_GE(type.most, type.fewest) << type.name;
    EXPECT_LE(type.most, 40) << type.name;
  }
}
