#include "VRXBasException.h"
#include "VRXString.h"
#include "cow_String.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <unordered_set>
#include <vector>

namespace
{

using Chars = char const*;

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

std::string Text(atr_StringBase const& text)
{
  EXPECT_EQ(text.CStr()[text.Length()], '\0');
  return std::string(text.View());
}

} // namespace

TEST(cow_String, WithoutBlockReadsAsEmpty)
{
  cow_String empty;
  EXPECT_EQ(Text(empty), "");
  EXPECT_EQ(Text(cow_String(static_cast<char const*>(nullptr))), "");
  EXPECT_EQ(Text(cow_String("abc", -1)), "");
  EXPECT_EQ(empty[0], '\0');
  EXPECT_EQ(empty, "");
  EXPECT_EQ(empty.Find("a"), 0);
  EXPECT_EQ(Text(empty.Substr(0, highest)), "");
  EXPECT_EQ(Text(empty.ToUpper().Trim(" ").Erase(0, 5).Substitute("a", "b")), "");
  EXPECT_EQ(Text(empty + "x"), "x");
  EXPECT_EQ(Text(empty), "");
}

TEST(cow_String, CopiesShareUntilOneWrites)
{
  cow_String const original("name");
  cow_String copy(original);
  EXPECT_EQ(copy.CStr(), original.CStr());
  EXPECT_EQ(cow_String().Append(original).CStr(), original.CStr());
  EXPECT_EQ(original.Substr(0).CStr(), original.CStr());

  EXPECT_EQ(copy[1], 'a');
  EXPECT_EQ(copy.CStr(), original.CStr());
  copy[0] = copy[1];
  EXPECT_EQ(Text(copy), "aame");
  EXPECT_EQ(Text(original), "name");

  // Operations that change nothing keep sharing.
  cow_String same(original);
  same.ToLower().LeftTrim(" ").Trim("x").Substitute("q", "r").Erase(2, 0).Append("");
  EXPECT_EQ(same.CStr(), original.CStr());

  cow_String moved(std::move(copy));
  cow_String const& alias = moved;
  moved = alias;
  EXPECT_EQ(Text(moved), "aame");
}

TEST(cow_String, AcceptsItselfAndNoWriteOutside)
{
  cow_String text("ab");
  text.Append(text).Append(text.CStr());
  EXPECT_EQ(Text(text), "abababab");
  text.Substitute(text, text + text);
  EXPECT_EQ(Text(text), "abababababababab");
  text = text.CStr() + 13;
  EXPECT_EQ(Text(text), "bab");
  EXPECT_THROW(text[3] = 'x', VRXBasAssertException);
  EXPECT_THROW(text[-1] = 'x', VRXBasAssertException);
  EXPECT_EQ(text[3], '\0');
  EXPECT_EQ(text[-1], '\0');
}

TEST(cow_String, SubstrAndEraseClamp)
{
  struct
  {
    int start, count;
    Chars substr, erased;
  } const cases[] = {{0, highest, "abcdef", ""}, {2, 2, "cd", "abef"},
                     {-3, 2, "ab", "cdef"},      {lowest, highest, "abcdef", ""},
                     {6, 1, "", "abcdef"},       {highest, highest, "", "abcdef"},
                     {3, 0, "", "abcdef"},       {3, lowest, "", "abcdef"}};
  for (auto const& c : cases)
  {
    SCOPED_TRACE(std::to_string(c.start) + ", " + std::to_string(c.count));
    cow_String text("abcdef");
    EXPECT_EQ(Text(text.Substr(c.start, c.count)), c.substr);
    EXPECT_EQ(Text(text.Erase(c.start, c.count)), c.erased);
  }
}

TEST(cow_String, FindGivesTheLengthForAbsence)
{
  cow_String const text("abcabc");
  struct
  {
    char const* needle;
    int from, first, last;
  } const cases[] = {
    {"bc", 2, 4, 1},     {"bc", 4, 4, 4},       {"bc", 5, 6, 4},       {"bc", -7, 1, 6},
    {"x", 0, 6, 6},      {"bc", highest, 6, 4}, {"abc", lowest, 0, 6}, {"abcabcd", 0, 6, 6},
    {"abcabc", 0, 0, 0}, {"", 3, 3, 3},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(std::string(c.needle) + " " + std::to_string(c.from));
    EXPECT_EQ(text.Find(c.needle, c.from), c.first);
    EXPECT_EQ(text.RFind(cow_String(c.needle), c.from), c.last);
  }
}

TEST(cow_String, TrimsBySet)
{
  struct
  {
    Chars text, chars, left, right, all;
  } const cases[] = {
    {"\t a,b\t", " \t", "a,b\t", "\t a,b", "a,b"},
    {"   ", " ", "", "", ""},
    {"xay", "", "xay", "xay", "xay"},
    {"a b c", " ", "a b c", "a b c", "abc"},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Text(cow_String(c.text).LeftTrim(c.chars)), c.left);
    EXPECT_EQ(Text(cow_String(c.text).RightTrim(c.chars)), c.right);
    EXPECT_EQ(Text(cow_String(c.text).Trim(c.chars)), c.all);
  }
}

TEST(cow_String, SubstitutesFromTheLeft)
{
  struct
  {
    Chars text, from, to;
    int count;
    Chars result;
  } const cases[] = {{"1D5d", "D", "e", 1, "1e5d"},         {"aaaa", "a", "bb", 2, "bbbbaa"},
                     {"aaa", "aa", "b", highest, "ba"},     {"a.b.c", ".", "", highest, "abc"},
                     {"aaa", "a", "aa", highest, "aaaaaa"}, {"abc", "", "x", highest, "abc"},
                     {"abc", "b", "x", 0, "abc"},           {"abc", "abc", "", 1, ""}};
  for (auto const& c : cases)
    EXPECT_EQ(Text(cow_String(c.text).Substitute(c.from, c.to, c.count)), c.result) << c.text;
}

TEST(cow_String, HoldsAnyBytes)
{
  cow_String text("a\0b\xFF", 4);
  EXPECT_EQ(text.Length(), 4);
  EXPECT_EQ(Text(text), std::string("a\0b\xFF", 4));
  EXPECT_EQ(text.Find('b'), 2);
  EXPECT_FALSE(text == "a");
  EXPECT_EQ(Text(text.Trim("b").Append(text)), std::string("a\0\xFF"
                                                           "a\0\xFF",
                                                           6));
  // Case changes leave bytes outside ASCII alone.
  EXPECT_EQ(Text(cow_String("a\xC3\xA4z{@").ToUpper()), "A\xC3\xA4Z{@");
  EXPECT_EQ(Text(cow_String("A\xC3\x84Z[`").ToLower()), "a\xC3\x84z[`");
}

TEST(cow_String, ComparesByUnsignedBytes)
{
  char const* const ascending[] = {"", "A", "a", "ab", "b", "\x80", "\xFF"};
  for (char const* low : ascending)
    for (char const* high : ascending)
    {
      cow_String const a(low);
      cow_String const b(high);
      int const expected = std::string_view(low).compare(high);
      EXPECT_EQ(a.Compare(high) > 0, expected > 0);
      EXPECT_EQ(a.Compare(omn_FixedString(high)) == 0, expected == 0);
      EXPECT_EQ(a < b, expected < 0);
      EXPECT_EQ(a == high, expected == 0);
      EXPECT_EQ(low != b, expected != 0);
    }
  std::unordered_set<cow_String> const set{cow_String("x"), "x", "y"};
  EXPECT_EQ(set.size(), 2u);
}

TEST(cow_String, WritesNumbersThatReadBack)
{
  std::pair<double, char const*> const cases[] = {
    {1500, "1500."},
    {0, "0."},
    {-0.0, "-0."},
    {1e22, "1e+22"},
    {-2.5e-7, "-2.5e-07"},
    {INFINITY, "1e999"},
    {-INFINITY, "-1e999"},
    {5e-324, "5e-324"},
    {-1.7976931348623157e308, "-1.7976931348623157e+308"}};
  for (auto const& [value, text] : cases)
  {
    EXPECT_EQ(Text(cow_String(value)), text);
    EXPECT_EQ(std::strtod(cow_String(value).CStr(), nullptr), value);
  }
  EXPECT_EQ(Text(cow_String(lowest)), "-2147483648");

  std::mt19937_64 random(7);
  for (int i = 0; i < 2000; ++i)
  {
    std::uint64_t const bits = random();
    double value;
    static_assert(sizeof value == sizeof bits);
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value))
      continue;
    cow_String const text(value);
    EXPECT_EQ(std::strtod(text.CStr(), nullptr), value);
    EXPECT_NE(text.View().find_first_of(".e"), std::string_view::npos) << text;
  }
}

// A few hundred runs of random operations, held against std::string; copies taken on the way must
// keep what they had.
TEST(cow_String, BehavesAsAStandardStringUnderRandomWrites)
{
  std::mt19937 random(20);
  auto const below = [&random](int n)
  { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  for (int run = 0; run < 300; ++run)
  {
    cow_String text;
    std::string expected;
    std::vector<std::pair<cow_String, std::string>> copies;
    for (int step = 0; step < 60; ++step)
    {
      int const length = static_cast<int>(expected.size());
      int const at = below(length + 1);
      int const count = below(6);
      switch (below(7))
      {
      case 0:
      case 1:
        text.Append("ab, A");
        expected += "ab, A";
        break;
      case 2:
        text.Erase(at, count);
        expected.erase(static_cast<std::size_t>(at), static_cast<std::size_t>(count));
        break;
      case 3:
        if (at < length)
        {
          text[at] = '#';
          expected[static_cast<std::size_t>(at)] = '#';
        }
        break;
      case 4:
        copies.emplace_back(text, expected);
        break;
      case 5:
        text = text.Substr(at / 2);
        expected = expected.substr(static_cast<std::size_t>(at / 2));
        break;
      case 6:
        text.LeftTrim("ab");
        expected.erase(0, std::min(expected.find_first_not_of("ab"), expected.size()));
        break;
      }
      ASSERT_EQ(Text(text), expected);
    }
    for (auto const& [copy, kept] : copies)
      ASSERT_EQ(Text(copy), kept);
  }
}

TEST(cow_String, GrowsInLinearTime)
{
  cow_String text;
  char const* last = nullptr;
  int moves = 0;
  for (int i = 0; i < 200000; ++i)
  {
    text.Append('x');
    moves += text.CStr() != last ? 1 : 0;
    last = text.CStr();
  }
  EXPECT_LT(moves, 100);
}

TEST(VRXString, TellsWellFormedUtf8)
{
  struct
  {
    char const* what;
    std::string bytes;
    bool isBad;
  } const cases[] = {
    {"three bytes, first and last", "\xE0\xA0\x80\xEF\xBF\xBF", false},
    {"ASCII and NUL", std::string("a\0b", 3), false},
    {"two bytes, first and last", "\xC2\x80\xDF\xBF", false},
    {"last before and first behind the surrogates", "\xED\x9F\xBF\xEE\x80\x80", false},
    {"four bytes, first and last", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", false},
    {"lone continuation", "a\x80", true},
    {"overlong, two bytes", "\xC0\x80", true},
    {"overlong, three bytes", "\xE0\x9F\xBF", true},
    {"overlong, four bytes", "\xF0\x8F\xBF\xBF", true},
    {"first surrogate", "\xED\xA0\x80", true},
    {"above U+10FFFF", "\xF4\x90\x80\x80", true},
    {"F5", "\xF5\x80\x80\x80", true},
    {"cut after one of two", "a\xC3", true},
    {"cut after two of three", "\xE2\x82", true},
    {"cut after three of four", "\xF0\x9F\x98", true},
    {"cut by ASCII", "\xE2\x82z", true},
    {"Latin-1", "B\xF6hm", true},
  };
  for (auto const& c : cases)
    EXPECT_EQ(VRXString::BuildFromUTF8(cow_String(std::string_view(c.bytes))).IsBAD(), c.isBad)
      << c.what;
}
