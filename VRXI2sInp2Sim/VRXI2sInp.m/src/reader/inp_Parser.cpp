#include "inp_Parser.h"

#include "VRXBasException.h"
#include "inp_KeywordEnm.h"
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

/// A line that begins otherwise is neither a keyword nor a comment: it need not be looked at further.
bool MayBeOption(char first) { return first == '*' || first == '\v' || first == '\f'; }

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

/// Keeps a message unless the list is full. The 26th message is kept too, and a notice behind it says that
/// there will be no more.
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

/// Looks after truncated and encrypted lines.
void inp_Parser::CheckLine()
{
  // At the very end of a file one character too many is cut off without a warning.
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
    m_longSkipped.clear();
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
      KeepSkippedLine(line);
    }
  }
}

/// A line that no keyword stands above, yet.
void inp_Parser::KeepSkippedLine(char const* line)
{
  m_firstSkippedLine = m_firstSkippedLine == 0 ? m_lineNumber : m_firstSkippedLine;
  if (m_length > c_longestItem)
  {
    m_longSkipped.push_back({m_skippedDataLines.Rows(), Here()});
  }
  m_skippedDataLines.AppendLine(line, static_cast<std::size_t>(m_length));
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
  m_strict = strict;
  OpenFile();
  try
  {
    ParseKeywords();
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
    throw nex_AtrException(WithOrigin(atr_Say(inp_msgFileIsUtf16, m_fileName)));
  }
  std::fprintf(stderr, "inp_Parser ERROR: could not open file: '%s'\n", m_fileName.CStr());
  throw nex_AtrException(WithOrigin(atr_Say(inp_msgCouldNotOpen, m_fileName)));
}

/// Reports what concerns the file as a whole, once it has been read.
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

void inp_Parser::ParseKeywords()
{
  SkipToNextKeyword(true);
  while (!m_endOfFile)
  {
    ParseOneKeyword();
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

/// The message stands at the first keyword that was lost.
void inp_Parser::ReportLostKeywords()
{
  m_keywordLine = m_firstLostLine;
  m_keywordName = m_firstLostName;
  saveFatalError(atr_Say(inp_msgMemoryFailures, cow_String(m_memoryFailures)));
}

/// Whatever goes wrong with a keyword becomes a message here, and reading resumes at the next one.
void inp_Parser::ParseOneKeyword()
{
  try
  {
    TakeUpKeyword(ParseKeyword());
    return;
  }
  catch (...)
  {
    NoteFilesNamed();
    SaveFault();
  }
  SkipToNextKeyword(false);
}

void inp_Parser::TakeUpKeyword(inp_Keyword&& keyword)
{
  if (!m_hasPassword && typ_DebugFlags::GetDebugFlags(c_debugFlag) >= 2)
  {
    pnt_debugPrint().StartDebug() << "Creating keyword: \"" << keyword.Name() << "\".\n";
    pnt_debugPrint().EndDebug();
  }
  if (keyword.Is(inp_kwInclude))
  {
    m_keywords.Concatenate(IncludeFile(keyword));
  }
  else
  {
    m_keywords.Append(std::move(keyword));
  }
}

/// Keeps the exception that is being handled as a message, or as a keyword lost for want of memory.
void inp_Parser::SaveFault()
try
{
  throw;
}
catch (inp_NoInputParameterException const& fault)
{
  saveFatalError(fault.UserReport());
}
catch (inp_MissingIncludeFileException const& fault)
{
  if (m_strict)
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

// ---- data lines ----

/// Reads the data lines of a keyword, comments among them: the innermost loop of the reader.
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
    if (m_length > c_longestItem && RefusesLine(keyword, line, isText, Here()))
    {
      continue;
    }
    if (isText)
    {
      rows.AppendRaw(line);
      continue;
    }
    DropPendingComments();
    if (keepsRows)
    {
      rows.AppendLine(line, static_cast<std::size_t>(m_length));
    }
  }
}

/// Comments with a data line below them belong to no keyword.
void inp_Parser::DropPendingComments()
{
  if (m_hasPendingComments)
  {
    m_pendingComments.Clear();
    m_hasPendingComments = false;
  }
}

/// Leaves out a line of a single item of 256 characters, with an error: it would overrun the buffers
/// through which items are rewritten.
bool inp_Parser::RefusesLine(inp_Keyword const& keyword, char const* line, bool isText,
                             LineOrigin const& where)
{
  int const length = inp_Utils::LengthWithoutSpaces(line);
  if (length <= c_longestItem || (!isText && HasSeparatingComma(line)))
  {
    return false;
  }
  atr_String message =
    inp_Utils::MessageInKeyword(keyword, atr_Say(inp_msgDataItemTooLong, length));
  atr_Origin origin = *message.Origin();
  origin.file = where.file;
  origin.line = where.line;
  message.SetOrigin(origin);
  saveError(message);
  return true;
}

// ---- messages ----

atr_String inp_Parser::WithOrigin(atr_String message) const
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
  SaveUpToLimit(m_errors, WithOrigin(message), atr_Say(inp_msgNoMoreErrors));
}

void inp_Parser::saveFatalError(atr_String const& message)
{
  SaveUpToLimit(m_fatalErrors, WithOrigin(message), atr_Say(inp_msgNoMoreFatalErrors));
}

void inp_Parser::SaveWarning(atr_String const& message, int line)
{
  m_warnings.Append(AtLine(message, line));
}

/// The message with a line of this file as its origin; line 0 stands for the file as a whole.
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
    CallUnfit("it is encrypted");
    throw inp_EncryptionException(m_lineNumber, m_fileName,
                                  atr_Say(inp_msgPasswordRequired, m_fileName));
  }
  while (IsBlank(*line))
  {
    ++line;
  }
  if (!IsComment(line))
  {
    CallUnfit("it is encrypted");
    throw inp_EncryptionException(
      m_lineNumber, m_fileName,
      atr_Say(inp_msgDecryptionFailed, m_fileName, "no decoder is available"));
  }
}
