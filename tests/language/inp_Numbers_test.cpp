#include "inp_Numbers.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace
{

std::string NumberText(std::mt19937& random)
{
  static constexpr std::string_view pieces[] = {
    "0",    "1",     "9",  "123456789", "7.5", ".", ".",  "-",  "+", "e",   "E",   "e+", "E-3",
    "e308", "e-320", "0x", "p",         "d",   " ", "\t", "\n", ",", "inf", "nan", "1e", "00"};
  std::string text;
  for (auto left = random() % 6; left > 0; --left)
    text += pieces[random() % std::size(pieces)];
  return text;
}

std::string DecimalText(std::mt19937& random)
{
  std::string text = random() % 3 == 0 ? "-" : "";
  for (auto left = random() % 22; left > 0; --left)
    text += static_cast<char>('0' + random() % 10);
  if (random() % 8 != 0)
    text.insert(random() % (text.size() + 1), ".");
  return text + " ,\t\r\nexd.+"[random() % 11]; // or the NUL, which ends it
}

std::string AnyRealText(std::mt19937& random)
{
  std::uint64_t const bits = std::uint64_t{random()} << 32 | random();
  double value = 0.0;
  std::memcpy(&value, &bits, sizeof value);
  char text[40];
  std::snprintf(text, sizeof text, "%+.17g", value);
  return text;
}

} // namespace

TEST(inp_Numbers, ReadAsTheLibraryDoes)
{
  std::mt19937 random(7);
  for (int i = 0; i < 300000; ++i)
  {
    auto const source = i % 3 == 0 ? NumberText : i % 3 == 1 ? DecimalText : AnyRealText;
    std::string const text = source(random);
    char* libraryEnd = nullptr;
    double const real = std::strtod(text.c_str(), &libraryEnd);
    char const* end = nullptr;
    double const read = inp_TextToDouble(text.c_str(), &end);
    ASSERT_TRUE(std::memcmp(&read, &real, sizeof read) == 0 ||
                (std::isnan(read) && std::isnan(real)))
      << "<" << text << ">";
    ASSERT_EQ(end, libraryEnd) << "<" << text << ">";
    long const integer = std::clamp<long>(std::strtol(text.c_str(), nullptr, 10), INT_MIN, INT_MAX);
    ASSERT_EQ(inp_TextToInt(text.c_str()), integer) << "<" << text << ">";
  }
}

TEST(inp_Numbers, IntegersBeyondTheRangeStayAtItsEnds)
{
  EXPECT_EQ(inp_TextToInt("2147483647"), INT_MAX);
  EXPECT_EQ(inp_TextToInt("2147483648"), INT_MAX);
  EXPECT_EQ(inp_TextToInt("-2147483648"), INT_MIN);
  EXPECT_EQ(inp_TextToInt("-2147483649"), INT_MIN);
  EXPECT_EQ(inp_TextToInt("18446744073709551617"), INT_MAX); // 1 to those who lose the upper bits
  EXPECT_EQ(inp_TextToInt("--1"), 0);
}
