// The stages that take the maps of parts and instances from a hierarchy.

#include "inp_AssemblyElementVisitor.h"
#include "inp_AssemblyNodeVisitor.h"
#include "inp_AssemblySurfaceVisitor.h"
#include "inp_InputFile.h"
#include "inp_InstanceLabels.h"
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
  inp_PartMaps maps;
  inp_PartElementVisitor elements(true);
  elements.setLumenCompatible(lumen);
  elements.VisitListAndReport(keywords);
  maps.elements = elements.GetElements();
  maps.elsets = elements.GetSets();
  maps.userElements = elements.GetUserElements();

  inp_PartNodeVisitor nodes(maps, true);
  nodes.setLumenCompatible(lumen);
  nodes.VisitListAndReport(keywords);

  inp_NodeGenerationVisitor generated(nodes.GetCoordMap(), maps.elements, maps.elsets, true,
                                      restartJob, true, "");
  generated.setLumenCompatible(lumen);
  maps.nodes = nodes.GetCoordMap();
  maps.nsets = nodes.GetSets();
  inp_InstanceLabels inInstances(keywords, instancePartNames);
  generated.setLabelsInUse([&](cow_String const& partName)
                           { return inInstances.LargestOf(partName, maps); });
  generated.VisitListAndReport(keywords);
  maps.nodes = generated.GetCoordMap();
  nodes.FinishNodeSets();
  maps.nsets = nodes.GetSets();

  inp_PartSurfaceVisitor surfaces(maps);
  surfaces.VisitListAndReport(keywords);
  maps.surfaces = surfaces.GetSurfaces();
  SetPartMaps(maps);
}

void inp_InputFile::ReleasePartRows(bool lumen)
{
  inp_KwdDataReleaseVisitor release(true, lumen);
  release.VisitList(keywords);
}

void inp_InputFile::ExtractAssemblyMaps(bool lumen)
{
  inp_StageTimer const timer("ExtractAssemblyMaps");
  inp_PartMaps const parts = PartMaps();
  inp_LevelMaps maps;
  maps.nsets = assemblyNsetMap;
  cow_List<cow_String> const instanceNames = instancePartNames.Instances();
  inp_AssemblyElementVisitor elements(parts, true);
  elements.setLumenCompatible(lumen);
  elements.setInstanceNames(instanceNames);
  elements.VisitList(keywords);
  assemblyKeywords = elements.GetKeywords();
  elements.Report();
  maps.elements = elements.GetElements();
  maps.elsets = elements.GetSets();

  inp_AssemblyNodeVisitor nodes(maps, parts, true);
  nodes.setInstanceNames(instanceNames);
  nodes.VisitListAndReport(keywords);
  transformationMap = nodes.GetPositions();

  inp_NodeGenerationVisitor generated(nodes.GetCoordMap(), maps.elements, maps.elsets, true,
                                      restartJob, false, "");
  generated.VisitListAndReport(keywords);
  maps.nodes = generated.GetCoordMap();

  inp_NodeNumbers numbers(maps.nodes);
  elements.PutNumbers(numbers);
  maps.elements = elements.GetElements();
  maps.elsets = elements.GetSets(); // without elements that were left out
  nodes.FinishNodeSets(numbers);
  maps.nsets = nodes.GetSets();

  inp_AssemblySurfaceVisitor surfaces(maps, parts);
  surfaces.setInstancePartNames(instancePartNames);
  surfaces.VisitListAndReport(keywords);
  maps.surfaces = surfaces.GetSurfaces();
  SetAssemblyMaps(maps);
}

inp_PartMaps inp_InputFile::PartMaps() const
{
  return {{partCoordMap, partElementMap, partNsetMap, partElsetMap, partSurfaceMap}, userElements};
}

inp_LevelMaps inp_InputFile::AssemblyMaps() const
{
  return {assemblyCoordMap, assemblyElementMap, assemblyNsetMap, assemblyElsetMap,
          assemblySurfaceMap};
}

void inp_InputFile::SetPartMaps(inp_PartMaps const& maps)
{
  partCoordMap = maps.nodes;
  partElementMap = maps.elements;
  partNsetMap = maps.nsets;
  partElsetMap = maps.elsets;
  partSurfaceMap = maps.surfaces;
  userElements = maps.userElements;
}

void inp_InputFile::SetAssemblyMaps(inp_LevelMaps const& maps)
{
  assemblyCoordMap = maps.nodes;
  assemblyElementMap = maps.elements;
  assemblyNsetMap = maps.nsets;
  assemblyElsetMap = maps.elsets;
  assemblySurfaceMap = maps.surfaces;
}
