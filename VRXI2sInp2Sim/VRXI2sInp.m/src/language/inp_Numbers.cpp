#include "inp_Numbers.h"

#include <algorithm>
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

/// Reads what from_chars does not: hexadecimal numbers, and those beyond the range of a double.
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

/// The value of a digit; more than 9 for any other character.
unsigned DigitOf(char c) { return static_cast<unsigned>(c) - '0'; }

/// Reads a decimal of the form that nearly every coordinate has, [-]digits[.digits], and returns its end;
/// null for every other form.
///
/// All digits are read as one integer, which is divided by a power of ten: 12.375 is 12375 / 1000. An
/// integer of up to 15 digits and a power of ten up to 10^22 are exact as doubles, so the division is the
/// only rounding, and the result is the nearest double.
char const* ReadPlainDecimal(char const* at, double& value)
{
  static constexpr double powers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                      1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  constexpr std::ptrdiff_t mostDigits = 15;
  bool const negative = *at == '-';
  at += negative;
  // With too many digits the sum overflows, which does no harm: they are counted below.
  unsigned long long mantissa = 0;
  char const* const first = at;
  for (unsigned digit; (digit = DigitOf(*at)) <= 9; ++at)
  {
    mantissa = 10 * mantissa + digit;
  }
  std::ptrdiff_t digits = at - first;
  std::ptrdiff_t decimals = 0;
  if (*at == '.')
  {
    char const* const fraction = ++at;
    for (unsigned digit; (digit = DigitOf(*at)) <= 9; ++at)
    {
      mantissa = 10 * mantissa + digit;
    }
    decimals = at - fraction;
    digits += decimals;
  }
  // Any other character may be part of the number, such as an exponent.
  bool const ends = *at == '\0' || *at == ' ' || *at == ',' || *at == '\t' || *at == '\r';
  if (digits == 0 || digits > mostDigits || !ends)
  {
    return nullptr;
  }
  double const magnitude = static_cast<double>(static_cast<long long>(mantissa)) / powers[decimals];
  value = negative ? -magnitude : magnitude;
  return at;
}

/// The integer that a text begins with. Once it is beyond the range of an int, further digits are dropped.
long long ReadWhole(char const* text)
{
  text = SkipWhiteSpace(text);
  bool const negative = *text == '-';
  if (negative || *text == '+')
  {
    ++text;
  }
  long long value = 0;
  for (unsigned digit; (digit = DigitOf(*text)) <= 9; ++text)
  {
    if (value <= INT_MAX)
    {
      value = 10 * value + digit;
    }
  }
  return negative ? -value : value;
}

bool IsHexadecimal(char const* digits) { return digits[0] == '0' && (digits[1] | 0x20) == 'x'; }

} // namespace

int inp_TextToInt(char const* text)
{
  return static_cast<int>(std::clamp<long long>(ReadWhole(text), INT_MIN, INT_MAX));
}

bool inp_FitsInt(char const* text)
{
  long long const value = ReadWhole(text);
  return value >= INT_MIN && value <= INT_MAX;
}

double inp_TextToDouble(char const* text, char const** end)
{
  char const* at = SkipWhiteSpace(text);
  double plain = 0.0;
  if (char const* const last = ReadPlainDecimal(at, plain))
  {
    if (end != nullptr)
    {
      *end = last;
    }
    return plain;
  }
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
