#pragma once

#include "aio_FileRead.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_InstanceMap.h"
#include "inp_ExpansionRules.h"
#include "inp_Visitor.h"

#include <unordered_set>

class aio_ifstream;

/// Checks and completes every keyword of a flat list, in deck order.
///
/// For each keyword: abbreviated parameter names become full ones, values are cleaned (upper case,
/// no blanks, quoted text excepted), words are completed from the keyword's own table, data files of
/// INPUT= are read into the data lines, and the tests particular to the keyword are made. What a
/// keyword may carry stands in inp_ExpansionRules.def; handlers with a body are those that do more.
///
/// A keyword with a fault stays in the list, unless it is useless without what is missing: then it is
/// blanked, that is, becomes an "undefined keyword". A value <name> refers to a parameter of the deck;
/// it is no word of a table and passes there.
///
/// Reports:  errors, warnings and fatal errors with their keyword's file and line; the walk goes on.
/// Raises:   nex_PrimException for node rows that cannot be converted (see SetBulkConversion).
class inp_KeywordExpansionVisitor : public inp_Visitor
{
public:
  inp_KeywordExpansionVisitor() = default;

  void SetResultsFormatOdb(bool value) { resultsFormatOdb = value; }
  /// On: a fault in the rows of *NODE is raised. Off: such rows stay text.
  void SetBulkConversion(bool value) { bulkConversion = value; }
  /// Off: data files are looked for and listed, not read.
  void SetBulkDataProcess(bool value) { bulkDataProcess = value; }
  /// On: the decks that *MANIFEST names are read and expanded.
  void SetExpandManifest(bool value) { expandManifest = value; }
  /// Steps before this deck's first; names of unnamed steps count on from there.
  void SetNumberSteps(int value) { numberSteps = value; }
  /// Steps of the job that is continued, for *RESTART, READ without a step.
  void SetNumberRestartSteps(int value) { numberRestartSteps = value; }
  /// Directory in which data files are looked for after the working directory.
  void SetIncludePath(cow_String const& path) { includePath = path; }

  /// The deck holds *PART, *INSTANCE or *ASSEMBLY.
  bool FeatureEnhanced() const { return featureEnhanced; }
  bool IsElementFileParameter() const { return elementFileParameter; }
  bool IsExplicitJob() const { return explicitJob; }
  bool HasRigidSurfaceKeyword() const { return rigidSurfaceKeyword; }
  bool HasNmapBlended() const { return nmapBlended; }
  bool IsParameterized() const { return parameterized; }
  bool HasManifest() const { return hasManifest; }
  bool ResultsFormatOdb() const { return resultsFormatOdb; }
  int NumberSteps() const { return numberSteps; }
  /// Data files and manifests that were found and can be read, as written.
  cow_List<cow_String> const& GetIncludedFiles() const { return includedFiles; }
  /// File names without directory, each once.
  cow_List<cow_String> const& GetMissingIncludedFiles() const { return missingIncludedFiles; }
  /// Data files and decks, one for each time that it was read.
  cow_List<aio_FileRead> const& GetFilesRead() const { return m_filesRead; }
  /// Keywords of manifests for which there was not enough memory.
  int NumberKeywordsLost() const { return m_keywordsLost; }
  inpM_InstanceMap<cow_String> const& ConstGetInstancePartNames() const
  {
    return instancePartNames;
  }
  cow_List<inp_Keyword> const& GetManifestKeywords() const { return manifestKeywords; }

  void Visit(inp_Keyword& keyword) override;
  /// A keyword without a rule takes no parameters.
  void DefaultAction(inp_Keyword& keyword) override;

  // A handler for each rule. Those that no keyword reaches are members that nothing overrides.
#define INP_RULE_UNREACHED(stem, ...) void Visit##stem(inp_Keyword& keyword);
#define INP_RULE(stem, ...) void Visit##stem(inp_Keyword& keyword) override;
#include "inp_ExpansionRules.def"

  /// The entry that `value` is, or else an abbreviation of. Gives the number of entries that fit; the
  /// result is the exact one or the last. Case and blanks at both ends of the value do not matter.
  static int inp_ExpandEnum(cow_String& result, char const* const* table, cow_String value);

protected:
  void ExpandParameters(inp_Keyword& keyword, char const* const* table);
  /// The keyword must have the parameter; one without a value passes.
  void ExpandEnum(inp_Keyword& keyword, char const* const* table, cow_String const& parameter);
  void ExpandEnumData(inp_Keyword& keyword, int row, int column, char const* const* table);
  /// Parameters, then the words of every table whose parameter the keyword has.
  void ExpandByRule(inp_Keyword& keyword, inp_ExpansionRule const& rule);
  /// The same by the rule of the keyword's own handler.
  void Expand(inp_Keyword& keyword)
  {
    ExpandByRule(keyword, *inp_ExpansionRuleOf(keyword.keyword));
  }

  /// Says what the keyword lacks of its rule's requirements; false when a parameter is missing.
  bool MeetsRequirements(inp_Keyword& keyword);

  /// Reads the file of "input" and removes the parameter.
  void ProcessInputParameter(inp_Keyword& keyword);
  void ReadInputParameter(cow_String const& file, inp_Keyword& keyword);
  void ReadManifestFile(cow_String const& file, inp_Keyword& keyword);

  void checkRequiredParameter(inp_Keyword& keyword, cow_String parameter);
  void checkRequiredParameterValue(inp_Keyword const& keyword, cow_String parameter);
  void checkRequiredDataline(inp_Keyword& keyword);
  void TruncateEachDataLineBeyondItemN(inp_Keyword& keyword, int n);

  // Tests of a value's type; an absent parameter passes. For handlers to come.
  void CheckRequiredParameters(inp_Keyword& keyword, char const* const* names,
                               bool const* required);
  void CheckBoolean(inp_Keyword& keyword, cow_String const& parameter);
  void CheckInteger(inp_Keyword& keyword, cow_String const& parameter);
  void CheckDouble(inp_Keyword& keyword, cow_String const& parameter);
  void CheckLabel(inp_Keyword& keyword, cow_String const& parameter);
  void CheckFileName(inp_Keyword& keyword, cow_String const& parameter);
  void CheckDoubleOrLabel(inp_Keyword& keyword, cow_String const& parameter);
  void CheckIntegerOrLabel(inp_Keyword& keyword, cow_String const& parameter);
  void CheckIntegerOrEnumerated(inp_Keyword& keyword, char const* const* table,
                                cow_String const& parameter);
  void CheckEnumerated(inp_Keyword& keyword, char const* const* table, cow_String const& parameter);
  void CheckNone(inp_Keyword& keyword, cow_String const& parameter);

private:
  using NameSet = std::unordered_set<cow_String>;

  /// <name>, a reference to a parameter of the deck.
  static bool IsReference(cow_String const& value);
  char const* MatchParameter(inp_Keyword const& keyword, cow_String const& spelled,
                             char const* const* table);
  void WarnOfLargeInteger(inp_Keyword const& keyword, cow_String const& spelled,
                          inp_Item const& item);
  inp_Item CleanedValue(inp_Keyword const& keyword, cow_String const& full,
                        inp_Item const& item) const;
  void InsertExpanded(inp_Keyword const& keyword, cow_Map<cow_String, inp_Item>& parameters,
                      cow_String const& full, cow_String const& spelled, inp_Item const& item);
  void ExpandWords(inp_Keyword& keyword, cow_String const& parameter, char const* const* table,
                   char const* const* others);

  /// The file's absolute path, empty when it cannot be read, which is then reported.
  cow_String FindFile(cow_String const& directory, cow_String const& file,
                      inp_Keyword const& keyword);
  void NoteMissing(cow_List<cow_String> const& names);
  bool ReadDataLines(cow_String const& path, cow_String const& file, inp_Keyword& keyword);
  static void CleanRows(inp_Keyword& keyword);
  bool AppendDataLines(aio_ifstream& stream, cow_String const& file, inp_Keyword& keyword);
  void SayHowReadingEnded(aio_ifstream const& stream, cow_String const& file, int lines,
                          inp_Keyword const& keyword);
  bool ParseManifest(cow_String const& path, inp_Keyword const& keyword,
                     cow_List<inp_Keyword>& keywords);
  void TakeOver(inp_KeywordExpansionVisitor const& nested);

  /// As Say, but puts the message in front of the others in its list.
  template <int Placeholders, class... Arguments>
  void SayFirst(atr_MessageRow<Placeholders> const& row, inp_Keyword const& keyword,
                Arguments const&... arguments);
  /// An error if the deck is an assembly of parts: kept back until that is known.
  template <int Placeholders, class... Arguments>
  void Refuse(atr_MessageRow<Placeholders> const& row, inp_Keyword const& keyword,
              Arguments const&... arguments);
  bool Meets(inp_Keyword& keyword, inp_Requirement const& requirement);
  bool MeetsFor(inp_Keyword& keyword, inp_Requirement::kindEnm kind, char const* name);
  bool DemandOne(inp_Keyword const& keyword, inp_Requirement const& requirement);
  void RefuseOption(inp_Keyword const& keyword, inp_Requirement const& requirement,
                    atr_MessageRow<1> const& row);

  template <class Accepts, int Placeholders>
  void CheckType(inp_Keyword const& keyword, cow_String const& parameter, Accepts accepts,
                 atr_MessageRow<Placeholders> const& row);
  template <int Placeholders>
  void CheckBeginsWithLetter(inp_Keyword const& keyword, atr_MessageRow<Placeholders> const& row);
  void CheckBackstresses(inp_Keyword const& keyword);
  void MarkFeatureEnhanced();
  void RegisterInstance(inp_Keyword const& keyword);
  template <int Placeholders>
  void CheckIntegerWith(inp_Keyword const& keyword, cow_String const& parameter,
                        atr_MessageRow<Placeholders> const& row);

  bool resultsFormatOdb = true;
  cow_List<atr_String> deferredErrors;
  bool featureEnhanced = false;
  bool elementFileParameter = false;
  bool explicitJob = false;
  bool rigidSurfaceKeyword = false;
  bool nmapBlended = false;
  bool parameterized = false;
  bool bulkConversion = true;
  bool bulkDataProcess = true;
  bool expandManifest = false;
  bool hasManifest = false;
  int numberSteps = 0;
  int numberRestartSteps = 0;
  cow_String includePath;
  int assemblyCount = 0;
  NameSet partNames;
  NameSet instanceNames;
  NameSet stepNames;
  cow_List<cow_String> includedFiles;
  inpM_InstanceMap<cow_String> instancePartNames;
  cow_List<cow_String> missingIncludedFiles;
  NameSet m_missingNames; ///< those of missingIncludedFiles
  cow_List<aio_FileRead> m_filesRead;
  int m_keywordsLost = 0;
  cow_List<inp_Keyword> manifestKeywords;
};

template <int Placeholders, class... Arguments>
void inp_KeywordExpansionVisitor::SayFirst(atr_MessageRow<Placeholders> const& row,
                                           inp_Keyword const& keyword,
                                           Arguments const&... arguments)
{
  ListOf(row.severity).Prepend(inp_Utils::MessageInKeyword(keyword, atr_Say(row, arguments...)));
}

template <int Placeholders, class... Arguments>
void inp_KeywordExpansionVisitor::Refuse(atr_MessageRow<Placeholders> const& row,
                                         inp_Keyword const& keyword, Arguments const&... arguments)
{
  cow_List<atr_String>& list = featureEnhanced ? m_errorList : deferredErrors;
  list.Append(inp_Utils::MessageInKeyword(keyword, atr_Say(row, arguments...)));
}
