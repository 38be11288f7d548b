#include "inp_Numbers.h"

#include <charconv>
#include <climits>
#include <cstdlib>
#include <cstring>

namespace
{

char const* SkipWhiteSpace(char const* text)
{
  while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
  {
    ++text;
  }
  return text;
}

/// What from_chars does not take, or answers without a value: hexadecimal, out of range.
double ConvertByLibrary(char const* text, char const** end)
{
  char* last = nullptr;
  double const value = std::strtod(text, &last);
  if (end != nullptr)
  {
    *end = last;
  }
  return value;
}

bool IsHexadecimal(char const* digits) { return digits[0] == '0' && (digits[1] | 0x20) == 'x'; }

} // namespace

int inp_TextToInt(char const* text)
{
  text = SkipWhiteSpace(text);
  bool const negative = *text == '-';
  if (negative || *text == '+')
  {
    ++text;
  }
  long long value = 0;
  for (; *text >= '0' && *text <= '9'; ++text)
  {
    if (value <= INT_MAX)
    {
      value = 10 * value + (*text - '0');
    }
  }
  if (negative)
  {
    return value > INT_MAX ? INT_MIN : static_cast<int>(-value);
  }
  return value > INT_MAX ? INT_MAX : static_cast<int>(value);
}

double inp_TextToDouble(char const* text, char const** end)
{
  char const* at = SkipWhiteSpace(text);
  if (*at == '+' && at[1] != '-' && at[1] != '+')
  {
    ++at;
  }
  if (IsHexadecimal(*at == '-' ? at + 1 : at))
  {
    return ConvertByLibrary(text, end);
  }
  std::size_t const length = std::strlen(at);
  double value = 0.0;
  std::from_chars_result const result = std::from_chars(at, at + length, value);
  if (result.ec == std::errc::result_out_of_range)
  {
    return ConvertByLibrary(text, end);
  }
  if (end != nullptr)
  {
    *end = result.ec == std::errc() ? result.ptr : text;
  }
  return value;
}
