// The stages that rewrite names throughout the deck.

#include "inp_InputFile.h"
#include "inp_KeywordEnm.h"
#include "inp_RemovePeriodVisitors.h"
#include "inp_ScopedNameVisitors.h"

void inp_InputFile::RemovePeriods(bool lumen)
{
  inp_RemovePeriodSetVisitor sets(modelParameters);
  sets.setLumenCompatible(lumen);
  sets.VisitList(keywords);
  inp_RemovePeriodSurfaceVisitor surfaces;
  surfaces.VisitList(keywords);
  // Only this one reports; what the others collect is dropped on purpose.
  inp_RemovePeriodDistributionVisitor distributions(modelParameters);
  distributions.VisitListAndReport(keywords);
  inp_RemovePeriodOrientationVisitor orientations(distributions.ConstGetDefaultsByName());
  orientations.VisitList(keywords);
  inp_RemovePeriodRebarVisitor rebars;
  rebars.VisitList(keywords);
  inp_RemovePeriodMaterialVisitor materials;
  materials.VisitList(keywords);
}

void inp_InputFile::ModifyScopedNames()
{
  cow_String assemblyName;
  for (inp_Keyword const& keyword : keywords)
  {
    if (keyword.Is(inp_kwAssembly))
    {
      assemblyName = keyword.NameIn("name");
      break;
    }
  }
  ModifyScopedNames(assemblyName);
}

void inp_InputFile::ModifyScopedNames(cow_String const& assemblyName)
{
  inpM_SetMap const noSets;
  inpM_IdMap const noIds;
  inpM_SurfaceMap const noSurfaces;
  inp_ScopedNameSetVisitor sets(noSets, noSets, noIds, noIds, assemblyName, modelParameters);
  sets.VisitListAndReport(keywords);
  inp_ScopedNameSurfaceVisitor surfaces(noSurfaces, assemblyName, restartJob);
  surfaces.VisitListAndReport(keywords);
  inp_ScopedNameDistributionVisitor distributions(assemblyName, modelParameters);
  distributions.VisitListAndReport(keywords);
  inp_ScopedNameOrientationVisitor orientations(assemblyName,
                                                distributions.ConstGetDefaultsByName());
  orientations.VisitListAndReport(keywords);
  inp_ScopedNameRebarVisitor rebars(assemblyName);
  rebars.VisitListAndReport(keywords);
  inp_ScopedNameMaterialVisitor materials(assemblyName);
  materials.VisitListAndReport(keywords);
}
