#include "VRXBasUtlFilePath.h"
#include "inp_Parser.h"
#include "inp_ParserExceptions.h"
#include "inp_ReaderMessages.h"
#include "inp_Utils.h"
#include "pnt_debugPrint.h"
#include "typ_DebugFlags.h"

#include <algorithm>
#include <cerrno>
#include <memory>

namespace
{

constexpr int c_debugFlag = 30;

bool IsDebugging() { return typ_DebugFlags::GetDebugFlags(c_debugFlag) >= 2; }

/// The first parameter in map order whose name is an abbreviation of `fullName`.
inp_Item const* FindAbbreviated(inp_Keyword const& keyword, cow_String const& fullName)
{
  cow_ConstMapIterator<cow_String, inp_Item> parameter(keyword.parameters);
  for (parameter.First(); !parameter.IsDone(); parameter.Next())
  {
    cow_String const& name = parameter.CurrentKey();
    if (name.Length() > 0 && name == fullName.Substr(0, name.Length()))
    {
      return keyword.parameters.ConstFind(name);
    }
  }
  return nullptr;
}

/// A parameter without a value has no text.
cow_String TextOf(inp_Item const* item)
{
  return item != nullptr && !item->HasNoValue() ? item->AsString() : cow_String();
}

} // namespace

cow_List<inp_Keyword> inp_Parser::IncludeFile(inp_Keyword const& includeKeyword)
{
  cow_String const name =
    inp_Utils::WithoutQuotes(TextOf(FindAbbreviated(includeKeyword, "input")));
  cow_String const password = TextOf(FindAbbreviated(includeKeyword, "password"));
  int startLine = 0;
  int endLine = 0;
  if (password.Length() == 0)
  {
    ReadLineRange(includeKeyword, startLine, endLine);
  }
  cow_String const path = FindIncludeFile(name);
  m_includedFiles.Append(name);

  // On the heap: files may be nested deeper than a small stack would hold.
  auto const child = std::make_unique<inp_Parser>(path, m_directoryName, m_includeChain, password,
                                                  m_throwOnDecryptFailure, m_keepData, m_rawSource,
                                                  startLine, endLine);
  child->m_includeLevel = m_includeLevel + 1;
  cow_List<inp_Keyword> included = ParseChild(*child);
  MergeFrom(*child);
  TakeUpSkippedLines(*child);
  TakeUpFollowingLines(included);
  return included;
}

/// Reads the included file. One that cannot be opened is among the files read all the same.
cow_List<inp_Keyword> inp_Parser::ParseChild(inp_Parser& child)
{
  try
  {
    return child.Parse(m_strict);
  }
  catch (nex_AtrException const&)
  {
    m_filesRead.Concatenate(child.m_filesRead);
    throw;
  }
}

/// The range of lines that STARTLINE and ENDLINE choose, the first line of the file being 1. For a range
/// that makes no sense there is an error, and the whole file is read.
void inp_Parser::ReadLineRange(inp_Keyword const& includeKeyword, int& startLine, int& endLine)
{
  inp_Item const* const start = includeKeyword.parameters.ConstFind("startline");
  inp_Item const* const end = includeKeyword.parameters.ConstFind("endline");
  if (start == nullptr && end == nullptr)
  {
    return;
  }
  int first = start != nullptr ? start->AsInt() : 0;
  int const last = end != nullptr ? end->AsInt() : 0;
  if (IsDebugging())
  {
    pnt_debugPrint().StartDebug() << "StartLine: \"" << first << "\"EndLine: \"" << last << "\"\n";
    pnt_debugPrint().EndDebug();
  }
  if (start == nullptr || end == nullptr)
  {
    saveError(atr_Say(inp_msgLineRangeIncomplete));
    first = 0;
  }
  if (first <= 0)
  {
    saveError(atr_Say(inp_msgStartLineNotPositive, first));
  }
  else if (last < first)
  {
    saveError(atr_Say(inp_msgEndLineBelowStartLine, last, first));
  }
  else
  {
    startLine = first;
    endLine = last;
  }
}

/// The absolute path of the file, which is looked for in the working directory and then in the include
/// directory.
cow_String inp_Parser::FindIncludeFile(cow_String const& name)
{
  if (name.Length() == 0)
  {
    throw inp_NoInputParameterException(m_keywordLine, m_fileName);
  }
  if (name.CStr()[0] == '<' && name.CStr()[name.Length() - 1] == '>')
  {
    throw inp_ParameterizedIncludeFileException(m_keywordLine, m_fileName, name);
  }
  VRXBasUtlFilePath path(cow_String(), name);
  if (!path.Exists())
  {
    path.SetFilePath(m_directoryName, name);
  }
  CheckIncludeFile(path, name);
  cow_String const absolute = path.AbsolutePathName();
  if (m_includeChain.IsMember(absolute))
  {
    throw inp_CircularIncludeFileException(m_keywordLine, m_fileName, name);
  }
  if (m_includeLevel >= c_deepestInclude)
  {
    throw nex_AtrException(atr_Say(inp_msgIncludesTooDeep, name, c_deepestInclude));
  }
  return absolute;
}

/// Raises what keeps the file at `path` from being read; `name` is its name in the deck.
void inp_Parser::CheckIncludeFile(VRXBasUtlFilePath const& path, cow_String const& name)
{
  if (!path.Exists())
  {
    if (!(name == "None"))
    {
      m_missingIncludeFiles.AppendUnlessMember(path.FileName());
    }
    throw inp_MissingIncludeFileException(m_keywordLine, m_fileName, name);
  }
  if (!path.IsReadable())
  {
    aio_FileRead forbidden;
    forbidden.path = path.AbsolutePathName();
    forbidden.error = EACCES;
    m_filesRead.Append(forbidden);
    throw inp_UnreadableIncludeFileException(m_keywordLine, m_fileName, name);
  }
  if (path.IsDir())
  {
    throw nex_AtrException(atr_Say(inp_msgIncludeFileIsDirectory, name));
  }
  if (!path.IsRegular())
  {
    throw nex_AtrException(atr_Say(inp_msgIncludeFileNotRegular, name));
  }
}

/// Takes over what the included file has brought, but for its warnings.
void inp_Parser::MergeFrom(inp_Parser const& child)
{
  m_errors.Concatenate(child.m_errors);
  m_fatalErrors.Concatenate(child.m_fatalErrors);
  for (cow_String const& name : child.m_includedFiles)
  {
    m_includedFiles.AppendUnlessMember(name);
  }
  for (cow_String const& name : child.m_missingIncludeFiles)
  {
    m_missingIncludeFiles.AppendUnlessMember(name);
  }
  m_filesRead.Concatenate(child.m_filesRead);
  m_filesNamed.Concatenate(child.m_filesNamed);
  m_keywordsLost += child.m_keywordsLost;
  m_totalBytes += child.m_totalBytes;
}

/// Data lines at the head of an included file belong to the keyword above the *INCLUDE:
///
///     *NODE                       nodes.inp:   1, 0., 0.      both rows are
///     *INCLUDE, INPUT=nodes.inp                2, 1., 0.      rows of *NODE
///
/// A whole mesh may come this way, so the blocks of the rows change their owner and are not copied.
void inp_Parser::TakeUpSkippedLines(inp_Parser& child)
{
  inp_RawDataArrayImpl& lines = child.m_skippedDataLines;
  if (m_keywords.Length() == 0)
  {
    if (lines.Rows() > 0 && m_firstSkippedLine == 0)
    {
      m_firstSkippedLine = m_keywordLine;
    }
    for (LongLine const& line : child.m_longSkipped)
    {
      m_longSkipped.push_back({m_skippedDataLines.Rows() + line.row, line.origin});
    }
    for (int row = 0; row < lines.Rows(); ++row)
    {
      m_skippedDataLines.TakeRow(lines, row);
    }
    return;
  }
  int added = 0;
  for (int row = 0; row < lines.Rows(); ++row)
  {
    added += TakeUpSkippedLine(child, row);
  }
  if (added > 0 && child.m_hasPassword)
  {
    m_keywords.Get(m_keywords.Length() - 1).encrypted = true;
  }
  if (IsDebugging())
  {
    pnt_debugPrint().StartDebug() << added << " lines added to keyword \""
                                  << m_keywords.Last().Name() << "\" from input file \""
                                  << child.m_fileName << "\".\n";
    pnt_debugPrint().EndDebug();
  }
}

bool inp_Parser::TakeUpSkippedLine(inp_Parser& child, int row)
{
  inp_RawDataArrayImpl& lines = child.m_skippedDataLines;
  inp_Keyword const& keyword = m_keywords.Last();
  if (!m_keepData || IsComment(lines.RowText(row)))
  {
    return false;
  }
  // A line with a separating comma passes, however long its items are.
  LongLine const* const longLine = lines.Cols(row) > 1 ? nullptr : child.FindLongSkipped(row);
  if (longLine == nullptr || !RefusesLine(keyword, lines.RowText(row), true, longLine->origin))
  {
    static_cast<inp_RawDataArrayImpl&>(keyword.data.Impl()).TakeRow(lines, row);
  }
  return true;
}

inp_Parser::LongLine const* inp_Parser::FindLongSkipped(int row) const
{
  auto const found =
    std::lower_bound(m_longSkipped.begin(), m_longSkipped.end(), row,
                     [](LongLine const& line, int wanted) { return line.row < wanted; });
  return found != m_longSkipped.end() && found->row == row ? &*found : nullptr;
}

/// Data lines below the *INCLUDE belong to the last keyword of the included file, or, where that has
/// none, to the last one above the *INCLUDE.
void inp_Parser::TakeUpFollowingLines(cow_List<inp_Keyword>& included)
{
  for (char* line = Readline(); !m_endOfFile; line = Readline())
  {
    if (IsOutsideLimits())
    {
      continue;
    }
    if (IsKeyword(line))
    {
      Buffer(line);
      return;
    }
    if (IsComment(line) || !m_keepData)
    {
      continue;
    }
    if (included.Length() > 0)
    {
      AppendToLast(included, line);
    }
    else if (m_keywords.Length() > 0)
    {
      AppendToLast(m_keywords, line);
    }
    else
    {
      KeepSkippedLine(line);
    }
  }
}

void inp_Parser::AppendToLast(cow_List<inp_Keyword>& keywords, char const* line)
{
  inp_Keyword const& keyword = keywords.Last();
  if (!RefusesLine(keyword, line, false, Here()))
  {
    // Rows are shared by all copies of a keyword, so the list itself stays as it is.
    inp_DataArray rows(keyword.data);
    rows.Append(line);
  }
}
