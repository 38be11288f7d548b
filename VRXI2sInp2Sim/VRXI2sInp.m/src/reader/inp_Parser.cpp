#include "inp_Parser.h"

#include "VRXBasException.h"
#include "inp_CurrentPlace.h"
#include "inp_KeywordEnm.h"
#include "inp_KeywordTable.h"
#include "inp_ParserExceptions.h"
#include "inp_RawDataArrayImpl.h"
#include "inp_ReaderMessages.h"
#include "inp_Utils.h"
#include "omi_Timer.h"
#include "pnt_debugPrint.h"
#include "typ_DebugFlags.h"

#include <cctype>
#include <cstdio>
#include <cstring>
#include <new>

namespace
{

constexpr int c_longestLine = 256;
constexpr int c_longestItem = 255;
constexpr int c_expectedKeywords = 16384;
constexpr int c_mostErrors = 25;
constexpr int c_debugFlag = 30;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }
bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

char const* SkipSpace(char const* text)
{
  while (IsSpace(*text))
  {
    ++text;
  }
  return text;
}

/// The head of a line that may be a keyword or a comment; all others are data at one look.
bool MayBeOption(char first) { return first == '*' || first == '\v' || first == '\f'; }

bool EndsInComma(cow_String const& text)
{
  return text.Length() > 0 && text.CStr()[text.Length() - 1] == ',';
}

cow_String Trimmed(cow_String text) { return text.LeftTrim(" \t").RightTrim(" \t"); }

bool HasSeparatingComma(char const* line)
{
  bool inQuotes = false;
  for (; *line != '\0'; ++line)
  {
    if (*line == ',' && !inQuotes)
    {
      return true;
    }
    inQuotes = inQuotes != (*line == '"');
  }
  return false;
}

/// Keeps a message unless there are enough of them; the first one too many is kept, with a notice.
void SaveUpToLimit(cow_List<atr_String>& list, atr_String const& message, atr_String const& notice)
{
  if (list.Length() <= c_mostErrors)
  {
    bool const isLast = list.Length() == c_mostErrors;
    list.Append(message);
    if (isLast)
    {
      list.Append(notice);
    }
  }
}

} // namespace

inp_Parser::inp_Parser(cow_String const& fileName, cow_String const& directoryName,
                       cow_List<cow_String> const& includeChain, cow_String const& password,
                       bool throwOnDecryptFailure, bool keepData, bool rawSource,
                       int const& startLine, int const& endLine)
  : m_fileName(fileName),
    m_directoryName(directoryName),
    m_password(password),
    m_hasPassword(password.Length() > 0),
    m_throwOnDecryptFailure(throwOnDecryptFailure),
    m_keepData(keepData),
    m_keywords(cow_ListConstruct(), c_expectedKeywords),
    m_includeChain(includeChain),
    m_rawSource(rawSource),
    m_startLine(startLine),
    m_endLine(endLine),
    m_limitLines(startLine != 0 || endLine != 0)
{
  m_includeChain.Append(fileName);
}

// ---- lines ----

char* inp_Parser::Readline()
{
  ++m_lineNumber;
  if (m_isBuffered)
  {
    m_isBuffered = false;
    return m_line;
  }
  if (!ReadLine(c_longestLine))
  {
    static char empty[32];
    m_endOfFile = true;
    m_length = 0;
    return m_line = empty;
  }
  m_line = Line();
  m_length = LineLength();
  if (CutBytes() != 0 || m_hasPassword || MayHoldAsterisk())
  {
    CheckLine();
  }
  while (IsBlank(*m_line))
  {
    ++m_line;
    --m_length;
  }
  while (m_length > 0 && IsBlank(m_line[m_length - 1]))
  {
    m_line[--m_length] = '\0';
  }
  return m_line;
}

/// What is rare of a line: it was cut, or it is encrypted.
void inp_Parser::CheckLine()
{
  // One character too many at the very end of a file goes without a word.
  if (CutBytes() > 1 || (CutBytes() == 1 && EndedByLineFeed()))
  {
    SaveWarning(atr_Say(inp_msgLineTruncated, m_lineNumber), m_lineNumber);
  }
  if (m_hasPassword || std::strstr(m_line, "** encrypted input") != nullptr)
  {
    Decrypt(m_line);
    m_length = static_cast<int>(std::strlen(m_line));
  }
}

void inp_Parser::Buffer(char* line)
{
  VRXBasAssert(!m_isBuffered || std::strcmp(line, m_line) == 0, "!strcmp(stash, m_buffer)");
  m_line = line;
  m_length = static_cast<int>(std::strlen(line));
  m_isBuffered = true;
  --m_lineNumber;
}

void inp_Parser::BufferCommentLine(char const* line)
{
  VRXBasAssert(IsComment(line), "IsComment(data)");
  m_pendingComments.Append(cow_String(line + 2));
  m_hasPendingComments = true;
}

bool inp_Parser::IsKeyword(char const* line)
{
  char const* const asterisk = SkipSpace(line);
  return *asterisk == '*' &&
         std::isalpha(static_cast<unsigned char>(*SkipSpace(asterisk + 1))) != 0;
}

bool inp_Parser::IsOutsideLimits() const
{
  return m_limitLines &&
         (m_lineNumber < m_startLine || (m_endLine != 0 && m_lineNumber > m_endLine));
}

void inp_Parser::SkipToNextKeyword(bool collect)
{
  if (collect && m_skippedDataLines.Rows() > 0)
  {
    m_skippedDataLines.Clear();
  }
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
    if (IsComment(line))
    {
      BufferCommentLine(line);
    }
    else if (collect && m_keepData)
    {
      m_firstSkippedLine = m_firstSkippedLine == 0 ? m_lineNumber : m_firstSkippedLine;
      m_skippedDataLines.AppendLine(line, static_cast<std::size_t>(m_length));
    }
  }
}

cow_List<cow_String> inp_Parser::SkippedDataLines() const
{
  cow_List<cow_String> lines;
  for (int row = 0; row < m_skippedDataLines.Rows(); ++row)
  {
    lines.Append(m_skippedDataLines.Line(row));
  }
  return lines;
}

// ---- the file ----

cow_List<inp_Keyword> inp_Parser::Parse(bool strict)
{
  omi_Timer timer;
  timer.Start();
  OpenFile();
  try
  {
    ParseKeywords(strict);
  }
  catch (inp_EncryptionException const& fault)
  {
    saveFatalError(fault.UserReport());
    m_keywords.Clear();
    m_skippedDataLines.Clear();
  }
  ReportFile();
  if (m_memoryFailures > 0)
  {
    ReportLostKeywords();
  }
  timer.Stop();
  if (typ_DebugFlags::GetDebugFlags(c_debugFlag) >= 1)
  {
    pnt_debugPrint().StartDebug() << "Parse - File: " << m_fileName
                                  << "  Elapsed time: " << timer.ElapsedSeconds()
                                  << "  Decryption time: " << m_decryptSeconds
                                  << "  CPU time: " << timer.CpuSeconds() << '\n';
    pnt_debugPrint().EndDebug();
  }
  m_totalBytes += BytesRead();
  Close();
  return m_keywords;
}

void inp_Parser::OpenFile()
{
  openEnm const outcome = Open(m_fileName.CStr());
  if (outcome == aio_opened)
  {
    return;
  }
  m_filesRead.Append(Outcome(m_fileName));
  if (outcome == aio_utf16)
  {
    throw nex_AtrException(Placed(atr_Say(inp_msgFileIsUtf16, m_fileName)));
  }
  std::fprintf(stderr, "inp_Parser ERROR: could not open file: '%s'\n", m_fileName.CStr());
  throw nex_AtrException(Placed(atr_Say(inp_msgCouldNotOpen, m_fileName)));
}

/// What is to be said of the file as a whole.
void inp_Parser::ReportFile()
{
  m_filesRead.Append(Outcome(m_fileName));
  if (HasNulBytes())
  {
    SaveWarning(atr_Say(inp_msgNulBytes), 0);
  }
  if (Failed())
  {
    saveError(atr_Say(inp_msgReadFailed, m_lineNumber - 1));
  }
  if (HasChanged())
  {
    SaveUpToLimit(m_errors, AtLine(atr_Say(inp_msgFileChanged), 0), atr_Say(inp_msgNoMoreErrors));
  }
}

void inp_Parser::ParseKeywords(bool strict)
{
  SkipToNextKeyword(true);
  while (!m_endOfFile)
  {
    ParseOneKeyword(strict);
  }
}

void inp_Parser::NoteLostKeyword()
{
  if (m_memoryFailures == 0)
  {
    m_firstLostLine = m_keywordLine;
    m_firstLostName = m_keywordName;
  }
  ++m_memoryFailures;
  ++m_keywordsLost;
}

/// At the place of the first of them.
void inp_Parser::ReportLostKeywords()
{
  m_keywordLine = m_firstLostLine;
  m_keywordName = m_firstLostName;
  saveFatalError(atr_Say(inp_msgMemoryFailures, cow_String(m_memoryFailures)));
}

/// The edge at which every fault of a keyword becomes a message.
void inp_Parser::ParseOneKeyword(bool strict)
{
  try
  {
    inp_Keyword keyword = ParseKeyword(strict);
    if (!m_hasPassword && typ_DebugFlags::GetDebugFlags(c_debugFlag) >= 2)
    {
      pnt_debugPrint().StartDebug() << "Creating keyword: \"" << keyword.Name() << "\".\n";
      pnt_debugPrint().EndDebug();
    }
    if (keyword.Is(inp_kwInclude))
    {
      m_keywords.Concatenate(IncludeFile(keyword, strict));
    }
    else
    {
      m_keywords.Append(std::move(keyword));
    }
    return;
  }
  catch (inp_NoInputParameterException const& fault)
  {
    saveFatalError(fault.UserReport());
  }
  catch (inp_MissingIncludeFileException const& fault)
  {
    if (strict)
    {
      saveFatalError(fault.UserReport());
    }
  }
  catch (inp_UnreadableIncludeFileException const& fault)
  {
    saveFatalError(fault.UserReport());
  }
  catch (inp_CircularIncludeFileException const& fault)
  {
    saveFatalError(fault.UserReport());
  }
  catch (inp_ParameterException const&)
  {
    VRXBasRaiseAssert("\"Parameter exception should have been caught\" == 0", __FILE__, __LINE__);
  }
  catch (inp_MemoryException const&)
  {
    NoteLostKeyword();
  }
  catch (nex_AtrException const& fault)
  {
    saveError(fault.UserReport());
  }
  catch (std::bad_alloc const&)
  {
    NoteLostKeyword();
  }
  catch (...)
  {
    saveError(atr_Say(inp_msgUnknownException));
  }
  SkipToNextKeyword(false);
}

// ---- one keyword ----

cow_String inp_Parser::AppendContinuationLines(char const* line, bool strict)
{
  cow_String text(line);
  while (EndsInComma(text))
  {
    char const* const next = Readline();
    VRXBasAssert(next != nullptr, "cdata != 0");
    if (*next == '\0')
    {
      return text.RightTrim(", ");
    }
    if (IsKeyword(next))
    {
      if (strict)
      {
        throw inp_InvalidContinuationLineException(m_lineNumber, m_fileName,
                                                   atr_Say(inp_msgKeywordOnContinuationLine, text));
      }
    }
    else if (!IsComment(next))
    {
      text.Append(next);
    }
  }
  return text;
}

inp_Keyword inp_Parser::ParseKeyword(bool strict)
{
  char const* const line = Readline();
  VRXBasAssert(line != nullptr, "data != 0");
  VRXBasAssert(IsKeyword(line), "IsKeyword(data)");
  m_keywordLine = m_lineNumber;
  m_keywordName.Erase();
  inp_CurrentPlace::Set(m_fileName, m_lineNumber);
  inp_Keyword keyword;
  keyword.lineNumber = m_lineNumber;
  keyword.fileName = FileName();
  keyword.encrypted = m_hasPassword;
  keyword.rawSource = m_rawSource;
  cow_String const text = AppendContinuationLines(line, strict);
  keyword.comments = m_pendingComments;
  m_pendingComments.Clear();
  m_hasPendingComments = false;

  int const comma = text.Find(",");
  cow_String const written = text.Substr(1, comma - 1).ToLower().Trim(" \t");
  ResolveName(keyword, written);
  if (comma < text.Length())
  {
    ReadParameters(keyword, written, Trimmed(text.Substr(comma + 1)), strict);
  }
  if (!keyword.Is(inp_kwInclude))
  {
    ReadData(keyword);
  }
  return keyword;
}

void inp_Parser::ResolveName(inp_Keyword& keyword, cow_String const& written)
{
  inp_KeywordTable const& table = thr_ThreadSingleton<inp_KeywordTable>::Instance();
  inp_KeywordTable::Match const match = table.Resolve(written);
  keyword.keyword = match.name != nullptr ? table.Enum(*match.name) : inp_kwUndefined;
  // The row for "no keyword" has a name, too, and "undef" would abbreviate it.
  if (keyword.keyword != inp_kwUndefined)
  {
    m_keywordName = *match.name;
  }
  else if (match.ambiguous)
  {
    throw inp_AmbiguousKeywordException(m_keywordLine, m_fileName, written);
  }
  else
  {
    throw inp_UnknownKeywordException(m_keywordLine, m_fileName, written);
  }
}

void inp_Parser::ReadParameters(inp_Keyword& keyword, cow_String const& written,
                                cow_String const& text, bool strict)
{
  try
  {
    ParseParameters(keyword, text, strict);
  }
  catch (inp_ParameterException const& fault)
  {
    throw inp_KeywordParameterException(m_keywordLine, m_fileName, cow_String(written).ToUpper(),
                                        fault);
  }
}

cow_List<cow_String> inp_Parser::Split(cow_String const& text)
{
  cow_List<cow_String> pieces;
  bool inQuotes = false;
  int begin = 0;
  for (int at = 0; at <= text.Length(); ++at)
  {
    bool const atEnd = at == text.Length();
    char const c = text.CStr()[at];
    if (c == '"')
    {
      inQuotes = !inQuotes;
    }
    else if (atEnd || (c == ',' && !inQuotes))
    {
      cow_String const piece = Trimmed(text.Substr(begin, at - begin));
      if (piece.Length() > 0)
      {
        pieces.Append(piece);
      }
      begin = at + 1;
    }
  }
  if (inQuotes)
  {
    throw inp_MissingEndQuoteException(text);
  }
  return pieces;
}

void inp_Parser::ParseParameters(inp_Keyword& keyword, cow_String const& text, bool strict)
{
  cow_Map<cow_String, inp_Item> parameters;
  for (cow_String const& piece : Split(text))
  {
    ParseParameter(keyword, piece, parameters, strict);
  }
  keyword.parameters = parameters;
}

void inp_Parser::ParseParameter(inp_Keyword const& keyword, cow_String const& piece,
                                cow_Map<cow_String, inp_Item>& parameters, bool strict)
{
  int const equals = piece.Find("=");
  cow_String name = piece.Substr(0, equals);
  cow_String const value = equals < piece.Length() ? piece.Substr(equals + 1) : cow_String();
  if (inp_Types::IsParameter(name.View()))
  {
    name.ToLower().Trim(" \t");
  }
  else if (strict)
  {
    throw inp_InvalidParameterException(piece);
  }
  if (parameters.IsMember(name))
  {
    atr_String const message = value.Length() == 0
                                 ? atr_Say(inp_msgRepeatedParameter, name)
                                 : atr_Say(inp_msgRepeatedParameterValue, name, value);
    m_warnings.Append(inp_Utils::MessageInKeyword(keyword, message));
  }
  parameters.Insert(name, value.Length() == 0 ? inp_Item(true)
                                              : ParseValue(keyword, name, value, strict));
}

inp_Item inp_Parser::ParseValue(inp_Keyword const& keyword, cow_String const& name,
                                cow_String const& value, bool strict)
{
  inp_Item const item(value);
  if (strict && item.Type() == inp_Types::inp_NONE)
  {
    throw inp_InvalidParameterValueException(value, name);
  }
  // A longer text would overrun the buffers through which names are rewritten.
  int const length = inp_Utils::LengthWithoutSpaces(value.CStr());
  if (item.Type() == inp_Types::inp_STRING && length > c_longestItem)
  {
    throw inp_ParameterException(atr_Say(inp_msgParameterValueTooLong, name, length));
  }
  if (item.Type() == inp_Types::inp_STRING && inp_Types::IsInteger(item.AsString().View()))
  {
    m_warnings.Append(
      inp_Utils::MessageInKeyword(keyword, atr_Say(inp_msgIntegerOutOfRange, value, name)));
  }
  return item;
}

/// The loop over data lines: what it does to a line that begins no option is the reader's hot path.
void inp_Parser::ReadData(inp_Keyword& keyword)
{
  inp_RawDataArrayImpl& rows = static_cast<inp_RawDataArrayImpl&>(keyword.data.Impl());
  bool const isText = keyword.Is(inp_kwHeading) || keyword.Is(inp_kwStep);
  bool const keepsRows = m_keepData || keyword.Is(inp_kwParameter) || keyword.Is(inp_kwManifest);
  for (char* line = Readline(); !m_endOfFile; line = Readline())
  {
    if (IsOutsideLimits())
    {
      continue;
    }
    if (MayBeOption(*line))
    {
      if (IsKeyword(line))
      {
        Buffer(line);
        return;
      }
      if (IsComment(line))
      {
        BufferCommentLine(line);
        continue;
      }
    }
    if (m_length > c_longestItem && RefusesLine(keyword, line, isText))
    {
      continue;
    }
    if (isText)
    {
      rows.AppendRaw(line);
    }
    else
    {
      if (m_hasPendingComments)
      {
        m_pendingComments.Clear();
        m_hasPendingComments = false;
      }
      if (keepsRows)
      {
        rows.AppendLine(line, static_cast<std::size_t>(m_length));
      }
    }
  }
}

/// A line that is one item as long as the line may be would overrun the buffers through which items
/// are rewritten. It is left out with an error.
bool inp_Parser::RefusesLine(inp_Keyword const& keyword, char const* line, bool isText)
{
  int const length = inp_Utils::LengthWithoutSpaces(line);
  if (length <= c_longestItem || (!isText && HasSeparatingComma(line)))
  {
    return false;
  }
  saveError(AtLine(inp_Utils::MessageInKeyword(keyword, atr_Say(inp_msgDataItemTooLong, length)),
                   m_lineNumber));
  return true;
}

// ---- messages ----

atr_String inp_Parser::Placed(atr_String message) const
{
  atr_Origin origin = message.Origin() != nullptr ? *message.Origin() : atr_Origin();
  if (origin.line == 0)
  {
    origin.file = m_fileName;
    origin.line = m_keywordLine;
  }
  if (origin.keyword.Empty())
  {
    origin.keyword = m_keywordName;
  }
  message.SetOrigin(origin);
  return message;
}

void inp_Parser::saveError(atr_String const& message)
{
  SaveUpToLimit(m_errors, Placed(message), atr_Say(inp_msgNoMoreErrors));
}

void inp_Parser::saveFatalError(atr_String const& message)
{
  SaveUpToLimit(m_fatalErrors, Placed(message), atr_Say(inp_msgNoMoreFatalErrors));
}

void inp_Parser::SaveWarning(atr_String const& message, int line)
{
  m_warnings.Append(AtLine(message, line));
}

/// The message with a line of the file as its place; line 0 is the file as a whole.
atr_String inp_Parser::AtLine(atr_String message, int line) const
{
  atr_Origin origin = *message.Origin();
  origin.file = m_fileName;
  origin.line = line;
  message.SetOrigin(origin);
  return message;
}

/// Encrypted lines need their password; a decoder is not part of this build.
void inp_Parser::Decrypt(char* line)
{
  if (m_password.Length() == 0)
  {
    throw inp_EncryptionException(m_lineNumber, m_fileName,
                                  atr_Say(inp_msgPasswordRequired, m_fileName));
  }
  while (IsBlank(*line))
  {
    ++line;
  }
  if (!IsComment(line))
  {
    throw inp_EncryptionException(
      m_lineNumber, m_fileName,
      atr_Say(inp_msgDecryptionFailed, m_fileName, "no decoder is available"));
  }
}
