// The stages that take a deck of parts and instances from its flat list to a hierarchy, and hold it
// against the rules.

#include "inp_ExpansionMessages.h"
#include "inp_InputFile.h"
#include "inp_KeywordEnm.h"
#include "inp_NamePeriods.h"
#include "inp_OrganizerVisitor.h"
#include "inp_PartInventoryVisitor.h"
#include "inp_PipelineMessages.h"
#include "inp_StageTimer.h"
#include "inp_Utils.h"
#include "omi_Singleton.h"
#include "wip_WIP.h"

#include <algorithm>
#include <set>
#include <string>

namespace
{

cow_String NameOf(inp_Keyword const& level)
{
  cow_String const name = level.NameIn("name");
  return name.Empty() ? level.NameIn("instance") : name;
}

bool IsToBeImported(inp_Keyword const& keyword)
{
  return keyword.Is(inp_kwInstance) && keyword.HasParameter("instance");
}

/// The names of the instances of an assembly that have, or will get, a mesh.
class Instances
{
public:
  explicit Instances(inp_Keyword const& assembly)
  {
    for (inp_Keyword const& keyword : assembly.suboptions)
    {
      if (keyword.Is(inp_kwInstance) && !IsToBeImported(keyword))
      {
        m_names.emplace(NameOf(keyword).View());
      }
    }
  }

  /// Of an instance that is to be imported; false, with an error, when it is not imported, or not as one
  /// more.
  bool Take(inp_Keyword const& instance)
  {
    cow_String const name = NameOf(instance);
    bool const isImported = instance.hasSuboption(inp_kwImport);
    bool const isTaken = isImported && m_names.emplace(name.View()).second;
    if (!isTaken)
    {
      omi_Singleton<wip_WIP>::Instance().Error(
        inp_Utils::MessageInKeyword(
          instance,
          atr_Say(isImported ? inp_msgInstanceDefinedTwice : inp_msgInstanceNotImported, name)),
        wip_error);
    }
    return isTaken;
  }

private:
  std::set<std::string> m_names;
};

/// An instance that is not taken goes with its *END INSTANCE.
void DropUnfilledInstances(inp_Keyword& assembly)
{
  if (std::none_of(assembly.suboptions.begin(), assembly.suboptions.end(), IsToBeImported))
  {
    return;
  }
  Instances instances(assembly);
  cow_List<inp_Keyword> kept;
  bool isClosing = false;
  for (inp_Keyword const& keyword : assembly.suboptions)
  {
    bool const isEndOfDropped = isClosing && keyword.Is(inp_kwEndInstance);
    isClosing = IsToBeImported(keyword) && !instances.Take(keyword);
    if (!isClosing && !isEndOfDropped)
    {
      kept.Append(keyword);
    }
  }
  assembly.suboptions = kept;
}

void WarnOfAssemblysName(inp_Keyword const& assembly)
{
  cow_String const name = NameOf(assembly);
  for (inp_Keyword const& keyword : assembly.suboptions)
  {
    if (keyword.Is(inp_kwInstance) && name.Length() > 0 && NameOf(keyword) == name)
    {
      omi_Singleton<wip_WIP>::Instance().Warning(
        inp_Utils::MessageInKeyword(keyword, atr_Say(inp_msgInstanceNamedAsAssembly, name)));
    }
  }
}

} // namespace

void inp_InputFile::CheckImportValidity(bool lumen)
{
  inp_Keyword const* import = nullptr;
  inp_Keyword const* mapSolution = nullptr;
  for (int i = 0; i < keywords.Length() && (import == nullptr || mapSolution == nullptr); ++i)
  {
    inp_Keyword const& keyword = keywords.ConstGet(i);
    if (import == nullptr && keyword.Is(inp_kwImport))
    {
      import = &keyword;
    }
    if (mapSolution == nullptr && keyword.Is(inp_kwMapSolution))
    {
      mapSolution = &keyword;
    }
  }
  wip_WIP& sink = omi_Singleton<wip_WIP>::Instance();
  if (import != nullptr && mapSolution != nullptr)
  {
    sink.Error(inp_Utils::PlacedAt(*mapSolution, atr_Say(inp_msgImportWithMapSolution)),
               wip_passFatal);
  }
  if (import != nullptr && !lumen && !restartJob)
  {
    sink.Error(inp_Utils::PlacedAt(*import, atr_Say(inp_msgImportNeedsPartMap)), wip_passFatal);
  }
}

void inp_InputFile::ProhibitPeriodInNames(cow_List<inp_Keyword> const& list)
{
  if (inp_Keyword const* const keyword = inp_FindPeriodInNames(list))
  {
    omi_Singleton<wip_WIP>::Instance().Error(
      inp_Utils::MessageInKeyword(*keyword, atr_Say(inp_msgPeriodInName)), wip_passFatal);
  }
}

void inp_InputFile::Reorganize()
{
  inp_OrganizerVisitor visitor(featureEnhanced);
  visitor.VisitListAndReport(keywords);
  keywords = visitor.Keywords();
  DiscardEmptyKeywords();
}

void inp_InputFile::CheckInstances()
{
  for (int i = 0; i < keywords.Length(); ++i)
  {
    if (keywords.ConstGet(i).Is(inp_kwAssembly))
    {
      DropUnfilledInstances(keywords.Get(i));
      WarnOfAssemblysName(keywords.ConstGet(i));
    }
  }
}

void inp_InputFile::CheckOutOfPlace()
{
  CheckParts();
  if (featureEnhanced)
  {
    ReleasePartElements();
  }
}

void inp_InputFile::CheckParts()
{
  inp_StageTimer const timer("Checking out of place keywords");
  inp_PartInventoryVisitor visitor(PartMaps(), AssemblyMaps());
  if (featureEnhanced)
  {
    visitor.VisitList(keywords);
    visitor.CheckViolations();
  }
  visitor.CheckOutOfPlace(keywords);
  visitor.Report();
}
