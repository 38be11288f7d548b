// What the system can do to a run: files that cannot be read or change, memory that ends, signals.

#include "Inpdeck.h"
#include "mem_Allocation.h"

#include <cerrno>
#include <set>
#include <sys/stat.h>

namespace
{

/// The program among calls that fail.
class Failures : public Inpdeck
{
protected:
  Failures()
  {
    std::string rows; // of 16 bytes, so that each block that is read is 4096 of them
    for (int i = 10001; i <= 30000; ++i)
      rows += std::to_string(i) + ", 0., 0.0,\n";
    files.Write("rows.inp", rows);
    files.Write("deck.inp", "*HEADING\n *NODE\n" + rows + "*NSET, NSET=A\n10001\n");
    files.Write("including.inp", "*NODE\n*INCLUDE, INPUT=rows.inp\n*NSET, NSET=A\n10001\n");
    files.Write("reading.inp", "*NODE, INPUT=rows.inp\n*NSET, NSET=A\n10001\n");
    files.Write("out", "old");
  }

  void SetUp() override
  {
    if (MEM_PLAIN_ALLOCATION)
      GTEST_SKIP() << "a sanitizer has calls of its own";
  }

  Program Among(std::string const& failure, std::string const& value) const
  {
    return InFolder().Environment("LD_PRELOAD", FAILING_CALLS).Environment(failure, value);
  }

  /// The file system of the tests may have none of its own.
  bool HasUnnamedFiles() const
  {
    int const file = ::open(files.Folder().c_str(), O_TMPFILE | O_WRONLY, 0600);
    return file >= 0 && ::close(file) == 0;
  }

  std::set<std::string> Names() const
  {
    std::set<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(files.Folder()))
      names.insert(entry.path().filename());
    return names;
  }
};

TEST_F(Failures, WhatIsNotReadWholeGivesNoResults)
{
  std::string const deckFailed = "inpdeck: error: cannot read 'deck.inp' to its end: "
                                 "Input/output error\n";
  std::string const rowsFailed = "inpdeck: error: cannot read 'rows.inp' to its end: "
                                 "Input/output error\n";
  std::string const rowsChanged =
    "inpdeck: error: 'rows.inp' was changed while it was read; run again\n";
  std::string const inDeck = "deck.inp:2: error: The file could not be read beyond line ";
  std::string const inRows = "rows.inp: error: The file could not be read beyond line ";
  std::string const inData = "in keyword *NODE, file \"reading.inp\", line 1: ";
  struct
  {
    char const *deck, *failure;
    std::string err;
  } const cases[] = {
    {"deck.inp", "deck.inp:1:5",
     "inpdeck: error: cannot read the deck 'deck.inp': Input/output error\n"},
    {"deck.inp", "deck.inp:3:5", inDeck + "4097.\n    2 |  *NODE\n" + deckFailed},
    {"deck.inp", "deck.inp:7:shrink",
     "deck.inp: error: The file was changed while it was read.\n"
     "inpdeck: error: 'deck.inp' was changed while it was read; run again\n"},
    {"including.inp", "rows.inp:1:5",
     "inp_Parser ERROR: could not open file: '" + files.Path("rows.inp") +
       "'\nincluding.inp:2: error: Could not open file " + files.Path("rows.inp") +
       "\n    2 | *INCLUDE, INPUT=rows.inp\n" + rowsFailed},
    {"including.inp", "rows.inp:2:5", inRows + "4096.\n" + rowsFailed},
    {"including.inp", "rows.inp:3:grow",
     "rows.inp: error: The file was changed while it was read.\n" + rowsChanged},
    {"reading.inp", "rows.inp:1:5",
     "reading.inp:1: error: " + inData +
       "Input file \"rows.inp\" is not readable.\n    1 | *NODE, INPUT=rows.inp\n" + rowsFailed},
    {"reading.inp", "rows.inp:2:5",
     "reading.inp:1: error: " + inData +
       "Data file \"rows.inp\" could not be read beyond line "
       "4096.\n    1 | *NODE, INPUT=rows.inp\n" +
       rowsFailed},
    {"reading.inp", "rows.inp:2:shrink",
     "reading.inp:1: error: " + inData +
       "Data file \"rows.inp\" was changed while it was read.\n"
       "    1 | *NODE, INPUT=rows.inp\n" +
       rowsChanged},
  };
  std::string const rows = Read("rows.inp");
  std::string const deck = Read("deck.inp");
  for (auto const& c : cases)
  {
    SCOPED_TRACE(std::string(c.deck) + " among " + c.failure);
    EXPECT_EQ(Among("FAIL_READ", c.failure).Run({"print", c.deck, "-o", "out"}),
              (ProgramRun{2, "", c.err}));
    EXPECT_EQ(Read("out"), "old");
    files.Write("rows.inp", rows);
    files.Write("deck.inp", deck);
    ProgramRun const check = Among("FAIL_READ", c.failure).Run({"check", c.deck});
    EXPECT_EQ(check, (ProgramRun{2, "", c.err})) << "no summary either";
    files.Write("rows.inp", rows);
    files.Write("deck.inp", deck);
  }
}

// A missing file is a fault of the deck, which leaves results; one that is there and may not be read is
// none of the deck's.
TEST_F(Failures, AForbiddenFileGivesNoResults)
{
  for (std::string const deck : {"including.inp", "reading.inp"})
    for (std::string const command : {"check", "print"})
    {
      ProgramRun const run = Among("FORBIDDEN", "rows.inp").Run({command, deck});
      EXPECT_EQ(run.status, 2) << command << deck;
      EXPECT_EQ(run.out, "");
      EXPECT_TRUE(
        run.err.ends_with("inpdeck: error: cannot read 'rows.inp' to its end: Permission denied\n"))
        << run.err;
    }
}

TEST_F(Failures, AnInterruptedCallIsMadeAgain)
{
  std::string const interrupted = ":" + std::to_string(EINTR);
  ProgramRun const whole = Run({"check", "--stage", "parse", "deck.inp"});
  for (int const read : {1, 2, 4})
    EXPECT_EQ(Among("FAIL_READ", "deck.inp:" + std::to_string(read) + interrupted)
                .Run({"check", "--stage", "parse", "deck.inp"}),
              whole)
      << read;
}

// The rows of the second keyword need more than a request may have; the others go on.
TEST_F(Failures, AKeywordLostForWantOfMemoryIsNamedAndGivesNoResults)
{
  std::string deck = "*HEADING\n*ELEMENT, TYPE=MASS\n";
  for (int i = 0; i < 70000; ++i)
    deck += "1,\n";
  files.Write("inc.inp", deck + "*NODEE\n");
  files.Write("big.inp", "*NODE\n1\n*INCLUDE, INPUT=inc.inp\n*NSET, NSET=A\n1\n");
  EXPECT_EQ(Among("FAIL_LARGE", "500000").Run({"print", "big.inp", "-o", "out"}),
            (ProgramRun{3, "",
                        "inc.inp:2: fatal: Memory errors occured while parsing 1 keywords. The "
                        "errors were likely due to running out of physical memory or swap space.\n"
                        "    2 | *ELEMENT, TYPE=MASS\n"
                        "inc.inp:70003: error: Unknown keyword \"nodee\". The keyword may be "
                        "misspelled, obsolete, or invalid.\n"
                        "70003 | *NODEE\n"
                        "      | did you mean *NODE?\n"
                        "big.inp: fatal: Internal failure in stage parse: there is not enough "
                        "memory\n"
                        "If the deck is not larger than the memory, please report it, with the "
                        "deck if you can.\n"}));
  EXPECT_EQ(Read("out"), "old");
}

// Every request may be the one that fails: the first, before main; those between; the last.
TEST_F(Failures, MemoryMayEndAtAnyMoment)
{
  files.Write("small.inp", "*HEADING\n*NODE\n1\n*NODEE\n");
  std::vector<std::string> const command{"dump", "small.inp", "-o", "out"};
  auto const run = [&](int request)
  { return Among("FAIL_MEMORY", std::to_string(request)).Run(command); };
  int enough = 1;
  while (run(enough).status == 3)
    enough *= 2;
  int last = enough / 2;
  while (enough - last > 1)
  {
    int const middle = (last + enough) / 2;
    (run(middle).status == 3 ? last : enough) = middle;
  }
  EXPECT_EQ(Read("out"), Run({"dump", "small.inp"}).out) << "a run with just enough";
  files.Write("out", "old");
  int const step = last / 40;
  for (int request = 1; request <= last; request += request < 20 || request > last - 30 ? 1 : step)
  {
    ProgramRun const ended = run(request);
    EXPECT_EQ(ended.status, 3) << request;
    EXPECT_NE(ended.err.find(": there is not enough memory\n"), std::string::npos)
      << request << "\n"
      << ended.err;
    ASSERT_EQ(Read("out"), "old") << request;
  }
}

/// With files without a name, and where the file system has none.
class Endings : public Failures, public testing::WithParamInterface<char const*>
{
};

INSTANTIATE_TEST_SUITE_P(, Endings, testing::Values("0", "1"));

TEST_P(Endings, ASignalEndsTheProgramWithWordsAndLeavesNothingBehind)
{
  std::pair<int, std::string> const signals[] = {
    {SIGTERM, "SIGTERM"},
    {SIGINT, "SIGINT"},
    {SIGHUP, "SIGHUP"},
    {SIGQUIT, "SIGQUIT"},
    {SIGXCPU, "SIGXCPU"},
    {SIGALRM, "SIGALRM"},
    {SIGUSR1, "SIGUSR1"},
    {SIGUSR2, "SIGUSR2"},
    {SIGPROF, "SIGPROF"},
    {SIGIO, "SIGIO"},
    {SIGRTMIN, "a real-time signal"},
  };
  Program const program =
    Among("FAIL_READ", "deck.inp:3:wait").Environment("NO_UNNAMED_FILES", GetParam());
  program.Run({"print", "rows.inp"});
  std::set<std::string> const before = Names();
  bool const hasName = GetParam()[0] == '1' || !HasUnnamedFiles();
  for (auto const& [signal, name] : signals)
  {
    pid_t const child = program.Start({"print", "deck.inp", "-o", "out"});
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, WUNTRACED), child);
    ASSERT_TRUE(WIFSTOPPED(status)) << name;
    EXPECT_EQ(Names().size(), before.size() + (hasName ? 1 : 0));
    ::kill(child, signal);
    ::kill(child, SIGCONT);
    EXPECT_EQ(program.Finish(child),
              (ProgramRun{2, "", "inpdeck: error: ended by " + name + "\n"}));
    EXPECT_EQ(Names(), before) << name;
  }
  EXPECT_EQ(Read("out"), "old");
}

TEST_P(Endings, AFileAppearsWholeAndKeepsItsPermissions)
{
  Program const program = Among("NO_UNNAMED_FILES", GetParam());
  program.Run({"print", "rows.inp"});
  std::set<std::string> before = Names();
  ::chmod(files.Path("out").c_str(), 0640);
  EXPECT_EQ(program.Run({"print", "reading.inp", "-o", "out"}).status, 0);
  struct stat status = {};
  ::stat(files.Path("out").c_str(), &status);
  EXPECT_EQ(status.st_mode & 0777, 0640u);
  std::string const longest(255, 'n');
  EXPECT_EQ(program.Run({"print", "reading.inp", "-o", longest}).status, 0);
  ::stat(files.Path(longest).c_str(), &status);
  mode_t const mask = ::umask(0);
  ::umask(mask);
  EXPECT_EQ(status.st_mode & 0777, 0666 & ~mask);
  EXPECT_EQ(Read("out"), Read(longest));
  before.insert(longest);
  EXPECT_EQ(Names(), before);
}

} // namespace
