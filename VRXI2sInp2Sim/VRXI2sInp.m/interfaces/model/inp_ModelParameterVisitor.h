#pragma once

#include "inp_ModelParameters.h"
#include "inp_Visitor.h"

/// Sums up a flat list of keywords in inp_ModelParameters.
///
/// Needs:    expanded keywords: full names of parameters, values in upper case.
/// Produces: the larger of each count found and the one already there, flags that are only ever
///           set, the orientations of rectangular systems, and the sizes of distribution tables in
///           this thread's inp_DistributionTableDB.
/// Reports:  nothing; what is missing counts as 0, and a count beyond an int's range is the largest
///           int.
///
/// Steps are visited first, because they decide how the sections above them count. Of nodes and
/// elements only the keywords are read, never the rows.
class inp_ModelParameterVisitor : public inp_Visitor
{
public:
  /// The parameters must outlive the visitor.
  explicit inp_ModelParameterVisitor(inp_ModelParameters& parameters);

  /// Visits from the first step to the end, then from the start to the first step.
  void VisitList(cow_List<inp_Keyword>& list) override;
  void DefaultAction(inp_Keyword& keyword) override;

  void VisitBeamSection(inp_Keyword& keyword) override;
  void VisitCoupledTemperatureDisplacement(inp_Keyword& keyword) override;
  void VisitDepvar(inp_Keyword& keyword) override;
  void VisitDistributionTable(inp_Keyword& keyword) override;
  void VisitElement(inp_Keyword& keyword) override;
  void VisitElementSolutionDependentVariables(inp_Keyword& keyword) override;
  void VisitHeatTransfer(inp_Keyword& keyword) override;
  void VisitImport(inp_Keyword& keyword) override;
  void VisitInstance(inp_Keyword& keyword) override;
  void VisitOrientation(inp_Keyword& keyword) override;
  void VisitPart(inp_Keyword& keyword) override;
  void VisitShellGeneralSection(inp_Keyword& keyword) override;
  void VisitShellSection(inp_Keyword& keyword) override;
  void VisitStatic(inp_Keyword& keyword) override;
  void VisitStep(inp_Keyword& keyword) override;
  void VisitSymmetricModelGeneration(inp_Keyword& keyword) override;
  void VisitUserElement(inp_Keyword& keyword) override;

protected:
  /// Notes, and tells, whether an instance is taken from an earlier job.
  bool hasImportPartParameters(inp_Keyword& keyword);

private:
  void CountShellTemperatures(inp_Keyword const& keyword, bool isComposite);
  void CountLayers(inp_Keyword const& keyword);
  bool ComputesTemperature() const { return heatTransfer || coupledTemperatureDisplacement; }

  inp_ModelParameters& m_parameters;
  bool inPerturbationStep = false;
  bool heatTransfer = false;
  bool coupledTemperatureDisplacement = false;
};
