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
  static constexpr std::string_view pieces[] = {"0",
                                                "1",
                                                "9",
                                                "12345678901234567890",
                                                "4503599627370497.5",
                                                ".",
                                                ".",
                                                "-",
                                                "+",
                                                "e",
                                                "E",
                                                "e+",
                                                "E-3",
                                                "e308",
                                                "e-320",
                                                "0x",
                                                "p",
                                                "d",
                                                " ",
                                                "\t",
                                                "\n",
                                                ",",
                                                "inf",
                                                "nan",
                                                "1e",
                                                "00",
                                                "7",
                                                "a"};
  std::string text;
  for (auto left = random() % 6; left > 0; --left)
    text += pieces[random() % std::size(pieces)];
  return text;
}

bool SameNumber(double a, double b)
{
  return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

} // namespace

TEST(inp_Numbers, ReadAsTheLibraryDoes)
{
  std::mt19937 random(7);
  for (int i = 0; i < 100000; ++i)
  {
    std::string const text = NumberText(random);
    char* libraryEnd = nullptr;
    double const real = std::strtod(text.c_str(), &libraryEnd);
    char const* end = nullptr;
    ASSERT_TRUE(SameNumber(inp_TextToDouble(text.c_str(), &end), real)) << "<" << text << ">";
    ASSERT_EQ(end, libraryEnd) << "<" << text << ">";
    long const integer = std::clamp<long>(std::strtol(text.c_str(), nullptr, 10), INT_MIN, INT_MAX);
    ASSERT_EQ(inp_TextToInt(text.c_str()), integer) << "<" << text << ">";
  }
}

TEST(inp_Numbers, EveryRealReadsBack)
{
  std::mt19937_64 random(8);
  for (int i = 0; i < 20000; ++i)
  {
    std::uint64_t const bits = random();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    char text[40];
    std::snprintf(text, sizeof text, "%+.17g", value);
    ASSERT_TRUE(SameNumber(inp_TextToDouble(text), value)) << text;
  }
}

TEST(inp_Numbers, DecimalsAreTheNearestReals)
{
  std::mt19937 random(9);
  for (int i = 0; i < 100000; ++i)
  {
    std::string text = random() % 3 == 0 ? "-" : "";
    for (auto left = random() % 22; left > 0; --left)
      text += static_cast<char>('0' + random() % 10);
    if (random() % 8 != 0)
      text.insert(random() % (text.size() + 1), ".");
    text += " ,\t\r\nexd.+"[random() % 11]; // or the NUL, which ends it
    char* libraryEnd = nullptr;
    double const real = std::strtod(text.c_str(), &libraryEnd);
    char const* end = nullptr;
    ASSERT_TRUE(SameNumber(inp_TextToDouble(text.c_str(), &end), real)) << text;
    ASSERT_EQ(end, libraryEnd) << text;
  }
}

TEST(inp_Numbers, IntegersBeyondTheRangeStayAtItsEnds)
{
  struct
  {
    char const* text;
    int value;
  } const cases[] = {
    {"2147483647", INT_MAX},
    {"2147483648", INT_MAX},
    {"-2147483648", INT_MIN},
    {"-2147483649", INT_MIN},
    {"18446744073709551617", INT_MAX}, // 1 to those who lose the upper bits
    {"-18446744073709551617", INT_MIN},
    {"+ 1", 0},
    {"--1", 0},
  };
  for (auto const& c : cases)
    EXPECT_EQ(inp_TextToInt(c.text), c.value) << c.text;
}
