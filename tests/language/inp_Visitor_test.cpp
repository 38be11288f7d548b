#include "inp_Visitor.h"

#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CapturingSink.h"
#include "VRXBasException.h"
#include "inp_KeywordEnm.h"

namespace
{

/// Writes down every operation that it is called by, then does what the base does.
class Recorder : public inp_Visitor
{
public:
#define INP_VISITOR_SLOT(stem)                                                                     \
  void Visit##stem(inp_Keyword& keyword) override                                                  \
  {                                                                                                \
    operations += #stem " ";                                                                       \
    inp_Visitor::Visit##stem(keyword);                                                             \
  }
#include "inp_VisitorSlots.def"

  void DefaultAction(inp_Keyword&) override
  {
    ++defaultActions;
    places += m_assemblyName.CStr() + std::string("/") + m_partName.CStr() + "/" +
              m_instanceName.CStr() + "/" + m_stepName.CStr() + "/" +
              std::to_string(m_substructurePathDepth) + " ";
  }

  using inp_Visitor::m_errorList;
  using inp_Visitor::m_fatalErrorList;
  using inp_Visitor::m_warningList;

  std::string operations;
  std::string places; ///< "assembly/part/instance/step/depth " at each default action
  int defaultActions = 0;
};

inp_Keyword Named(inp_KeywordEnm keyword, char const* name, char const* parameter = "name")
{
  inp_Keyword named(keyword);
  if (name != nullptr)
    named.parameters.Insert(parameter, inp_Item(cow_String(name)));
  return named;
}

std::string OperationsOf(inp_KeywordEnm keyword)
{
  Recorder recorder;
  inp_Keyword visited = Named(keyword, "a");
  recorder.Visit(visited);
  EXPECT_EQ(recorder.defaultActions, recorder.operations.empty() ? 0 : 1);
  return recorder.operations;
}

std::string PlacesOf(std::vector<inp_Keyword> const& keywords)
{
  Recorder recorder;
  cow_List<inp_Keyword> list;
  for (inp_Keyword const& keyword : keywords)
    list.Append(keyword);
  recorder.VisitList(list);
  return recorder.places;
}

} // namespace

TEST(inp_Visitor, EveryKeywordReachesItsOperation)
{
  struct
  {
    inp_KeywordEnm keyword;
    char const* operation;
  } const served[] = {
#define INP_KEYWORD(stem, name, value) {inp_kw##stem, #stem},
#define INP_KEYWORD_SHARED(stem, name, value, visitor) {inp_kw##stem, #visitor},
#define INP_KEYWORD_UNVISITED(stem, name, value)
#include "inp_Keywords.def"
  };
  char const* const operations[] = {
#define INP_VISITOR_SLOT(stem) #stem,
#define INP_VISITOR_SLOT_DIRECT(stem)
#include "inp_VisitorSlots.def"
  };
  std::set<std::string> reached;
  for (auto const& row : served)
  {
    EXPECT_EQ(OperationsOf(row.keyword), std::string(row.operation) + " ");
    reached.insert(row.operation);
  }
  for (char const* const operation : operations)
    EXPECT_EQ(reached.count(operation), 1U) << operation;
}

TEST(inp_Visitor, PassesOverTheEmptyKeywordAndTheRootAndRefusesWhatHasNoOperation)
{
  Recorder recorder;
  for (inp_KeywordEnm const keyword : {inp_kwUndefined, inp_kwModel})
  {
    inp_Keyword passed(keyword);
    passed.suboptions.Append(inp_Keyword(inp_kwNode));
    recorder.Visit(passed);
  }
  for (int const value : {static_cast<int>(inp_kwEof), 123456})
  {
    inp_Keyword keyword(static_cast<inp_KeywordEnm>(value));
    testing::internal::CaptureStderr();
    EXPECT_THAT(
      [&] { keyword.Accept(recorder); },
      testing::Throws<VRXBasAssertException>(testing::Property(
        &VRXBasAssertException::Condition, testing::StrEq("\"Check inp_keywords.h\" == 0"))));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Unknown keyword key " + std::to_string(value) + "\n");
  }
  EXPECT_EQ(recorder.operations, "");
}

TEST(inp_Visitor, ParentsComeBeforeTheirSuboptions)
{
  inp_Keyword part = Named(inp_kwPart, nullptr); // no name, no default action, but suboptions
  part.suboptions.Append(inp_Keyword(inp_kwNode));
  part.suboptions.Get(0).suboptions.Append(inp_Keyword(inp_kwNset));
  part.suboptions.Append(inp_Keyword(inp_kwElement));
  cow_List<inp_Keyword> list;
  list.Append(part).Append(inp_Keyword(inp_kwPrint)).Append(inp_Keyword(inp_kwModalPrint));
  Recorder recorder;
  recorder.VisitList(list);
  EXPECT_EQ(recorder.operations, "Part Node Nset Element Print Print ");
  EXPECT_EQ(recorder.defaultActions, 5);
}

TEST(inp_Visitor, ChangesTheListAndPassesOverWhatItAppends)
{
  class Appender : public inp_Visitor
  {
  public:
    explicit Appender(cow_List<inp_Keyword>& list) : m_list(list) {}
    void DefaultAction(inp_Keyword& keyword) override
    {
      ++calls;
      keyword.lineNumber = 7;
      m_list.Append(inp_Keyword(inp_kwNode));
    }
    int calls = 0;

  private:
    cow_List<inp_Keyword>& m_list;
  };
  cow_List<inp_Keyword> list;
  list.Append(inp_Keyword(inp_kwNode)).Append(inp_Keyword(inp_kwNset));
  cow_List<inp_Keyword> const before = list;
  Appender appender(list);
  appender.VisitList(list);
  EXPECT_EQ(appender.calls, 2);
  EXPECT_EQ(list.Length(), 4);
  EXPECT_EQ(list.ConstGet(1).lineNumber, 7);
  EXPECT_EQ(before.ConstGet(1).lineNumber, 0);
}

TEST(inp_Visitor, TracksThePlaceOfTheWalk)
{
  inp_Keyword const node(inp_kwNode);
  EXPECT_EQ(PlacesOf({Named(inp_kwAssembly, "\"My Asm\""), Named(inp_kwInstance, "i-1"), node,
                      inp_Keyword(inp_kwEndInstance), node, inp_Keyword(inp_kwEndAssembly), node}),
            "\"My Asm\"////0 \"My Asm\"//i-1//0 \"My Asm\"//i-1//0 \"My Asm\"//i-1//0 "
            "\"My Asm\"////0 \"My Asm\"////0 ////0 ");
  EXPECT_EQ(PlacesOf({Named(inp_kwPart, "P"), Named(inp_kwPart, nullptr), node,
                      inp_Keyword(inp_kwEndPart), inp_Keyword(inp_kwEndPart)}),
            "/P///0 /P///0 /P///0 ////0 ");
  EXPECT_EQ(PlacesOf({Named(inp_kwInstance, "i", "instance")}), "//i//0 ");
  EXPECT_EQ(PlacesOf({Named(inp_kwStep, "S"), node, inp_Keyword(inp_kwEndStep), node}),
            "///S/0 ///S/0 ///S/0 ////0 ");
}

TEST(inp_Visitor, StoresNamesWithoutVisiting)
{
  Recorder recorder;
  recorder.SetAssemblyName(Named(inp_kwAssembly, "A"));
  recorder.SetPartName(Named(inp_kwPart, "P"));
  recorder.SetInstanceName(Named(inp_kwInstance, "I"));
  recorder.SetStepName(Named(inp_kwStep, "S"));
  recorder.SetPartName(Named(inp_kwPart, nullptr));
  EXPECT_EQ(recorder.defaultActions, 0);
  inp_Keyword node(inp_kwNode);
  recorder.Visit(node);
  recorder.ClearInstanceName();
  recorder.ClearStepName();
  recorder.Visit(node);
  EXPECT_EQ(recorder.places, "A/P/I/S/0 A/P///0 ");
}

TEST(inp_Visitor, CountsTheDepthOfSubstructurePaths)
{
  inp_Keyword enter = Named(inp_kwSubstructurePath, "1", "enterelement");
  inp_Keyword leave(inp_kwSubstructurePath);
  leave.parameters.Insert("leave", inp_Item(true));
  inp_Keyword both = enter;
  both.parameters.Insert("leave", inp_Item(true));
  inp_Keyword const neither(inp_kwSubstructurePath);
  // Entering counts before the action, leaving behind it.
  EXPECT_EQ(PlacesOf({leave, enter, enter, both, neither, leave, leave, leave, enter}),
            "////0 ////1 ////2 ////2 ////2 ////2 ////1 ////0 ////1 ");
}

TEST(inp_Visitor, SortsAndReportsDiagnostics)
{
  Recorder recorder;
  VRXBasVector<VRXBasPair<int, atr_String>> diagnostics;
  for (int const code : {3, 2, 1, 0, 2, 77})
    diagnostics.push_back({code, atr_String(std::to_string(code))});
  EXPECT_FALSE(recorder.IsError() || recorder.IsWarning());
  {
    CapturingSink sink;
    recorder.Report();
    EXPECT_TRUE(sink.Lines().empty());
  }
  recorder.AddDiagnostics(diagnostics);
  EXPECT_TRUE(recorder.IsError() && recorder.IsWarning());
  EXPECT_EQ(recorder.Errors(), "2\n2\n3\n");
  EXPECT_EQ(recorder.Warnings(), "1\n0\n77\n");

  CapturingSink sink;
  cow_List<inp_Keyword> empty;
  recorder.VisitListAndReport(empty);
  EXPECT_EQ(sink.Lines(), (std::vector<std::string>{"warning: 1", "warning: 0", "warning: 77",
                                                    "error: 2", "error: 2", "fatal2: 3"}));
}
