#include "inp_DistributionTableDB.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace
{

struct Stems
{
#define INP_DIST_LABEL(stem, name, value, components)                                              \
  static constexpr inp_distTableLabelEnum stem = inp_distLabel##stem;
#include "inp_DistributionTables.def"
};

struct UseRow : Stems
{
  int type, numLabels, numComponents;
  std::vector<inp_distTableLabelEnum> written;

  // What counts of the labels as written.
  std::vector<inp_distTableLabelEnum> Labels() const
  {
    return {written.begin(), written.begin() + numLabels};
  }

  static std::vector<UseRow> All()
  {
    return {
#define INP_DIST_TYPE(value, labels, components, ...)                                              \
  UseRow{{}, value, labels, components, {__VA_ARGS__}},
#include "inp_DistributionTables.def"
    };
  }
};

class inp_DistributionTableDB_ : public testing::Test
{
protected:
  void SetUp() override { db.initializeValidDistTables(); }

  int Declare(char const* name, std::vector<inp_distTableLabelEnum> const& labels)
  {
    return db.addDistTables(name, static_cast<int>(labels.size()), 1, labels.data());
  }

  int Validate(int type, char const* name) const
  {
    return db.validateDistTable(static_cast<inp_distTableTypeEnum>(type), name);
  }

  inp_DistributionTableDB db;
};

} // namespace

TEST(inp_DistributionTables, RowsAgreeWithThemselvesAndWithTheLabels)
{
  inp_DistributionTableDB db;
  db.initializeValidDistTables();
  std::vector<UseRow> const rows = UseRow::All();
  EXPECT_EQ(27U, rows.size());
  std::set<int> types;
  for (UseRow const& row : rows)
  {
    types.insert(row.type);
    int components = 0;
    for (inp_distTableLabelEnum const label : row.Labels())
      components += db.getdistTableLabelEnumSize(label);
    EXPECT_EQ(row.numComponents, components) << "type " << row.type;
    // One row says more than it needs.
    EXPECT_EQ(row.type == 12 ? 7U : static_cast<std::size_t>(row.numLabels), row.written.size())
      << "type " << row.type;
  }
  EXPECT_EQ(26U, types.size());
  EXPECT_EQ(1, *types.begin());
  EXPECT_EQ(26, *types.rbegin());
}

TEST_F(inp_DistributionTableDB_, EveryUseTakesItsOwnListAndNoOther)
{
  for (UseRow const& row : UseRow::All())
  {
    std::vector<inp_distTableLabelEnum> labels = row.Labels();
    std::string const name = "USE-" + std::to_string(row.type);
    Declare(name.c_str(), labels);
    EXPECT_EQ(0, Validate(row.type, name.c_str())) << name;

    labels.back() = inp_distLabelUndefined;
    Declare((name + "-ODD").c_str(), labels);
    EXPECT_EQ(4, Validate(row.type, (name + "-ODD").c_str())) << name;

    labels.push_back(inp_distLabelUndefined);
    Declare((name + "-LONG").c_str(), labels);
    EXPECT_EQ(3, Validate(row.type, (name + "-LONG").c_str())) << name;
  }
}

TEST_F(inp_DistributionTableDB_, ValidationNamesTheFirstFault)
{
  Declare("POINTS", {inp_distLabelCoord3D, inp_distLabelDisp3D});
  Declare("HALF", {inp_distLabelCoord3D, inp_distLabelAngle});
  Declare("POINT", {inp_distLabelCoord3D});
  Declare("NONE", {});
  struct
  {
    int type;
    char const* name;
    int result;
  } const cases[] = {
    {7, "\"POINTS\"", 0}, {7, "HALF", 4}, {7, "POINT", 3},  {26, "POINT", 0},  {7, "NONE", 3},
    {7, "points", 2},     {7, "", 2},     {0, "POINTS", 1}, {-7, "POINTS", 1}, {27, "NOWHERE", 1},
  };
  for (auto const& c : cases)
    EXPECT_EQ(c.result, Validate(c.type, c.name)) << c.type << " " << c.name;

  db.initializeValidDistTables();
  EXPECT_EQ(0, Validate(inp_distTypeCoordinateSystem, "POINTS"));
  inp_DistributionTableDB bare;
  EXPECT_EQ(1, bare.validateDistTable(inp_distTypeCoordinateSystem, "POINTS"));
}

TEST_F(inp_DistributionTableDB_, DeclaresANameOnceWithOrWithoutQuotes)
{
  inp_distTableLabelEnum labels[] = {inp_distLabelModulus, inp_distLabelRatio};
  EXPECT_EQ(0, db.addDistTables("\"MY TABLE\"", 2, 2, labels));
  EXPECT_NE(0, db.addDistTables("MY TABLE", 1, 6, labels));
  EXPECT_EQ(1, db.getNumberDistTable());
  labels[0] = inp_distLabelAngle; // the table has labels of its own
  EXPECT_EQ(0, Validate(9, "MY TABLE"));

  int found = -1;
  EXPECT_EQ(2, db.getDistTableSize("MY TABLE", found));
  EXPECT_EQ(1, found);
  EXPECT_EQ(2, db.getNumComponentsDistTable("\"MY TABLE\"", found));
  EXPECT_EQ(1, found);
  EXPECT_EQ(0, db.getDistTableSize("NOWHERE", found));
  EXPECT_EQ(0, found);
  found = -1;
  EXPECT_EQ(0, db.getNumComponentsDistTable("NOWHERE", found));
  EXPECT_EQ(0, found);

  db.setTableSize("T", 3); // recorded, not declared; the first size stands
  db.setTableSize("\"T\"", 2);
  EXPECT_EQ(3, db.getTableSize("T"));
  EXPECT_EQ(3, db.getTableSize("\"T\""));
  EXPECT_EQ(0, db.getDistTableSize("T", found));
}

TEST_F(inp_DistributionTableDB_, BeginsAnewWithEachDeck)
{
  for (int deck = 0; deck < 2; ++deck)
  {
    Declare("A", {inp_distLabelAngle});
    Declare("AXES", {inp_distLabelCoord3D, inp_distLabelCoord3D});
    EXPECT_EQ(2, db.getNumberDistTable());
    EXPECT_EQ(0, Validate(inp_distTypeCoordinateSystem, "AXES"));
    db.setTableSize("A", 3 + deck);
    EXPECT_EQ(3 + deck, db.getTableSize("A"));
    db.forgetDistTables();
    EXPECT_EQ(0, db.getNumberDistTable());
    EXPECT_EQ(2, Validate(inp_distTypeCoordinateSystem, "AXES"));
    EXPECT_EQ(0, db.getTableSize("A"));
  }
}

TEST_F(inp_DistributionTableDB_, KnowsColumnsByNameInEitherCase)
{
  struct
  {
    char const* name;
    int label, components;
  } const cases[] = {
    {"COORD3D", 2, 3},   {"disp3d", 2, 3}, {"OriTens", 7, 6}, {"SHELLSTIFF3", 11, 1},
    {"UNDEFINED", 0, 1}, {"COORD", 0, 1},  {"", 0, 1},
  };
  for (auto const& c : cases)
  {
    inp_distTableLabelEnum const label = db.getTableLabelID(c.name);
    EXPECT_EQ(c.label, label) << c.name;
    EXPECT_EQ(c.components, db.getdistTableLabelEnumSize(label)) << c.name;
  }
  EXPECT_EQ(0, db.getdistTableLabelEnumSize(static_cast<inp_distTableLabelEnum>(12)));
  EXPECT_EQ(0, db.getdistTableLabelEnumSize(static_cast<inp_distTableLabelEnum>(-1)));
}

TEST(inp_DistributionTableDB_OfAThread, IsItsOwnAndGoesWithIt)
{
  inp_DistributionTableDB& mine = thr_ThreadSingleton<inp_DistributionTableDB>::Instance();
  mine.setTableSize("MINE", 4);
  EXPECT_EQ(9, mine.DestructLevel());
  int elsewhere = -1;
  std::thread(
    [&elsewhere]
    { elsewhere = thr_ThreadSingleton<inp_DistributionTableDB>::Instance().getTableSize("MINE"); })
    .join();
  EXPECT_EQ(0, elsewhere);
  thr_ThreadSingleton<inp_DistributionTableDB>::Finalize();
  EXPECT_EQ(0, thr_ThreadSingleton<inp_DistributionTableDB>::Instance().getTableSize("MINE"));
}
