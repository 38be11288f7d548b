#include "drv_Job.h"

#include "aio_ifstream.h"
#include "atr_Message.h"
#include "drv_CrashBarrier.h"
#include "drv_Exit.h"
#include "drv_Output.h"
#include "drv_Progress.h"
#include "inp_CurrentOrigin.h"
#include "inp_NamedFiles.h"
#include "inp_ParserExceptions.h"
#include "omi_Singleton.h"
#include "omi_Timer.h"
#include "srv_DistributionTables.h"
#include "typ_DebugFlags.h"
#include "utl_CommandLine.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr int c_debugFlag = 30;

constexpr char c_oneLineAboveKeywords[] =
  "A data line above the first keyword belongs to none and is not used.";
constexpr char c_linesAboveKeywords[] =
  "%d data lines above the first keyword, from line %d on, belong to none and are not used.";

constexpr char c_noMapsOfFlatDecks[] =
  "The deck is a flat model, and flat models are not divided into parts yet: there are no maps.";

wip_WIP& Sink() { return omi_Singleton<wip_WIP>::Instance(); }

std::string TimingLine(char const* step, double seconds, double megabytes)
{
  char line[128];
  double const throughput = seconds > 0 ? megabytes / seconds : 0;
  std::snprintf(line, sizeof line, "timing: %-10s %10.6f s %10.1f MB/s\n", step, seconds,
                throughput);
  return line;
}

/// The file as the system knows it; none where there is no such file.
aio_FileId IdOf(cow_String const& path)
{
  struct stat status = {};
  return ::stat(path.CStr(), &status) == 0 ? aio_FileId{status.st_dev, status.st_ino}
                                           : aio_FileId();
}

/// Refused before the library sees the deck: what is no file must not make it wait.
void RefuseUnlessRegular(std::string const& deck)
{
  struct stat status = {};
  if (::stat(deck.c_str(), &status) != 0)
  {
    throw drv_Failure("cannot read the deck '" + deck + "': " + std::strerror(errno));
  }
  if (S_ISDIR(status.st_mode))
  {
    throw drv_Failure("cannot read the deck '" + deck + "': it is a folder");
  }
  if (!S_ISREG(status.st_mode))
  {
    throw drv_Failure("cannot read the deck '" + deck +
                      "': it is a pipe, a socket or a device, and a deck is a file");
  }
}

} // namespace

struct drv_Job::Step
{
  char const* name;
  drv_stageEnm stage; ///< that it belongs to
  void (*run)(drv_Job& job);
  bool (drv_Job::*isWanted)() const = nullptr; ///< null: always
};

/// The road of a deck, in the order that the library asks for.
drv_Job::Step const drv_Job::c_steps[] = {
  {"parse", drv_parse, &drv_Job::Parse},
  {"expand", drv_expand, [](drv_Job& job) { job.m_model.ExpandKeywords(); }},
  {"encoding", drv_expand, [](drv_Job& job) { job.m_model.CheckTextEncoding(); }},
  {"parameters", drv_final, &drv_Job::SumUp},
  {"organize", drv_final, &drv_Job::Organize, &drv_Job::WantsOrganizedRows},
  {"maps", drv_final, &drv_Job::MakeMaps, &drv_Job::WantsMaps},
  {"numbers", drv_final, &drv_Job::Number, &drv_Job::WantsNumbers},
  {"inventory", drv_final, &drv_Job::CheckParts, &drv_Job::WantsMaps},
};

drv_Job::drv_Job(drv_Options const& options)
  : m_options(options), m_reporter(options), m_model(omi_Singleton<inp_InputFile>::Instance())
{
}

bool drv_Job::Run()
{
  SetUp();
  drv_Progress::Watch const watch(WantsProgress(), m_options.deck);
  for (Step const& step : c_steps)
  {
    bool const isDone = !Wants(step) || RunStep(step.name, step.stage, step.run);
    RefusePartOfInput();
    if (!isDone)
    {
      return false;
    }
  }
  return true;
}

bool drv_Job::Wants(Step const& step) const
{
  return step.stage <= m_options.stage && (step.isWanted == nullptr || (this->*step.isWanted)());
}

/// A line that comes and goes is for people at a terminal, and not among what the library prints there.
bool drv_Job::WantsProgress() const
{
  char const* const terminal = std::getenv("TERM");
  bool const isDumb = terminal == nullptr || std::string_view(terminal) == "dumb";
  return !isDumb && !m_options.quiet && !m_options.jsonDiagnostics && m_options.debugLevel == 0 &&
         ::isatty(STDERR_FILENO) == 1;
}

srv_KeywordCensus const& drv_Job::Census()
{
  if (!m_census.has_value())
  {
    m_census = srv_CountKeywords(m_model.keywords);
  }
  return *m_census;
}

bool drv_Job::FoundErrors() const { return Sink().ErrorCount() > 0; }

void drv_Job::CheckReadable()
{
  drv_TheCrashContext().stage = drv_StageName(drv_parse);
  std::string const& deck = m_options.deck;
  if (deck == "-")
  {
    throw drv_Failure("a deck cannot be read from standard input; name its file");
  }
  RefuseUnlessRegular(deck);
  cow_String const path(deck.c_str());
  aio_ifstream stream;
  stream.Open(path.CStr());
  m_deck = stream.Outcome(path);
  if (m_deck.error != 0)
  {
    throw drv_Failure("cannot read the deck '" + deck + "': " + std::strerror(m_deck.error));
  }
}

cow_List<aio_FileRead> drv_Job::FilesRead() const
{
  cow_List<aio_FileRead> files;
  files.Append(m_deck);
  files.Concatenate(m_model.readerFacts.filesRead);
  files.Concatenate(m_model.expansionFacts.filesRead);
  return files;
}

std::string drv_Job::ShownPath(aio_FileRead const& file) const
{
  return m_reporter.ShownPath(std::string(file.path.View()));
}

void drv_Job::SpareInputs(drv_Output const& output) const
{
  aio_FileId const target = output.Target();
  cow_List<aio_FileRead> files = FilesRead();
  files.Concatenate(m_filesNamed);
  for (aio_FileRead const& file : files)
  {
    if (target.inode != 0 && file.id == target)
    {
      output.RefuseInput(ShownPath(file));
    }
  }
}

/// A part of the input is no model: nothing is to be made of it.
void drv_Job::RefusePartOfInput() const
{
  if (m_model.readerFacts.keywordsLost > 0 || m_model.expansionFacts.keywordsLost > 0)
  {
    throw std::bad_alloc();
  }
  for (aio_FileRead const& file : FilesRead())
  {
    if (file.error != 0)
    {
      throw drv_Failure("cannot read '" + ShownPath(file) +
                        "' to its end: " + std::strerror(file.error));
    }
    if (file.unfit != nullptr)
    {
      throw drv_Failure("cannot read '" + ShownPath(file) + "': " + file.unfit);
    }
    if (file.changed)
    {
      throw drv_Failure("'" + ShownPath(file) + "' was changed while it was read; run again");
    }
  }
}

void drv_Job::SetUp()
{
  m_model.includePath = cow_String(m_options.includePath.c_str());
  m_model.inOdbConverter = m_options.odbConverter;
  typ_DebugFlags::SetDebugFlags(c_debugFlag, m_options.debugLevel);
  for (auto const& [name, value] : m_options.libraryOptions)
  {
    utl_CommandLine::Instance().SetOption(name.c_str(), cow_String(value.c_str()));
  }
}

bool drv_Job::RunStep(char const* step, drv_stageEnm stage, void (*run)(drv_Job& job))
{
  drv_TheCrashContext().stage = drv_StageName(stage);
  m_reporter.SetStage(stage);
  drv_Progress::SetStep(step);
  omi_Timer timer;
  try
  {
    run(*this);
  }
  catch (nex_AtrException const& fault)
  {
    return EndedBy(fault.UserReport(), stage);
  }
  timer.Stop();
  m_times.push_back({step, timer.ElapsedSeconds()});
  inp_CurrentOrigin::Clear();
  return true;
}

/// A fault that no keyword could be made answerable for. One of the file is no fault of the deck's
/// author, but of the one who calls the program. Always false.
bool drv_Job::EndedBy(atr_String const& words, drv_stageEnm stage) const
{
  std::string_view const code = words.Origin() != nullptr ? words.Origin()->code : "";
  if (code == "OutOfMemory")
  {
    throw std::bad_alloc();
  }
  if (code == "FileIsUtf16" || code == "CouldNotOpen")
  {
    std::string text(words.View());
    text.erase(text.find_last_not_of("\n") + 1);
    throw drv_Failure(text);
  }
  Sink().Error(words, stage == drv_parse ? wip_readerFatal : wip_passFatal);
  return false;
}

void drv_Job::Parse(drv_Job& job)
{
  job.m_model.Parse(cow_String(job.m_options.deck.c_str()));
  job.NoteFilesNamed();
  job.WarnOfSkippedLines();
}

/// Files that this run may never come to read are inputs, too.
void drv_Job::NoteFilesNamed()
{
  for (cow_String const& path :
       inp_NamedFiles(m_model.keywords, m_model.readerFacts.filesNamed, m_model.includePath))
  {
    aio_FileRead file;
    file.path = path;
    file.id = IdOf(path);
    m_filesNamed.Append(file);
  }
}

void drv_Job::SumUp(drv_Job& job)
{
  srv_DeclareDistributionTables(job.m_model.keywords);
  job.m_model.setModelParameters();
}

/// For those who want records: the hierarchy with all its rows.
void drv_Job::Organize(drv_Job& job) { job.m_model.ReorganizeKeywords(job.m_options.lumen); }

void drv_Job::MakeMaps(drv_Job& job)
{
  job.WantsOrganizedRows() ? job.m_model.ExtractMaps(job.m_options.lumen)
                           : job.m_model.Classify(job.m_options.lumen);
  job.m_lacksFlatRoad = job.m_model.FlatRoadMissing();
  job.m_hasMaps = !job.m_lacksFlatRoad;
  if (job.m_lacksFlatRoad && job.m_options.command != drv_check)
  {
    atr_String message = atr(c_noMapsOfFlatDecks);
    atr_Origin origin;
    origin.code = "NoMapsOfFlatDecks";
    message.SetOrigin(origin);
    Sink().Warning(message);
  }
}

/// A dump shows the elements of parts too, which the others have no more use for.
void drv_Job::CheckParts(drv_Job& job)
{
  if (job.m_hasMaps)
  {
    job.m_options.command == drv_dump ? job.m_model.CheckParts() : job.m_model.CheckOutOfPlace();
  }
}

void drv_Job::Number(drv_Job& job)
{
  if (job.m_hasMaps)
  {
    job.m_model.NumberModel();
  }
}

void drv_Job::WarnOfSkippedLines() const
{
  inp_InputFile::ReaderFacts const& facts = m_model.readerFacts;
  if (facts.skippedDataLines == 0)
  {
    return;
  }
  atr_String message =
    facts.skippedDataLines == 1
      ? atr(c_oneLineAboveKeywords)
      : atr(c_linesAboveKeywords, facts.skippedDataLines, facts.firstSkippedLine);
  atr_Origin origin;
  origin.code = "DataAboveKeywords";
  origin.file = m_model.inputFileName;
  origin.line = facts.firstSkippedLine;
  message.SetOrigin(origin);
  Sink().Warning(message);
}

std::string drv_Job::Timings() const
{
  double const megabytes = static_cast<double>(m_model.readerFacts.bytesRead) / 1e6;
  double total = 0;
  std::string text;
  for (Time const& time : m_times)
  {
    text += TimingLine(time.step, time.seconds, megabytes);
    total += time.seconds;
  }
  text += TimingLine("total", total, megabytes);
  rusage usage = {};
  ::getrusage(RUSAGE_SELF, &usage);
  char line[64];
  std::snprintf(line, sizeof line, "timing: %-10s %10.1f MB\n", "peak",
                static_cast<double>(usage.ru_maxrss) * 1024 / 1e6);
  return text + line;
}
