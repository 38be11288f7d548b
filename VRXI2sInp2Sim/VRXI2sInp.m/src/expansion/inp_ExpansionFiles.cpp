// Data files and manifests.

#include "VRXBasUtlFilePath.h"
#include "aio_ifstream.h"
#include "inp_ExpansionMessages.h"
#include "inp_KeywordEnm.h"
#include "inp_KeywordExpansionVisitor.h"
#include "inp_NamedFiles.h"
#include "inp_Parser.h"
#include "inp_ParserExceptions.h"
#include "inp_RawDataArrayImpl.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace
{

constexpr int c_longestLine = 256;
constexpr int c_longestItem = 255;

bool IsBlankRow(inp_RawDataArrayImpl const& data, int row)
{
  return data.Cols(row) == 0 || (data.Cols(row) == 1 && data.IsNone(row, 0));
}

/// Some item of a row has more characters than a rewritten item may have.
bool HasTooLongItem(inp_RawDataArrayImpl const& rows, int row)
{
  char const* cell = rows.RowText(row);
  for (int column = 0; column < rows.Cols(row); ++column, cell += std::strlen(cell) + 1)
  {
    if (inp_Utils::LengthWithoutSpaces(cell) > c_longestItem)
    {
      return true;
    }
  }
  return false;
}

/// False when an item is too long, and then the line is no row.
bool AppendLine(inp_RawDataArrayImpl& rows, char const* line, int length)
{
  rows.AppendLine(line, static_cast<std::size_t>(length));
  bool const isTooLong = length > c_longestItem && HasTooLongItem(rows, rows.Rows() - 1);
  if (isTooLong)
  {
    rows.RemoveLastRow();
  }
  return !isTooLong;
}

/// Turns a cell, in place, into the text that AsString gives: in upper case and without blanks, except
/// between quotes. Blanks fill the cell up to its old length. Returns the NUL that ends it.
char* CleanCell(char* from)
{
  // Most cells are clean already. Leading blanks may stay: all readers of a cell skip them.
  while (*from == ' ')
  {
    ++from;
  }
  auto const isClean = [](unsigned char c) { return c > ' ' && c != '"' && (c < 'a' || c > 'z'); };
  while (isClean(static_cast<unsigned char>(*from)))
  {
    ++from;
  }
  bool inQuotes = false;
  char* to = from;
  for (; *from != '\0'; ++from)
  {
    char const c = *from;
    inQuotes ^= c == '"';
    if (inQuotes)
    {
      *to++ = c;
    }
    else if (c != ' ' && c != '\t' && c != '\r')
    {
      *to++ = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
  }
  std::fill(to, from, ' ');
  return from;
}

bool IsComment(char const* line) { return line[0] == '*' && line[1] == '*'; }

/// A line of a keyword; an asterisk alone is data.
bool IsOption(char const* line) { return line[0] == '*' && line[1] != '\0' && line[1] != '*'; }

} // namespace

void inp_KeywordExpansionVisitor::ProcessInputParameter(inp_Keyword& keyword)
{
  inp_Item const* const item = keyword.parameters.ConstFind("input");
  if (item != nullptr)
  {
    bool const hasValue = item->Type() != inp_Types::inp_BOOLEAN;
    ReadInputParameter(hasValue ? item->AsString() : cow_String(), keyword);
    keyword.parameters.Remove("input");
  }
}

void inp_KeywordExpansionVisitor::ReadInputParameter(cow_String const& file, inp_Keyword& keyword)
{
  if (file.Length() == 0)
  {
    Say(inp_msgInputFileMissing, keyword);
    return;
  }
  cow_String const name = inp_Utils::WithoutQuotes(file);
  cow_String const path = FindFile(cow_String(), name, keyword);
  if (path.Length() == 0)
  {
    return;
  }
  includedFiles.Append(name);
  if (bulkDataProcess)
  {
    ReadDataLines(path, name, keyword);
    CleanRows(keyword);
  }
}

/// The absolute path of a file, looked for in the directory given and then in the include path. Empty,
/// with a message, when it cannot be read.
cow_String inp_KeywordExpansionVisitor::FindFile(cow_String const& directory,
                                                 cow_String const& file, inp_Keyword const& keyword)
{
  VRXBasUtlFilePath const path = inp_LookForFile(directory, file, includePath);
  if (!path.Exists())
  {
    Say(inp_msgInputFileDoesNotExist, keyword, file);
    if (file.Length() > 0 && !(file == "None") && (bulkDataProcess || !IsReference(file)))
    {
      NoteMissing(cow_List<cow_String>(path.FileName()));
    }
    return cow_String();
  }
  if (!path.IsReadable())
  {
    aio_FileRead forbidden;
    forbidden.path = path.AbsolutePathName();
    forbidden.error = EACCES;
    m_filesRead.Append(forbidden);
    Say(inp_msgInputFileNotReadable, keyword, file);
    return cow_String();
  }
  if (!path.IsRegular())
  {
    Say(inp_msgInputFileNotRegular, keyword, file);
    return cow_String();
  }
  return path.AbsolutePathName();
}

/// Keeps each name once.
void inp_KeywordExpansionVisitor::NoteMissing(cow_List<cow_String> const& names)
{
  for (cow_String const& name : names)
  {
    if (m_missingNames.insert(name).second)
    {
      missingIncludedFiles.Append(name);
    }
  }
}

/// Appends the lines of a data file to the keyword's rows. False when the reading was broken off.
bool inp_KeywordExpansionVisitor::ReadDataLines(cow_String const& path, cow_String const& file,
                                                inp_Keyword& keyword)
{
  aio_ifstream stream;
  bool const isOpened = stream.Open(path.CStr()) == aio_ifstream::aio_opened;
  if (!isOpened)
  {
    Say(inp_msgInputFileNotReadable, keyword, file);
  }
  bool const isRead = isOpened && AppendDataLines(stream, file, keyword);
  m_filesRead.Append(stream.Outcome(path));
  return isRead;
}

/// Appends the lines of a data file to the keyword's rows. False when the file holds a keyword.
bool inp_KeywordExpansionVisitor::AppendDataLines(aio_ifstream& stream, cow_String const& file,
                                                  inp_Keyword& keyword)
{
  auto* const rows = dynamic_cast<inp_RawDataArrayImpl*>(&keyword.data.Impl());
  int lineNumber = 0;
  bool lastIsEmpty = false;
  while (stream.ReadLine(c_longestLine))
  {
    ++lineNumber;
    lastIsEmpty = false;
    char const* const line = stream.Line();
    if (stream.CutBytes() > 0)
    {
      Say(inp_msgDataFileLineTruncated, keyword, lineNumber, file);
    }
    if (IsComment(line))
    {
      if (std::strstr(line, "** encrypted input") == nullptr)
      {
        continue;
      }
      stream.CallUnfit("it is encrypted");
      Say(inp_msgInputFileNotReadable, keyword, file);
      return false;
    }
    if (IsOption(line))
    {
      Say(inp_msgDataFileHoldsKeyword, keyword, file, cow_String(keyword.Name()).ToUpper());
      return false;
    }
    if (rows == nullptr)
    {
      keyword.data.Append(line);
      continue;
    }
    if (!AppendLine(*rows, line, stream.LineLength()))
    {
      Say(inp_msgDataFileItemTooLong, keyword, lineNumber, file);
    }
    lastIsEmpty = stream.LineLength() == 0;
  }
  SayHowReadingEnded(stream, file, lineNumber, keyword);
  // A line feed at the very end of a file begins no row.
  if (lastIsEmpty && rows != nullptr)
  {
    rows->RemoveLastRow();
  }
  return true;
}

void inp_KeywordExpansionVisitor::SayHowReadingEnded(aio_ifstream const& stream,
                                                     cow_String const& file, int lines,
                                                     inp_Keyword const& keyword)
{
  if (stream.Failed())
  {
    Say(inp_msgDataFileReadFailed, keyword, file, lines);
  }
  if (stream.HasChanged())
  {
    Say(inp_msgDataFileChanged, keyword, file);
  }
}

/// Removes blank rows from the end of the data and cleans the cells of the others. Rows of *NODE and
/// *ELEMENT hold numbers, which need no cleaning.
void inp_KeywordExpansionVisitor::CleanRows(inp_Keyword& keyword)
{
  inp_RawDataArrayImpl* const rows = dynamic_cast<inp_RawDataArrayImpl*>(&keyword.data.Impl());
  if (rows == nullptr)
  {
    return;
  }
  while (rows->Rows() > 0 && IsBlankRow(*rows, rows->Rows() - 1))
  {
    rows->RemoveLastRow();
  }
  bool const areNumbers = keyword.Is(inp_kwNode) || keyword.Is(inp_kwElement);
  for (int row = 0; row < rows->Rows() && !areNumbers; ++row)
  {
    char* cell = rows->RowText(row);
    for (int cells = rows->Cols(row); cells > 0; --cells)
    {
      cell = CleanCell(cell) + 1;
    }
  }
}

void inp_KeywordExpansionVisitor::VisitManifest(inp_Keyword& keyword)
{
  Expand(keyword);
  MeetsRequirements(keyword);
  hasManifest = true;
  if (!expandManifest)
  {
    return;
  }
  inp_DataArray const data(keyword.data);
  for (int row = 0; row < data.Rows(); ++row)
  {
    if (data.Type(row, 0) == inp_Types::inp_STRING)
    {
      ReadManifestFile(data.AsStringVerbatim(row, 0), keyword);
    }
  }
}

/// Reads and expands a whole deck. Manifests in it are not followed.
void inp_KeywordExpansionVisitor::ReadManifestFile(cow_String const& file, inp_Keyword& keyword)
{
  if (file.Length() == 0)
  {
    Say(inp_msgInputFileMissing, keyword);
    return;
  }
  cow_String const name = inp_ManifestDeckName(file);
  cow_String const path = FindFile(inp_ManifestDirectory(), name, keyword);
  if (path.Length() == 0)
  {
    return;
  }
  includedFiles.Append(name);
  cow_List<inp_Keyword> keywords;
  if (!ParseManifest(path, keyword, keywords))
  {
    return;
  }
  inp_KeywordExpansionVisitor nested;
  nested.SetIncludePath(includePath);
  nested.SetNumberSteps(numberSteps);
  nested.SetNumberRestartSteps(numberRestartSteps);
  nested.SetResultsFormatOdb(resultsFormatOdb);
  try
  {
    nested.VisitList(keywords);
  }
  catch (...)
  {
    TakeOver(nested);
    throw;
  }
  TakeOver(nested);
  manifestKeywords.Concatenate(keywords);
}

/// False, with a fatal error, when the deck cannot be opened.
bool inp_KeywordExpansionVisitor::ParseManifest(cow_String const& path, inp_Keyword const& keyword,
                                                cow_List<inp_Keyword>& keywords)
{
  inp_Parser parser(path, includePath, cow_List<cow_String>(), cow_String(), true, true, false, 0,
                    0);
  try
  {
    keywords = parser.Parse(true);
  }
  catch (nex_AtrException const& fault)
  {
    m_fatalErrorList.Append(inp_Utils::MessageInKeyword(keyword, fault.UserReport()));
    m_filesRead.Concatenate(parser.FilesRead());
    return false;
  }
  includedFiles.Concatenate(parser.GetIncludedFiles());
  NoteMissing(parser.GetMissingIncludeFiles());
  m_warningList.Concatenate(parser.GetWarnings());
  m_errorList.Concatenate(parser.GetErrors());
  m_fatalErrorList.Concatenate(parser.GetFatalErrors());
  m_filesRead.Concatenate(parser.FilesRead());
  m_keywordsLost += parser.KeywordsLost();
  return true;
}

/// Takes over what the walk over a manifest's deck has collected.
void inp_KeywordExpansionVisitor::TakeOver(inp_KeywordExpansionVisitor const& nested)
{
  includedFiles.Concatenate(nested.includedFiles);
  m_filesRead.Concatenate(nested.m_filesRead);
  NoteMissing(nested.missingIncludedFiles);
  m_warningList.Concatenate(nested.m_warningList);
  m_errorList.Concatenate(nested.m_errorList);
  m_fatalErrorList.Concatenate(nested.m_fatalErrorList);
}
