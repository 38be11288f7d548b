#pragma once

// The last line of defence: whatever fails inside, the program ends with drv_internal and words that
// name the failure, the stage and the line of the deck, and ask for a report.

/// What the words of an internal failure say beside the failure itself.
struct drv_CrashContext
{
  char const* deck = "";              ///< the deck's name; must live on
  char const* stage = "";             ///< the stage at work; must live on
  bool asJson = false;                ///< the words are one JSON object, as diagnostics are
  bool volatile hasLineDrawn = false; ///< the line that tells of the progress is on the terminal
};

drv_CrashContext& drv_TheCrashContext();

/// Catches what would end the process without words: a bad list index, an uncaught exception, the
/// signals of a crash (a stack that is used up among them). A signal that asks for the end is given
/// words and drv_cannotRun. A closed pipe and a file that grows too large become errors of writing.
/// Also opens what the caller closed of the three standard descriptors, so that no file of ours takes
/// their numbers. To be called first, before statics are made. Allocates nothing.
void drv_RaiseCrashBarrier();

/// Says what failed, and where; ends the program. May be called from a signal handler.
[[noreturn]] void drv_FailInternally(char const* what, char const* detail = "");

/// As drv_FailInternally, in the words for a program that ran out of memory.
[[noreturn]] void drv_FailForMemory();
