#include "Inpdeck.h"
#include "mem_Allocation.h"

#include <iterator>
#include <poll.h>
#include <sstream>
#include <sys/stat.h>

namespace
{

class Status : public Inpdeck
{
protected:
  Status()
  {
    files.Write("good.inp", "*HEADING\ntwo nodes\n*NODE, NSET=ALL\n1, 0.0\n2, 1.0\n");
    files.Write("warned.inp", "*NODE, NSET=A, NSET=B\n1, 0.0\n");
    files.Write("faulty.inp", "*NODEE\n");
    files.Write("utf16.inp", std::string("\xFF\xFE*\0N\0O\0", 8));
    files.Write("folder/x", "");
    ::mkfifo(files.Path("pipe").c_str(), 0600);
  }
};

using Words = std::vector<std::string>;

Words Split(std::string const& command)
{
  std::istringstream text(command);
  return {std::istream_iterator<std::string>(text), {}};
}

TEST_F(Status, SaysHowItWent)
{
  for (char const* command : {"check good.inp", "check --quiet good.inp --diagnostics json",
                              "dump good.inp", "--help", "check --help", "--version", "language"})
  {
    ProgramRun const run = Run(Split(command));
    EXPECT_EQ(run.status, 0) << command;
    EXPECT_EQ(run.err, "") << command;
    EXPECT_EQ(run.out.empty(), std::string(command).find("--quiet") != std::string::npos)
      << command;
  }
  struct
  {
    char const *command, *words;
  } const refused[] = {
    {"",
     "no command is given; the commands are check, print, dump, language\nTry 'inpdeck --help'."},
    {"chek good.inp", "'chek' is no command; the commands are check, print, dump, language\n"
                      "Try 'inpdeck --help'."},
    {"check", "DECK is required\nTry 'inpdeck check --help'."},
    {"check --stage two good.inp",
     "--stage: 'two' is not one of parse, expand, final\nTry 'inpdeck check --help'."},
    {"check -I nowhere good.inp", "the include path 'nowhere' is no folder"},
    {"check absent.inp", "cannot read the deck 'absent.inp': No such file or directory"},
    {"check folder", "cannot read the deck 'folder': it is a folder"},
    {"check pipe", "cannot read the deck 'pipe': it is a pipe, a socket or a device, and a deck is "
                   "a file"},
    {"check -", "a deck cannot be read from standard input; name its file"},
    {"check utf16.inp", "Could not read file utf16.inp: it is encoded in UTF-16. Save it as UTF-8 "
                        "or plain ASCII text."},
    {"print good.inp -o nowhere/out", "cannot write to 'nowhere/out': No such file or directory"},
  };
  for (auto const& c : refused)
    EXPECT_EQ(Run(Split(c.command)),
              (ProgramRun{2, "", std::string("inpdeck: error: ") + c.words + "\n"}))
      << c.command;
  EXPECT_EQ(Run({"check", "--diagnostics", "json", "absent.inp"}).err,
            R"({"severity":"fatal","level":0,"stage":"parse","file":"absent.inp","line":null,)"
            R"("message":"cannot read the deck 'absent.inp': No such file or directory"})"
            "\n");
}

TEST_F(Status, TellsErrorsFromWarnings)
{
  EXPECT_EQ(Run({"check", "warned.inp"}).status, 0);
  EXPECT_EQ(Run({"check", "faulty.inp"}).status, 1);
  EXPECT_EQ(Run({"print", "faulty.inp"}).status, 1);
  EXPECT_EQ(Run({"dump", "faulty.inp"}).status, 1);
}

// A deck whose node row is no number leaves the stage by an exception.
TEST_F(Status, AFaultThatEndsTheRunIsFatalAndLeavesNoOutput)
{
  files.Write("row.inp", "*HEADING\n*NODE\n1, 0.0\nx1, 0.0\n");
  ProgramRun const run = Run({"dump", "row.inp", "-o", "row.json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.err.starts_with("row.inp:2: fatal: ")) << run;
  EXPECT_EQ(Read("row.json"), "");
  EXPECT_EQ(Run({"dump", "--stage", "parse", "row.inp"}).status, 0);
}

TEST_F(Status, OutputThatCannotBeWrittenIsNoSuccess)
{
  for (char const* const command : {"check", "print", "dump"})
  {
    ProgramRun const run = InFolder().Output("/dev/full").Run({command, "good.inp"});
    EXPECT_EQ(run.status, 2) << command;
    EXPECT_EQ(run.err, "inpdeck: error: cannot write to standard output: No space left on device\n")
      << command;
  }
  ProgramRun const closed = InFolder().OutputTo(-1).Run({"print", "good.inp"});
  EXPECT_EQ(closed.status, 2);
  EXPECT_EQ(closed.err, "inpdeck: error: cannot write to standard output: Bad file descriptor\n");
}

TEST_F(Status, AReaderThatLeavesIsNoNews)
{
  int ends[2];
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  ::close(ends[0]);
  for (Words const& arguments : {Words{"language", "--json"}, Words{"print", "good.inp"}})
  {
    ProgramRun const run = InFolder().OutputTo(ends[1]).Run(arguments);
    EXPECT_EQ(run, (ProgramRun{2, "", ""}));
  }
  ::close(ends[1]);
}

// The program waits with its output half written when the signal comes.
TEST_F(Status, ACrashIsPutIntoWords)
{
  if (MEM_PLAIN_ALLOCATION)
  {
    GTEST_SKIP() << "a sanitizer handles crashes itself";
  }
  std::string deck = "*NODE\n";
  for (int i = 0; i < 100000; ++i)
    deck += "1, 0.0\n";
  files.Write("long.inp", deck);
  int ends[2];
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  Program const program = InFolder().OutputTo(ends[1]);
  pid_t const child = program.Start({"dump", "long.inp"});
  pollfd readable{ends[0], POLLIN, 0};
  ASSERT_EQ(::poll(&readable, 1, 20000), 1);
  ::kill(child, SIGSEGV);
  ProgramRun const run = program.Finish(child);
  ::close(ends[0]);
  ::close(ends[1]);
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err,
            "long.inp: fatal: Internal failure in stage final: memory was used that is not there "
            "(the stack may be used up)\n"
            "This is a fault of inpdeck, not of the deck. Please report it, with the deck if you "
            "can.\n");
}

// The runs at the head of main.cpp are what the program can do.
TEST_F(Status, TheSampleRunsSucceed)
{
  std::string const source(INPDECK_SOURCE_DIR);
  std::string const start = "//     inpdeck ";
  files.Write("bracket.inp", TextOfFile(source + "/examples/bracket/bracket.inp"));
  std::istringstream head(TextOfFile(source + "/driver/main.cpp"));
  int samples = 0;
  for (std::string line; std::getline(head, line) && line.starts_with("//");)
  {
    if (!line.starts_with(start))
      continue;
    // What the run shows stands behind two blanks.
    std::string const command = line.substr(start.size());
    EXPECT_EQ(Run(Split(command.substr(0, command.find("  ")))).status, 0) << line;
    ++samples;
  }
  EXPECT_EQ(samples, 5);
}

} // namespace
