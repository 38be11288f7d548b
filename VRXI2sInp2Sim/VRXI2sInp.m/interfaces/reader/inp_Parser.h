#pragma once

#include "aio_ifstream.h"
#include "atr_String.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inp_Item.h"
#include "inp_Keyword.h"
#include "inp_RawDataArrayImpl.h"

#include <vector>

class VRXBasUtlFilePath;

/// Reads one deck file, with the files that it includes, into a flat list of keywords in file order.
///
/// Rules of a line (blanks are tab, carriage return and space; those at both ends go first):
///   - 256 characters count, the rest is cut off with a warning;
///   - "**" begins a comment, which goes to the keyword below when no data line stands between;
///   - "*" and a letter, white space allowed before both, begin a keyword line; it goes on over the
///     next lines as long as it ends in a comma;
///   - every other line, an empty one too, is a data line of the keyword above.
///
/// A fault within a keyword is kept as a message and reading resumes at the next keyword, so one
/// run shows all faults. At most 25 errors and one more are kept of each kind and file, then a
/// notice. Messages carry file and line in their origin.
///
/// An object reads one file once. "Strict" reading, that of an analysis, refuses what a host that
/// only shows a deck lets pass: unknown forms of parameters and values, keywords on continuation
/// lines, missing include files.
class inp_Parser : private aio_ifstream
{
public:
  /// Levels of *INCLUDE below the top file.
  static constexpr int c_deepestInclude = 200;

  /// Relative names of include files are looked for in the working directory, then in `directoryName`.
  /// `includeChain` names the files that are open above this one. With a password, every line is
  /// encrypted. `keepData` off reads keyword lines alone (but keeps the data of *PARAMETER,
  /// *MANIFEST, *HEADING and *STEP). Lines outside startLine..endLine are passed over; 0 is no limit.
  inp_Parser(cow_String const& fileName, cow_String const& directoryName,
             cow_List<cow_String> const& includeChain, cow_String const& password,
             bool throwOnDecryptFailure, bool keepData, bool rawSource, int const& startLine,
             int const& endLine);

  /// Raises nex_PrimException when the file cannot be opened, and for no other reason.
  cow_List<inp_Keyword> Parse(bool strict);

  cow_List<atr_String> const& GetErrors() const { return m_errors; }
  cow_List<atr_String> const& GetFatalErrors() const { return m_fatalErrors; }
  cow_List<atr_String> const& GetWarnings() const { return m_warnings; }
  /// The names as written, without quotes.
  cow_List<cow_String> const& GetIncludedFiles() const { return m_includedFiles; }
  /// File names without directory, each once.
  cow_List<cow_String> const& GetMissingIncludeFiles() const { return m_missingIncludeFiles; }

  /// Data lines that stand above the first keyword, includes followed.
  cow_List<cow_String> GetSkippedDataLines() const { return SkippedDataLines(); }
  int NumberSkippedDataLines() const { return m_skippedDataLines.Rows(); }
  /// Line number in the top file of the first of them, 0 when there is none.
  int FirstSkippedLine() const { return m_firstSkippedLine; }
  /// Bytes read from this file and those below.
  long long TotalBytes() const { return m_totalBytes; }
  /// This file and those below, one for each time that it was read.
  cow_List<aio_FileRead> const& FilesRead() const { return m_filesRead; }
  /// Values, as written, of parameters that name files, from keywords that had to be given up: an
  /// *INCLUDE that was not followed, a keyword with a fault on its line.
  cow_List<cow_String> const& FilesNamed() const { return m_filesNamed; }
  /// Keywords of this file and those below for which there was not enough memory.
  int KeywordsLost() const { return m_keywordsLost; }

private:
  static constexpr int c_longestItem = 255; ///< characters of a value or a data item

  char* Readline();
  void CheckLine();
  void Buffer(char* line);
  void BufferCommentLine(char const* line);
  static bool IsComment(char const* line) { return line[0] == '*' && line[1] == '*'; }
  static bool IsKeyword(char const* line);
  bool IsEndOfFile() const { return m_endOfFile; }
  int LineNumber() const { return m_lineNumber; }
  cow_String const& FileName() const { return m_fileName; }
  bool IsOutsideLimits() const;

  void OpenFile();
  void ReportFile();
  void ParseKeywords();
  void ParseOneKeyword();
  void TakeUpKeyword(inp_Keyword&& keyword);
  void SaveFault();
  cow_String AppendContinuationLines(char const* line);
  inp_Keyword ParseKeyword();
  void ResolveName(inp_Keyword& keyword, cow_String const& written);
  void ReadParameters(inp_Keyword& keyword, cow_String const& written, cow_String const& text);
  void ParseParameters(inp_Keyword& keyword, cow_String const& text);
  void ParseParameter(inp_Keyword const& keyword, cow_String const& piece,
                      cow_Map<cow_String, inp_Item>& parameters);
  inp_Item ParseValue(cow_String const& name, cow_String const& value);
  static cow_List<cow_String> Split(cow_String const& text);
  static cow_List<cow_String> PiecesOf(cow_String const& text, bool& endsInQuotes);
  void ReadData(inp_Keyword& keyword);
  void DropPendingComments();
  struct LineOrigin
  {
    cow_String file;
    int line;
  };
  struct LongLine
  {
    int row;
    LineOrigin origin;
  };
  bool RefusesLine(inp_Keyword const& keyword, char const* line, bool isText,
                   LineOrigin const& where);
  LineOrigin Here() const { return {m_fileName, m_lineNumber}; }
  void KeepSkippedLine(char const* line);
  void SkipToNextKeyword(bool collect);
  void NoteFilesNamed();
  void NoteLostKeyword();
  void ReportLostKeywords();
  cow_List<cow_String> SkippedDataLines() const;

  cow_List<inp_Keyword> IncludeFile(inp_Keyword const& includeKeyword);
  cow_String FindIncludeFile(cow_String const& name);
  void CheckIncludeFile(VRXBasUtlFilePath const& path, cow_String const& name);
  cow_List<inp_Keyword> ParseChild(inp_Parser& child);
  void ReadLineRange(inp_Keyword const& includeKeyword, int& startLine, int& endLine);
  void MergeFrom(inp_Parser const& child);
  void TakeUpSkippedLines(inp_Parser& child);
  bool TakeUpSkippedLine(inp_Parser& child, int row);
  LongLine const* FindLongSkipped(int row) const;
  void TakeUpFollowingLines(cow_List<inp_Keyword>& included);
  void AppendToLast(cow_List<inp_Keyword>& keywords, char const* line);

  void Decrypt(char* line);

  void saveError(atr_String const& message);
  void saveFatalError(atr_String const& message);
  void SaveWarning(atr_String const& message, int line);
  atr_String AtLine(atr_String message, int line) const;
  /// The message with file, line and name of the keyword at hand as its origin, where it has none yet.
  atr_String WithOrigin(atr_String message) const;

  int m_lineNumber = 0;
  cow_String m_fileName;
  cow_String m_directoryName;
  bool m_isBuffered = false;
  bool m_endOfFile = false;
  char* m_line = nullptr; ///< the last line, in the stream's buffer
  int m_length = 0;       ///< its length
  cow_String m_password;
  bool m_hasPassword;
  bool m_strict = false; ///< of the call to Parse
  bool m_throwOnDecryptFailure;
  bool m_keepData;
  double m_decryptSeconds = 0.0;
  cow_List<inp_Keyword> m_keywords;
  cow_List<cow_String> m_includeChain;
  inp_RawDataArrayImpl m_skippedDataLines; ///< as rows, ready to go on with a keyword
  std::vector<LongLine> m_longSkipped;     ///< those of them that a keyword may refuse, in order
  cow_List<cow_String> m_includedFiles;
  cow_List<cow_String> m_missingIncludeFiles;
  cow_List<cow_String> m_pendingComments;
  bool m_hasPendingComments = false;
  bool m_rawSource;
  int m_startLine;
  int m_endLine;
  bool m_limitLines;
  cow_List<atr_String> m_errors;
  cow_List<atr_String> m_warnings;
  cow_List<atr_String> m_fatalErrors;
  int m_keywordLine = 0;    ///< first line of the keyword at hand
  cow_String m_keywordName; ///< its full name, once known
  cow_String m_keywordText; ///< its line, with those that go on with it
  int m_firstSkippedLine = 0;
  int m_memoryFailures = 0; ///< keywords of this file that were lost to them
  int m_firstLostLine = 0;
  cow_String m_firstLostName;
  int m_keywordsLost = 0;
  int m_includeLevel = 0; ///< 0: the top file
  cow_List<aio_FileRead> m_filesRead;
  cow_List<cow_String> m_filesNamed;
  long long m_totalBytes = 0;
};
