// The keywords that divide a deck: parts, instances, the assembly, steps.

#include "inp_ExpansionMessages.h"
#include "inp_KeywordExpansionVisitor.h"

#include <algorithm>
#include <limits>
#include <string>

namespace
{

/// A number is no name, however large.
inp_Item const* FindText(inp_Keyword const& keyword, cow_String const& parameter)
{
  inp_Item const* const item = keyword.parameters.ConstFind(parameter);
  bool const isText =
    item != nullptr && item->Type() == inp_Types::inp_STRING && !item->ReadsAsInteger();
  return isText ? item : nullptr;
}

} // namespace

/// The deck is known to be an assembly of parts from now on, and errors of such decks that were kept back
/// come out.
void inp_KeywordExpansionVisitor::MarkFeatureEnhanced()
{
  featureEnhanced = true;
  m_errorList.Concatenate(deferredErrors);
  deferredErrors.Clear();
}

void inp_KeywordExpansionVisitor::VisitPart(inp_Keyword& keyword)
{
  Expand(keyword);
  MarkFeatureEnhanced();
  SetPartName(keyword);
  if (!keyword.HasParameter("name"))
  {
    Say(inp_msgPartNameMissing, keyword);
    return;
  }
  inp_Item const* const name = FindText(keyword, "name");
  if (name == nullptr)
  {
    Say(inp_msgPartNameInvalid, keyword);
  }
  else if (!partNames.insert(name->AsString()).second)
  {
    SayFirst(inp_msgPartDefinedTwice, keyword, name->AsString());
  }
}

void inp_KeywordExpansionVisitor::VisitEndPart(inp_Keyword& keyword)
{
  Expand(keyword);
  if (!featureEnhanced)
  {
    Say(inp_msgEndPartMisplaced, keyword);
  }
  m_partName.Erase();
}

void inp_KeywordExpansionVisitor::VisitInstance(inp_Keyword& keyword)
{
  MarkFeatureEnhanced();
  Expand(keyword);
  MeetsRequirements(keyword);
  SetInstanceName(keyword);
  if (keyword.HasParameter("instance"))
  {
    return;
  }
  bool const hasName = FindText(keyword, "name") != nullptr;
  bool const hasPart = FindText(keyword, "part") != nullptr;
  if (!hasName)
  {
    Say(inp_msgInstanceNameMissing, keyword);
  }
  if (!hasPart)
  {
    Say(inp_msgInstancePartMissing, keyword);
  }
  if (hasName && hasPart)
  {
    RegisterInstance(keyword);
  }
}

/// Notes the instance and its part, for the passes that follow even when one of them is at fault.
void inp_KeywordExpansionVisitor::RegisterInstance(inp_Keyword const& keyword)
{
  cow_String const name = FindText(keyword, "name")->AsString();
  cow_String const part = FindText(keyword, "part")->AsString();
  if (instanceNames.count(name) > 0)
  {
    SayFirst(inp_msgInstanceDefinedTwice, keyword, name);
  }
  else if (partNames.count(part) > 0)
  {
    instanceNames.insert(name);
  }
  else
  {
    SayFirst(inp_msgPartNotDefined, keyword, part);
  }
  instancePartNames.Insert(name, part);
}

void inp_KeywordExpansionVisitor::VisitAssembly(inp_Keyword& keyword)
{
  MarkFeatureEnhanced();
  Expand(keyword);
  SetAssemblyName(keyword);
  cow_String const name = keyword.NameIn("name");
  if (name.Length() == 0)
  {
    Say(inp_msgAssemblyNameRequired, keyword);
  }
  else if (!inp_Utils::IsSetName(name) && !IsReference(name))
  {
    Say(inp_msgAssemblyLabelInvalid, keyword, name);
  }
  ++assemblyCount;
  if (assemblyCount > 1)
  {
    Say(inp_msgSecondAssembly, keyword);
  }
  instanceNames.clear();
}

void inp_KeywordExpansionVisitor::VisitStep(inp_Keyword& keyword)
{
  Expand(keyword);
  long long const count = numberSteps + 1LL;
  cow_String const number(std::string_view(std::to_string(count)));
  cow_String name = cow_String("Step-") + number;
  if (inp_NameParameter const given = keyword.ReadName("name"); given.IsGiven())
  {
    if (keyword.parameters.ConstGet("name").ReadsAsInteger())
    {
      Say(inp_msgStepNameIsNumber, keyword);
    }
    name = given.text;
    if (stepNames.count(name) > 0)
    {
      SayFirst(inp_msgStepDefinedTwice, keyword, name);
      name = number + "-Duplicate-" + name;
      keyword.parameters.Insert("name", inp_Item::Text(name));
    }
  }
  else
  {
    checkRequiredParameterValue(keyword, "name");
    keyword.parameters.Insert("name", inp_Item::Text(name));
  }
  stepNames.insert(name);
  m_stepName = name;
  numberSteps = static_cast<int>(std::min<long long>(count, std::numeric_limits<int>::max()));
}

template <int Placeholders>
void inp_KeywordExpansionVisitor::CheckIntegerWith(inp_Keyword const& keyword,
                                                   cow_String const& parameter,
                                                   atr_MessageRow<Placeholders> const& row)
{
  inp_Item const* const item = keyword.parameters.ConstFind(parameter);
  if (item != nullptr && item->Type() != inp_Types::inp_INTEGER)
  {
    SayOf(parameter, row, keyword);
  }
}

void inp_KeywordExpansionVisitor::VisitRestart(inp_Keyword& keyword)
{
  Expand(keyword);
  if (!keyword.HasParameter("read"))
  {
    return;
  }
  CheckIntegerWith(keyword, "step", inp_msgRestartStepNotInteger);
  CheckIntegerWith(keyword, "inc", inp_msgRestartIncNotInteger);
  numberSteps = keyword.HasParameter("step") ? keyword.GetParameterAsInt("step", numberSteps)
                                             : numberRestartSteps;
}

/// Parameters and expressions stay as written: this library does not evaluate them.
void inp_KeywordExpansionVisitor::VisitParameter(inp_Keyword&) { parameterized = true; }

void inp_KeywordExpansionVisitor::VisitConflicts(inp_Keyword& keyword)
{
  Expand(keyword);
  Say(inp_msgConflictsKeyword, keyword);
}
