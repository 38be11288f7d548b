#include "drv_CrashBarrier.h"

#include "cow_List.h"
#include "drv_Exit.h"
#include "inp_CurrentPlace.h"
#include "mem_Allocation.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr std::size_t c_longestPath = 4096;
char unfinishedFile[c_longestPath];

/// Text put together without the heap, as a signal handler must.
class FixedText
{
public:
  FixedText& Add(char const* text)
  {
    for (; *text != '\0'; ++text)
    {
      Put(*text);
    }
    return *this;
  }

  FixedText& AddNumber(int number)
  {
    char digits[16];
    char* digit = digits + sizeof digits;
    *--digit = '\0';
    do
    {
      *--digit = static_cast<char>('0' + number % 10);
      number /= 10;
    } while (number > 0);
    return Add(digit);
  }

  /// Within a JSON string. Bytes beyond ASCII may be cut or malformed and are not worth the trouble.
  FixedText& AddEscaped(char const* text)
  {
    for (; *text != '\0'; ++text)
    {
      bool const isPlain = *text >= ' ' && *text != '\x7f';
      if (*text == '"' || *text == '\\')
      {
        Put('\\');
      }
      Put(isPlain ? *text : '?');
    }
    return *this;
  }

  void Send() const
  {
    char const* from = m_text;
    while (from < m_end)
    {
      ssize_t const written = ::write(STDERR_FILENO, from, static_cast<std::size_t>(m_end - from));
      if (written <= 0)
      {
        return;
      }
      from += written;
    }
  }

private:
  void Put(char c)
  {
    if (m_end < m_text + sizeof m_text)
    {
      *m_end++ = c;
    }
  }

  char m_text[8192];
  char* m_end = m_text;
};

struct Place
{
  char const* file;
  int line;
};

/// The keyword at work, and else the deck.
Place PlaceOfFailure()
{
  bool const isKnown = inp_CurrentPlace::Line() > 0;
  return {isKnown ? inp_CurrentPlace::File() : drv_TheCrashContext().deck,
          isKnown ? inp_CurrentPlace::Line() : 0};
}

void SendAsText(char const* what, char const* detail, char const* request)
{
  Place const place = PlaceOfFailure();
  FixedText text;
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
  Place const place = PlaceOfFailure();
  FixedText text;
  text.Add(R"({"severity":"fatal","level":2,"stage":")").Add(drv_TheCrashContext().stage);
  text.Add(R"(","file":")").AddEscaped(place.file).Add(R"(","line":)");
  if (place.line > 0)
  {
    text.AddNumber(place.line);
  }
  else
  {
    text.Add("null");
  }
  text.Add(R"(,"message":"Internal failure: )").AddEscaped(what).AddEscaped(detail);
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

void OnTerminate() { drv_FailInternally("an exception was not caught"); }

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
    drv_FailInternally("the program aborted itself");
  default:
    drv_FailInternally("an instruction could not be carried out");
  }
}

/// The user ends the program: as without a handler, but for the unfinished output file.
void OnInterrupt(int signal)
{
  if (unfinishedFile[0] != '\0')
  {
    ::unlink(unfinishedFile);
  }
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void Handle(int signal, void (*handler)(int))
{
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_ONSTACK;
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);
}

/// An ignored interrupt stays so: that is how programs run in the background.
void HandleInterrupt(int signal)
{
  struct sigaction before = {};
  sigaction(signal, nullptr, &before);
  if (before.sa_handler != SIG_IGN)
  {
    Handle(signal, OnInterrupt);
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
  for (int const signal : {SIGINT, SIGTERM, SIGHUP})
  {
    HandleInterrupt(signal);
  }
  if (!MEM_PLAIN_ALLOCATION) // a sanitizer has better words for crashes
  {
    GiveHandlersAStack();
    for (int const signal : {SIGSEGV, SIGBUS, SIGFPE, SIGABRT, SIGILL})
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
  if (unfinishedFile[0] != '\0')
  {
    ::unlink(unfinishedFile);
  }
  _exit(status);
}

void drv_NoteUnfinishedFile(char const* path)
{
  unfinishedFile[0] = '\0';
  if (std::strlen(path) < sizeof unfinishedFile)
  {
    std::strcpy(unfinishedFile, path);
  }
}
