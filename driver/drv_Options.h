#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

enum drv_commandEnm
{
  drv_check,
  drv_print,
  drv_dump,
  drv_language
};

/// How far the deck is taken.
enum drv_stageEnm
{
  drv_parse,
  drv_expand,
  drv_final
};

/// What of a deck is dumped.
enum drv_whatEnm
{
  drv_keywords,
  drv_maps,
  drv_all
};

/// The word that stands for a stage on the command line and in what the program writes.
char const* drv_StageName(drv_stageEnm stage);

/// The command line, read and checked.
struct drv_Options
{
  drv_commandEnm command = drv_check;

  // of a command that takes a deck
  std::string deck;
  std::string includePath; ///< "" is the working directory
  drv_stageEnm stage = drv_final;
  std::vector<std::pair<std::string, std::string>> libraryOptions; ///< read by name in the library
  drv_whatEnm what = drv_keywords;
  bool lumen = false;        ///< results are to stay fit for the pre-processor
  bool odbConverter = false; ///< the deck serves a converter of results databases
  bool jsonDiagnostics = false;
  bool colored = false; ///< decided: standard error gets colours
  int debugLevel = 0;
  bool quiet = false;
  bool timings = false;
  std::string outputFile; ///< "" is standard output

  // of the command that shows the vocabulary
  std::string name; ///< "" for all of it
  bool asJson = false;
};

/// Reads the command line. Gives nothing when the user only asked for help, which has been written
/// then. Raises drv_Failure on bad usage.
std::optional<drv_Options> drv_ReadOptions(int argc, char** argv);
