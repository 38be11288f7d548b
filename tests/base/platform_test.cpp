#include "DeckFiles.h"
#include "VRXBasUtlFilePath.h"
#include "aio_ostream.h"
#include "eli_eostream.h"
#include "omi_Singleton.h"
#include "thr_ThreadSingleton.h"
#include "typ_DebugFlags.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

namespace
{

class FilePathTest : public testing::Test
{
protected:
  FilePathTest()
  {
    fs::create_directory(folder / "sub.dir");
    files.Write("deck.inp", "*NODE\n");
    fs::create_symlink("deck.inp", folder / "link.inp");
    fs::create_symlink("nowhere", folder / "dangling");
    ::mkfifo((folder / "pipe").c_str(), 0600);
  }

  VRXBasUtlFilePath In(char const* name) const
  {
    return {cow_String(folder.c_str()), cow_String(name)};
  }

  DeckFiles const files;
  fs::path const folder = files.Folder();
};

} // namespace

TEST_F(FilePathTest, TellsWhatStandsAtAPath)
{
  struct
  {
    char const* name;
    bool exists, isDir, isRegular;
  } const cases[] = {
    {"link.inp", true, false, true}, {"", true, true, false},
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
    {"a.b/deck", "deck", ""},
    {"job.1.odb", "job.1.odb", ".odb"},
    {"", "", ""},
    {"a/", "", ""},
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
  EXPECT_EQ(TextOfFile(files.Path("report")), "a\n1");
}

TEST(eli_eostream, WritesAllKindsAndFlushesAtItsEnd)
{
  std::ostringstream under;
  {
    aio_ostream target(under);
    eli_eostream stream(target);
    stream << "a" << cow_String(" b ") << 'c' << -5 << ' ' << 1500.0
           << static_cast<char const*>(nullptr) << '\n';
    EXPECT_TRUE(stream.Good());
    EXPECT_EQ(under.str(), "a b c-5 1500.\n");
    for (int i = 0; i < 20000; ++i)
      stream << 1234567890;
  }
  EXPECT_EQ(under.str().size(), 14u + 200000u);
}

TEST(typ_DebugFlags, PassesOverNumbersOutOfRange)
{
  for (int flag : {-1, typ_DebugFlags::Flags, 2147483647})
  {
    typ_DebugFlags::SetDebugFlags(flag, 1);
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(flag), 0);
  }
}

TEST(eli_eostream, TellsWhenTheTargetTakesNoMore)
{
  std::ofstream full("/dev/full");
  ASSERT_TRUE(full.is_open());
  eli_eostream stream(full, 80);
  EXPECT_TRUE(stream.Good());
  for (int i = 0; i < 20000; ++i)
    stream << "some text";
  EXPECT_FALSE(stream.Good());
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
  Single::Finalize();
  EXPECT_EQ(Single::Instance().value, 0);
  Single::Finalize();
}
