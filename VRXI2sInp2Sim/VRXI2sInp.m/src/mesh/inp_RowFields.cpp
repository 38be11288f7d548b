#include "inp_RowFields.h"

#include "inp_MeshMessages.h"
#include "inp_Numbers.h"
#include "inp_Utils.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>

namespace
{

bool HasField(inp_DataArray const& data, int row, int column)
{
  return row < data.Rows() && column < data.Cols(row);
}

/// Reads a text that is a finite number as a whole, blanks at its ends aside.
bool ReadNumber(char const* text, double& value)
{
  char const* end = nullptr;
  value = inp_TextToDouble(text, &end);
  bool const isRead = end != text && std::isfinite(value);
  while (std::isspace(static_cast<unsigned char>(*end)) != 0)
  {
    ++end;
  }
  return isRead && *end == '\0';
}

/// The same for an exponent that begins with "d".
bool ReadNumberD(std::string text, double& value)
{
  std::replace_if(
    text.begin(), text.end(), [](char c) { return c == 'D' || c == 'd'; }, 'e');
  return ReadNumber(text.c_str(), value);
}

} // namespace

int inp_IntField(inp_DataArray const& data, int row, int column)
{
  return HasField(data, row, column) ? data.AsInt(row, column) : 0;
}

double inp_RealField(inp_DataArray const& data, int row, int column)
{
  return HasField(data, row, column) ? data.AsDouble(row, column) : 0.0;
}

bool inp_HasIntegerParameter(inp_Keyword const& keyword, char const* name)
{
  inp_Item const* const item = keyword.parameters.ConstFind(name);
  return item != nullptr && item->Type() == inp_Types::inp_INTEGER;
}

cow_String inp_RowText(inp_DataArray const& data, int row)
{
  cow_String text;
  for (int column = 0; column < data.Cols(row); ++column)
  {
    text.Append(column > 0 ? ", " : "").Append(data.AsString(row, column));
  }
  return text;
}

double inp_NumberFields::Real(int row, int column)
{
  if (!m_keyword.data.HasValue(row, column))
  {
    return 0.0;
  }
  double value = 0.0;
  cow_String const text = m_keyword.data.AsStringVerbatim(row, column);
  if (ReadNumber(text.CStr(), value) || ReadNumberD(std::string(text.View()), value))
  {
    return value;
  }
  AddFault(inp_msgFieldNotNumber, row, column);
  return 0.0;
}

int inp_NumberFields::Integer(int row, int column)
{
  inp_DataArray const& data = m_keyword.data;
  if (!data.HasValue(row, column))
  {
    return 0;
  }
  // One of many digits is of no type of its own.
  if (data.Type(row, column) == inp_Types::inp_INTEGER ||
      inp_Types::IsInteger(data.AsStringVerbatim(row, column).View()))
  {
    return data.AsInt(row, column);
  }
  AddFault(inp_msgFieldNotInteger, row, column);
  return 0;
}

void inp_NumberFields::AddFault(atr_MessageRow<3> const& message, int row, int column)
{
  if (m_faults.emplace(row, column).second)
  {
    cow_String text = m_keyword.data.AsStringVerbatim(row, column);
    m_errors.Append(inp_Utils::MessageInKeyword(
      m_keyword, atr_Say(message, column + 1, row + 1, text.Trim(" \t"))));
  }
}

gsl_Point inp_NumberFields::Point(int row, int column)
{
  double const x = Real(row, column);
  double const y = Real(row, column + 1);
  return {x, y, Real(row, column + 2)};
}
