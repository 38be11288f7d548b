#include "inp_ParserExceptions.h"

#include "inp_ReaderMessages.h"

namespace
{

/// The message with line, file and name as its origin, where it has none yet.
atr_String WithOrigin(atr_String message, int line, cow_String const& file, cow_String const& name)
{
  atr_Origin origin = message.Origin() != nullptr ? *message.Origin() : atr_Origin();
  if (origin.line == 0)
  {
    origin.line = line;
    origin.file = file;
  }
  if (origin.keyword.Length() == 0)
  {
    origin.keyword = name;
  }
  message.SetOrigin(origin);
  return message;
}

} // namespace

inp_KeywordException::inp_KeywordException(int line, cow_String const& file,
                                           atr_String const& message)
  : inp_KeywordException(line, file, cow_String(), message)
{
}

inp_KeywordException::inp_KeywordException(int line, cow_String const& file, cow_String const& name,
                                           atr_String const& message)
  : inp_ExceptionOf(WithOrigin(message, line, file, name)), m_line(line), m_file(file)
{
}

inp_ParameterException::inp_ParameterException(atr_String const& message) : inp_ExceptionOf(message)
{
}

inp_MemoryException::inp_MemoryException() : inp_ExceptionOf(atr_Say(inp_msgOutOfMemory)) {}

inp_ElementUndefinedNodesError::inp_ElementUndefinedNodesError(cow_List<int> const& elements)
  : inp_ExceptionOf(atr_Say(inp_msgElementUndefinedNodes)), m_elements(elements)
{
}

inp_ElementUndefinedNodesError::inp_ElementUndefinedNodesError(cow_List<int> const& elements,
                                                               cow_String const& instance)
  : inp_ExceptionOf(atr_Say(inp_msgElementUndefinedNodesInInstance, instance)), m_elements(elements)
{
}

inp_InvalidParameterException::inp_InvalidParameterException(cow_String const& piece)
  : inp_ExceptionOf(atr_Say(inp_msgInvalidParameter, piece))
{
}

inp_InvalidParameterValueException::inp_InvalidParameterValueException(cow_String const& value,
                                                                       cow_String const& name)
  : inp_ExceptionOf(atr_Say(inp_msgInvalidParameterValue, value, name))
{
}

inp_MissingEndQuoteException::inp_MissingEndQuoteException(cow_String const& text)
  : inp_ExceptionOf(atr_Say(inp_msgMissingEndQuote, text))
{
}

inp_UnknownKeywordException::inp_UnknownKeywordException(int line, cow_String const& file,
                                                         cow_String const& name)
  : inp_ExceptionOf(line, file, name, atr_Say(inp_msgUnknownKeyword, name)), m_name(name)
{
}

inp_AmbiguousKeywordException::inp_AmbiguousKeywordException(int line, cow_String const& file,
                                                             cow_String const& name)
  : inp_ExceptionOf(line, file, name, atr_Say(inp_msgAmbiguousKeyword, name)), m_name(name)
{
}

inp_KeywordParameterException::inp_KeywordParameterException(int line, cow_String const& file,
                                                             cow_String const& name,
                                                             inp_ParameterException const& cause)
  : inp_ExceptionOf(line, file, atr_Say(inp_msgKeywordParameter, name, cause.UserReport())),
    m_name(name)
{
}

inp_InvalidContinuationLineException::inp_InvalidContinuationLineException(
  int line, cow_String const& file, atr_String const& message)
  : inp_ExceptionOf(line, file, message)
{
}

inp_EncryptionException::inp_EncryptionException(int line, cow_String const& file,
                                                 atr_String const& message)
  : inp_ExceptionOf(line, file, message)
{
}

inp_NoInputParameterException::inp_NoInputParameterException(int line, cow_String const& file)
  : inp_ExceptionOf(line, file, atr_Say(inp_msgNoInputParameter))
{
}

inp_MissingIncludeFileException::inp_MissingIncludeFileException(int line, cow_String const& file,
                                                                 cow_String const& name)
  : inp_ExceptionOf(line, file, atr_Say(inp_msgMissingIncludeFile, name))
{
}

inp_UnreadableIncludeFileException::inp_UnreadableIncludeFileException(int line,
                                                                       cow_String const& file,
                                                                       cow_String const& name)
  : inp_ExceptionOf(line, file, atr_Say(inp_msgUnreadableIncludeFile, name))
{
}

inp_CircularIncludeFileException::inp_CircularIncludeFileException(int line, cow_String const& file,
                                                                   cow_String const& name)
  : inp_ExceptionOf(line, file, atr_Say(inp_msgCircularIncludeFile, name))
{
}

inp_ParameterizedIncludeFileException::inp_ParameterizedIncludeFileException(int line,
                                                                             cow_String const& file,
                                                                             cow_String const& name)
  : inp_ExceptionOf(line, file, atr_Say(inp_msgParameterizedIncludeFile, name))
{
}
