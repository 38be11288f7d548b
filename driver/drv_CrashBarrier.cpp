#include "drv_CrashBarrier.h"

#include "cow_List.h"
#include "drv_Exit.h"
#include "drv_FixedText.h"
#include "inp_CurrentOrigin.h"
#include "mem_Allocation.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

struct UnfinishedFile
{
  int folder;
  char name[256]; ///< there; empty for none
};
UnfinishedFile unfinished;

void RemoveUnfinishedFile()
{
  if (unfinished.name[0] != '\0')
  {
    ::unlinkat(unfinished.folder, unfinished.name, 0);
  }
}

struct Place
{
  char const* file;
  int line;
};

/// The keyword at work, and else the deck.
Place PlaceOfFailure()
{
  bool const isKnown = inp_CurrentOrigin::Line() > 0;
  return {isKnown ? inp_CurrentOrigin::File() : drv_TheCrashContext().deck,
          isKnown ? inp_CurrentOrigin::Line() : 0};
}

/// Takes away what is drawn on the terminal, where the words are to stand.
void BeginLine(drv_FixedText& text)
{
  text.Add(drv_TheCrashContext().hasLineDrawn ? "\r\033[K" : "");
}

void BeginJson(drv_FixedText& text, char const* level, Place const& place)
{
  text.Add(R"({"severity":"fatal","level":)").Add(level).Add(R"(,"stage":")");
  text.Add(drv_TheCrashContext().stage).Add(R"(","file":")").AddEscaped(place.file);
  text.Add(R"(","line":)");
  place.line > 0 ? text.AddNumber(place.line) : text.Add("null");
  text.Add(R"(,"message":")");
}

void SendAsText(char const* what, char const* detail, char const* request)
{
  Place const place = PlaceOfFailure();
  drv_FixedText text;
  BeginLine(text);
  text.Add(place.file[0] != '\0' ? place.file : "inpdeck");
  if (place.line > 0)
  {
    text.Add(":").AddNumber(place.line);
  }
  text.Add(": fatal: Internal failure");
  if (drv_TheCrashContext().stage[0] != '\0')
  {
    text.Add(" in stage ").Add(drv_TheCrashContext().stage);
  }
  text.Add(": ").Add(what).Add(detail).Add("\n").Add(request).Add("\n").Send();
}

void SendAsJson(char const* what, char const* detail, char const* request)
{
  drv_FixedText text;
  BeginJson(text, "2", PlaceOfFailure());
  text.Add("Internal failure: ").AddEscaped(what).AddEscaped(detail);
  text.Add(". ").AddEscaped(request).Add("\"}\n").Send();
}

[[noreturn]] void Fail(char const* what, char const* detail, char const* request)
{
  (drv_TheCrashContext().asJson ? SendAsJson : SendAsText)(what, detail, request);
  drv_ExitNow(drv_internal);
}

void OnBadIndex(int index, int length)
{
  char detail[64];
  std::snprintf(detail, sizeof detail, "%d of a list of %d", index, length);
  drv_FailInternally("there is no item ", detail);
}

/// There is no room for what the smallest request to the heap would take. Asks the system itself, as
/// the heap may be the place that is broken.
bool IsMemoryExhausted()
{
  constexpr std::size_t size = std::size_t{1} << 20;
  void* const room =
    ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (room == MAP_FAILED)
  {
    return true;
  }
  ::munmap(room, size);
  return false;
}

/// The C++ library and the C library give up without an exception when they have no memory for what
/// they need themselves.
[[noreturn]] void GiveUp(char const* what)
{
  if (IsMemoryExhausted())
  {
    drv_FailForMemory();
  }
  drv_FailInternally(what);
}

void OnTerminate()
{
  try
  {
    if (std::current_exception() != nullptr)
    {
      throw;
    }
  }
  catch (std::bad_alloc const&)
  {
    drv_FailForMemory();
  }
  catch (...)
  {
  }
  GiveUp("an exception was not caught");
}

void OnCrash(int signal)
{
  switch (signal)
  {
  case SIGSEGV:
    drv_FailInternally("memory was used that is not there (the stack may be used up)");
  case SIGBUS:
    drv_FailInternally("memory could not be reached");
  case SIGFPE:
    drv_FailInternally("an arithmetic operation has no result");
  case SIGABRT:
    GiveUp("the program aborted itself");
  default:
    drv_FailInternally("an instruction could not be carried out");
  }
}

/// The signals by which a user, a limit or another program ends this one.
struct
{
  int signal;
  char const* name;
} constexpr c_endings[] = {
  {SIGHUP, "SIGHUP"},       {SIGINT, "SIGINT"},       {SIGQUIT, "SIGQUIT"}, {SIGTERM, "SIGTERM"},
  {SIGALRM, "SIGALRM"},     {SIGVTALRM, "SIGVTALRM"}, {SIGPROF, "SIGPROF"}, {SIGXCPU, "SIGXCPU"},
  {SIGUSR1, "SIGUSR1"},     {SIGUSR2, "SIGUSR2"},     {SIGIO, "SIGIO"},     {SIGPWR, "SIGPWR"},
  {SIGSTKFLT, "SIGSTKFLT"},
};

char const* NameOfEnding(int signal)
{
  for (auto const& ending : c_endings)
  {
    if (ending.signal == signal)
    {
      return ending.name;
    }
  }
  return "a real-time signal";
}

void OnEnding(int signal)
{
  drv_FixedText text;
  if (drv_TheCrashContext().asJson)
  {
    BeginJson(text, "0", {drv_TheCrashContext().deck, 0});
    text.Add("ended by ").Add(NameOfEnding(signal)).Add("\"}\n").Send();
  }
  else
  {
    BeginLine(text);
    text.Add("inpdeck: error: ended by ").Add(NameOfEnding(signal)).Add("\n").Send();
  }
  drv_ExitNow(drv_cannotRun);
}

void Handle(int signal, void (*handler)(int))
{
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_ONSTACK;
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);
}

/// An ignored signal stays so: that is how programs run in the background.
void HandleEnding(int signal)
{
  struct sigaction before = {};
  sigaction(signal, nullptr, &before);
  if (before.sa_handler != SIG_IGN)
  {
    Handle(signal, OnEnding);
  }
}

void HandleEndings()
{
  for (auto const& ending : c_endings)
  {
    HandleEnding(ending.signal);
  }
  for (int signal = SIGRTMIN; signal <= SIGRTMAX; ++signal)
  {
    HandleEnding(signal);
  }
}

/// A stack that is used up cannot run a handler, so handlers have one of their own.
void GiveHandlersAStack()
{
  static char memory[65536];
  stack_t stack = {};
  stack.ss_sp = memory;
  stack.ss_size = sizeof memory;
  sigaltstack(&stack, nullptr);
}

} // namespace

drv_CrashContext& drv_TheCrashContext()
{
  static drv_CrashContext context;
  return context;
}

void drv_RaiseCrashBarrier()
{
  while (true)
  {
    int const descriptor = ::open("/dev/null", O_RDONLY);
    if (descriptor < 0 || descriptor > STDERR_FILENO)
    {
      ::close(descriptor);
      break;
    }
  }
  drv_TheCrashContext();
  cow_SetOutOfRangeHook(OnBadIndex);
  std::set_terminate(OnTerminate);
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  HandleEndings();
  if (!MEM_PLAIN_ALLOCATION) // a sanitizer has better words for crashes
  {
    GiveHandlersAStack();
    for (int const signal : {SIGSEGV, SIGBUS, SIGFPE, SIGABRT, SIGILL, SIGTRAP, SIGSYS})
    {
      Handle(signal, OnCrash);
    }
  }
}

void drv_FailInternally(char const* what, char const* detail)
{
  Fail(what, detail,
       "This is a fault of inpdeck, not of the deck. Please report it, with the deck if you can.");
}

void drv_FailForMemory()
{
  Fail("there is not enough memory", "",
       "If the deck is not larger than the memory, please report it, with the deck if you can.");
}

void drv_ExitNow(drv_statusEnm status)
{
  RemoveUnfinishedFile();
  _exit(status);
}

void drv_NoteUnfinishedFile(int folder, char const* name)
{
  unfinished.name[0] = '\0';
  unfinished.folder = folder;
  // The first byte last: a signal may come at any time.
  std::size_t const length = std::min(std::strlen(name), sizeof unfinished.name - 1);
  for (std::size_t at = length + 1; at > 0; --at)
  {
    const_cast<char volatile*>(unfinished.name)[at - 1] = at > length ? '\0' : name[at - 1];
  }
}
