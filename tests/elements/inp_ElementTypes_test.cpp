#include <iterator>
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

// The name goes on with letters at most: C3D20 is not of the family C3D2.
bool IsOfFamily(std::string_view name, std::string_view family)
{
  return name.starts_with(family) &&
         name.find_first_of("0123456789", family.size()) != family.size();
}
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
  EXPECT_EQ(std::size(types), 807u);
}

TEST(inp_ElementTypes, LayeredAxisymmetricTypesTakeOneLayerMoreThanTheirLastDigit)
{
  int layered = 0;
  for (Type const& type : types)
    if (type.name.substr(1, 3) == "AXA")
    {
      ++layered;
      EXPECT_EQ(type.most, type.fewest * (type.name.back() - '0' + 1)) << type.name;
    }
  EXPECT_EQ(layered, 48);
}

TEST(inp_ElementTypes, NodeCountsFollowTheNamesOfTheContinuumFamilies)
{
  std::pair<std::string_view, int> const families[] = {
    {"C3D4", 4}, {"C3D8", 8}, {"C3D10", 10}, {"C3D15", 15}, {"C3D20", 20},
    {"CPS4", 4}, {"CPE8", 8}, {"CAX6", 6},   {"DC3D8", 8},  {"AC3D20", 20},
    {"S4", 4},   {"M3D9", 9}, {"CCL12", 12}, {"CPEG6", 6},  {"SC8", 8}};
  for (auto const& [family, count] : families)
    for (Type const& type : types)
      EXPECT_TRUE(!IsOfFamily(type.name, family) || type.fewest == count) << type.name;
}
