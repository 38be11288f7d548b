#include "CapturingSink.h"
#include "atr_Message.h"
#include "nex_Exception.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace
{

std::string Text(atr_StringBase const& text) { return std::string(text.View()); }

using Lines = std::vector<std::string>;

} // namespace

TEST(atr, FillsPlaceholdersInOneReading)
{
  cow_String const percent("%s %1$s %2$s");
  std::pair<atr_String, char const*> const cases[] = {
    {atr("plain 100% of %x, %% and %%s"), "plain 100% of %x, %% and %%s"},
    {atr("%s and %d", "a", 5), "a and 5"},
    {atr("%2$s before %1$d", 1, cow_String("two")), "two before 1"},
    {atr("%1$s, %2$s", percent, percent), "%s %1$s %2$s, %s %1$s %2$s"},
    {atr("%s %s %s", "a"), "a %s %s"},
    {atr("%s", "a", "b"), "a"},
    {atr("%0$s %$s %-1$s %12$s", "a"), "%0$s %$s %-1$s %12$s"},
    {atr("%99999999999999999999$s", "a"), "%99999999999999999999$s"},
    {atr("ends with %", "a"), "ends with %"},
    {atr<int, int>("%d to %d", -1, 2147483647, VRXBasStringMode()), "-1 to 2147483647"},
    {atr<char const*>("%s%s", "a", "b", VRXBasStringMode(false)), "ab"},
    {atr<cow_String>("<%s>", cow_String()), "<>"},
  };
  for (auto const& [message, text] : cases)
    EXPECT_EQ(Text(message), text);
  static_assert(atr_CountPlaceholders("100% %% %") == 0);
  static_assert(atr_CountPlaceholders("%1$s %3$s %1$d") == 3);
  static_assert(atr_CountPlaceholders("%%s%d") == 1);
}

TEST(atr, SaysARowWithItsCodeAndTheArgumentsPlace)
{
  static constexpr char const* format = "In %s: %s";
  static constexpr atr_MessageRow<atr_CountPlaceholders(format)> row{"Outer", atr_error, format};

  atr_String inner("bad row");
  inner.SetOrigin({"Inner", "deck.inp", 7, "node"});
  atr_String const outer = atr_Say(row, "part", inner);
  EXPECT_EQ(Text(outer), "In part: bad row");
  ASSERT_NE(outer.Origin(), nullptr);
  EXPECT_STREQ(outer.Origin()->code, "Outer");
  EXPECT_EQ(outer.Origin()->file, "deck.inp");
  EXPECT_EQ(outer.Origin()->line, 7);
  EXPECT_EQ(outer.Origin()->keyword, "node");
  EXPECT_STREQ(inner.Origin()->code, "Inner");

  // A plain text that came from a message has no origin to give.
  EXPECT_EQ(atr_Say(row, "part", cow_String(inner)).Origin()->line, 0);
}

TEST(atr_String, KeepsItsOriginThroughWrites)
{
  atr_String message("text");
  EXPECT_EQ(message.Origin(), nullptr);
  message.SetOrigin({"Code", "a.inp", 3, ""});

  atr_String copy(message);
  copy.Append(" more").AppendNewLine().Insert(0, "in ").Insert(99, cow_String("end"));
  EXPECT_EQ(Text(copy), "in text more\nend");
  EXPECT_EQ(copy.Origin(), message.Origin());

  copy.SetOrigin({"Other", "b.inp", 4, ""});
  EXPECT_EQ(message.Origin()->line, 3);
  EXPECT_EQ(copy.Origin()->line, 4);

  EXPECT_EQ(atr_String("prefix ").Append(message).Append(copy).Origin()->line, 3);
  EXPECT_EQ((atr_String("a") + copy).Origin()->line, 4);
  atr_String self(copy);
  self.Append(self).Insert(1, self);
  EXPECT_EQ(self.Length(), 4 * copy.Length());
}

TEST(atr_String, RawTextIsFilledByIndexOrName)
{
  // Formats, and what they are when filled with 1 = "%2$s%s", 2 = 7, file = "f"
  std::pair<char const*, char const*> const cases[] = {
    {"\"%1$s\" due to %2$s.", "\"%2$s%s\" due to 7."},
    {"%2$s%1$s%2$s", "7%2$s%s7"},
    {"%file$s: %s", "f: %2$s%s"},
    {"none %%s %", "none %%s %"},
  };
  for (auto const& [format, result] : cases)
  {
    atr_String const raw = atr_raw(format);
    atr_String message(raw);
    message.ReplaceNonTranslated(1, "%2$s%s").ReplaceNonTranslated(2, 7);
    message.ReplaceNonTranslated("file", cow_String("f"));
    EXPECT_EQ(Text(message), result);
    EXPECT_EQ(Text(raw), format);
  }
  atr_String shifted = atr_raw("%1$s %2$s");
  shifted.ReplaceNonTranslated(1, "a").Insert(0, "in %s: ").ReplaceNonTranslated(2, "b");
  EXPECT_EQ(Text(shifted), "in %s: a b");

  EXPECT_EQ(Text(atr_String("B\xF6hm").LocaleToUTF8()), "B\xC3\xB6hm");
  EXPECT_EQ(Text(atr_String("B\xC3\xB6hm").LocaleToUTF8()), "B\xC3\xB6hm");
}

namespace
{

class DerivedException : public nex_PrimException<atr_String, 1>
{
public:
  DerivedException(int line, atr_String const& message) : nex_PrimException(message), m_line(line)
  {
  }
  int Line() const { return m_line; }
  DerivedException* Copy() const override { return new DerivedException(*this); }
  [[noreturn]] void Propagate() const override { throw DerivedException(*this); }

private:
  int m_line;
};

} // namespace

TEST(nex_PrimException, KeepsItsTypeAndMessage)
{
  atr_String message("bad \"%s\"");
  message.SetOrigin({"Bad", "deck.inp", 12, "node"});
  std::unique_ptr<VRXBasException> caught;
  try
  {
    DerivedException(12, message).Throw("source.cpp", 34);
  }
  catch (nex_PrimException<atr_String, 1> const& exception)
  {
    caught.reset(exception.Clone());
  }
  ASSERT_NE(caught, nullptr);
  EXPECT_EQ(caught->DynTypeId(), typeid(DerivedException));
  EXPECT_EQ(caught->UserReport(), "bad \"%s\"");
  EXPECT_EQ(caught->AsString(), "bad \"%s\"");
  EXPECT_EQ(caught->UserReport().Origin()->line, 12);
  EXPECT_STREQ(caught->GetCode(), "Bad");
  EXPECT_EQ(caught->DeveloperReport(), "bad \"%s\" (source.cpp:34)");
  try
  {
    caught->Propagate();
  }
  catch (DerivedException const& exception)
  {
    EXPECT_EQ(exception.Line(), 12);
    EXPECT_EQ(exception.SourceLine(), 34);
  }
}

TEST(VRXBasAssert, NamesWhatWasBroken)
{
  auto const check = [](int i) { VRXBasAssert(i >= 0 && i < 3, "i >= 0 && i < nrows"); };
  EXPECT_NO_THROW(check(2));
  try
  {
    check(3);
    FAIL() << "no exception";
  }
  catch (VRXBasAssertException const& exception)
  {
    EXPECT_EQ(exception.UserReport(), "i >= 0 && i < nrows");
    EXPECT_NE(exception.DeveloperReport().Find("messages_test.cpp:"),
              exception.DeveloperReport().Length());
    EXPECT_THROW(exception.Propagate(), VRXBasAssertException);
    EXPECT_EQ(dynamic_cast<nex_Exception const*>(&exception), nullptr) << "no fault of the deck";
  }
}

TEST(wip_WIP, HandsOverInOrderAndCounts)
{
  wip_WIP& sink = omi_Singleton<wip_WIP>::Instance();
  sink.ResetCounts();
  sink.Error("nobody hears it", wip_error);
  Lines lines;
  {
    CapturingSink capture;
    sink.AddReporter(capture); // a second time
    atr_String placed("one");
    placed.SetOrigin({"One", "deck.inp", 5, ""});
    sink.Warning(placed);
    sink.Error("two", wip_readerFatal);
    sink.ErrorList(cow_List<atr_String>().Append("three").Append("four"), wip_error);
    sink.ErrorList(cow_List<atr_String>(), wip_error);
    sink.WarningList(cow_List<atr_String>().Append("five"));
    sink.Error("six", wip_passFatal);
    lines = capture.Lines();
    EXPECT_EQ(capture.Messages()[0].text.Origin()->line, 5);
  }
  sink.Warning("nobody hears it");
  EXPECT_EQ(lines, (Lines{"warning: one", "fatal0: two", "error: three", "error: four",
                          "warning: five", "fatal2: six"}));
  EXPECT_EQ(sink.WarningCount(), 3);
  EXPECT_EQ(sink.ErrorCount(wip_readerFatal), 1);
  EXPECT_EQ(sink.ErrorCount(wip_error), 3);
  EXPECT_EQ(sink.ErrorCount(wip_passFatal), 1);
  EXPECT_EQ(sink.ErrorCount(), 5);
}

TEST(wip_WIP, ReporterMayLeaveOrRaiseWhileServed)
{
  struct Leaver : wip_WipReporter
  {
    void Message(wip_Message const&) override
    {
      ++served;
      omi_Singleton<wip_WIP>::Instance().RemoveReporter(*this);
    }
    int served = 0;
  };
  struct Raiser : wip_WipReporter
  {
    void Error(atr_String const& text, wip_errorLevelEnm, VRXBasStringMode) override
    {
      throw nex_PrimException<atr_String, 1>(text);
    }
  };
  wip_WIP& sink = omi_Singleton<wip_WIP>::Instance();
  sink.ResetCounts();
  CapturingSink capture;
  Leaver leaver;
  Raiser raiser;
  sink.AddReporter(leaver);
  sink.AddReporter(raiser);
  sink.Warning("a");
  EXPECT_THROW(sink.Error("b", wip_error), nex_PrimException<atr_String>);
  sink.RemoveReporter(raiser);
  EXPECT_EQ(leaver.served, 1);
  EXPECT_EQ(capture.Lines(), (Lines{"warning: a", "error: b"}));
  EXPECT_EQ(sink.ErrorCount(), 1);
}
