#include "inp_InputFile.h"

#include "VRXBasException.h"
#include "VRXBasUtlFilePath.h"
#include "eli_eostream.h"
#include "inp_DistributionTableDB.h"
#include "inp_Parser.h"
#include "inp_Utils.h"
#include "omi_Singleton.h"
#include "wip_WIP.h"

#include <cstring>

void inp_InputFile::Parse(cow_String fileName)
{
  inputFileName = fileName;
  thr_ThreadSingleton<inp_DistributionTableDB>::Instance().forgetDistTables();
  // Include files are known by their absolute paths, and so is the deck where they might lead back to it.
  cow_List<cow_String> const chain(VRXBasUtlFilePath(cow_String(), fileName).AbsolutePathName());
  inp_Parser parser(fileName, includePath, chain, cow_String(), true, true, false, 0, 0);
  keywords = parser.Parse(true);
  readerFacts = {parser.GetIncludedFiles(),
                 parser.GetMissingIncludeFiles(),
                 parser.NumberSkippedDataLines(),
                 parser.FirstSkippedLine(),
                 parser.TotalBytes(),
                 parser.FilesRead(),
                 parser.KeywordsLost(),
                 parser.FilesNamed()};

  wip_WIP& sink = omi_Singleton<wip_WIP>::Instance();
  if (parser.GetFatalErrors().Length() > 0)
  {
    sink.ErrorList(parser.GetFatalErrors(), wip_readerFatal);
  }
  if (parser.GetErrors().Length() > 0)
  {
    sink.ErrorList(parser.GetErrors(), wip_error);
  }
  if (parser.GetWarnings().Length() > 0)
  {
    sink.WarningList(parser.GetWarnings());
  }
}

void inp_InputFile::Print(eli_eostream& stream) const
{
  for (inp_Keyword const& keyword : keywords)
  {
    keyword.Print(stream, true);
  }
}

cow_String inp_InputFile::TakeOutSpacesOutsideQuoted(char const* text)
{
  constexpr int longest = 256;
  VRXBasAssert(inp_Utils::LengthWithoutSpaces(text) <= longest, "length < sizeof(buffer)");
  char const* const feed = std::strchr(text, '\n');
  std::size_t const length =
    feed != nullptr ? static_cast<std::size_t>(feed - text) + 1 : std::strlen(text);
  cow_String result;
  bool inQuotes = false;
  for (char const c : std::string_view(text, length))
  {
    inQuotes = inQuotes != (c == '"');
    if (inQuotes || (c != ' ' && c != '\t' && c != '\r'))
    {
      result.Append(c);
    }
  }
  return result;
}
