// The stages that take the maps of parts and instances from a hierarchy.

#include "inp_AssemblyElementVisitor.h"
#include "inp_AssemblyNodeVisitor.h"
#include "inp_AssemblySurfaceVisitor.h"
#include "inp_InputFile.h"
#include "inp_KwdDataReleaseVisitor.h"
#include "inp_NodeGenerationVisitor.h"
#include "inp_NodeNumbers.h"
#include "inp_PartElementVisitor.h"
#include "inp_PartNodeVisitor.h"
#include "inp_PartSurfaceVisitor.h"
#include "inp_StageTimer.h"

void inp_InputFile::Classify(bool lumen)
{
  CheckImportValidity(lumen);
  OrganizeAssembly();
  if (!FlatRoadMissing())
  {
    ExtractPartMaps(lumen);
    ExtractAssemblyMaps(lumen);
  }
}

// Whoever wants the keywords alone is told of an import all the same, hence the false.
void inp_InputFile::ReorganizeKeywords(bool)
{
  CheckImportValidity(false);
  OrganizeAssembly();
}

void inp_InputFile::OrganizeAssembly()
{
  ProhibitPeriodInNames(keywords);
  if (!FlatRoadMissing())
  {
    Reorganize();
    CheckInstances();
    ModifyScopedNames();
  }
}

// The walks put the instance in front of the names in sets, and labels in place of layers of elements.
void inp_InputFile::ExtractMaps(bool lumen)
{
  if (!FlatRoadMissing())
  {
    cow_List<inp_Keyword> const organized = keywords;
    MakePartMaps(lumen);
    ExtractAssemblyMaps(lumen);
    keywords = organized;
  }
}

void inp_InputFile::ExtractPartMaps(bool lumen)
{
  MakePartMaps(lumen);
  ReleasePartRows(lumen);
}

void inp_InputFile::MakePartMaps(bool lumen)
{
  inp_StageTimer const timer("ExtractPartMaps");
  inp_PartElementVisitor elements(true);
  elements.setLumenCompatible(lumen);
  elements.VisitListAndReport(keywords);

  inp_PartNodeVisitor nodes(elements.GetElements(), elements.GetSets(), true);
  nodes.setLumenCompatible(lumen);
  nodes.VisitListAndReport(keywords);

  inp_NodeGenerationVisitor generated(nodes.GetCoordMap(), elements.GetElements(),
                                      elements.GetSets(), true, restartJob, true, "");
  generated.setLumenCompatible(lumen);
  generated.VisitListAndReport(keywords);
  nodes.FinishNodeSets();

  inp_PartSurfaceVisitor surfaces(nodes.GetSets(), elements.GetSets(), elements.GetElements(),
                                  generated.GetCoordMap());
  surfaces.VisitListAndReport(keywords);

  partCoordMap = generated.GetCoordMap();
  partElementMap = elements.GetElements();
  partNsetMap = nodes.GetSets();
  partElsetMap = elements.GetSets();
  partSurfaceMap = surfaces.GetSurfaces();
}

void inp_InputFile::ReleasePartRows(bool lumen)
{
  inp_KwdDataReleaseVisitor release(true, lumen);
  release.VisitList(keywords);
}

void inp_InputFile::ExtractAssemblyMaps(bool lumen)
{
  inp_StageTimer const timer("ExtractAssemblyMaps");
  cow_List<cow_String> const instanceNames = instancePartNames.Instances();
  inp_AssemblyElementVisitor elements(partElementMap, partElsetMap, true);
  elements.setLumenCompatible(lumen);
  elements.setInstanceNames(instanceNames);
  elements.VisitList(keywords);
  assemblyKeywords = elements.GetKeywords();
  elements.Report();

  inp_AssemblyNodeVisitor nodes(elements.GetElements(), elements.GetSets(), partCoordMap,
                                partNsetMap, assemblyNsetMap, true);
  nodes.setInstanceNames(instanceNames);
  nodes.VisitListAndReport(keywords);

  inp_NodeGenerationVisitor generated(nodes.GetCoordMap(), elements.GetElements(),
                                      elements.GetSets(), true, restartJob, false, "");
  generated.VisitListAndReport(keywords);
  nodes.FinishNodeSets();

  inp_NodeNumbers numbers(generated.GetCoordMap());
  elements.PutNumbers(numbers);

  inp_AssemblySurfaceVisitor surfaces(nodes.GetSets(), elements.GetSets(), elements.GetElements(),
                                      generated.GetCoordMap(), partSurfaceMap);
  surfaces.setInstancePartNames(instancePartNames);
  surfaces.VisitListAndReport(keywords);

  assemblyCoordMap = generated.GetCoordMap();
  assemblyElementMap = elements.GetElements();
  assemblyNsetMap = nodes.GetSets();
  assemblyElsetMap = elements.GetSets();
  assemblySurfaceMap = surfaces.GetSurfaces();
  transformationMap = nodes.GetPositions();
}
