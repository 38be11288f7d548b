#pragma once

#include <stdexcept>

/// The statuses that the program ends with; there is no other.
enum drv_statusEnm
{
  drv_clean = 0,      ///< the deck has no errors
  drv_faultyDeck = 1, ///< errors were reported
  drv_cannotRun = 2,  ///< bad usage, deck not readable, output not writable
  drv_internal = 3    ///< the program itself failed
};

/// The command cannot run; its words go to the user, and the program ends with drv_cannotRun.
class drv_Failure : public std::runtime_error
{
public:
  using std::runtime_error::runtime_error;
};

/// Nobody reads the output any more: the program ends with drv_cannotRun and without words.
struct drv_PipeClosed
{
};

/// Ends the program at once. Destructors do not run, but an unfinished output file goes.
[[noreturn]] void drv_ExitNow(drv_statusEnm status);

/// Names the file that is to go when the program ends before its time, by its name in an open folder;
/// "" for none.
void drv_NoteUnfinishedFile(int folder, char const* name);
