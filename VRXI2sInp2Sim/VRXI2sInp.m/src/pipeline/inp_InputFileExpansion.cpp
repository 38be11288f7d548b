// The stages that complete the flat list and sum it up.

#include "inp_InputFile.h"
#include "inp_KeywordEnm.h"
#include "inp_KeywordExpansionVisitor.h"
#include "inp_ModelParameterVisitor.h"
#include "inp_PipelineMessages.h"
#include "inp_StageTimer.h"
#include "inp_Utf8ValidityVisitor.h"
#include "omi_Singleton.h"
#include "utl_CommandLine.h"
#include "wip_WIP.h"

/// Runs the walk, and sees to it that what it has collected is reported even when it is broken off.
void inp_InputFile::VisitAndReport(inp_KeywordExpansionVisitor& visitor)
{
  auto const report = [&]
  {
    expansionFacts = {visitor.GetIncludedFiles(), visitor.GetMissingIncludedFiles(),
                      visitor.GetFilesRead(), visitor.NumberKeywordsLost()};
    visitor.Report();
  };
  try
  {
    visitor.VisitList(keywords);
  }
  catch (...)
  {
    report();
    throw;
  }
  report();
}

void inp_InputFile::ExpandKeywords()
{
  inp_StageTimer const timer("Expand Keywords");
  inp_KeywordExpansionVisitor visitor;
  visitor.SetIncludePath(includePath);
  visitor.SetNumberSteps(numberSteps);
  visitor.SetNumberRestartSteps(numberRestartSteps);
  utl_CommandLine const& commandLine = omi_Singleton<utl_CommandLine>::Instance();
  visitor.SetResultsFormatOdb(!commandLine.HasOption("resultsFormat") ||
                              commandLine.Option("resultsFormat") == "odb");
  VisitAndReport(visitor);
  featureEnhanced = visitor.FeatureEnhanced();
  instancePartNames = visitor.ConstGetInstancePartNames();
  parameterized = visitor.IsParameterized();
  hasManifest = visitor.HasManifest();

  bool const rigidSurfaceInExplicit = visitor.IsExplicitJob() && visitor.HasRigidSurfaceKeyword();
  if (rigidSurfaceInExplicit)
  {
    omi_Singleton<wip_WIP>::Instance().Error(atr_Say(inp_msgRigidSurfaceInExplicit), wip_error);
  }
  DiscardEmptyKeywords();
  partConvertible = featureEnhanced || (partConvertible && !visitor.IsElementFileParameter() &&
                                        !rigidSurfaceInExplicit && !visitor.HasNmapBlended());
}

void inp_InputFile::CheckTextEncoding()
{
  inp_StageTimer const timer("Check text encoding");
  inp_Utf8ValidityVisitor visitor;
  visitor.VisitListAndReport(keywords);
}

void inp_InputFile::DiscardEmptyKeywords()
{
  bool hasEmpty = false;
  for (inp_Keyword const& keyword : keywords)
  {
    hasEmpty = hasEmpty || keyword.Is(inp_kwUndefined);
  }
  if (!hasEmpty)
  {
    return;
  }
  cow_List<inp_Keyword> kept(cow_ListConstruct(), keywords.Length());
  for (inp_Keyword const& keyword : keywords)
  {
    if (!keyword.Is(inp_kwUndefined))
    {
      kept.Append(keyword);
    }
  }
  keywords = kept;
}

void inp_InputFile::setModelParameters()
{
  inp_StageTimer const timer("Set Model Parameters");
  inp_ModelParameterVisitor visitor(modelParameters);
  visitor.VisitListAndReport(keywords);
}
