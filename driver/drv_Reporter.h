#pragma once

#include "drv_Options.h"
#include "srv_DeckLines.h"
#include "wip_WIP.h"

#include <string>

/// Shows the messages of the sink on standard error, each at once and in whole.
///
/// As text, a message has its place in front, and behind it the line of the deck and a hint:
///
///     bracket.inp:12: error: Unknown keyword "nodee". The keyword may be misspelled, ...
///        12 | *NODEE, NSET=ALL
///           | did you mean *NODE?
///
/// As JSON it is one object a line. Registers itself for as long as it lives.
class drv_Reporter : public wip_WipReporter
{
public:
  explicit drv_Reporter(drv_Options const& options);
  ~drv_Reporter() override;

  /// Names the stage whose messages come from now on.
  void SetStage(drv_stageEnm stage) { m_stage = stage; }

  void Message(wip_Message const& message) override;

  /// The name by which a file is shown.
  std::string ShownPath(std::string const& file) const;

private:
  std::string AsText(wip_Message const& message);
  std::string AsJson(wip_Message const& message) const;
  std::string DeckLine(std::string const& file, int line, std::string const& hint);
  std::string Painted(char const* color, std::string const& text) const;

  drv_Options const& m_options;
  drv_stageEnm m_stage = drv_parse;
  bool m_onTerminal;
  std::string m_workingFolder;
  srv_DeckLines m_deckLines;
};

/// Writes words of the program itself, as a diagnostic without a place in the deck, in the form that
/// the options ask for.
void drv_SayFailure(drv_Options const& options, std::string const& words);

/// Writes to standard error; ends the program when nobody reads it any more.
void drv_WriteToStderr(std::string const& text);
