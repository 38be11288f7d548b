#include "VRXBasUtlFilePath.h"
#include "aio_ostream.h"
#include "eli_eostream.h"
#include "omi_Singleton.h"
#include "omi_Timer.h"
#include "pnt_debugPrint.h"
#include "thr_ThreadSingleton.h"
#include "typ_DebugFlags.h"
#include "utl_CommandLine.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{

class FilePathTest : public testing::Test
{
protected:
  FilePathTest()
    : folder(fs::canonical(fs::temp_directory_path()) /
             ("base_paths_" + std::to_string(::getpid())))
  {
    fs::create_directories(folder / "sub.dir");
    std::ofstream(folder / "deck.inp") << "*NODE\n";
    fs::create_symlink("deck.inp", folder / "link.inp");
    fs::create_symlink("nowhere", folder / "dangling");
    ::mkfifo((folder / "pipe").c_str(), 0600);
  }
  ~FilePathTest() override
  {
    std::error_code error;
    fs::remove_all(folder, error);
  }

  VRXBasUtlFilePath In(char const* name) const
  {
    return {cow_String(folder.c_str()), cow_String(name)};
  }

  fs::path const folder;
};

} // namespace

TEST_F(FilePathTest, TellsWhatStandsAtAPath)
{
  struct
  {
    char const* name;
    bool exists, isDir, isRegular;
  } const cases[] = {
    {"deck.inp", true, false, true}, {"link.inp", true, false, true},
    {"sub.dir", true, true, false},  {"", true, true, false},
    {"pipe", true, false, false},    {"dangling", false, false, false},
    {"none", false, false, false},   {"deck.inp/below", false, false, false},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.name);
    VRXBasUtlFilePath const path = In(c.name);
    EXPECT_EQ(path.Exists(), c.exists);
    EXPECT_EQ(path.IsReadable(), c.exists);
    EXPECT_EQ(path.IsDir(), c.isDir);
    EXPECT_EQ(path.IsRegular(), c.isRegular);
  }
  VRXBasUtlFilePath const cut(cow_String(folder.c_str()), cow_String("deck.inp\0.x", 11));
  EXPECT_FALSE(cut.Exists());
  EXPECT_FALSE(VRXBasUtlFilePath().Exists());
  EXPECT_FALSE(VRXBasUtlFilePath("", cow_String(std::string(5000, 'x'))).Exists());
}

TEST_F(FilePathTest, JoinsAndTakesApart)
{
  cow_String const deck((folder / "deck.inp").c_str());
  EXPECT_EQ(In("deck.inp").AbsolutePathName(), deck);
  EXPECT_EQ(In("link.inp").AbsolutePathName(), deck);
  EXPECT_EQ(In("sub.dir/../deck.inp").AbsolutePathName(), deck);
  EXPECT_EQ(VRXBasUtlFilePath("/elsewhere", deck).AbsolutePathName(), deck);
  EXPECT_EQ(VRXBasUtlFilePath("/a/b", "../c/./d.inp").AbsolutePathName(), "/a/c/d.inp");
  EXPECT_EQ(VRXBasUtlFilePath("", "no.such").AbsolutePathName(),
            cow_String((fs::current_path() / "no.such").c_str()));
  EXPECT_EQ(VRXBasUtlFilePath("", "no.such").Path(), "no.such");

  struct
  {
    char const* path;
    char const* name;
    char const* extension;
  } const cases[] = {
    {"/a/b.c/deck.inp", "deck.inp", ".inp"}, {"deck", "deck", ""}, {"a.b/deck", "deck", ""},
    {"job.1.odb", "job.1.odb", ".odb"},      {"", "", ""},         {"a/", "", ""},
  };
  for (auto const& c : cases)
  {
    VRXBasUtlFilePath path;
    path.SetFilePath("", c.path);
    EXPECT_EQ(path.FileName(), c.name) << c.path;
    EXPECT_EQ(path.Extension(), c.extension) << c.path;
  }
}

TEST_F(FilePathTest, FileStreamTellsFailure)
{
  aio_ofstream stream;
  EXPECT_FALSE(stream.open(In("no/such/folder")));
  EXPECT_TRUE(stream.fail());
  EXPECT_TRUE(stream.close());
  ASSERT_TRUE(stream.open(In("report")));
  stream << cow_String("a\n") << 1;
  EXPECT_TRUE(stream.close());
  std::stringstream written;
  written << std::ifstream(folder / "report").rdbuf();
  EXPECT_EQ(written.str(), "a\n1");
}

TEST(eli_eostream, WritesAllKindsAndFlushesAtItsEnd)
{
  std::ostringstream under;
  {
    aio_ostream target(under);
    eli_eostream stream(target);
    EXPECT_EQ(stream.LineWidth(), 1024);
    stream << "a" << cow_String(" b ") << 'c' << -5 << ' ' << 1500.0
           << static_cast<char const*>(nullptr) << '\n';
    EXPECT_TRUE(stream.Good());
    EXPECT_EQ(under.str(), "a b c-5 1500.\n");
    for (int i = 0; i < 20000; ++i)
      stream << 1234567890;
  }
  EXPECT_EQ(under.str().size(), 14u + 200000u);
}

TEST(eli_eostream, TellsWhenTheTargetTakesNoMore)
{
  std::ofstream full("/dev/full");
  ASSERT_TRUE(full.is_open());
  eli_eostream stream(full, 80);
  EXPECT_EQ(stream.LineWidth(), 80);
  EXPECT_TRUE(stream.Good());
  for (int i = 0; i < 20000; ++i)
    stream << "some text";
  EXPECT_FALSE(stream.Good());
}

TEST(pnt_debugPrint, GivesOutWhatStandsBetweenItsMarks)
{
  std::ostringstream target;
  pnt_debugPrint().SetTarget(&target);
  pnt_debugPrint().StartDebug() << "Elapsed time: " << 0.25 << "  " << 3 << '\n';
  EXPECT_EQ(target.str(), "");
  pnt_debugPrint().EndDebug();
  EXPECT_EQ(target.str(), "Elapsed time: 0.25  3\n");
  pnt_debugPrint().EndDebug() << "at once";
  EXPECT_EQ(target.str(), "Elapsed time: 0.25  3\nat once");
  pnt_debugPrint().SetTarget(nullptr);
}

TEST(typ_DebugFlags, HoldsALevelForEachNumber)
{
  EXPECT_EQ(typ_DebugFlags::GetDebugFlags(30), 0);
  typ_DebugFlags::SetDebugFlags(30, 2);
  EXPECT_EQ(typ_DebugFlags::GetDebugFlags(30), 2);
  EXPECT_EQ(typ_DebugFlags::GetDebugFlags(31), 0);
  typ_DebugFlags::SetDebugFlags(30, 0);
  for (int flag : {-1, typ_DebugFlags::Flags, 2147483647})
  {
    typ_DebugFlags::SetDebugFlags(flag, 1);
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(flag), 0);
  }
}

TEST(utl_CommandLine, KeepsNamedOptions)
{
  utl_CommandLine& line = utl_CommandLine::Instance();
  line.SetOption("indir", "/a");
  line.SetOption("indir", "/b");
  line.SetOption("restart", "");
  EXPECT_EQ(line.Option("indir"), "/b");
  EXPECT_TRUE(line.HasOption("restart"));
  EXPECT_FALSE(line.HasOption("oldjob"));
  EXPECT_EQ(line.Option("oldjob"), "");
  line.Clear();
  EXPECT_FALSE(line.HasOption("indir"));
}

TEST(omi_Timer, HoldsItsTimesAfterStop)
{
  omi_Timer timer;
  std::this_thread::sleep_for(std::chrono::milliseconds(5));
  timer.Stop();
  double const elapsed = timer.ElapsedSeconds();
  EXPECT_GE(elapsed, 0.005);
  EXPECT_GE(timer.CpuSeconds(), 0.0);
  std::this_thread::sleep_for(std::chrono::milliseconds(2));
  timer.Stop();
  EXPECT_EQ(timer.ElapsedSeconds(), elapsed);
  timer.Start();
  EXPECT_LT(timer.ElapsedSeconds(), 60.0);
}

namespace
{

// Notes its building and its end in a list that outlives it.
thread_local std::vector<std::string>* notes = nullptr;

template <int Level, char Name>
class Noted : public thr_ThreadSingletonBase<Noted<Level, Name>>
{
  friend class thr_ThreadSingleton<Noted>;
  Noted()
  {
    this->SetDestructLevel(Level);
    notes->push_back(std::string("+") + Name);
  }

public:
  ~Noted() { notes->push_back(std::string("-") + Name); }
};

template <int Level, char Name>
void Touch()
{
  thr_ThreadSingleton<Noted<Level, Name>>::Instance();
}

// Needs another singleton while it ends.
class LateUser : public thr_ThreadSingletonBase<LateUser>
{
public:
  ~LateUser() { Touch<5, 'z'>(); }
};

} // namespace

TEST(thr_ThreadSingleton, EndsByLevelThenBackwards)
{
  std::vector<std::string> mine;
  notes = &mine;
  Touch<9, 'a'>();
  Touch<0, 'b'>();
  Touch<0, 'c'>();
  Touch<9, 'a'>();
  thr_ThreadSingleton<LateUser>::Instance();
  thr_ThrSingletonRegistry::FinalizeAll();
  EXPECT_EQ(mine, (std::vector<std::string>{"+a", "+b", "+c", "+z", "-c", "-b", "-z", "-a"}));
  thr_ThrSingletonRegistry::FinalizeAll();
  EXPECT_EQ(mine.size(), 8u);
  notes = nullptr;
}

TEST(thr_ThreadSingleton, IsEachThreadsOwnAndEndsWithIt)
{
  std::vector<std::string> mine;
  std::vector<std::string> others;
  notes = &mine;
  Touch<1, 'a'>();
  std::thread(
    [&others]
    {
      notes = &others;
      Touch<1, 'a'>();
      Touch<0, 'b'>();
    })
    .join();
  EXPECT_EQ(others, (std::vector<std::string>{"+a", "+b", "-b", "-a"}));
  EXPECT_EQ(mine, (std::vector<std::string>{"+a"}));
  thr_ThreadSingleton<Noted<1, 'a'>>::Finalize();
  Touch<1, 'a'>();
  thr_ThrSingletonRegistry::FinalizeAll();
  EXPECT_EQ(mine, (std::vector<std::string>{"+a", "-a", "+a", "-a"}));
  notes = nullptr;
}

TEST(thr_GlobalSingleton, IsOneForAllThreadsUntilFinalized)
{
  struct Counter
  {
    int value = 0;
  };
  using Single = thr_GlobalSingleton<Counter>;
  Single::Instance().value = 7;
  int seen = 0;
  std::thread([&seen] { seen = Single::Instance().value; }).join();
  EXPECT_EQ(seen, 7);
  EXPECT_EQ(&omi_Singleton<Counter>::Instance(), &omi_Singleton<Counter>::Instance());
  Single::Finalize();
  EXPECT_EQ(Single::Instance().value, 0);
  Single::Finalize();
}
