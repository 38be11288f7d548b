// The stages that take a deck of parts and instances from its flat list to a hierarchy, and hold it
// against the rules.

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

void inp_InputFile::CheckOutOfPlace()
{
  inp_StageTimer const timer("Checking out of place keywords");
  inp_PartInventoryVisitor visitor(partElementMap, assemblyElementMap, partElsetMap,
                                   assemblyElsetMap);
  if (featureEnhanced)
  {
    visitor.VisitList(keywords);
    visitor.CheckViolations();
  }
  visitor.CheckOutOfPlace(keywords);
  visitor.Report();
  if (featureEnhanced)
  {
    partElementMap = inpM_InstanceMap<inp_MapInt2Element>();
  }
}
