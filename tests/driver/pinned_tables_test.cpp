#include "TableChecksum.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace
{

struct Table
{
  char const* file;
  char const* checksum;
  void (*read)(TableChecksum& sum);
};

// These rows were held against the manual. When you change one on purpose, put the new number here.
Table const tables[] = {
#define TABLE "inpM_Messages.def"
#define SUM "b079b0505be0947c"
#include "PinnedTable.def"
#define TABLE "inp_DistributionReferences.def"
#define SUM "838dd7f322edfb28"
#include "PinnedTable.def"
#define TABLE "inp_DistributionTables.def"
#define SUM "507f5fcce664d0b1"
#include "PinnedTable.def"
#define TABLE "inp_ElementMessages.def"
#define SUM "6fd326d0f37c1853"
#include "PinnedTable.def"
#define TABLE "inp_ElementTypes.def"
#define SUM "513c1daca8fbecdf"
#include "PinnedTable.def"
#define TABLE "inp_ExpansionMessages.def"
#define SUM "c53e35db3b89a541"
#include "PinnedTable.def"
#define TABLE "inp_ExpansionRules.def"
#define SUM "9d5d14719e99859a"
#include "PinnedTable.def"
#define TABLE "inp_FurtherReferences.def"
#define SUM "7157b58fce18a058"
#include "PinnedTable.def"
#define TABLE "inp_GenerationMessages.def"
#define SUM "a0be89d4c14c888e"
#include "PinnedTable.def"
#define TABLE "inp_Keywords.def"
#define SUM "120dc611604b64c1"
#include "PinnedTable.def"
#define TABLE "inp_LevelMessages.def"
#define SUM "050965420051841d"
#include "PinnedTable.def"
#define TABLE "inp_MaterialReferences.def"
#define SUM "875e460bd0296429"
#include "PinnedTable.def"
#define TABLE "inp_MeshMessages.def"
#define SUM "4047c77694ad8204"
#include "PinnedTable.def"
#define TABLE "inp_ModelMessages.def"
#define SUM "c79063653d6e39c6"
#include "PinnedTable.def"
#define TABLE "inp_NameKinds.def"
#define SUM "f0f05df216e8a18f"
#include "PinnedTable.def"
#define TABLE "inp_OrganizerMessages.def"
#define SUM "78af002748995ecf"
#include "PinnedTable.def"
#define TABLE "inp_OrientationReferences.def"
#define SUM "51a959382d8bf2cb"
#include "PinnedTable.def"
#define TABLE "inp_PartMessages.def"
#define SUM "8416c86702fdea32"
#include "PinnedTable.def"
#define TABLE "inp_PipelineMessages.def"
#define SUM "88d8ccde5881026b"
#include "PinnedTable.def"
#define TABLE "inp_ReaderMessages.def"
#define SUM "d28d5f909e43a6b1"
#include "PinnedTable.def"
#define TABLE "inp_RecordMessages.def"
#define SUM "066a661335f4af70"
#include "PinnedTable.def"
#define TABLE "inp_ReferenceMessages.def"
#define SUM "2750e56728ef90ae"
#include "PinnedTable.def"
#define TABLE "inp_SetDefinitions.def"
#define SUM "29d3c9628ad4a09f"
#include "PinnedTable.def"
#define TABLE "inp_SetReferences.def"
#define SUM "296effb93a1edd1f"
#include "PinnedTable.def"
#define TABLE "inp_Suboptions.def"
#define SUM "14d9ac13dc67fdb8"
#include "PinnedTable.def"
#define TABLE "inp_SurfaceMessages.def"
#define SUM "616373b4eb263956"
#include "PinnedTable.def"
#define TABLE "inp_SurfaceReferences.def"
#define SUM "3c7c359909555964"
#include "PinnedTable.def"
#define TABLE "inp_VisitorSlots.def"
#define SUM "95e379a7f2410718"
#include "PinnedTable.def"
};

} // namespace

TEST(PinnedTables, HoldTheRowsThatWereChecked)
{
  for (Table const& table : tables)
  {
    TableChecksum sum;
    table.read(sum);
    EXPECT_EQ(sum.Text(), table.checksum)
      << "the rows of " << table.file << " have changed; if that is meant, the new number is "
      << sum.Text();
  }
}

TEST(PinnedTables, AreAllOfTheTree)
{
  namespace fs = std::filesystem;
  std::set<std::string> found, pinned{"inp_PlaceHandlers.def"}; // no rows, but what becomes of them
  for (Table const& table : tables)
    pinned.insert(table.file);
  for (char const* folder : {"VRXI2sInp2Sim", "VRXAspAnalysisSupport", "base", "tables", "geometry",
                             "service", "driver"})
    for (auto const& entry :
         fs::recursive_directory_iterator(fs::path(INPDECK_SOURCE_DIR) / folder))
      if (entry.path().extension() == ".def")
        found.insert(entry.path().filename());
  EXPECT_EQ(found, pinned);
}

TEST(PinnedTables, AChecksumTellsRowsApart)
{
  auto const sumOf = [](std::initializer_list<char const*> rows)
  {
    TableChecksum sum;
    for (char const* row : rows)
      sum.Row("ROW", row);
    return sum.Text();
  };
  EXPECT_EQ(sumOf({"A, \"b\", 1"}), sumOf({"A,\"b\",  1"}));
  std::set<std::string> const sums{sumOf({"A", "B"}),  sumOf({"B", "A"}),    sumOf({"AB"}),
                                   sumOf({"\"a b\""}), sumOf({"\"ab\""}),    sumOf({"A(1)"}),
                                   sumOf({"A(2)"}),    sumOf({"\"\\\" \""}), sumOf({})};
  EXPECT_EQ(sums.size(), 9u);
}
