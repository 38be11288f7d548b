#include "Inpdeck.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <set>
#include <sys/stat.h>

namespace
{

using Output = Inpdeck;

TEST_F(Output, DumpHasTheShapeThatProgramsRelyOn)
{
  files.Write("deck.inp", "** mesh\n"
                          "*NODE, NSET=ALL, SYSTEM\n"
                          " 1, 0.0 , \"a, b\"\n"
                          "2,\n"
                          "\n"
                          "*DENSITY, A=-7, B=.1, C=1d3, D=1E300, E=1e999, F=\"x y\"\n");
  EXPECT_EQ(Run({"dump", "--stage", "parse", "deck.inp"}).out,
            "{\"stage\": \"parse\",\n"
            " \"featureEnhanced\": false,\n"
            " \"includedFiles\": [], \"missingIncludeFiles\": [],\n"
            " \"keywords\": [\n"
            "   {\"name\": \"node\", \"value\": 4, \"file\": \"deck.inp\", \"line\": 2, "
            "\"encrypted\": false, \"comments\": [\" mesh\"],\n"
            "    \"parameters\": [{\"name\": \"nset\", \"type\": \"string\", \"value\": \"ALL\"}, "
            "{\"name\": \"system\", \"type\": \"boolean\", \"value\": true}],\n"
            "    \"data\": [[\"1\", \"0.0\", \"\\\"a, b\\\"\"],\n"
            "             [\"2\", \"\"],\n"
            "             [\"\"]],\n"
            "    \"suboptions\": []},\n"
            "   {\"name\": \"density\", \"value\": 1004, \"file\": \"deck.inp\", \"line\": 6, "
            "\"encrypted\": false, \"comments\": [],\n"
            "    \"parameters\": [{\"name\": \"a\", \"type\": \"integer\", \"value\": -7}, "
            "{\"name\": \"b\", \"type\": \"real\", \"value\": 0.1}, "
            "{\"name\": \"d\", \"type\": \"real\", \"value\": 1e+300}, "
            "{\"name\": \"f\", \"type\": \"string\", \"value\": \"\\\"x y\\\"\"}, "
            "{\"name\": \"c\", \"type\": \"real\", \"value\": 1000.0}, "
            "{\"name\": \"e\", \"type\": \"real\", \"value\": 1e999}],\n"
            "    \"data\": [],\n"
            "    \"suboptions\": []}]}\n");
}

TEST_F(Output, DumpIsJsonWhateverTheDeckHolds)
{
  std::string deck = "*HEADING\n";
  for (int c = 1; c < 256; ++c)
    deck += c == '\n' || c == '*' ? "" : std::string("x") + static_cast<char>(c) + "y\n";
  files.Write("deck.inp", deck + "\xED\xA0\x80 \xF4\x90\x80\x80 \xF0\x9F\x94\xA9\n");
  nlohmann::json const dump = nlohmann::json::parse(Run({"dump", "deck.inp"}).out);
  nlohmann::json const& rows = dump["keywords"][0]["data"];
  EXPECT_EQ(rows.size(), 254u);
  EXPECT_EQ(rows[0][0], "x\x01y");
  EXPECT_EQ(rows[rows.size() - 2][0], "x\xEF\xBF\xBDy");
  std::string const bad = "\xEF\xBF\xBD";
  EXPECT_EQ(rows.back()[0], bad + bad + bad + " " + bad + bad + bad + bad + " \xF0\x9F\x94\xA9");
}

TEST_F(Output, DumpShowsTheStageThatWasAskedFor)
{
  files.Write("nodes.inp", "*NODE, NS=A\n1, 0.0\n");
  files.Write("deck.inp", "*PART, NAM=P\n*INCLUDE, INPUT=nodes.inp\n*INCLUDE, INPUT=no.inp\n");
  for (std::string const stage : {"parse", "expand", "final"})
  {
    auto const dump = nlohmann::json::parse(Run({"dump", "--stage", stage, "deck.inp"}).out);
    EXPECT_EQ(dump["stage"], stage);
    EXPECT_EQ(dump["includedFiles"], (nlohmann::json{"nodes.inp"}));
    EXPECT_EQ(dump["missingIncludeFiles"], (nlohmann::json{"no.inp"}));
    EXPECT_EQ(dump["featureEnhanced"], stage != "parse");
    nlohmann::json const& node =
      stage == "final" ? dump["keywords"][0]["suboptions"][0] : dump["keywords"][1];
    EXPECT_EQ(node["parameters"][0]["name"], stage == "parse" ? "ns" : "nset");
  }
}

TEST_F(Output, PrintGivesDeckTextThatPrintsTheSame)
{
  files.Write("deck.inp", "*node , nset = all\n 1 , 0.0\n*ELEMENT, TYPE=B31\n1,1,2\n");
  ProgramRun const run = Run({"print", "--stage", "parse", "deck.inp"});
  EXPECT_EQ(run.out, "*node, nset=all\n1, 0.0\n*element, type=B31\n1, 1, 2\n");
  files.Write("again.inp", run.out);
  EXPECT_EQ(Run({"print", "--stage", "parse", "again.inp"}).out, run.out);
}

TEST_F(Output, ALinkStaysALinkAndADeviceADevice)
{
  files.Write("deck.inp", "*HEADING\nNEW\n");
  files.Write("out", "old");
  std::filesystem::create_symlink("out", files.Path("link"));
  EXPECT_EQ(Run({"print", "deck.inp", "--output", "link"}), (ProgramRun{0, "", ""}));
  EXPECT_EQ(Read("out"), "*heading\nNEW\n");
  EXPECT_TRUE(std::filesystem::is_symlink(files.Path("link")));
  EXPECT_EQ(Run({"print", "deck.inp", "-o", "/dev/null"}).status, 0);
  EXPECT_EQ(Run({"print", "deck.inp", "-o", "-"}), (ProgramRun{0, "*heading\nNEW\n", ""}));
  EXPECT_FALSE(std::filesystem::exists(files.Path("-")));
}

// The deck has a fault, of which a run would tell.
TEST_F(Output, APlaceThatMayNotBeWrittenToIsFoundBeforeTheRun)
{
  files.Write("deck.inp", "*NODEE\n");
  files.Write("out", "old");
  files.Write("folder/out", "old");
  std::filesystem::create_symlink("folder/new", files.Path("link"));
  ::chmod(files.Path("out").c_str(), 0400);
  ::chmod(files.Path("folder").c_str(), 0500);
  for (std::string const name : {"out", "folder/out", "folder/new", "link"})
    EXPECT_EQ(
      InFolder().BoundByPermissions().Run({"print", "deck.inp", "-o", name}),
      (ProgramRun{2, "", "inpdeck: error: cannot write to '" + name + "': Permission denied\n"}));
  ::chmod(files.Path("folder").c_str(), 0700);
}

TEST_F(Output, AFileThatCannotBeFinishedLeavesTheOldOne)
{
  std::string deck = "*NODE\n";
  for (int i = 0; i < 50000; ++i)
    deck += "1, 0.0\n";
  files.Write("deck.inp", deck);
  files.Write("out", "old");
  ProgramRun const run =
    InFolder().Limit(RLIMIT_FSIZE, 100000).Run({"dump", "deck.inp", "-o", "out"});
  EXPECT_EQ(run, (ProgramRun{2, "", "inpdeck: error: cannot write to 'out': File too large\n"}));
  EXPECT_EQ(Read("out"), "old");
  std::set<std::string> names;
  for (auto const& entry : std::filesystem::directory_iterator(files.Folder()))
    names.insert(entry.path().filename());
  EXPECT_EQ(names, (std::set<std::string>{".err", ".out", "deck.inp", "out"}));
}

} // namespace
