// Reads any bytes as a deck, both as an analysis and as a host that only shows decks would, and
// prints what came of them. No deck may raise, assert, overrun or fail to come to an end.

#include "aio_ostream.h"
#include "inp_Parser.h"
#include "inp_ParserExceptions.h"

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

/// A file in memory that the parser opens by its name.
class MemoryFile
{
public:
  MemoryFile()
    : m_descriptor(::memfd_create("fuzz_parser", MFD_CLOEXEC)),
      m_name("/proc/self/fd/" + std::to_string(m_descriptor))
  {
  }

  void Fill(std::uint8_t const* data, std::size_t size) const
  {
    bool const filled = ::ftruncate(m_descriptor, 0) == 0 &&
                        ::pwrite(m_descriptor, data, size, 0) == static_cast<ssize_t>(size);
    if (!filled)
    {
      std::abort();
    }
  }

  cow_String Name() const { return m_name.c_str(); }

private:
  int m_descriptor;
  std::string m_name;
};

void Require(bool holds)
{
  if (!holds)
  {
    std::abort();
  }
}

void ReadAndPrint(cow_String const& file, bool strict, int lines)
{
  inp_Parser parser(file, "", cow_List<cow_String>(), "", strict, true, !strict, 0, 0);
  cow_List<inp_Keyword> const keywords = parser.Parse(strict);
  if (parser.GetIncludedFiles().Length() == 0)
  {
    Require(keywords.Length() <= lines);
    Require(parser.GetErrors().Length() <= 27 && parser.GetFatalErrors().Length() <= 27);
  }
  std::ostringstream text;
  aio_ostream stream(text);
  for (inp_Keyword const& keyword : keywords)
  {
    keyword.Print(stream, true);
    keyword.Print(true);
    keyword.DeepCopy();
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static MemoryFile const file;
  file.Fill(data, size);
  int lines = 1;
  for (std::size_t i = 0; i < size; ++i)
  {
    lines += data[i] == '\n';
  }
  try
  {
    ReadAndPrint(file.Name(), true, lines);
    ReadAndPrint(file.Name(), false, lines);
  }
  catch (nex_AtrException const& refused)
  {
    Require(std::string_view(refused.GetCode()) == "FileIsUtf16");
  }
  return 0;
}
