#include "CapturingSink.h"
#include "DeckKeywords.h"
#include "KeywordText.h"
#include "inp_InputFile.h"
#include "inp_OrganizerVisitor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace
{

/// A line a keyword, what is nested below it behind it.
std::string Listed(cow_List<inp_Keyword> const& keywords)
{
  std::string text;
  for (inp_Keyword const& keyword : keywords)
    text += KeywordText(keyword) + "\n" + Listed(keyword.suboptions);
  return text;
}

/// The deck's keywords, a line each, behind the expansion and a further stage.
template <class Stage>
std::string Behind(Stage stage, std::string const& deck)
{
  CapturingSink sink;
  inp_InputFile file;
  file.keywords = DeckKeywords(deck);
  file.ExpandKeywords();
  file.setModelParameters();
  EXPECT_THAT(sink.Lines(), testing::IsEmpty()) << deck;
  stage(file);
  EXPECT_THAT(sink.Lines(), testing::IsEmpty()) << deck;
  return Listed(file.keywords);
}

std::string WithoutPeriods(std::string const& deck)
{
  return Behind([](inp_InputFile& file) { file.RemovePeriods(false); }, deck);
}

std::string Unscoped(std::string const& deck)
{
  auto const stage = [](inp_InputFile& file)
  {
    inp_OrganizerVisitor organizer(true);
    organizer.VisitList(file.keywords);
    file.keywords = organizer.Keywords();
    EXPECT_FALSE(organizer.IsError()) << organizer.Errors().View();
    file.ModifyScopedNames();
  };
  return Behind(stage, deck);
}

} // namespace

TEST(inp_InputFileNames, PeriodsGoFromDefinitionsAndReferences)
{
  EXPECT_EQ(WithoutPeriods("*NODE, NSET=N.1\n1, 0., 0., 0.\n"
                           "*ELEMENT, TYPE=MASS, ELSET=a.b\n1, 1\n"
                           "*ELSET, ELSET=C.D\n1, a.b\n"
                           "*NCOPY, OLDSET=N.1, NEWSET=N.2, CHANGENUMBER=10, SHIFT\n"
                           "*NFILL, NSET=N.3\nN.1, \"N.2\", 3\n"
                           "*SOLID SECTION, ELSET=A.B, MATERIAL=STEEL, ORIENTATION=O.1\n1.5\n"
                           "*ORIENTATION, NAME=O.1\n1., 0., 0., 0., 1., 0.\n"
                           "*SURFACE, NAME=S.T, TYPE=ELEMENT\n A.B , S1\n"
                           "*SURFACE, NAME=\"Q.R\", TYPE=ELEMENT\n\"a.B\", S1\n"
                           "*CONTACT PAIR, INTERACTION=I\nS.T, \"Q.R\"\n"
                           "*STEP, NAME=S\n*BOUNDARY\nn.1, 1, 1, 0.5\n"
                           "*ADAPTIVE MESH CONSTRAINT\nN.1, 1, 1, 0.5\n*END STEP\n"),
            "node nset=N_1: 1|0.|0.|0.|0.|0.|0.\n"
            "element elset=A_B, type=MASS: 1|1\n"
            "elset elset=C_D: 1|A_B\n"
            "ncopy changenumber=10, newset=N_2, oldset=N_1, shift\n"
            "nfill nset=N_3: N_1|\"N.2\"|3\n"
            "solidsection elset=A_B, material=STEEL, orientation=O_1: 1.5\n"
            "orientation name=O_1: 1.|0.|0.|0.|1.|0.\n"
            "surface name=S_T, type=ELEMENT: A_B|S1\n"
            "surface name=\"Q.R\", type=ELEMENT: \"a.B\"|S1\n"
            "contactpair interaction=I: S_T|\"Q.R\"\n"
            "step name=S\n"
            "boundary: N_1|1|1|0.5\n"
            "adaptivemeshconstraint: N_1|1|1|0.5\n" // a number among the names stays
            "endstep\n");
}

// Names whose definitions stay: materials and distribution tables.
TEST(inp_InputFileNames, DefinitionsAndReferencesLoseTheirPeriodsAlike)
{
  EXPECT_EQ(WithoutPeriods("*ELEMENT, TYPE=MASS, ELSET=A.B\n1, 1\n"
                           "*NSET, NSET=N, ELSET=A.B\n"
                           "*DISTRIBUTION TABLE, NAME=T.1\nLENGTH, LENGTH\n"
                           "*DISTRIBUTION, NAME=D.1, LOCATION=ELEMENT, TABLE=T.1\n"
                           ", 1., 1.\nA.B, 2., 1.\n"
                           "*MATERIAL, NAME=M.1\n*DENSITY\nD.1\n"
                           "*SOLID SECTION, ELSET=A.B, MATERIAL=M.1\n"
                           "*EULERIAN SECTION, ELSET=A.B\nM.1, M.1_I, O.1\n"
                           "*INITIAL CONDITIONS, TYPE=VOLUME FRACTION\nA.B, M.1, 1.\n"
                           "*PARTICLE GENERATOR, NAME=G.1, TYPE=PC3D\n"
                           "*PARTICLE GENERATOR FLOW, GENERATOR=G.1\n"),
            "element elset=A_B, type=MASS: 1|1\n"
            "nset elset=A_B, nset=N\n"
            "distributiontable name=T.1: LENGTH|LENGTH\n"
            "distribution location=ELEMENT, name=D_1, table=T.1: |1.|1. / A_B|2.|1.\n"
            "material name=M.1\n"
            "density: D_1\n"
            "solidsection elset=A_B, material=M.1\n"
            "euleriansection elset=A_B: M.1|M.1_I|O_1\n"
            "initialconditions type=VOLUMEFRACTION: A_B|M.1|1.\n"
            "particlegenerator name=G_1, type=PC3D\n"
            "particlegeneratorflow generator=G_1\n");
}

TEST(inp_InputFileNames, TheAssemblysNameGoesFromNamesOfTheModel)
{
  EXPECT_EQ(Unscoped("*PART, NAME=P\n*NSET, NSET=S\n1\n*END PART\n"
                     "*ASSEMBLY, NAME=Assy\n*INSTANCE, NAME=P-1, PART=P\n*END INSTANCE\n"
                     "*TIE, NAME=T, TIEDNSET=ASSY.P-1.S\nASSY.S, ASSY.T\n*END ASSEMBLY\n"
                     "*NSET, NSET=ALL\nassy.P-1.7, 8\n"
                     "*NSET, NSET=OF, ELSET=Assy.E\n"
                     "*NSET, NSET=RUN, GENERATE\nAssy.P-1.1, Assy.P-1.5, 2\n"
                     "*STEP, NAME=S\n"
                     "*BOUNDARY\nAssy.P-1.S, 1\nOther.S, 1\nP-1.S, 1\nASSY, 1\n"
                     "*DSLOAD\nAssy.TOP, P, 1.\n"
                     "*OUTPUT, FIELD\n*NODE OUTPUT, NSET=Assy.P-1.S\nU\n*END STEP\n"),
            "part name=P\n"
            "nset nset=S: 1\n"
            "endpart\n"
            "assembly name=ASSY\n"
            "instance name=P-1, part=P\n"
            "endinstance\n"
            "tie name=T, tiednset=ASSY.P-1.S: ASSY.S|ASSY.T\n" // within the assembly they stay
            "endassembly\n"
            "nset nset=ALL: P-1.7|8\n"
            "nset elset=E, nset=OF\n"
            "nset generate, nset=RUN: P-1.1|P-1.5|2\n"
            "step name=S\n"
            "boundary: P-1.S|1 / Other.S|1 / P-1.S|1 / ASSY|1\n"
            "dsload: TOP|P|1.\n"
            "output field\n"
            "nodeoutput nset=P-1.S: U\n"
            "endstep\n");
}

TEST(inp_InputFileNames, OnlyTheFirstAssemblyCountsAndNoneIsNothing)
{
  EXPECT_EQ(Unscoped("*STEP, NAME=S\n*BOUNDARY\nASSY.S, 1\n.S, 1\n*END STEP\n"),
            "step name=S\nboundary: ASSY.S|1 / S|1\nendstep\n");
}
