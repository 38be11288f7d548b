#include "srv_DistributionTables.h"

#include "DeckFiles.h"
#include "inp_DistributionTableDB.h"
#include "inp_InputFile.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

inp_DistributionTableDB& Tables()
{
  return thr_ThreadSingleton<inp_DistributionTableDB>::Instance();
}

/// "labels/components use", the use being 0 for the columns of a coordinate system.
std::string Declared(char const* name)
{
  int found = 0;
  int const labels = Tables().getDistTableSize(name, found);
  int const components = Tables().getNumComponentsDistTable(name, found);
  int const use = Tables().validateDistTable(inp_distTypeCoordinateSystem, name);
  return std::to_string(labels) + "/" + std::to_string(components) + " " + std::to_string(use);
}

/// Takes a deck as far as its tables are known.
void Read(std::string const& deck)
{
  DeckFiles const files;
  files.Write("deck.inp", deck);
  inp_InputFile input;
  input.Parse(files.Path("deck.inp").c_str());
  input.ExpandKeywords();
  srv_DeclareDistributionTables(input.keywords);
  input.setModelParameters();
}

} // namespace

TEST(srv_DistributionTables, AreThoseOfTheDeckThatWasReadLast)
{
  Read("*DISTRIBUTION TABLE, NAME=AXES\nCOORD3D, coord3d\n"
       "*DISTRIBUTION TABLE, NAME=ODD\nCOORD3D, WIDTH\n"
       "*DISTRIBUTION TABLE, NAME=LONG\nRATIO, RATIO, RATIO, RATIO, RATIO, RATIO, RATIO, RATIO\n"
       "ANGLE, , ANGLE\n");
  EXPECT_EQ(3, Tables().getNumberDistTable());
  EXPECT_EQ("2/6 0", Declared("AXES"));
  EXPECT_EQ("2/4 4", Declared("ODD")) << "a column of unknown kind is an undefined one";
  EXPECT_EQ("9/9 3", Declared("LONG")) << "a row ends at its first empty field";
  EXPECT_EQ(2, Tables().getTableSize("LONG"));

  Read("*HEADING\n*DISTRIBUTION TABLE, NAME=LONG\nANGLE\n*DISTRIBUTION TABLE, NAME=\"LONG\"\n"
       "RATIO, RATIO\n");
  EXPECT_EQ(1, Tables().getNumberDistTable());
  EXPECT_EQ("0/0 2", Declared("AXES"));
  EXPECT_EQ("1/1 3", Declared("LONG")) << "the first of a name stands";
  EXPECT_EQ(1, Tables().getTableSize("LONG"));
}
