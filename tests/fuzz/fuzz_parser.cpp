// Reads any bytes as a deck, both as an analysis and as a host that only shows decks would, and
// prints what came of them. No deck may raise, assert, overrun or fail to come to an end.

#include "MemoryFile.h"
#include "aio_ostream.h"
#include "inp_Parser.h"
#include "inp_ParserExceptions.h"

#include <cstdint>
#include <sstream>
#include <string_view>

namespace
{

/// Asks of every cell, and of those just beyond, what a pass over the model may ask.
void ReadCells(inp_DataArray const& data)
{
  for (int i = 0; i < data.Rows(); ++i)
  {
    for (int j = 0; j < data.Cols(i); ++j)
    {
      Require(data.HasValue(i, j) == !data.IsNone(i, j));
      Require((data.Type(i, j) == inp_Types::inp_NONE) == data.IsNone(i, j));
      data.AsInt(i, j);
      data.AsDouble(i, j);
    }
    Require(!data.HasValue(i, data.Cols(i)));
  }
  Require(!data.HasValue(data.Rows(), 0));
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
    ReadCells(keyword.DeepCopy().data);
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static MemoryFile const file("fuzz_parser");
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
