#include "LevelDeck.h"
#include "inp_CropDefinition.h"
#include "inp_SurfaceVisitor.h"

#include <gtest/gtest.h>

namespace
{

// Three cubes in a row along x, with sets; keywords of a test go behind.
std::string InPart(std::string const& keywords)
{
  std::string nodes;
  for (int x = 0; x < 4; ++x)
    for (int corner = 0; corner < 4; ++corner)
      nodes += std::to_string(10 * x + corner + 1) + ", " + std::to_string(x) + ", " +
               std::to_string(corner == 1 || corner == 2) + ", " + std::to_string(corner / 2) +
               "\n";
  return "*PART, NAME=BAR\n*NODE\n" + nodes +
         "*ELEMENT, TYPE=C3D8, ELSET=ALL\n"
         "1, 1, 2, 3, 4, 11, 12, 13, 14\n"
         "2, 11, 12, 13, 14, 21, 22, 23, 24\n"
         "3, 21, 22, 23, 24, 31, 32, 33, 34\n"
         "*ELSET, ELSET=ENDS\n1, 3\n*ELSET, ELSET=MIXED, UNSORTED\n3, 1, 3\n"
         "*NSET, NSET=LEFT\n1, 2, 3, 4\n*NSET, NSET=EDGE\n1, 11, 21, 31\n" +
         keywords + "*END PART\n";
}
constexpr int c_firstLine = 31; // of what a test puts into the part

std::string InAssembly(std::string const& keywords)
{
  return InPart("*SURFACE, NAME=CAPS\nENDS, S1\n") +
         "*ASSEMBLY, NAME=A\n"
         "*INSTANCE, NAME=I-1, PART=BAR\n*END INSTANCE\n"
         "*INSTANCE, NAME=I-2, PART=BAR\n10., 0., 0.\n*END INSTANCE\n"
         "*NODE\n7, 5., 0., 0.\n8, 6., 0., 0.\n"
         "*NSET, NSET=OWN\n7, 8, I-1.1\n*ELSET, ELSET=BOTH\nI-1.ENDS, I-2.2\n" +
         keywords + "*END ASSEMBLY\n";
}

std::string Line(int line, std::string const& words) { return std::to_string(line) + words + "\n"; }

} // namespace

TEST(inp_SurfaceVisitor, ReadsRowsOfAPart)
{
  DeckCase const cases[] = {
    {"elements unless said otherwise", "*SURFACE, NAME=S\nENDS, S1\n2, S2\n3, S2\n",
     "S {S1: 1 3, S2: 2 3}", ""},
    {"order and repeats of a set stay, a set that stands twice comes once",
     "*SURFACE, NAME=S, TYPE=ELEMENT\nMIXED, S1\nMIXED, SPOS\nMIXED, S1\n",
     "S {S1: 3 1 3, SPOS: 3 1 3}", ""},
    {"no face, and blank rows", "*SURFACE, NAME=S\nENDS\n\n , S1\n2,\n", "S {: 1 3 2}", ""},
    {"areas are real numbers, or 1", "*SURFACE, NAME=S, TYPE=NODE\nLEFT, 2.5\n2, 4.\n11\n21, 3\n",
     "S {1=2.5 2=4.0 3=2.5 4=2.5 11=1.0 21=1.0}", ""},
    {"a later area stands", "*SURFACE, NAME=S, TYPE=NODE\nEDGE, 2.\nLEFT, 3.\nEDGE, 2.\n",
     "S {1=2.0 2=3.0 3=3.0 4=3.0 11=2.0 21=2.0 31=2.0}", ""},
    {"the first row of a cutting surface is its plane",
     "*SURFACE, NAME=S, TYPE=CUTTINGSURFACE\n0., 0., 0., 1., 0., 0.\nENDS\n", "S {: 1 3}", ""},
    {"the last definition stands", "*SURFACE, NAME=S\n1, S1\n*SURFACE, NAME=S, TYPE=NODE\n7\n",
     "S {7=1.0}", ""},
    {"analytical surfaces are not meshed", "*SURFACE, NAME=S, TYPE=CYLINDER\nSTART, 0., 0.\n", "",
     ""},
    {"materials are no sets", "*SURFACE, NAME=S, TYPE=EULERIANMATERIAL\nWATER\n", "S {}", ""},
    {"what is missing is listed once, in order",
     "*SURFACE, NAME=S\nNONE, S1\n1, S1\nLEFT, S1\nNONE, S2\n0, S1\n1234567890, S1\n", "S {S1: 1}",
     Line(c_firstLine, " error: The following sets were not found when generating the surface S:\n"
                       "    NONE, LEFT, 0, 1234567890")},
    {"sets of a few bytes may hold more than a list",
     "*ELSET, ELSET=ALL, GENERATE\n1, 60000000\n*SURFACE, NAME=S\nALL, S1\n1, S1\n", "S {S1: 1}",
     Line(c_firstLine + 2, " error: The following sets hold more ids than can be added to the "
                           "surface S. They are left out:\n    ALL")},
  };
  for (DeckCase const& c : cases)
  {
    LevelDeck const deck(InPart(c.deck));
    EXPECT_EQ(c.made, deck.PartSurfaces("BAR")) << c.what;
    EXPECT_EQ(c.messages, deck.messages) << c.what;
  }
}

TEST(inp_SurfaceVisitor, CombinesSurfacesOfAPart)
{
  std::string const given =
    "*SURFACE, NAME=A\nALL, S1\n1, S2\n*SURFACE, NAME=B\nENDS, S1\n"
    "*SURFACE, NAME=N, TYPE=NODE\nLEFT\n*SURFACE, NAME=M, TYPE=NODE\nEDGE, 2.\n";
  DeckCase const cases[] = {
    {"union is the default, and names each face once", "*SURFACE, NAME=C, COMBINE=UNION\nA, B, A\n",
     "C {S1: 1 2 3, S2: 1}", ""},
    {"difference over rows", "*SURFACE, NAME=C, COMBINE=DIFFERENCE\nA\nB, B\n", "C {S1: 2, S2: 1}",
     ""},
    {"intersection", "*SURFACE, NAME=C, COMBINE=INTERSECTION\nA, B\n", "C {S1: 1 3}", ""},
    {"nothing is left, and kept", "*SURFACE, NAME=C, COMBINE=DIFFERENCE\nA, A\n", "C {}", ""},
    {"the first gives the kind", "*SURFACE, NAME=C, COMBINE=UNION\nN, M\n",
     "C {1=2.0 2=1.0 3=1.0 4=1.0 11=2.0 21=2.0 31=2.0}", ""},
    {"missing ones are listed", "*SURFACE, NAME=C, COMBINE=DIFFERENCE\nX, A, Y, B\n",
     "C {S1: 2, S2: 1}",
     Line(c_firstLine + 9, " error: The following surfaces were not found when generating the "
                           "combined surface C:\n    X, Y")},
  };
  std::string const before = "A {S1: 1 2 3, S2: 1} B {S1: 1 3} ";
  std::string const after = " M {1=2.0 11=2.0 21=2.0 31=2.0} N {1=1.0 2=1.0 3=1.0 4=1.0}";
  for (DeckCase const& c : cases)
  {
    LevelDeck const deck(InPart(given + c.deck));
    EXPECT_EQ(before + c.made + after, deck.PartSurfaces("BAR")) << c.what;
    EXPECT_EQ(c.messages, deck.messages) << c.what;
  }
}

// Each keyword may copy whole surfaces, and a deck may have as many as it has lines.
TEST(inp_SurfaceVisitor, CombinesNoMoreThanAWalkMay)
{
  class Walk : public inp_PartSurfaceVisitor
  {
  public:
    using inp_PartSurfaceVisitor::inp_PartSurfaceVisitor;
    using inp_SurfaceVisitor::copiesLeft;
  };
  std::string const ab = ", COMBINE=UNION\nA, B\n";
  LevelDeck deck(
    InPart("*SURFACE, NAME=A\nALL, S1\n1, S2\n*SURFACE, NAME=B\nENDS, S1\n*SURFACE, NAME=U" + ab +
           "*SURFACE, NAME=V" + ab +
           "*SURFACE, NAME=D, COMBINE=DIFFERENCE\nA, B\n"
           "*SURFACE, NAME=I, COMBINE=INTERSECTION\nB, A\n"
           "*SURFACE, NAME=ONE, COMBINE=UNION\nA, A\n*SURFACE, NAME=W" +
           ab));
  Walk walk(deck.parts);
  walk.copiesLeft = 24;
  walk.VisitList(deck.list);
  EXPECT_EQ(SurfacesText(walk.GetSurfaces().ConstGetPartInstanceSurfaceMap("BAR")),
            "A {S1: 1 2 3, S2: 1} B {S1: 1 3} D {S1: 2, S2: 1} I {S1: 1 3} ONE {S1: 1 2 3, S2: 1} "
            "U {S1: 1 2 3, S2: 1} V {S1: 1 2 3, S2: 1} W {S1: 1 2 3, S2: 1}");
  EXPECT_EQ(
    walk.Errors().View().substr(walk.Errors().View().find(": ")),
    ": The following surfaces hold more than can be added to the combined surface W. They are left "
    "out:\n    B\n");
  EXPECT_EQ(walk.copiesLeft, 0);
}

TEST(inp_SurfaceVisitor, ReadsRowsOfTheAssembly)
{
  int const line = 47;
  DeckCase const cases[] = {
    {"sets and labels of instances",
     "*SURFACE, NAME=S, INTERNAL\nI-1.ENDS, S1\nI-2.ENDS, S1\nI-1.2, S1\n",
     "S: internal I-1 {S1: 1 3 2} I-2 {S1: 1 3}\n", ""},
    {"a set of the assembly", "*SURFACE, NAME=S\nBOTH, S2\n", "S: I-1 {S2: 1 3} I-2 {S2: 2}\n", ""},
    {"own nodes", "*SURFACE, NAME=S, TYPE=NODE\nOWN, 2.\n8, 3.\nI-2.EDGE\n",
     "S: I-1 {1=2.0} I-2 {1=1.0 11=1.0 21=1.0 31=1.0} own {7=2.0 8=3.0}\n", ""},
    {"elements of the assembly have no plain labels", "*SURFACE, NAME=S\n8, S1\n", "S:\n",
     Line(line, " error: The following sets were not found when generating the surface S:\n    8")},
    {"what cannot be found",
     "*SURFACE, NAME=S\nJ.ENDS, S1\nJ.5, S1\nI-1.NONE, S1\nNONE, S1\nI-2.1, S1\n",
     "S: I-2 {S1: 1}\n",
     Line(line, " error: Invalid part instance label \"J\"") +
       Line(line, " error: The following sets were not found when generating the surface S:\n"
                  "    I-1.NONE, NONE")},
    {"analytical surfaces belong into parts", "*SURFACE, NAME=S, TYPE=SEGMENTS\nSTART, 0., 0.\n",
     "",
     Line(line, " error: When the *SURFACE option is used to define an analytical surface,  it can "
                "only appear within a part (or part instance) definition, even if the rigid body "
                "is defined at the assembly level.")},
    {"of the others, whole and piece by piece",
     "*SURFACE, NAME=A\nBOTH, S1\n*SURFACE, NAME=B, COMBINE=DIFFERENCE\nA, I-1.CAPS\n"
     "*SURFACE, NAME=C, COMBINE=INTERSECTION\nI-1.CAPS, A\n*SURFACE, NAME=D, "
     "COMBINE=DIFFERENCE\nA, A\n",
     "A: I-1 {S1: 1 3} I-2 {S1: 2}\nB: I-1 {} I-2 {S1: 2}\nC: I-1 {S1: 1 3}\nD: I-1 {} I-2 {}\n",
     ""},
    {"of others that are missing",
     "*SURFACE, NAME=A, COMBINE=UNION\nI-1.CAPS, I-3.CAPS, X, I-1.X\n", "A: I-1 {S1: 1 3}\n",
     Line(line, " error: The following surfaces were not found when generating the combined "
                "surface A:\n    I-3.CAPS, X, I-1.X")},
  };
  for (DeckCase const& c : cases)
  {
    LevelDeck const deck(InAssembly(c.deck));
    EXPECT_EQ(c.made, deck.AssemblySurfaces()) << c.what;
    EXPECT_EQ(c.messages, deck.messages) << c.what;
    EXPECT_EQ("CAPS {S1: 1 3}", deck.InstanceSurfaces("I-2")) << c.what;
  }
}

TEST(inp_SurfaceVisitor, InstancesOfAPartShareItsSurfaceAndWhatARowTakesFromASet)
{
  LevelDeck const deck(InAssembly("*SURFACE, NAME=S\nI-1.ALL, S1\nI-2.ALL, S1\n"));
  inpM_SurfaceMap const& surfaces = deck.surfaces->GetSurfaces();
  EXPECT_EQ(&surfaces.ConstGetPartInstanceSurface("I-1", "CAPS"),
            &surfaces.ConstGetPartInstanceSurface("I-2", "CAPS"));
  auto const first = [&](char const* instance)
  {
    return &surfaces.ConstGetAssemblyInstanceSurface("S")
              .ConstGetInstance2PartInstanceSurfaceMap()
              .ConstGet(instance)
              .ConstGetFaceIdElementIdsMap()
              .ConstFind("S1")
              ->ConstGet(0);
  };
  EXPECT_EQ(first("I-1"), first("I-2"));
}

TEST(inp_SurfaceVisitor, CropsToABox)
{
  std::string const given =
    "*SURFACE, NAME=A\nALL, S1\nALL, S2\nALL, S9\n99, S1\n*SURFACE, NAME=N, TYPE=NODE\nEDGE\n999\n";
  int const line = c_firstLine + 8;
  char const* const noOrientation = " The orientation of the surface will be ignored.";
  std::string const all = "S1: 1 2 3 99, S2: 1 2 3, S9: 1 2 3";
  DeckCase const cases[] = {
    {"one node in the box keeps the face, what is not known stays",
     "*SURFACE, NAME=C, CROP\nA\n0., 0., 0., 1., 1., 1.\n", "S1: 1 2 99, S2: 1, S9: 1 2 3", ""},
    {"nodes, with the faces of the box", "*SURFACE, NAME=C, CROP\nN\n0., 0., 0., 2., 0., 0.\n",
     "1=1.0 11=1.0 21=1.0 999=1.0", ""},
    {"without a third row the first point plays no part",
     "*SURFACE, NAME=C, CROP\nN\n1.5, 0., 0., 2., 0., 0.\n", "1=1.0 11=1.0 21=1.0 999=1.0", ""},
    {"along own axes: the way along x is the way along the box's y",
     "*SURFACE, NAME=C, CROP\nN\n1., 0., 0., 2., 1., 1.\n1., 0., 0., 0., 2., 0.\n",
     "11=1.0 21=1.0 999=1.0", ""},
    {"one row", "*SURFACE, NAME=C, CROP\nA\n", "", ""},
    {"no such surface", "*SURFACE, NAME=C, CROP\nX\n0., 0., 0., 1., 1., 1.\n", "",
     Line(line, " error: The following surfaces were not found when generating the combined "
                "surface C:\n    X")},
    {"a point at the origin",
     "*SURFACE, NAME=C, CROP\nA\n0., 0., 0., 1., 1., 1.\n0., 0., 0., 0., 1.\n", "",
     Line(line, std::string(" warning: untitled: Neither of the points a and b defined under "
                            "cropped surface C are allowed to be defined at the origin.") +
                  noOrientation)},
    {"the same unit vector", "*SURFACE, NAME=C, CROP\nA\n0., 0., 0., 1., 1., 1.\n2., 0., 0., 1.\n",
     "",
     Line(line, std::string(" warning: untitled: Points a and b defined under cropped surface C "
                            "should not have the same coordinates.") +
                  noOrientation)},
    {"a dot product of 1",
     "*SURFACE, NAME=C, CROP\nA\n0., 0., 0., 1., 1., 1.\n3., 0., 0., 1., 5.\n", "",
     Line(line,
          std::string(
            " warning: untitled: Points a, b and the origin of cropped surface C should not lie on "
            "a straight line. A unique coordinate system for the orientation cannot be found.") +
            noOrientation)},
  };
  for (DeckCase const& c : cases)
  {
    LevelDeck const deck(InPart(given + c.deck));
    EXPECT_EQ("A {" + all + "} C {" + c.made + "} N {1=1.0 11=1.0 21=1.0 31=1.0 999=1.0}",
              deck.PartSurfaces("BAR"))
      << c.what;
    EXPECT_EQ(c.messages, deck.messages) << c.what;
  }
}

TEST(inp_SurfaceVisitor, CropsInstancesWhereTheyStand)
{
  LevelDeck const deck(InAssembly("*SURFACE, NAME=N, TYPE=NODE\nI-1.EDGE\nI-2.EDGE\nOWN\n"
                                  "*SURFACE, NAME=C, CROP\nN\n0., 0., 0., 11., 0., 0.\n"
                                  "*SURFACE, NAME=E\nI-1.ALL, S2\nI-2.ALL, S2\n"
                                  "*SURFACE, NAME=F, CROP\nE\n0., 0., 0., 11., 1., 1.\n"
                                  "*SURFACE, NAME=G, CROP\nI-2.CAPS\n0., 0., 0., 11., 1., 1.\n"));
  EXPECT_EQ(
    "C: I-1 {1=1.0 11=1.0 21=1.0 31=1.0} I-2 {1=1.0 11=1.0} own {7=1.0 8=1.0}\n"
    "E: I-1 {S2: 1 2 3} I-2 {S2: 1 2 3}\n"
    "F: I-1 {S2: 1 2 3} I-2 {S2: 1}\n"
    "G: I-2 {S1: 1}\n"
    "N: I-1 {1=1.0 11=1.0 21=1.0 31=1.0} I-2 {1=1.0 11=1.0 21=1.0 31=1.0} own {7=1.0 8=1.0}\n",
    deck.AssemblySurfaces());
  EXPECT_EQ("", deck.messages);
}
