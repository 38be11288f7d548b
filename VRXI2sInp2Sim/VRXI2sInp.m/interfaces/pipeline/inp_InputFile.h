#pragma once

#include "aio_FileRead.h"
#include "cow_List.h"
#include "cow_String.h"
#include "gsl_Matrix.h"
#include "inp_Keyword.h"
#include "inp_LevelMaps.h"
#include "inp_ModelParameters.h"

class eli_eostream;
class inp_KeywordExpansionVisitor;

/// One model deck on its way from text to a model. The object owns the keyword list and everything
/// that the stages derive from it; a driver calls the stages, in this order:
///
///     Parse(fileName)         text to a flat list of keywords, in file order
///     ExpandKeywords()        parameters completed, values checked, data files read
///     CheckTextEncoding()     names and titles are UTF-8
///     setModelParameters()    section points and model-wide flags, from the flat list
///     Classify(lumen)         the hierarchy, and the maps of parts and instances
///     NumberModel()           numbers across the model, for those who want all of them
///     CheckOutOfPlace()       the rules of parts and rigid bodies, from hierarchy and maps
///
/// Stages return nothing. What they have to say goes to the sink (wip_WIP) when a stage ends:
/// warnings, errors (level 1), fatal errors (level 2; those of the reader level 0). A stage goes on
/// behind its faults, so that one run shows all of them. No stage guards against a call out of
/// order. With debug flag 30 at level 1 each stage prints its time to pnt_debugPrint.
///
/// Two stages end the life of what has served: Classify that of the rows of parts, and CheckOutOfPlace that
/// of their element maps. Who wants these to the end calls ReorganizeKeywords and ExtractMaps in place of
/// the one, CheckParts in place of the other.
class inp_InputFile
{
public:
  /// Reads the deck. The distribution tables of an earlier deck are forgotten. Raises nex_PrimException when the file cannot be opened.
  void Parse(cow_String fileName);
  /// Checks and completes every keyword; rejected ones leave the list.
  void ExpandKeywords();
  /// Tells of names that are not well-formed UTF-8, and empties titles that are not.
  void CheckTextEncoding();
  void setModelParameters();
  /// A flat deck: periods in names of sets, surfaces, orientations, distributions and materials
  /// become "_", so that a period can separate scopes; names in double quotes keep theirs.
  void RemovePeriods(bool lumen);
  /// An assembly deck, organized: takes the first assembly's name from in front of the names that
  /// stand outside of parts, instances and assemblies.
  void ModifyScopedNames();
  void ModifyScopedNames(cow_String const& assemblyName);
  /// Makes a hierarchy of the list, and fills the maps: part... by part, assembly... by instance and,
  /// at their top, for the assembly itself. Releases the rows of parts once their maps hold them, unless
  /// `lumen` is set: the results are to stay fit for the Lumen pre-processor then. A deck without parts is
  /// only checked: see FlatRoadMissing.
  void Classify(bool lumen);
  /// The same without the maps, for those who want the keywords.
  void ReorganizeKeywords(bool lumen);
  /// The maps of a list that ReorganizeKeywords has organized, and that stays as it is. A deck without
  /// parts has none.
  void ExtractMaps(bool lumen);
  /// The deck has no parts of its own, and there is no way yet to divide it into parts: behind
  /// ExpandKeywords no stage takes it further. Known after ExpandKeywords.
  bool FlatRoadMissing() const { return !featureEnhanced; }
  /// *IMPORT beside *MAP SOLUTION, and *IMPORT in a job that continues none, unless the results are
  /// to stay fit for the Lumen pre-processor. Looks at the top level.
  void CheckImportValidity(bool lumen);
  /// The rules that span keywords, and then an end to the element maps of parts.
  void CheckOutOfPlace();
  /// The rules that span keywords.
  void CheckParts();
  /// Numbers nodes and elements across the assembly, each from 1 up: the assembly's own ones first, then
  /// by instance in name order (nodeIdMap, elementIdMap). O(nodes and elements of all instances). The other
  /// maps keep the user's labels, except that the elements of the assembly name their nodes by these
  /// numbers, as such a node may be any instance's.
  void NumberModel();

  /// The maps below as one value, of which visitors take what they need. A copy shares the maps.
  inp_PartMaps PartMaps() const;
  inp_LevelMaps AssemblyMaps() const;

  /// Writes every keyword as deck lines, in list order.
  void Print(eli_eostream& stream) const;

  /// The text up to and including its first line feed, without blanks, tabs and carriage returns
  /// outside double quotes; 256 characters at most, more is a broken invariant.
  static cow_String TakeOutSpacesOutsideQuoted(char const* text);

  /// The deck holds *PART, *INSTANCE or *ASSEMBLY. Known after ExpandKeywords.
  bool FeatureEnhanced() const { return featureEnhanced; }
  bool IsRestartJob() const { return restartJob; }
  bool InOdbConverter() const { return inOdbConverter; }
  cow_String const& GetIncludePath() const { return includePath; }

  cow_List<inp_Keyword> keywords; ///< the model: flat from Parse on, then a hierarchy
  bool featureEnhanced = false;
  bool restartJob = false;
  int numberRestartSteps = 0;  ///< given by the driver: steps of the job that is continued
  int numberSteps = 0;         ///< given by the driver: steps before this deck's first
  bool partConvertible = true; ///< no feature stands in the way of dividing the model into parts
  bool parameterized = false;  ///< the deck holds *PARAMETER
  bool hasManifest = false;    ///< the deck holds *MANIFEST
  bool inOdbConverter = false; ///< given by the driver: serves a converter of results databases
  cow_String inputFileName;
  cow_String includePath;    ///< given by the driver: where include and data files are looked for
  inp_CoordMap partCoordMap; ///< by part
  inpM_InstanceMap<inp_MapInt2Element> partElementMap; ///< by part
  inpM_SetMap partNsetMap;
  inpM_SetMap partElsetMap;
  inpM_SurfaceMap partSurfaceMap;
  cow_Map<cow_String, int> userElements; ///< number of nodes by user type, outside of instances
  inp_CoordMap assemblyCoordMap;         ///< by instance, in position when read
  inpM_InstanceMap<inp_MapInt2Element> assemblyElementMap; ///< by instance
  inpM_SetMap assemblyNsetMap;
  inpM_SetMap assemblyElsetMap;
  inpM_SurfaceMap assemblySurfaceMap;
  inpM_InstanceMap<gsl_Matrix> transformationMap; ///< position by instance
  inpM_IdMap nodeIdMap; ///< the user's labels to the model's own numbers, once it is numbered
  inpM_IdMap elementIdMap;
  cow_List<inp_Keyword> assemblyKeywords;         ///< the *ELEMENT keywords of the assembly itself
  inpM_InstanceMap<cow_String> instancePartNames; ///< instance to part
  inp_ModelParameters modelParameters;

  /// What the reader met beside the keywords, for a driver's summary.
  struct ReaderFacts
  {
    cow_List<cow_String> includedFiles;
    cow_List<cow_String> missingIncludeFiles;
    int skippedDataLines = 0; ///< data lines above the first keyword
    int firstSkippedLine = 0;
    long long bytesRead = 0;
    cow_List<aio_FileRead> filesRead; ///< the deck and its include files, once for each reading
    int keywordsLost = 0;             ///< there was not enough memory for them
    cow_List<cow_String> filesNamed; ///< by keywords that were rejected and by *INCLUDE, as written
  };
  ReaderFacts readerFacts;

  /// Data files and manifests that ExpandKeywords met, likewise, also when it raises.
  struct ExpansionFacts
  {
    cow_List<cow_String> includedFiles;
    cow_List<cow_String> missingIncludeFiles;
    cow_List<aio_FileRead> filesRead;
    int keywordsLost = 0;
  };
  ExpansionFacts expansionFacts;

private:
  void VisitAndReport(inp_KeywordExpansionVisitor& visitor);
  void DiscardEmptyKeywords();
  /// The flat list becomes a hierarchy; see inp_OrganizerVisitor.
  void Reorganize();
  /// Reports the first name with a period outside quotes; see inp_FindPeriodInNames.
  void ProhibitPeriodInNames(cow_List<inp_Keyword> const& list);
  /// Leaves out, with an error, instances that only an import could fill where there is none, and those
  /// whose name another one has. Warns of an instance that has the assembly's name. Wants the hierarchy.
  void CheckInstances();
  /// What Classify and ReorganizeKeywords have in common behind the check of imports.
  void OrganizeAssembly();
  void ExtractPartMaps(bool lumen);
  void MakePartMaps(bool lumen);
  void ReleasePartRows(bool lumen);
  void ReleasePartElements() { partElementMap = inpM_InstanceMap<inp_MapInt2Element>(); }
  void ExtractAssemblyMaps(bool lumen);
  void SetPartMaps(inp_PartMaps const& maps);
  void SetAssemblyMaps(inp_LevelMaps const& maps);
};
