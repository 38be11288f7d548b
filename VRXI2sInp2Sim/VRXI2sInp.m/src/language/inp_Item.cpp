#include "inp_Item.h"

#include "inp_Numbers.h"
#include "inp_ParserExceptions.h"
#include "inp_ReaderMessages.h"

namespace
{

/// The text with its first "D" and its first "d" replaced by the "e" that the conversion knows.
cow_String WithPlainExponent(cow_String text)
{
  for (char const letter : {'D', 'd'})
  {
    for (int i = 0; i < text.Length(); ++i)
    {
      if (text.CStr()[i] == letter)
      {
        text[i] = 'e';
        break;
      }
    }
  }
  return text;
}

template <class Row>
[[noreturn]] void RaiseConversion(Row const& row, inp_Item const& item)
{
  throw inp_KeywordException(0, cow_String(), atr_Say(row, item.AsString()));
}

} // namespace

inp_Item::inp_Item(cow_String const& text)
{
  cow_String trimmed(text);
  trimmed.LeftTrim(" \t");
  trimmed.RightTrim(" \t");
  if (trimmed.Length() == 0)
  {
    return;
  }
  std::string_view const view(trimmed.CStr(), static_cast<std::size_t>(trimmed.Length()));
  bool const isWhole = inp_Types::IsInteger(view);
  if (isWhole && inp_FitsInt(trimmed.CStr()))
  {
    m_type = inp_Types::inp_INTEGER;
    m_integer = inp_TextToInt(trimmed.CStr());
  }
  else if (isWhole || inp_Types::IsSetName(view) || inp_Types::IsScopedID(view))
  {
    m_type = inp_Types::inp_STRING;
    m_text = trimmed;
  }
  else if (inp_Types::IsDouble(view))
  {
    m_type = inp_Types::inp_REAL;
    m_real = inp_TextToDouble(trimmed.CStr());
  }
  else if (inp_Types::IsDoubleD(view))
  {
    m_type = inp_Types::inp_REAL;
    m_real = inp_TextToDouble(WithPlainExponent(trimmed).CStr());
  }
  else if (inp_Types::IsFileName(view))
  {
    m_type = inp_Types::inp_STRING;
    m_text = trimmed;
  }
}

inp_Item inp_Item::Empty()
{
  inp_Item item(true);
  item.m_isEmpty = true;
  return item;
}

inp_Item inp_Item::Text(cow_String const& text)
{
  inp_Item item;
  item.m_type = inp_Types::inp_STRING;
  item.m_text = text;
  return item;
}

bool inp_Item::ReadsAsInteger() const
{
  return m_type == inp_Types::inp_INTEGER ||
         (m_type == inp_Types::inp_STRING && inp_Types::IsInteger(m_text.View()));
}

int inp_Item::AsInt() const
{
  if (m_type != inp_Types::inp_INTEGER)
  {
    RaiseConversion(inp_msgValueNotInteger, *this);
  }
  return m_integer;
}

double inp_Item::AsDouble() const
{
  switch (m_type)
  {
  case inp_Types::inp_INTEGER:
    return m_integer;
  case inp_Types::inp_REAL:
    return m_real;
  default:
    RaiseConversion(inp_msgValueNotDouble, *this);
  }
}

bool inp_Item::AsBool() const
{
  switch (m_type)
  {
  case inp_Types::inp_INTEGER:
    return m_integer != 0;
  case inp_Types::inp_BOOLEAN:
    return m_boolean;
  case inp_Types::inp_REAL:
    return m_real != 0.0;
  case inp_Types::inp_STRING:
    return m_text.Length() != 0;
  case inp_Types::inp_NONE:
    return false;
  }
  RaiseConversion(inp_msgValueNotBool, *this);
}

cow_String inp_Item::AsString() const
{
  switch (m_type)
  {
  case inp_Types::inp_INTEGER:
    return cow_String(m_integer);
  case inp_Types::inp_BOOLEAN:
    return cow_String(m_boolean ? "TRUE" : "FALSE");
  case inp_Types::inp_REAL:
    return cow_String(m_real);
  case inp_Types::inp_STRING:
    return m_text;
  case inp_Types::inp_NONE:
    return cow_String("None");
  }
  throw VRXBasAssertException("\"Unimplemented input file item type\" == 0", __FILE__, __LINE__);
}
