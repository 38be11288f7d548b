#include "Inpdeck.h"

namespace
{

class Diagnostics : public Inpdeck
{
protected:
  /// What the command writes to standard error of a deck.
  std::string Of(std::string const& deck, std::vector<std::string> more = {}) const
  {
    files.Write("deck.inp", deck);
    std::vector<std::string> arguments{"check", "deck.inp"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return files.WithoutFolder(Run(arguments).err);
  }
};

TEST_F(Diagnostics, ShowThePlaceTheLineAndAHint)
{
  files.Write("parts/bolt.inp",
              "*NODE\n1, 0.0\n*ELEMENT, TYPE=B31, TYPE=B32\n1, 1, 2, 3\n*ELSETS\n");
  EXPECT_EQ(Of("1, 2\n"
               "3, 4\n"
               "*NODEE, NSET=ALL\n"
               "*INCLUDE, INPUT=parts/bolt.inp\n"
               "*INCLUDE, INPUT=washer.inp\n"
               "*MATERIAL, NAME=STEEL\n"
               "*ELASTIC, TIPE=ISO\n"
               "2.1E5, 0.3\n"
               "*STEP, NAME=A\n"
               "*STEP, NAME=A\n"),
            "deck.inp:5: fatal: Include file \"washer.inp\" does not exist.\n"
            "    5 | *INCLUDE, INPUT=washer.inp\n"
            "      | looked for in the working directory; -I DIR adds another place\n"
            "deck.inp:3: error: Unknown keyword \"nodee\". The keyword may be misspelled, "
            "obsolete, or invalid.\n"
            "    3 | *NODEE, NSET=ALL\n"
            "      | did you mean *NODE?\n"
            "parts/bolt.inp:5: error: Unknown keyword \"elsets\". The keyword may be misspelled, "
            "obsolete, or invalid.\n"
            "    5 | *ELSETS\n"
            "      | did you mean *ELSET?\n"
            "deck.inp:1: warning: 2 data lines above the first keyword, from line 1 on, belong to "
            "none and are not used.\n"
            "    1 | 1, 2\n"
            "deck.inp:7: error: in keyword *ELASTIC, file \"deck.inp\", line 7: Unknown parameter: "
            "tipe. The parameter may be misspelled, obsolete, or invalid.\n"
            "    7 | *ELASTIC, TIPE=ISO\n"
            "      | did you mean TYPE?\n"
            "deck.inp:10: fatal: in keyword *STEP, file \"deck.inp\", line 10: Step with the name "
            "\"A\" has already been defined.\n"
            "   10 | *STEP, NAME=A\n");
}

TEST_F(Diagnostics, AsJsonAreAnObjectALine)
{
  EXPECT_EQ(
    Of("*NODE, NSET=A, NSET=\"\xC3\xA4\xFF\"\n"
       "*NO\x1B\\DE\n"
       "*INCLUDE\n"
       "*PART\n",
       {"--diagnostics", "json", "--color", "always"}),
    R"({"severity":"fatal","level":0,"stage":"parse","file":"deck.inp","line":3,)"
    R"("message":"Missing input parameter"})"
    "\n"
    R"({"severity":"error","level":1,"stage":"parse","file":"deck.inp","line":2,)"
    R"("message":"Unknown keyword \"no\u001b\\de\". )"
    R"(The keyword may be misspelled, obsolete, or invalid."})"
    "\n"
    R"({"severity":"warning","level":null,"stage":"parse","file":"deck.inp","line":1,)"
    R"("message":"in keyword *NODE, file \"deck.inp\", line 1: Repeated parameter: nset.  )"
    "New definition of \\\"\\\"\xC3\xA4\xEF\xBF\xBD\\\"\\\" overrides previous setting.\"}\n"
    R"({"severity":"fatal","level":2,"stage":"expand","file":"deck.inp","line":4,)"
    R"("message":"in keyword *PART, file \"deck.inp\", line 4: Part must have a name."})"
    "\n"
    R"({"severity":"error","level":1,"stage":"final","file":"deck.inp","line":1,)"
    R"("message":"in keyword *NODE, file \"deck.inp\", line 1: The keyword is misplaced. )"
    R"(It can be suboption for the following keyword(s)/level(s): assembly, instance, part"})"
    "\n");
}

TEST_F(Diagnostics, HintsHelp)
{
  struct
  {
    char const* what;
    std::string deck;
    std::string hint;
  } const cases[] = {
    {"an abbreviation of several", "*ELEM\n",
     "did you mean *ELEMENT, *ELEMENTOUTPUT or *ELEMENTRESPONSE?"},
    {"letters swapped", "*NDOE\n", "did you mean *NODE?"},
    {"nothing is near", "*XYZXYZ\n", ""},
    {"a parameter that is near", "*SOLID SECTION, MATERAL=A\n", "did you mean MATERIAL?"},
    {"a parameter that is far", "*DENSITY, TEMP=1\n",
     "*DENSITY takes DEPENDENCIES, POREFLUID, SLURRY"},
    {"no parameters at all", "*BASELINE CORRECTION, NAME=1\n",
     "*BASELINECORRECTION takes no parameters"},
    {"one of a few words", "*CLOAD, OP=ADD\n", "OP takes MOD, NEW"},
    {"a word that may be two", "*AMPLITUDE, NAME=A, DEFINITION=S\n",
     "DEFINITION takes ACTUATOR, BUBBLE, DECAY, EQUALLYSPACED, MODULATED, PERIODIC, HICKS, "
     "SOLUTIONDEPENDENT, TABULAR, SMOOTHSTEP, USER"},
    {"a data file", "*NODE, INPUT=n.dat\n",
     "looked for in the working directory; -I DIR adds another place"},
  };
  for (auto const& c : cases)
  {
    std::string const text = Of(c.deck);
    std::string const line = "    1 | " + c.deck;
    std::size_t const at = text.find(line);
    ASSERT_NE(at, std::string::npos) << c.what << "\n" << text;
    std::string const below = text.substr(at + line.size());
    EXPECT_EQ(below, c.hint.empty() ? "" : "      | " + c.hint + "\n") << c.what;
  }
}

TEST_F(Diagnostics, DeckLinesAreShownSafely)
{
  std::string const longest(200, 'X');
  struct
  {
    std::string line;
    std::string shown;
  } const cases[] = {
    {"*A\x1B[31m\x07\tB", "*A\\x1B[31m\\x07 B"},
    {"*ZZ, \xC3\x84\xE2\x82\xAC \xFF\xC0\x80\xC2\x9B",
     "*ZZ, \xC3\x84\xE2\x82\xAC \\xFF\\xC0\\x80\\xC2\\x9B"},
    {"*Z" + longest, "*Z" + longest.substr(0, 87) + "..."},
    {"*ZZ\r", "*ZZ"},
  };
  for (auto const& c : cases)
  {
    std::string const text = Of(c.line + "\n");
    EXPECT_NE(text.find("    1 | " + c.shown + "\n"), std::string::npos) << text;
  }
}

// Lines are found again in any order, far down a file too.
TEST_F(Diagnostics, LinesFarDownAreFound)
{
  std::string deck;
  for (int i = 1; i <= 5000; ++i)
  {
    deck += i == 65 || i == 130 || i == 5000 ? "*ZZ" + std::to_string(i) + "\n" : "** comment\n";
  }
  std::string const text = Of(deck + "*PART, NAME=A\n*PART, NAME=A\n");
  for (char const* const line :
       {"   65 | *ZZ65\n", "  130 | *ZZ130\n", " 5000 | *ZZ5000\n", " 5002 | *PART, NAME=A\n"})
  {
    EXPECT_NE(text.find(line), std::string::npos) << line << text;
  }
}

TEST_F(Diagnostics, ColourIsForTerminalsUnlessAskedFor)
{
  std::string const deck = "*NDOE\n";
  EXPECT_EQ(Of(deck).find('\x1B'), std::string::npos);
  EXPECT_EQ(Of(deck, {"--color", "never"}).find('\x1B'), std::string::npos);
  EXPECT_TRUE(Of(deck, {"--color", "always"})
                .starts_with("\x1B[1mdeck.inp:1:\x1B[0m \x1B[1;31merror:\x1B[0m Unknown keyword"));
}

TEST_F(Diagnostics, TheIncludePathIsTheDecksFolderUnlessGiven)
{
  files.Write("a/deck.inp", "*INCLUDE, INPUT=n.inp\n");
  files.Write("a/n.inp", "*NODE\n1, 0.0\n");
  files.Write("b/x", "");
  EXPECT_EQ(Run({"check", "--quiet", "a/deck.inp"}), (ProgramRun{0, "", ""}));
  EXPECT_EQ(Run({"check", "--quiet", "-I", "b", "a/deck.inp"}),
            (ProgramRun{1, "",
                        "a/deck.inp:1: fatal: Include file \"n.inp\" does not exist.\n"
                        "    1 | *INCLUDE, INPUT=n.inp\n"
                        "      | looked for in the working directory and in 'b' (see -I)\n"}));
}

TEST_F(Diagnostics, ASummaryFollowsUnlessQuiet)
{
  files.Write("deck.inp",
              "*HEADING\nblock\n*NODE\n1, 0.0\n2, 1.0\n*ELEMENT, TYPE=T2D2\n1, 1, 2\n"
              "*NSET, NSET=A\n1\n*MATERIAL, NAME=M\n*STEP, NAME=Pull\n*STATIC\n*NDOE\n");
  EXPECT_EQ(
    Run({"check", "--color", "never", "deck.inp"}).out,
    "deck.inp: flat model, 128 bytes\n"
    "\n"
    "  Keywords                  7   7 kinds\n"
    "  Node rows                 2   1 *NODE\n"
    "  Element rows              1   1 T2D2\n"
    "  Sets                      1   1 *NSET\n"
    "  Materials                 1   M\n"
    "  Steps                     1\n"
    "      Pull  *STATIC\n"
    "  Findings                  1   1 error\n"
    "\n"
    "This is a flat model. Flat models are not divided into parts yet, so there are no maps,\n"
    "and the rules that need them were not checked.\n");
  EXPECT_EQ(Run({"check", "--quiet", "deck.inp"}).out, "");
}

TEST_F(Diagnostics, TheSummaryNamesTheFilesOfTheDeck)
{
  files.Write("more.inp", "*NODE, INPUT=nodes.dat\n");
  files.Write("nodes.dat", "1, 0.0\n");
  files.Write("deck.inp", "*INCLUDE, INPUT=more.inp\n*INCLUDE, INPUT=lost.inp\n"
                          "*AMPLITUDE, NAME=A, INPUT=lost.inp\n*AMPLITUDE, NAME=B, INPUT=b.dat\n");
  std::string const expected = "  Include files             1   more.inp\n"
                               "  Data files                1   nodes.dat\n"
                               "  Missing files             2   lost.inp, b.dat\n"
                               "  Keywords                  3   2 kinds\n";
  std::string const summary = Run({"check", "deck.inp"}).out;
  EXPECT_NE(summary.find(expected), std::string::npos) << summary;
}

TEST_F(Diagnostics, TimingsNameTheStages)
{
  std::string const text = Of("*NODE\n", {"--timings", "--stage", "expand"});
  std::vector<std::string> names;
  std::istringstream lines(text);
  for (std::string word, name, rest; lines >> word >> name && std::getline(lines, rest);)
  {
    EXPECT_EQ(word, "timing:");
    names.push_back(name);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"parse", "expand", "encoding", "total", "peak"}));
}

} // namespace
