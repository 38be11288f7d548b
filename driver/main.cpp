// inpdeck: reads a deck, says what is wrong with it, and shows what it holds.
//
//     inpdeck check bracket.inp                     diagnostics, then a summary
//     inpdeck check --diagnostics json bracket.inp  for an editor or a CI job
//     inpdeck print --stage parse bracket.inp       the keywords as deck text
//     inpdeck dump bracket.inp -o bracket.json      the keywords as JSON
//     inpdeck language elset                        what a keyword takes

#include "VRXBasException.h"
#include "drv_CrashBarrier.h"
#include "drv_Dump.h"
#include "drv_Exit.h"
#include "drv_Job.h"
#include "drv_Language.h"
#include "drv_Options.h"
#include "drv_Output.h"
#include "drv_Reporter.h"
#include "drv_Summary.h"
#include "eli_eostream.h"

#include <exception>
#include <new>
#include <ostream>

namespace
{

void WriteListing(drv_Job& job, drv_Output& output)
{
  drv_OutputStreambuf buffer(output);
  std::ostream stream(&buffer);
  stream.exceptions(std::ios::badbit); // so that a failure to write passes through as it is
  eli_eostream listing(stream);
  job.Model().Print(listing);
  listing.Flush();
}

void WriteResult(drv_Options const& options, drv_Job& job, drv_Output& output)
{
  switch (options.command)
  {
  case drv_check:
    if (!options.quiet)
    {
      output.Write(drv_Summary(job));
    }
    break;
  case drv_print:
    WriteListing(job, output);
    break;
  case drv_dump:
    drv_Dump(job, output);
    break;
  case drv_language:
    drv_ShowLanguage(options, output);
    break;
  }
  output.Finish();
}

/// The output is there before the work begins: what stands in its way comes up at once.
drv_statusEnm WorkOnDeck(drv_Options const& options)
{
  drv_Job job(options);
  job.CheckReadable();
  drv_Output output(options.outputFile);
  job.SpareInputs(output);
  bool const isComplete = job.Run();
  if (isComplete || options.command == drv_check)
  {
    job.SpareInputs(output);
    WriteResult(options, job, output);
  }
  if (options.timings)
  {
    drv_WriteToStderr(job.Timings());
  }
  return job.FoundErrors() ? drv_faultyDeck : drv_clean;
}

drv_statusEnm ShowLanguage(drv_Options const& options)
{
  drv_Output output("");
  drv_ShowLanguage(options, output);
  output.Finish();
  return drv_clean;
}

drv_statusEnm Run(int argc, char** argv)
{
  // 1. What did the user ask for?
  static drv_Options options; // an exception that leaves this function still needs its deck's name
  try
  {
    std::optional<drv_Options> const read = drv_ReadOptions(argc, argv);
    if (!read.has_value())
    {
      return drv_clean;
    }
    options = *read;
  }
  catch (drv_Failure const& failure)
  {
    drv_SayFailure(options, failure.what());
    return drv_cannotRun;
  }
  // 2. Should the program fail from here on, it says so in the form that was asked for.
  drv_TheCrashContext().deck = options.deck.c_str();
  drv_TheCrashContext().asJson = options.jsonDiagnostics;
  // 3. Do it.
  try
  {
    return options.command == drv_language ? ShowLanguage(options) : WorkOnDeck(options);
  }
  catch (drv_Failure const& failure)
  {
    drv_SayFailure(options, failure.what());
    return drv_cannotRun;
  }
}

/// Whatever comes up here is a fault of the program.
[[noreturn]] void FailBy(char const* what, char const* detail) { drv_FailInternally(what, detail); }

} // namespace

/// Before statics are made: memory may end there already.
[[gnu::constructor(101)]] static void BeSafe() { drv_RaiseCrashBarrier(); }

int main(int argc, char** argv)
{
  try
  {
    return Run(argc, argv);
  }
  catch (drv_PipeClosed const&)
  {
    return drv_cannotRun;
  }
  catch (std::bad_alloc const&)
  {
    drv_FailForMemory();
  }
  catch (VRXBasAssertException const& broken)
  {
    FailBy("broken invariant: ", broken.DeveloperReport().text());
  }
  catch (VRXBasException const& unexpected)
  {
    FailBy("unexpected exception: ", unexpected.DeveloperReport().text());
  }
  catch (std::exception const& unexpected)
  {
    FailBy("unexpected exception: ", unexpected.what());
  }
  catch (...)
  {
    FailBy("unexpected exception", "");
  }
}
