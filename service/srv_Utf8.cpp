#include "srv_Utf8.h"

namespace
{

unsigned ByteAt(std::string_view text, std::size_t index)
{
  return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

/// Bytes that a character has by its first one; 0 for a byte that begins none.
int LengthByLead(unsigned lead)
{
  if (lead < 0x80)
  {
    return 1;
  }
  if (lead < 0xC2 || lead > 0xF4)
  {
    return 0;
  }
  return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// The second byte has a narrower range after some first bytes.
bool FitsLead(unsigned lead, unsigned second)
{
  switch (lead)
  {
  case 0xE0:
    return second >= 0xA0;
  case 0xED:
    return second <= 0x9F;
  case 0xF0:
    return second >= 0x90;
  case 0xF4:
    return second <= 0x8F;
  default:
    return true;
  }
}

bool IsControl(std::string_view character)
{
  unsigned const first = ByteAt(character, 0);
  bool const isC1 = first == 0xC2 && ByteAt(character, 1) < 0xA0;
  return first < 0x20 || first == 0x7F || isC1;
}

void AppendHex(std::string& shown, unsigned byte)
{
  constexpr char digits[] = "0123456789ABCDEF";
  shown += "\\x";
  shown += digits[byte >> 4];
  shown += digits[byte & 15];
}

/// Appends the first character of the text in its shown form; returns the bytes taken.
std::size_t AppendShown(std::string& shown, std::string_view text)
{
  std::size_t const length = static_cast<std::size_t>(srv_Utf8Length(text));
  if (length == 0 || IsControl(text.substr(0, length)))
  {
    AppendHex(shown, ByteAt(text, 0));
    return 1;
  }
  shown += text.substr(0, length);
  return length;
}

} // namespace

int srv_Utf8Length(std::string_view text)
{
  if (text.empty())
  {
    return 0;
  }
  unsigned const lead = ByteAt(text, 0);
  int const length = LengthByLead(lead);
  for (int i = 1; i < length; ++i)
  {
    if ((ByteAt(text, static_cast<std::size_t>(i)) & 0xC0) != 0x80)
    {
      return 0;
    }
  }
  return length > 1 && !FitsLead(lead, ByteAt(text, 1)) ? 0 : length;
}

std::string srv_Printable(std::string_view text, int columns)
{
  constexpr std::string_view mark = "...";
  std::string shown;
  std::size_t cut = 0; // where the mark begins if the text turns out too long
  int used = 0;
  while (!text.empty())
  {
    std::size_t const before = shown.size();
    std::size_t taken = 1;
    if (text[0] == '\t')
    {
      shown += ' ';
    }
    else
    {
      taken = AppendShown(shown, text);
    }
    used += taken == 1 ? static_cast<int>(shown.size() - before) : 1;
    if (used > columns)
    {
      return shown.substr(0, cut).append(mark);
    }
    if (used <= columns - static_cast<int>(mark.size()))
    {
      cut = shown.size();
    }
    text.remove_prefix(taken);
  }
  return shown;
}

std::string srv_PrintableLines(std::string_view text)
{
  std::string shown;
  while (!text.empty())
  {
    bool const isLayout = text[0] == '\n' || text[0] == '\t';
    if (isLayout)
    {
      shown += text[0];
    }
    text.remove_prefix(isLayout ? 1 : AppendShown(shown, text));
  }
  return shown;
}
