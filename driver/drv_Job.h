#pragma once

#include "drv_Options.h"
#include "drv_Reporter.h"
#include "inp_InputFile.h"
#include "srv_Census.h"

#include <optional>
#include <string>
#include <vector>

/// The process's deck on its way through the stages that the options ask for.
class drv_Job
{
public:
  explicit drv_Job(drv_Options const& options);

  /// Raises drv_Failure for a deck that cannot be read. To be called ahead of Run.
  void CheckReadable();

  /// Runs the stages; their messages are shown as they come. False when a fault of the deck ended
  /// the run before its end, so that there is nothing to write. Raises drv_Failure when a file could
  /// not be read to its end, and std::bad_alloc when keywords were lost for want of memory.
  bool Run();

  /// Never destroyed: giving back a large model piece by piece takes longer than ending the process.
  inp_InputFile& Model() { return m_model; }
  drv_stageEnm Stage() const { return m_options.stage; }
  drv_whatEnm What() const { return m_options.what; }
  /// What the keywords are that the last stage left.
  srv_KeywordCensus const& Census();
  bool HasMaps() const { return m_hasMaps; }
  /// The job came to where the maps of a flat model would be made.
  bool LacksFlatRoad() const { return m_lacksFlatRoad; }
  bool FoundErrors() const;
  /// Raises drv_Failure when the output is the deck, or a file that the stages have read for it or
  /// that it names.
  void SpareInputs(class drv_Output const& output) const;

  /// A line a stage: seconds, and megabytes (10^6 bytes) of the deck a second; then a total, and
  /// the peak of memory.
  std::string Timings() const;

private:
  struct Time
  {
    char const* step;
    double seconds;
  };

  void SetUp();
  cow_List<aio_FileRead> FilesRead() const;
  std::string ShownPath(aio_FileRead const& file) const;
  void RefusePartOfInput() const;
  bool RunStep(char const* step, drv_stageEnm stage, void (*run)(drv_Job& job));
  bool EndedBy(class atr_String const& words, drv_stageEnm stage) const;
  void WarnOfSkippedLines() const;
  void NoteFilesNamed();

  bool WantsProgress() const;
  bool WantsMaps() const
  {
    return m_options.command == drv_check ||
           (m_options.command == drv_dump && m_options.what != drv_keywords);
  }
  bool WantsNumbers() const { return WantsMaps() && m_options.command == drv_dump; }
  bool WantsOrganizedRows() const
  {
    return m_options.command == drv_print ||
           (m_options.command == drv_dump && m_options.what != drv_maps);
  }

  static void Parse(drv_Job& job);
  static void SumUp(drv_Job& job);
  static void Organize(drv_Job& job);
  static void MakeMaps(drv_Job& job);
  static void CheckParts(drv_Job& job);
  static void Number(drv_Job& job);

  struct Step;
  static Step const c_steps[];
  bool Wants(Step const& step) const;

  drv_Options const& m_options;
  drv_Reporter m_reporter;
  inp_InputFile& m_model;
  aio_FileRead m_deck;
  cow_List<aio_FileRead> m_filesNamed; ///< by keywords, once the deck is parsed
  std::vector<Time> m_times;
  bool m_hasMaps = false;
  bool m_lacksFlatRoad = false;
  std::optional<srv_KeywordCensus> m_census;
};
