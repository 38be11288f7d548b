// What each kind of place makes of a deck: the whole rewritten keyword, see ReferenceMarks.h.

#include "ReferenceMarks.h"
#include "inp_DistributionTableDB.h"

#include <gtest/gtest.h>

namespace
{

struct Case
{
  char const* deck;
  char const* marked;
};

template <std::size_t Size>
void Check(Case const (&cases)[Size], inp_ModelParameters const& model = {})
{
  for (Case const& c : cases)
  {
    EXPECT_EQ(c.marked, Marked(c.deck, model)) << c.deck;
  }
}

} // namespace

TEST(references, Parameters)
{
  Case const cases[] = {
    {"*MONITOR, NODE=7, DOF=1\n", "monitor dof=1, node=7#N"},
    {"*ADJUST, NODESET=N, SURFACE=S, ORIENTATION=O\n",
     "adjust nodeset=N#N, orientation=O#O, surface=S#S"},
    {"*SHELL SECTION, ELSET=E, ORIENTATION=\"a b\", OFFSET=D\n0.5\n",
     "shellsection elset=E#E, offset=D#D, orientation=\"a b\"#O: 0.5"},
    {"*SHELL SECTION, OFFSET=0.5\n", "shellsection offset=0.5"},
    {"*RIGID BODY, REFNODE=1.5, PINNSET=N\n", "rigidbody pinnset=N#N, refnode=1.5"},
    {"*RIGID BODY, REFNODE=15, TIENSET=N, ELSET=E, ANALYTICALSURFACE=S\n",
     "rigidbody analyticalsurface=S#S, elset=E#E, refnode=15#N, tienset=N#N"},
    {"*FREQUENCY, NSET=1.5\n", "frequency nset=1.5"},
    {"*CONTACT PAIR, ADJUST=0.1, NSETTIED=N\n", "contactpair adjust=0.1, nsettied=N#N"},
    {"*ORIENTATION, NAME=O\n1., 0., 0.\n3, 0.\n", "orientation name=O#O: 1.|0.|0. / 3|0."},
    {"*FLUID INFLATOR, NAME=F, PROPERTY=P\n7\n", "fluidinflator name=F#O, property=P#O: 7#N"},
  };
  Check(cases);
}

TEST(references, FieldsOfEveryLine)
{
  Case const cases[] = {
    {"*BOUNDARY, ORIENTATION=O\n p-1.15, 1, 3\nseta ,2\n,3\n",
     "boundary orientation=O#O: P-1.15#N|1|3 / SETA#N|2 / |3"},
    {"*BOUNDARY, PHANTOM=EDGE\n1, 2, 3\n", "boundary phantom=EDGE: 1#N|2#N|3"},
    {"*FILM\n5, F1, 20., \"a, b\"\n\"x.y\", F2\n", "film: 5#E|F1|20.|\"a, b\" / \"x.y\"#E|F2"},
    {"*DSLOAD, REFNODE=7\nS, P, 1.\n", "dsload refnode=7#N: S#S|P|1."},
    {"*MPC\nTIE, 1, 2\nSLIDER, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16\n",
     "mpc: TIE|1#N|2#N / "
     "SLIDER|1#N|2#N|3#N|4#N|5#N|6#N|7#N|8#N|9#N|10#N|11#N|12#N|13#N|14#N|15|16"},
    {"*CONTACT PAIR\nS, T, O, 2\nS\n", "contactpair: S#S|T#S|O#O|2 / S#S"},
    {"*STATIC, RIKS, FULLYPLASTIC=E\n1., 1., 1., 1., 1., 7, 2, .5\n",
     "static fullyplastic=E#E, riks: 1.|1.|1.|1.|1.|7#N|2|.5"},
  };
  Check(cases);
}

TEST(references, AllFieldsButBlankOnes)
{
  Case const cases[] = {
    {"*EMBEDDED ELEMENT, HOSTELSET=H\n1, , E\n2\n",
     "embeddedelement hostelset=H#E: 1#E||E#E / 2#E"},
    {"*SUBMODEL, TYPE=SURFACE\nS, T\n", "submodel type=SURFACE: S#S|T"},
    {"*SURFACE, NAME=S, COMBINE=UNION\nA, B, C\n", "surface combine=UNION, name=S#S: A#S|B#S|C#S"},
    {"*ADAPTIVE MESH CONSTRAINT\nN, 2\n", "adaptivemeshconstraint: N#N|2#N"},
    {"*ADAPTIVE MESH CONSTRAINT, CONSTRAINTTYPE=LAGRANGIAN\nN, 2\n",
     "adaptivemeshconstraint constrainttype=LAGRANGIAN: N#N|2"},
    {"*FLUID INFLATOR ACTIVATION\nA, 2, B\n", "fluidinflatoractivation: A#O|2|B#O"},
  };
  Check(cases);
}

TEST(references, LinesOfARecord)
{
  Case const fixed[] = {
    {"*C ADDED MASS\n1\n2\n3\n", "caddedmass: 1#N / 2 / 3#N"},
    {"*FLUID EXCHANGE\nA, B, C\nD, E\n", "fluidexchange: A#N|B#N|C / D|E"},
    {"*FLUID EXCHANGE\n", "fluidexchange"},
    {"*REBAR, ORIENTATION=O, ELEMENT=CONTINUUM, GEOMETRY=SKEW\n1\n2\n3\n",
     "rebar element=CONTINUUM, geometry=SKEW, orientation=O#O: 1#E / 2 / 3#E"},
    {"*REBAR, ELEMENT=CONTINUUM, GEOMETRY=SKEW, SINGLE\n1\n2\n",
     "rebar element=CONTINUUM, geometry=SKEW, single: 1#E / 2#E"},
    {"*CONNECTOR SECTION, ELSET=E\nBEAM\nO, 2\nO\n",
     "connectorsection elset=E#E: BEAM / O#O|2 / O"},
    {"*SECTION CONTROLS, ELEMENTCONVERSION=BACKGROUNDGRID\nA, B\nA, B\nA, B\nA, B\n",
     "sectioncontrols elementconversion=BACKGROUNDGRID: A|B / A|B / A|B / A|B#O"},
    {"*ORIENTATION, DEFINITION=NODES\n1, , N\nD, D\n",
     "orientation definition=NODES: 1#N||N#N / D|D#D"},
    {"*DENSITY\nD, D\nD\n", "density: D#D|D / D"},
    {"*DENSITY\n7.8\n", "density: 7.8"},
    {"*CONSTITUENT\nD, 1., F\n", "constituent: D#D|1.|F#D"},
  };
  Check(fixed);

  inp_ModelParameters model;
  model.numTempPts = 16;
  model.numGaussPts = 8;
  model.numDepVars = 7;
  model.numElemDepVars = 8;
  Case const counted[] = {
    {"*FIELD\n1\n2\n3\n4\n", "field: 1#N / 2 / 3 / 4#N"},
    {"*FIELD, NUMBER=2\n1\n2\n3\n4\n5\n6\n", "field number=2: 1#N / 2 / 3 / 4 / 5 / 6#N"},
    {"*FIELD, NUMBER=-2\n1\n2\n", "field number=-2: 1 / 2"},
    {"*FIELD, NUMBER=2147483647\n1\n2\n", "field number=2147483647: 1#N / 2"},
    {"*FIELD, USER\n1\n2\n", "field user: 1#N / 2#N"},
    {"*TEMPERATURE, DRIVINGELSETS\nE, 1\n", "temperature drivingelsets: E|1#N"},
    {"*INITIAL CONDITIONS, TYPE=SOLUTION\n1\n2\n3\n",
     "initialconditions type=SOLUTION: 1#E / 2 / 3#E"},
    {"*INITIAL CONDITIONS, TYPE=SOLUTION, REBAR\n1\n2\n3\n",
     "initialconditions rebar, type=SOLUTION: 1#E / 2 / 3#E"},
    {"*INITIAL CONDITIONS, TYPE=HARDENING, NUMBERBACKSTRESSES=2\n1\n2\n3\n",
     "initialconditions numberbackstresses=2, type=HARDENING: 1#E / 2 / 3#E"},
    {"*INITIAL CONDITIONS, TYPE=HARDENING, NUMBERBACKSTRESSES=0\n1\n",
     "initialconditions numberbackstresses=0, type=HARDENING: 1"},
  };
  Check(counted, model);
  model.temperatureElms = true; // section points count, not temperature points
  EXPECT_EQ("field: 1#N / 2 / 3#N", Marked("*FIELD\n1\n2\n3\n", model));
}

TEST(references, Distributions)
{
  thr_ThreadSingleton<inp_DistributionTableDB>::Finalize();
  // Under both names: the set visitor comes when the distributions have been marked.
  thr_ThreadSingleton<inp_DistributionTableDB>::Instance().setTableSize("T", 2);
  thr_ThreadSingleton<inp_DistributionTableDB>::Instance().setTableSize("T#D", 2);
  Case const cases[] = {
    {"*DISTRIBUTION, NAME=D, TABLE=T, LOCATION=ELEMENT\n, 1.\n2.\nE, 3.\n4.\n",
     "distribution location=ELEMENT, name=D#D, table=T#D: |1. / 2. / E#E|3. / 4."},
    {"*DISTRIBUTION, NAME=D, TABLE=T, LOCATION=NODE\n1\n2\n3\n",
     "distribution location=NODE, name=D#D, table=T#D: 1#N / 2 / 3#N"},
    {"*DISTRIBUTION, NAME=D, TABLE=U, LOCATION=NODE\n1\n",
     "distribution location=NODE, name=D#D, table=U#D: 1"},
    {"*DISTRIBUTION, NAME=D, TYPE=SHELL3DSTIFFNESS, LOCATION=ELEMENT\n1\n2\n3\n4\n",
     "distribution location=ELEMENT, name=D#D, type=SHELL3DSTIFFNESS: 1#E / 2 / 3 / 4#E"},
    {"*DISTRIBUTION, NAME=D, LOCATION=ELEMENT\n1\n", "distribution location=ELEMENT, name=D#D: 1"},
  };
  Check(cases);
  inp_ModelParameters const model;
  MarkDistributions visitor(model);
  cow_List<inp_Keyword> keywords =
    DeckKeywords("*DISTRIBUTION, NAME=D, TABLE=T\n, 1.5, A\n2,\n7, 3.\n"
                 "*DISTRIBUTION, NAME=F, TABLE=T\n7, 1.5\n");
  visitor.VisitList(keywords);
  EXPECT_EQ(1, visitor.ConstGetDefaultsByName().Size()); // under the name that it has now
  EXPECT_EQ(1.5, visitor.GetDefaultDataDouble("D#D", 0));
  EXPECT_EQ(-1., visitor.GetDefaultDataDouble("D#D", 1, -1.));
  EXPECT_EQ(2., visitor.GetDefaultDataDouble("D#D", 2));
  EXPECT_EQ(0., visitor.GetDefaultDataDouble("D#D", 3));
  EXPECT_EQ(0., visitor.GetDefaultDataDouble("D", 0));
}

// Places that a manual's lists leave out, though the keywords take them.
TEST(references, FurtherPlaces)
{
  Case const cases[] = {
    {"*SURFACE OUTPUT, SURFACE=S\n", "surfaceoutput surface=S#S"},
    {"*FLUID SECTION, ELSET=E\n", "fluidsection elset=E#E"},
    {"*FLUID BOUNDARY, SURFACE=S, ELSET=E, ORIENTATION=O, DISTRIBUTION=D\n",
     "fluidboundary distribution=D, elset=E#E, orientation=O#O, surface=S#S"},
    {"*STEADY STATE TRANSPORT, ELSET=E\n1.\n", "steadystatetransport elset=E#E: 1."},
    {"*SUBSTRUCTURE GENERATE, ELSET=E, NSET=N\n", "substructuregenerate elset=E#E, nset=N#N"},
    {"*SUBSTRUCTURE OUTPUT, ELSET=E\n", "substructureoutput elset=E#E"},
    {"*SUBSTRUCTURE PROPERTY, ELSET=E\n", "substructureproperty elset=E#E"},
    {"*MATRIX ASSEMBLE, NSET=N\n", "matrixassemble nset=N#N"},
    {"*FLUID CAVITY, NAME=C, REFNODE=N, SURFACE=S, EULERIANELSET=E\n",
     "fluidcavity eulerianelset=E#E, name=C, refnode=N#N, surface=S#S"},
    {"*EULERIAN SECTION, ELSET=E, ORIENTATION=O\nM, I, O\n",
     "euleriansection elset=E#E, orientation=O#O: M#M|I|O#O"},
    {"*SPOT WELD, ORIENTATION=O\nS\n", "spotweld orientation=O#O: S#S"},
    {"*PARTICLE GENERATOR, NAME=G, FLUIDCAVITYREFNODE=N\n",
     "particlegenerator fluidcavityrefnode=N#N, name=G#M"},
    {"*PARTICLE GENERATOR FLOW, GENERATOR=G, FLUIDINFLATORPROPERTY=P\n",
     "particlegeneratorflow fluidinflatorproperty=P#O, generator=G#M"},
    {"*EULERIAN INFLATOR PROPERTY, NAME=P\n", "eulerianinflatorproperty name=P#O"},
    {"*SHELL GENERAL SECTION, COMPOSITE\nD, 3, STEEL, O\n",
     "shellgeneralsection composite: D#D|3|STEEL|O#O#D"},
  };
  Check(cases);
}

TEST(references, WhatIsNoNameStays)
{
  Case const cases[] = {
    {"*SURFACE, NAME=S, REFNODE\n", "surface name=S#S, refnode"},
    {"*SURFACE, NAME, TYPE=NODE\n, 1.\n1.5, 2.\n7\n",
     "surface name, type=NODE: |1. / 1.5|2. / 7#N"},
    {"*NODE OUTPUT, NSET\n", "nodeoutput nset"},
    {"*MONITOR, NODE=1.5\n", "monitor node=1.5"},
    {"*EMBEDDED ELEMENT, HOSTELSET=1.\n1.5, , E\n", "embeddedelement hostelset=1.: 1.5||E#E"},
    {"*PERIODIC MEDIA\n2., 1.5D0, 3.\n", "periodicmedia: 2.|1.5D0|3."},
    {"*CONTACT PRINT, MASTER, SLAVE=1.5\n", "contactprint master, slave=1.5"},
    {"*SPRING, ORIENTATION\n", "spring orientation"},
    {"*SPRING, ORIENTATION=7\n", "spring orientation=7"},
    {"*CONTACT PAIR\n1., S, , 7\n", "contactpair: 1.|S#S||7"},
    {"*SHELL SECTION, SHELLTHICKNESS=0.5, OFFSET=2\n", "shellsection offset=2, shellthickness=0.5"},
    {"*PARTICLE GENERATOR FLOW, GENERATOR\n", "particlegeneratorflow generator"},
  };
  Check(cases);
}

TEST(references, KeywordsWithConditions)
{
  Case const cases[] = {
    {"*CLEARANCE, BOLT=UN\n1, 2\n3, 4\n", "clearance bolt=UN: 1|2 / 3#N|4"},
    {"*CLOAD\n1, TSI, .5\n2, 1, .5\n3, 1\n4, tfd\n5\n6\n7,TWD\n",
     "cload: 1#N|TSI|.5 / 2|1|.5 / 3#N|1 / 4#N|tfd / 5 / 6#N / 7#N|TWD"},
    {"*CONTOUR INTEGRAL, CRACKTIPNODES, ELSET=E\nA, B, C\n1, , .5\n",
     "contourintegral cracktipnodes, elset=E#E: A#N|B#N|C / 1||.5"},
    {"*CONTOUR INTEGRAL, CRACKTIPNODES, NORMAL\nA, B\nA, 2, C\n",
     "contourintegral cracktipnodes, normal: A|B / A#N|2|C#N"},
    {"*CONTOUR INTEGRAL, NORMAL\n0., 1.\nA, 2, , C\n",
     "contourintegral normal: 0.|1. / A#N|2#N||C#N"},
    {"*CO-SIMULATION REGION, TYPE=VOLUME\nE\n", "co-simulationregion type=VOLUME: E#S#E"},
    {"*DOMAIN DECOMPOSITION, ELSET=E, DEFINITION=BOX\n5\n6, 7\n",
     "domaindecomposition definition=BOX, elset=E: 5 / 6#E|7"},
    {"*EQUATION\n2\n1, 1, 1., N, 1, -1.,\n5, 2\n7, 1, 1., 8, 1, 1., 9, 1, 1., 10, 1, 1., 11\n",
     "equation: 2 / 1#N|1|1.|N#N|1|-1.| / 5|2 / "
     "7#N|1|1.|8#N|1|1.|9#N|1|1.|10#N|1|1.|11"},
    {"*FLUID INFLATOR, TYPE=EULERIAN\nA, M\n3, 4\n", "fluidinflator type=EULERIAN: A|M#M / 3#N|4"},
    {"*FREQUENCY, EIGENSOLVER=AMS, RESIDUALMODES\n10\nN, 1\n",
     "frequency eigensolver=AMS, residualmodes: 10 / N#N|1"},
    {"*NORMAL\nE, 1, 0.\n", "normal: E#E|1#N|0."},
    {"*PERIODIC MEDIA, INLETCONTROLNODE=1, TRIGGERNODE=1.5\nE, 2, S\n",
     "periodicmedia inletcontrolnode=1#N, triggernode=1.5: E#E|2#N|S#S"},
    {"*SECTION PRINT, AXES=LOCAL\n1, 2\nP-1.5, 2, 3, 4, N\n",
     "sectionprint axes=LOCAL: 1#N|2 / 5#N|2|3|4|N"},
    {"*SECTION FILE, AXES=LOCAL\n1.5\n1, 2, 3, 4, 5\n",
     "sectionfile axes=LOCAL: 1.5 / 1#N|2|3|4|5#N"},
    {"*SLIDE LINE, GENERATE\nI.1, I.9\n20, 24, 4\n",
     "slideline: I.1#N|I.2#N|I.3#N|I.4#N|I.5#N|I.6#N|I.7#N|I.8#N / I.9#N|20#N|24#N"},
    {"*SURFACE, NAME=S, REFNODE=7, TYPE=CUTTINGSURFACE, DEFINITION=NODES\n1, N, 3\n, E\n",
     "surface definition=NODES, name=S#S, refnode=7#N, type=CUTTINGSURFACE: 1#N|N#N|3 / |E#E"},
    {"*SURFACE, NAME=S, TYPE=NODE, CROP=T\n1, 1.\n", "surface crop=T#S, name=S#S, type=NODE: 1|1."},
    {"*SURFACE, NAME=S\nE, S1\n", "surface name=S#S: E#E|S1"},
    {"*SURFACE, NAME=S, TYPE=CYLINDER\nSTART, 1.\n", "surface name=S#S, type=CYLINDER: START|1."},
    {"*INITIAL CONDITIONS, TYPE=ROTATINGVELOCITY, DEFINITION=NODES\nN, 1.\n5, 6\nM, 1.\n7, 8\n",
     "initialconditions definition=NODES, type=ROTATINGVELOCITY: N#N|1. / 5#N|6#N / M#N|1. / 7|8"},
    {"*INITIAL CONDITIONS, TYPE=VOLUMEFRACTION\nE, M, 1.\n",
     "initialconditions type=VOLUMEFRACTION: E#E|M#M|1."},
    {"*FASTENER, ELSET=E\n1.5D0\nS, T,, 3\n", "fastener elset=E#E: 1.5D0 / S#S|T#S||3#S"},
    {"*SPOT WELD, REFERENCENODESET=N\n1.\nS\n", "spotweld referencenodeset=N#N: 1. / S#S"},
    {"*SPOT WELD\n1.D0, T\nS\n", "spotweld: 1.D0|T#S / S#S"},
    {"*TIE, NAME=T, TIEDNSET=N\nS, M\nS2, M2, 0.5\n",
     "tie name=T#S, tiednset=N#N: S#S|M#S / S2#S|M2#S|0.5"},
    {"*INITIAL CONDITIONS, TYPE=CONTACT\nS, M, N\nS, M\n",
     "initialconditions type=CONTACT: S#S|M#S|N#N / S#S|M#S"},
    {"*SURFACE, NAME=S, COMBINE=UNION, CROP=T\nA, B\n",
     "surface combine=UNION, crop=T, name=S#S: A#S|B#S"},
    {"*SURFACE, NAME=S, CROP=T\n0., 0.\n", "surface crop=T#S, name=S#S: 0.|0."},
    {"*ORIENTATION, NAME=O\nD, D\nD, D2\n1, D3\n", "orientation name=O#O: D#D|D / D|D2#D / 1|D3#D"},
    {"*SHELL SECTION, COMPOSITE\n1., 3, STEEL, O\nD, 3, STEEL, 45\n",
     "shellsection composite: 1.|3|STEEL|O#O#D / D#D|3|STEEL|45"},
  };
  Check(cases);
}
