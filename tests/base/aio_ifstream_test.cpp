#include "aio_ifstream.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "DeckFiles.h"

namespace
{

struct Line
{
  std::string text;
  int cut;
  bool fed;
  bool operator==(Line const&) const = default;
};

std::vector<Line> LinesOf(std::string const& path, int limit)
{
  std::vector<Line> lines;
  aio_ifstream file;
  EXPECT_EQ(file.Open(path.c_str()), aio_ifstream::aio_opened);
  while (file.ReadLine(limit))
  {
    std::string const text(file.Line(), static_cast<std::size_t>(file.LineLength()));
    EXPECT_EQ(file.Line()[file.LineLength()], '\0');
    EXPECT_TRUE(file.MayHoldAsterisk() || text.find('*') == std::string::npos ||
                file.CutBytes() != 0);
    lines.push_back({text, file.CutBytes(), file.EndedByLineFeed()});
  }
  EXPECT_FALSE(file.ReadLine(limit)) << "the end is the end";
  return lines;
}

std::vector<Line> Divided(std::string const& text, std::size_t limit)
{
  std::vector<Line> lines;
  for (std::size_t begin = 0; begin < text.size();)
  {
    std::size_t const feed = std::min(text.find('\n', begin), text.size());
    std::size_t const cut = feed - begin - std::min(limit, feed - begin);
    lines.push_back({text.substr(begin, std::min(limit, feed - begin)),
                     static_cast<int>(std::min<std::size_t>(cut, 2)), feed < text.size()});
    begin = feed + 1;
  }
  return lines;
}

} // namespace

TEST(aio_ifstream, HandsOutTheLinesOfAnyFile)
{
  DeckFiles files;
  std::mt19937 random(3);
  for (int run = 0; run < 60; ++run)
  {
    // Lines about the limit, and some longer than a chunk of 64 kB, lie anywhere across its ends.
    std::string text;
    while (text.size() < 70000 * (random() % 4))
    {
      std::size_t const length = random() % 40 == 0 ? random() % 200000 : random() % 300;
      text += std::string(length, static_cast<char>('a' + random() % 26)) + "\n";
      text.insert(text.size() - 1, random() % 30 == 0 ? "*" : "");
    }
    text += std::string(random() % 3 * 65536 + random() % 3, '*');
    files.Write("f", text);
    for (int const limit : {256, 1023})
      ASSERT_EQ(LinesOf(files.Path("f"), limit), Divided(text, static_cast<std::size_t>(limit)))
        << run;
  }
}

TEST(aio_ifstream, ReadsBytesAsTheyStandButForTheseExceptions)
{
  struct
  {
    std::string text;
    std::vector<Line> lines;
    bool hasNul;
  } const cases[] = {
    {"", {}, false},
    {"\n", {{"", 0, true}}, false},
    {"\xef\xbb\xbf", {}, false},
    {"\xef\xbb\xbf*A\r\n", {{"*A\r", 0, true}}, false},
    {"\xef\xbb", {{"\xef\xbb", 0, false}}, false},
    {std::string("a\0b\n\0", 5), {{"a b", 0, true}, {" ", 0, false}}, true},
    {"\xe4\xff\x1a", {{"\xe4\xff\x1a", 0, false}}, false},
  };
  DeckFiles files;
  for (auto const& c : cases)
  {
    files.Write("f", c.text);
    EXPECT_EQ(LinesOf(files.Path("f"), 256), c.lines) << c.text;
    aio_ifstream file;
    file.Open(files.Path("f").c_str());
    while (file.ReadLine(10))
      ;
    EXPECT_EQ(file.HasNulBytes(), c.hasNul);
    EXPECT_EQ(file.BytesRead(), static_cast<long long>(c.text.size()));
  }
}

TEST(aio_ifstream, TellsWhenSomebodyWritesToTheFileMeanwhile)
{
  DeckFiles files;
  std::string const line(99, 'x');
  std::string text;
  for (int i = 0; i < 2000; ++i)
    text += line + "\n";
  std::pair<char const*, std::function<void(std::string const&)>> const cases[] = {
    {"", [](std::string const&) {}},
    {"it shrinks", [](std::string const& path) { std::filesystem::resize_file(path, 70000); }},
    {"it grows", [](std::string const& path) { std::ofstream(path, std::ios::app) << "y\n"; }},
    {"it is written anew", [&](std::string const& path) { std::ofstream(path) << text; }},
  };
  aio_ifstream file;
  for (auto const& [what, act] : cases)
  {
    std::string const path = files.Path("f");
    files.Write("f", text);
    // As old as files are that were not written to just now: its time is sure to change.
    std::filesystem::last_write_time(path, std::filesystem::file_time_type());
    ASSERT_EQ(file.Open(path.c_str()), aio_ifstream::aio_opened);
    ASSERT_TRUE(file.ReadLine(256));
    act(path);
    EXPECT_FALSE(file.HasChanged());
    while (file.ReadLine(256))
      EXPECT_GT(file.LineLength(), 0) << what;
    EXPECT_EQ(file.HasChanged(), what[0] != '\0') << what;
    EXPECT_FALSE(file.Failed()) << what;
    aio_FileRead const outcome = file.Outcome("f");
    EXPECT_EQ(outcome.IsWhole(), what[0] == '\0') << what;
    struct stat status = {};
    ::stat(path.c_str(), &status);
    EXPECT_EQ(outcome.id, (aio_FileId{status.st_dev, status.st_ino}));
  }
  EXPECT_EQ(file.Open(files.Path("absent").c_str()), aio_ifstream::aio_missing);
  EXPECT_EQ(file.Outcome("absent").error, ENOENT);
  EXPECT_EQ(file.Outcome("absent").id, aio_FileId());
}

TEST(aio_ifstream, OpensRegularFilesOnly)
{
  DeckFiles files;
  files.Write("le", "\xff\xfe*");
  files.Write("be", "\xfe\xff*");
  files.Write("file", "a\n");
  std::filesystem::create_symlink("file", files.Path("link"));
  std::filesystem::create_symlink("nowhere", files.Path("dangling"));
  ASSERT_EQ(::mkfifo(files.Path("pipe").c_str(), 0600), 0);
  aio_ifstream file;
  std::pair<std::string, aio_ifstream::openEnm> const cases[] = {
    {files.Path("link"), aio_ifstream::aio_opened},
    {files.Path("absent"), aio_ifstream::aio_missing},
    {files.Path("dangling"), aio_ifstream::aio_missing},
    {"", aio_ifstream::aio_missing},
    {files.Folder(), aio_ifstream::aio_notRegular},
    {files.Path("pipe"), aio_ifstream::aio_notRegular},
    {"/dev/null", aio_ifstream::aio_notRegular},
    {files.Path("le"), aio_ifstream::aio_utf16},
    {files.Path("be"), aio_ifstream::aio_utf16},
  };
  for (auto const& [path, outcome] : cases)
  {
    EXPECT_EQ(file.Open(path.c_str()), outcome) << path;
    EXPECT_EQ(file.IsOpen(), outcome == aio_ifstream::aio_opened) << path;
    EXPECT_EQ(file.ReadLine(10), outcome == aio_ifstream::aio_opened) << path;
  }
}
