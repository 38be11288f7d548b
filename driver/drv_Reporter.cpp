#include "drv_Reporter.h"

#include "drv_CrashBarrier.h"
#include "drv_Exit.h"
#include "drv_Progress.h"
#include "omi_Singleton.h"
#include "srv_Hints.h"
#include "srv_JsonWriter.h"
#include "srv_Utf8.h"

#include <cerrno>
#include <filesystem>
#include <unistd.h>

namespace
{

constexpr int c_shownColumns = 100;
constexpr std::size_t c_gutter = 5; // columns of a line number

char const c_bold[] = "\033[1m";
char const c_plain[] = "\033[0m";
char const c_blue[] = "\033[1;34m";
char const c_green[] = "\033[32m";

char const* SeverityOf(wip_Message const& message)
{
  if (message.isWarning)
  {
    return "warning";
  }
  return message.level == wip_error ? "error" : "fatal";
}

char const* ColorOf(wip_Message const& message)
{
  return message.isWarning ? "\033[1;35m" : "\033[1;31m";
}

struct JsonDiagnostic
{
  char const* severity;
  int level; ///< below 0 for none
  char const* stage;
  std::string_view file; ///< "" for none
  int line;              ///< 0 for none
  std::string_view message;
};

std::string ToJson(JsonDiagnostic const& diagnostic)
{
  std::string text;
  srv_JsonWriter json(text, srv_JsonWriter::compact);
  json.BeginObject().Key("severity").String(diagnostic.severity).Key("level");
  diagnostic.level < 0 ? json.Null() : json.Number(diagnostic.level);
  json.Key("stage").String(diagnostic.stage).Key("file");
  diagnostic.file.empty() ? json.Null() : json.String(diagnostic.file);
  json.Key("line");
  diagnostic.line <= 0 ? json.Null() : json.Number(diagnostic.line);
  json.Key("message").String(diagnostic.message).EndObject();
  return text + "\n";
}

} // namespace

drv_Reporter::drv_Reporter(drv_Options const& options)
  : m_options(options), m_onTerminal(::isatty(STDERR_FILENO) == 1)
{
  std::error_code ignored;
  m_workingFolder = std::filesystem::current_path(ignored).string();
  omi_Singleton<wip_WIP>::Instance().AddReporter(*this);
}

drv_Reporter::~drv_Reporter() { omi_Singleton<wip_WIP>::Instance().RemoveReporter(*this); }

void drv_Reporter::Message(wip_Message const& message)
{
  drv_WriteToStderr(m_options.jsonDiagnostics ? AsJson(message) : AsText(message));
}

std::string drv_Reporter::AsJson(wip_Message const& message) const
{
  atr_Origin const* const origin = message.text.Origin();
  return ToJson({SeverityOf(message), message.isWarning ? -1 : message.level,
                 drv_StageName(m_stage), origin != nullptr ? origin->file.View() : "",
                 origin != nullptr ? origin->line : 0, message.text.View()});
}

std::string drv_Reporter::AsText(wip_Message const& message)
{
  atr_Origin const* const found = message.text.Origin();
  atr_Origin const origin = found != nullptr ? *found : atr_Origin();
  std::string const file(origin.file.View());

  std::string place = file.empty() ? m_options.deck : ShownPath(file);
  if (!file.empty() && origin.line > 0)
  {
    place += ":" + std::to_string(origin.line);
  }
  std::string text = Painted(c_bold, place + ":") + " ";
  text += Painted(ColorOf(message), SeverityOf(message) + std::string(":")) + " ";
  text += m_onTerminal ? srv_PrintableLines(message.text.View()) : message.text.View();
  if (!text.ends_with('\n'))
  {
    text += '\n';
  }
  return text + DeckLine(file, origin.line, srv_HintFor(origin, m_options.includePath));
}

std::string drv_Reporter::DeckLine(std::string const& file, int line, std::string const& hint)
{
  std::string number = std::to_string(line);
  number.insert(0, number.size() < c_gutter ? c_gutter - number.size() : 0, ' ');
  std::string text;
  if (std::optional<std::string> const deckLine = m_deckLines.Line(file, line))
  {
    std::string const shown =
      srv_Printable(*deckLine, c_shownColumns - static_cast<int>(c_gutter) - 3);
    text = Painted(c_blue, number + " |") + (shown.empty() ? "" : " " + shown) + "\n";
  }
  if (!hint.empty())
  {
    std::string const gutter(number.size(), ' ');
    text +=
      Painted(c_blue, gutter + " |") + " " + Painted(c_green, srv_PrintableLines(hint)) + "\n";
  }
  return text;
}

std::string drv_Reporter::Painted(char const* color, std::string const& text) const
{
  return m_options.colored ? color + text + c_plain : text;
}

/// Include files are known by their absolute paths; below the working folder a relative one is
/// easier to read. Who names the deck by an absolute path gets absolute paths.
std::string drv_Reporter::ShownPath(std::string const& file) const
{
  std::string const folder = m_workingFolder + "/";
  bool const isBelow = m_workingFolder.size() > 1 && file.starts_with(folder);
  return isBelow && !m_options.deck.starts_with('/') ? file.substr(folder.size()) : file;
}

void drv_SayFailure(drv_Options const& options, std::string const& words)
{
  if (options.jsonDiagnostics)
  {
    drv_WriteToStderr(
      ToJson({"fatal", wip_readerFatal, drv_TheCrashContext().stage, options.deck, 0, words}));
    return;
  }
  std::string const severity = options.colored ? "\033[1;31merror:\033[0m" : "error:";
  drv_WriteToStderr("inpdeck: " + severity + " " + words + "\n");
}

void drv_WriteToStderr(std::string const& text)
{
  drv_Progress::Pause const pause;
  std::string_view left = text;
  while (!left.empty())
  {
    ssize_t const written = ::write(STDERR_FILENO, left.data(), left.size());
    if (written >= 0)
    {
      left.remove_prefix(static_cast<std::size_t>(written));
    }
    else if (errno == EBADF)
    {
      return; // closed by the caller, who wants no diagnostics
    }
    else if (errno != EINTR)
    {
      drv_ExitNow(drv_cannotRun);
    }
  }
}
