#include "VRXBasException.h"
#include "inp_CurrentOrigin.h"
#include "inp_FileParameters.h"
#include "inp_KeywordEnm.h"
#include "inp_KeywordTable.h"
#include "inp_Parser.h"
#include "inp_ParserExceptions.h"
#include "inp_ReaderMessages.h"
#include "inp_Utils.h"

// Keyword lines: the name, and the parameters behind it.

namespace
{

bool EndsInComma(cow_String const& text)
{
  return text.Length() > 0 && text.CStr()[text.Length() - 1] == ',';
}

cow_String Trimmed(cow_String text) { return text.LeftTrim(" \t").RightTrim(" \t"); }

/// *INCLUDE, INPUT="": no value elsewhere, and here no file, for which there are words of its own.
bool IsQuotedNothing(inp_Keyword const& keyword, cow_String const& name, cow_String const& value)
{
  return keyword.Is(inp_kwInclude) && std::string_view("input").starts_with(name.View()) &&
         Trimmed(value) == "\"\"";
}

/// A spelled parameter is, or begins, the name of one that names a file.
bool MayNameFile(cow_String const& spelled)
{
  cow_String const name = cow_String(spelled).ToLower().Trim(" \t");
  auto const isBegun = [&name](std::string_view full) { return full.starts_with(name.View()); };
  return name.Length() > 0 &&
         std::any_of(std::begin(inp_fileParameters), std::end(inp_fileParameters), isBegun);
}

} // namespace

cow_String inp_Parser::AppendContinuationLines(char const* line)
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
      if (m_strict)
      {
        m_keywordText = text + next;
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

inp_Keyword inp_Parser::ParseKeyword()
{
  char const* const line = Readline();
  VRXBasAssert(line != nullptr, "data != 0");
  VRXBasAssert(IsKeyword(line), "IsKeyword(data)");
  m_keywordLine = m_lineNumber;
  m_keywordName.Erase();
  m_keywordText.Erase();
  inp_CurrentOrigin::Set(m_fileName, m_lineNumber);
  inp_Keyword keyword;
  keyword.lineNumber = m_lineNumber;
  keyword.fileName = FileName();
  keyword.encrypted = m_hasPassword;
  keyword.rawSource = m_rawSource;
  cow_String const text = m_keywordText = AppendContinuationLines(line);
  keyword.comments = m_pendingComments;
  DropPendingComments();

  int const comma = text.Find(",");
  cow_String const written = text.Substr(1, comma - 1).ToLower().Trim(" \t");
  ResolveName(keyword, written);
  if (comma < text.Length())
  {
    ReadParameters(keyword, written, Trimmed(text.Substr(comma + 1)));
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
  // The table's row for unknown keywords has a name as well, which "*UNDEF" would abbreviate.
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
                                cow_String const& text)
{
  try
  {
    ParseParameters(keyword, text);
  }
  catch (inp_ParameterException const& fault)
  {
    throw inp_KeywordParameterException(m_keywordLine, m_fileName, cow_String(written).ToUpper(),
                                        fault);
  }
}

cow_List<cow_String> inp_Parser::Split(cow_String const& text)
{
  bool endsInQuotes = false;
  cow_List<cow_String> const pieces = PiecesOf(text, endsInQuotes);
  if (endsInQuotes)
  {
    throw inp_MissingEndQuoteException(text);
  }
  return pieces;
}

cow_List<cow_String> inp_Parser::PiecesOf(cow_String const& text, bool& endsInQuotes)
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
  endsInQuotes = inQuotes;
  return pieces;
}

void inp_Parser::ParseParameters(inp_Keyword& keyword, cow_String const& text)
{
  cow_Map<cow_String, inp_Item> parameters;
  for (cow_String const& piece : Split(text))
  {
    ParseParameter(keyword, piece, parameters);
  }
  keyword.parameters = parameters;
}

void inp_Parser::ParseParameter(inp_Keyword const& keyword, cow_String const& piece,
                                cow_Map<cow_String, inp_Item>& parameters)
{
  int const equals = piece.Find("=");
  cow_String name = piece.Substr(0, equals);
  cow_String const value = equals < piece.Length() ? piece.Substr(equals + 1) : cow_String();
  if (inp_Types::IsParameter(name.View()))
  {
    name.ToLower().Trim(" \t");
  }
  else if (m_strict)
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
  bool const isEmpty = value.Length() == 0 || IsQuotedNothing(keyword, name, value);
  inp_Item const switchedOn = equals < piece.Length() ? inp_Item::Empty() : inp_Item(true);
  parameters.Insert(name, isEmpty ? switchedOn : ParseValue(name, value));
}

inp_Item inp_Parser::ParseValue(cow_String const& name, cow_String const& value)
{
  inp_Item const item(value);
  if (m_strict && item.Type() == inp_Types::inp_NONE)
  {
    throw inp_InvalidParameterValueException(value, name);
  }
  // Longer texts would overrun the buffers through which names are rewritten.
  int const length = inp_Utils::LengthWithoutSpaces(value.CStr());
  if (item.Type() == inp_Types::inp_STRING && length > c_longestItem)
  {
    throw inp_ParameterException(atr_Say(inp_msgParameterValueTooLong, name, length));
  }
  return item;
}

/// From the line of a keyword that is given up. Its keyword may be unknown, so what only looks like a
/// file's name counts as well.
void inp_Parser::NoteFilesNamed()
{
  bool endsInQuotes = false;
  for (cow_String const& piece : PiecesOf(m_keywordText, endsInQuotes))
  {
    int const equals = piece.Find("=");
    if (equals < piece.Length() && MayNameFile(piece.Substr(0, equals)))
    {
      m_filesNamed.Append(piece.Substr(equals + 1));
    }
  }
}
