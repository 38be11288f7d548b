#include "srv_JsonWriter.h"

#include "srv_Utf8.h"

#include <charconv>
#include <cmath>

namespace
{

constexpr std::string_view c_replacement = "\xEF\xBF\xBD"; // U+FFFD

bool IsPlain(char c) { return c >= ' ' && c < '\x7f' && c != '"' && c != '\\'; }

void AppendEscape(std::string& text, char c)
{
  constexpr char digits[] = "0123456789abcdef";
  unsigned const byte = static_cast<unsigned char>(c);
  switch (c)
  {
  case '"':
  case '\\':
    text += '\\';
    text += c;
    return;
  case '\n':
    text += "\\n";
    return;
  case '\t':
    text += "\\t";
    return;
  case '\r':
    text += "\\r";
    return;
  default:
    text += "\\u00";
    text += digits[byte >> 4];
    text += digits[byte & 15];
  }
}

} // namespace

srv_JsonWriter& srv_JsonWriter::Break(int indent)
{
  m_indent = m_form == spaced ? indent : -1;
  return *this;
}

void srv_JsonWriter::Separate()
{
  if (m_afterItem)
  {
    m_text += ',';
  }
  if (m_indent >= 0)
  {
    m_text += '\n';
    m_text.append(static_cast<std::size_t>(m_indent), ' ');
  }
  else if (m_afterItem && m_form == spaced)
  {
    m_text += ' ';
  }
  m_indent = -1;
  m_afterItem = true;
}

srv_JsonWriter& srv_JsonWriter::Begin(char bracket)
{
  Separate();
  m_text += bracket;
  m_afterItem = false;
  return *this;
}

srv_JsonWriter& srv_JsonWriter::End(char bracket)
{
  m_text += bracket;
  m_indent = -1;
  m_afterItem = true;
  return *this;
}

srv_JsonWriter& srv_JsonWriter::Key(std::string_view name)
{
  Separate();
  AppendString(name);
  m_text += m_form == spaced ? ": " : ":";
  m_afterItem = false;
  return *this;
}

srv_JsonWriter& srv_JsonWriter::String(std::string_view value)
{
  Separate();
  AppendString(value);
  return *this;
}

srv_JsonWriter& srv_JsonWriter::Word(std::string_view word)
{
  Separate();
  m_text += word;
  return *this;
}

srv_JsonWriter& srv_JsonWriter::Number(int value) { return Word(std::to_string(value)); }

srv_JsonWriter& srv_JsonWriter::Number(double value)
{
  if (std::isnan(value))
  {
    return Null();
  }
  if (std::isinf(value))
  {
    return Word(value > 0 ? "1e999" : "-1e999");
  }
  char buffer[32];
  std::to_chars_result const end = std::to_chars(buffer, buffer + sizeof buffer, value);
  std::string_view const digits(buffer, static_cast<std::size_t>(end.ptr - buffer));
  Word(digits);
  if (digits.find_first_of(".e") == std::string_view::npos)
  {
    m_text += ".0";
  }
  return *this;
}

void srv_JsonWriter::AppendString(std::string_view value)
{
  m_text += '"';
  while (!value.empty())
  {
    std::size_t plain = 0;
    while (plain < value.size() && IsPlain(value[plain]))
    {
      ++plain;
    }
    m_text += value.substr(0, plain);
    value.remove_prefix(plain);
    if (value.empty())
    {
      break;
    }
    std::size_t const length = static_cast<std::size_t>(srv_Utf8Length(value));
    if (length == 1)
    {
      AppendEscape(m_text, value[0]);
    }
    else
    {
      m_text += length == 0 ? c_replacement : value.substr(0, length);
    }
    value.remove_prefix(length == 0 ? 1 : length);
  }
  m_text += '"';
}
