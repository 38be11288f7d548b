#pragma once

#include "cow_Map.h"
#include "cow_String.h"

/// What later passes need to know of the whole model: how many state variables and integration
/// points a section may need at most, and which broad features the deck uses.
///
/// A plain record with the values of an empty model at first; inp_ModelParameterVisitor fills it.
/// Copies are independent and take constant time.
class inp_ModelParameters
{
public:
  int getNumDepVars() const { return numDepVars; }
  int getNumElemDepVars() const { return numElemDepVars; }
  int getNumGaussPts() const { return numGaussPts; }
  int getNumTempPts() const { return numTempPts; }
  bool isSymModelGen() const { return symModelGen; }
  bool hasTemperatureElms() const { return temperatureElms; }
  bool isImported() const { return imported; }
  bool hasImportedParts() const { return importedParts; }
  bool isFeatureEnhanced() const { return featureEnhanced; }

  /// False also for a name that labels no orientation.
  bool isCsysRectangular(cow_String const& name) const;
  /// The data lines that a row of a distribution takes under the named *DISTRIBUTION TABLE; 0 for a
  /// table that this thread does not know.
  int getTableSize(cow_String const& name) const;

  void setNumGaussPts(int const& points) { numGaussPts = points; }
  void setNumTempPts(int const& points) { numTempPts = points; }

  int numDepVars = 1;     ///< solution-dependent variables at a point
  int numElemDepVars = 1; ///< solution-dependent variables of an element
  int numTempPts = 1;     ///< temperature points of a section or node
  int numGaussPts = 1;    ///< section points
  bool symModelGen = false;
  bool temperatureElms = false;
  bool imported = false;      ///< *IMPORT of a whole model, above any part or instance
  bool staticStep = false;    ///< a *STATIC stands in a step that is no perturbation
  bool importedParts = false; ///< some instance is taken from an earlier job
  bool featureEnhanced = false;
  /// By the name that labels a data line of an orientation: 1 when its system is rectangular.
  cow_Map<cow_String, int> rectangularCsys;
};
