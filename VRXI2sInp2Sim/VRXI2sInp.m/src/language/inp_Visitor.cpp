#include "inp_Visitor.h"

#include "VRXAspBcuAnalysisIROptions.h"
#include "VRXBasException.h"
#include "inp_CurrentOrigin.h"
#include "inp_KeywordEnm.h"
#include "omi_Singleton.h"
#include "wip_WIP.h"

#include <cstdio>

namespace
{

/// Stores the parameter's text and tells whether the keyword has the parameter.
bool TakeName(inp_Keyword const& keyword, char const* parameter, cow_String& name)
{
  inp_Item const* const item = keyword.parameters.ConstFind(parameter);
  if (item != nullptr)
  {
    name = item->AsString();
  }
  return item != nullptr;
}

atr_String OneBelowAnother(cow_List<atr_String> const& messages)
{
  atr_String text;
  for (atr_String const& message : messages)
  {
    text.Append(message).AppendNewLine();
  }
  return text;
}

} // namespace

inp_Visitor::inp_Visitor() = default;
inp_Visitor::~inp_Visitor() = default;

void inp_Visitor::VisitList(cow_List<inp_Keyword>& list)
{
  int const length = list.Length();
  for (int i = 0; i < length; ++i)
  {
    Visit(list.Get(i));
  }
}

void inp_Visitor::VisitSuboptions(inp_Keyword& keyword)
{
  int const length = keyword.suboptions.Length();
  for (int i = 0; i < length; ++i)
  {
    keyword.suboptions.Get(i).Accept(*this);
  }
}

void inp_Visitor::VisitListAndReport(cow_List<inp_Keyword>& list)
{
  VisitList(list);
  Report();
}

void inp_Visitor::Report() const
{
  wip_WIP& sink = omi_Singleton<wip_WIP>::Instance();
  if (m_warningList.Length() > 0)
  {
    sink.WarningList(m_warningList);
  }
  if (m_errorList.Length() > 0)
  {
    sink.ErrorList(m_errorList, wip_error);
  }
  if (m_fatalErrorList.Length() > 0)
  {
    sink.ErrorList(m_fatalErrorList, wip_passFatal);
  }
}

// Without a default, so that a keyword that is new in the table and has no operation does not compile.
void inp_Visitor::Visit(inp_Keyword& keyword)
{
  inp_CurrentOrigin::Set(keyword.fileName, keyword.lineNumber);
  switch (keyword.keyword)
  {
  case inp_kwUndefined:
  case inp_kwModel:
    return;
  case inp_kwEof:
    break;
#define INP_KEYWORD_UNVISITED(stem, name, value)
#define INP_KEYWORD_SHARED(stem, name, value, visitor)                                             \
  case inp_kw##stem:                                                                               \
    Visit##visitor(keyword);                                                                       \
    VisitSuboptions(keyword);                                                                      \
    return;
#define INP_KEYWORD(stem, name, value) INP_KEYWORD_SHARED(stem, name, value, stem)
#include "inp_Keywords.def"
  }
  std::fprintf(stderr, "Unknown keyword key %d\n", static_cast<int>(keyword.keyword));
  throw VRXBasAssertException("\"Check inp_keywords.h\" == 0", __FILE__, __LINE__);
}

#define INP_VISITOR_SLOT(stem)                                                                     \
  void inp_Visitor::Visit##stem(inp_Keyword& keyword) { DefaultAction(keyword); }
#define INP_VISITOR_SLOT_TRACKED(stem)
#include "inp_VisitorSlots.def"

void inp_Visitor::VisitAssembly(inp_Keyword& keyword)
{
  SetAssemblyName(keyword);
  DefaultAction(keyword);
}

void inp_Visitor::VisitEndAssembly(inp_Keyword& keyword)
{
  DefaultAction(keyword);
  m_assemblyName.Erase();
}

void inp_Visitor::VisitPart(inp_Keyword& keyword)
{
  if (keyword.HasParameter("name"))
  {
    SetPartName(keyword);
    DefaultAction(keyword);
  }
}

void inp_Visitor::VisitEndPart(inp_Keyword& keyword)
{
  DefaultAction(keyword);
  m_partName.Erase();
}

void inp_Visitor::VisitInstance(inp_Keyword& keyword)
{
  SetInstanceName(keyword);
  DefaultAction(keyword);
}

void inp_Visitor::VisitEndInstance(inp_Keyword& keyword)
{
  DefaultAction(keyword);
  ClearInstanceName();
}

// A deck may leave a part open: what ends it is out of place behind a step.
void inp_Visitor::VisitStep(inp_Keyword& keyword)
{
  m_partName.Erase();
  SetStepName(keyword);
  DefaultAction(keyword);
}

void inp_Visitor::VisitEndStep(inp_Keyword& keyword)
{
  DefaultAction(keyword);
  m_stepName.Erase();
}

void inp_Visitor::VisitSubstructurePath(inp_Keyword& keyword)
{
  bool const enters = keyword.HasParameter("enterelement");
  bool const leaves = keyword.HasParameter("leave");
  if (enters && !leaves)
  {
    ++m_substructurePathDepth;
  }
  DefaultAction(keyword);
  if (m_substructurePathDepth > 0 && leaves && !enters)
  {
    --m_substructurePathDepth;
  }
}

void inp_Visitor::SetAssemblyName(inp_Keyword const& keyword)
{
  TakeName(keyword, "name", m_assemblyName);
}

void inp_Visitor::SetInstanceName(inp_Keyword const& keyword)
{
  if (!TakeName(keyword, "name", m_instanceName))
  {
    TakeName(keyword, "instance", m_instanceName);
  }
  m_instancePart = keyword.NameIn("part");
}

void inp_Visitor::ClearInstanceName()
{
  m_instanceName.Erase();
  m_instancePart.Erase();
}

void inp_Visitor::SetPartName(inp_Keyword const& keyword) { TakeName(keyword, "name", m_partName); }

void inp_Visitor::SetStepName(inp_Keyword const& keyword) { TakeName(keyword, "name", m_stepName); }

bool inp_Visitor::IsError() const { return m_errorList.Length() + m_fatalErrorList.Length() > 0; }

bool inp_Visitor::IsSimWorkFlow()
{
  VRXAspBcuAnalysisIROptions const& options = omi_Singleton<VRXAspBcuAnalysisIROptions>::Instance();
  return options.IsResultsSim() || options.IsResultsBoth();
}

atr_String inp_Visitor::Errors() const
{
  return OneBelowAnother(m_errorList).Append(OneBelowAnother(m_fatalErrorList));
}

atr_String inp_Visitor::Warnings() const { return OneBelowAnother(m_warningList); }

void inp_Visitor::AddDiagnostics(VRXBasVector<VRXBasPair<int, atr_String>>& diagnostics)
{
  for (VRXBasPair<int, atr_String> const& diagnostic : diagnostics)
  {
    switch (diagnostic.first)
    {
    case 2:
      m_errorList.Append(diagnostic.second);
      break;
    case 3:
      m_fatalErrorList.Append(diagnostic.second);
      break;
    default:
      m_warningList.Append(diagnostic.second);
    }
  }
}

cow_List<atr_String>& inp_Visitor::ListOf(atr_severityEnm severity)
{
  switch (severity)
  {
  case atr_warning:
    return m_warningList;
  case atr_error:
    return m_errorList;
  case atr_fatal:
    return m_fatalErrorList;
  }
  throw VRXBasAssertException("severity is known", __FILE__, __LINE__);
}
