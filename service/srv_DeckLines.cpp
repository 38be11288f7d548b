#include "srv_DeckLines.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <sys/stat.h>

namespace
{

constexpr int c_spacing = 64;
constexpr std::size_t c_longest = 1000;
constexpr std::size_t c_chunk = 65536;

struct Close
{
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

File Open(std::string const& name)
{
  struct stat status = {};
  bool const isRegular = ::stat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode);
  return File(isRegular ? std::fopen(name.c_str(), "rb") : nullptr);
}

/// Adds the beginnings of lines behind the last one known until there are enough of them.
bool Extend(std::FILE* file, std::vector<long>& begins, std::size_t wanted)
{
  std::vector<char> chunk(c_chunk);
  long at = begins.back();
  std::fseek(file, at, SEEK_SET);
  int lines = 0;
  while (begins.size() < wanted)
  {
    std::size_t const length = std::fread(chunk.data(), 1, chunk.size(), file);
    if (length == 0)
    {
      return false;
    }
    char const* const end = chunk.data() + length;
    char const* from = chunk.data();
    while (auto const* feed = static_cast<char const*>(
             std::memchr(from, '\n', static_cast<std::size_t>(end - from))))
    {
      from = feed + 1;
      if (++lines % c_spacing == 0)
      {
        begins.push_back(at + (from - chunk.data()));
      }
    }
    at += static_cast<long>(length);
  }
  return true;
}

/// Reads up to the end of the line; false when the file has no such line.
bool ReadLine(std::FILE* file, std::string& line)
{
  line.clear();
  int c = std::getc(file);
  if (c == EOF)
  {
    return false;
  }
  for (; c != EOF && c != '\n'; c = std::getc(file))
  {
    if (line.size() < c_longest)
    {
      line += static_cast<char>(c);
    }
  }
  if (!line.empty() && line.back() == '\r')
  {
    line.pop_back();
  }
  return true;
}

void DropByteOrderMark(std::string& line)
{
  if (line.starts_with("\xEF\xBB\xBF"))
  {
    line.erase(0, 3);
  }
}

} // namespace

std::optional<std::string> srv_DeckLines::Line(std::string const& file, int line)
{
  File const stream = line > 0 ? Open(file) : nullptr;
  if (stream == nullptr)
  {
    return std::nullopt;
  }
  Index& index = m_indices[file];
  std::size_t const block = static_cast<std::size_t>((line - 1) / c_spacing);
  if (block >= index.begins.size() && !index.isWhole)
  {
    index.isWhole = !Extend(stream.get(), index.begins, block + 1);
  }
  if (block >= index.begins.size())
  {
    return std::nullopt;
  }
  std::fseek(stream.get(), index.begins[block], SEEK_SET);
  std::string text;
  for (int left = (line - 1) % c_spacing; left >= 0; --left)
  {
    if (!ReadLine(stream.get(), text))
    {
      return std::nullopt;
    }
  }
  if (line == 1)
  {
    DropByteOrderMark(text);
  }
  return text;
}
