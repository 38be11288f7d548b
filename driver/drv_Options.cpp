#include "drv_Options.h"

#include "drv_Exit.h"
#include "drv_Output.h"
#include "srv_Words.h"

#include <CLI/CLI.hpp>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <unistd.h>

namespace
{

srv_Words const c_stages = {"parse", "expand", "final"};
srv_Words const c_whats = {"keywords", "maps", "all"}; // in the order of drv_whatEnm

/// Options that the library reads by name.
struct LibraryOption
{
  char const* flag;
  char const* name; ///< in the library
  char const* value;
  char const* help;
};

constexpr LibraryOption c_libraryOptions[] = {
  {"--results-format", "resultsFormat", "F", "format of the job's results; odb when not given"},
  {"--indir", "indir", "DIR", "where the decks of a *MANIFEST are looked for first"},
  {"--oldjob", "oldjob", "JOB", "the job that this one goes on from"},
  {"--oldjobcla", "oldjobcla", "JOB", "the same, as the command line of the analysis gave it"},
  {"--restart", "restart", "JOB", "the job that this one restarts"},
  {"--cpu-scaling", "cpu_scaling", "N", "times are given for this many processors"},
  {"--pvm", "pvm", "N", "processes of a parallel run"},
};

constexpr char c_statuses[] =
  "Exit status: 0 no errors (warnings allowed), 1 errors in the deck, 2 the\n"
  "command could not run, 3 internal failure.";

CLI::Validator OneOf(srv_Words const& words)
{
  auto const check = [words](std::string const& value)
  {
    bool const isKnown = std::find(words.begin(), words.end(), value) != words.end();
    return isKnown ? "" : "'" + value + "' is not one of " + srv_Joined(words);
  };
  return CLI::Validator(check, "");
}

/// Usage first, then what the command does; the value of an option without its type.
class Formatter : public CLI::Formatter
{
public:
  Formatter()
  {
    column_width(28);
    label("Positionals", "Arguments");
    label("SUBCOMMAND", "COMMAND [OPTIONS]");
  }

  std::string make_usage(CLI::App const* app, std::string name) const override
  {
    bool const isTop = app->get_parent() == nullptr;
    if (isTop)
    {
      return "Usage: " + name + " COMMAND [OPTIONS] ...\n";
    }
    std::string usage = "Usage: " + name + " [OPTIONS]";
    for (CLI::Option const* option : app->get_options())
    {
      if (option->get_positional())
      {
        usage += " " + make_option_usage(option);
      }
    }
    return usage + "\n";
  }

  std::string make_help(CLI::App const* app, std::string name,
                        CLI::AppFormatMode mode) const override
  {
    std::string const footer = app->get_footer();
    return make_usage(app, name) + "\n" + app->get_description() + "\n" +
           make_subcommands(app, mode) + make_positionals(app) + make_groups(app, mode) +
           (footer.empty() ? "" : "\n" + footer + "\n");
  }

  std::string make_option_name(CLI::Option const* option, bool isPositional) const override
  {
    std::string name = CLI::Formatter::make_option_name(option, isPositional);
    std::size_t const comma = name.find(',');
    std::string const margin = isPositional ? "" : "    ";
    return comma == std::string::npos ? margin + name : name.insert(comma + 1, " ");
  }

  std::string make_option_usage(CLI::Option const* option) const override
  {
    std::string const name = option->get_name(true, false);
    return option->get_required() ? name : "[" + name + "]";
  }

  std::string make_option_opts(CLI::Option const* option) const override
  {
    std::string const value = option->get_option_text();
    return value.empty() ? "" : " " + value;
  }
};

class Reader
{
public:
  Reader();
  std::optional<drv_Options> Read(int argc, char** argv);

private:
  CLI::App* AddCommand(drv_commandEnm command, char const* name, char const* does);
  CLI::App* AddDeckCommand(drv_commandEnm command, char const* name, char const* does);
  void AddLibraryOptions(CLI::App* command);
  void AddOutput(CLI::App* command);
  void AddLanguage();
  [[noreturn]] void Refuse(CLI::ParseError const& fault, int argc, char** argv) const;
  void Complete();

  CLI::App m_app;
  drv_Options m_options;
  srv_Words m_commands;
  std::string m_color = "auto";
  std::string m_diagnostics = "text";
  std::string m_stage = c_stages.back();
  std::string m_what = "keywords";
  std::string m_include;
  std::array<std::string, std::size(c_libraryOptions)> m_libraryValues;
  srv_Words m_nameWords;
};

Reader::Reader()
  : m_app("Reads the input deck of a finite-element analysis, says what is wrong with it,\n"
          "and shows what it holds.")
{
  m_app.formatter(std::make_shared<Formatter>());
  m_app.name("inpdeck");
  m_app.require_subcommand(1);
  m_app.set_help_flag("-h,--help", "print this help and exit");
  m_app.set_version_flag("--version", "inpdeck " INPDECK_VERSION, "print the version and exit");
  m_app.option_defaults()->take_last();
  m_app.footer("'inpdeck COMMAND --help' tells more of a command.\n\n" + std::string(c_statuses));

  AddDeckCommand(drv_check, "check", "Check a deck, then sum up the model.");
  AddOutput(AddDeckCommand(drv_print, "print", "Write the keywords of a deck as deck text."));
  CLI::App* const dump = AddDeckCommand(drv_dump, "dump", "Write what a deck holds as JSON.");
  dump
    ->add_option("--what", m_what,
                 "what to write: keywords (records of all keywords, the\ndefault), maps (nodes, "
                 "elements, sets, surfaces), all")
    ->option_text("WHAT")
    ->check(OneOf(c_whats));
  AddOutput(dump);
  AddLanguage();
}

CLI::App* Reader::AddCommand(drv_commandEnm command, char const* name, char const* does)
{
  CLI::App* const added = m_app.add_subcommand(name, does);
  added->group("Commands");
  added->footer("");
  added->parse_complete_callback([this, command] { m_options.command = command; });
  m_commands.push_back(name);
  return added;
}

CLI::App* Reader::AddDeckCommand(drv_commandEnm command, char const* name, char const* does)
{
  CLI::App* const added = AddCommand(command, name, does);
  added->footer(c_statuses);
  added->add_option("DECK", m_options.deck, "the deck's file")
    ->required()
    ->multi_option_policy(CLI::MultiOptionPolicy::Throw);
  added
    ->add_option("-I,--include", m_include,
                 "where include and data files are looked for after\n"
                 "the working directory; the deck's own folder when\nnot given")
    ->option_text("DIR");
  added
    ->add_option("--stage", m_stage,
                 "stop behind this stage: " + srv_Joined(c_stages) + "\n(all stages, the default)")
    ->option_text("STAGE")
    ->check(OneOf(c_stages));
  added->add_flag("--lumen", m_options.lumen, "the results are to stay fit for the pre-processor");
  added->add_flag("--odb-converter", m_options.odbConverter,
                  "the deck serves a converter of results databases");
  AddLibraryOptions(added);
  added
    ->add_option("--diagnostics", m_diagnostics,
                 "how diagnostics are written to standard error: text,\njson (an object a line)")
    ->option_text("FORM")
    ->check(OneOf({"text", "json"}));
  added
    ->add_option("--color", m_color,
                 "colour of text diagnostics: auto (on a terminal, the\ndefault), always, never")
    ->option_text("WHEN")
    ->check(OneOf({"auto", "always", "never"}));
  added
    ->add_option("--debug", m_options.debugLevel,
                 "print what the library does: 1 the times of stages,\n2 more")
    ->option_text("N")
    ->check(CLI::Range(0, 99));
  added->add_flag("--quiet", m_options.quiet, "no summary");
  added->add_flag("--timings", m_options.timings,
                  "time and throughput of each stage, on standard\nerror");
  return added;
}

void Reader::AddLibraryOptions(CLI::App* command)
{
  for (std::size_t i = 0; i < m_libraryValues.size(); ++i)
  {
    command->add_option(c_libraryOptions[i].flag, m_libraryValues[i], c_libraryOptions[i].help)
      ->option_text(c_libraryOptions[i].value);
  }
}

void Reader::AddOutput(CLI::App* command)
{
  command
    ->add_option(
      "-o,--output", m_options.outputFile,
      "write to this file, which appears whole or not at\nall; '-' and no -o mean standard output")
    ->option_text("FILE")
    ->check([](std::string const& name) { return name.empty() ? "the name is empty" : ""; }, "");
}

void Reader::AddLanguage()
{
  CLI::App* const language =
    AddCommand(drv_language, "language", "Show the vocabulary of the deck language.");
  language
    ->add_option(
      "NAME", m_nameWords,
      "a keyword, or a beginning that no other keyword has;\nall keywords are listed without it")
    ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  language->add_flag("--json", m_options.asJson, "write JSON");
}

std::optional<drv_Options> Reader::Read(int argc, char** argv)
{
  try
  {
    m_app.parse(argc, argv);
  }
  catch (CLI::ParseError const& fault)
  {
    if (fault.get_exit_code() != 0)
    {
      Refuse(fault, argc, argv);
    }
    drv_Output output("");
    output.Write(fault.get_name() == "CallForHelp" ? m_app.help()
                                                   : fault.what() + std::string("\n"));
    output.Finish();
    return std::nullopt;
  }
  Complete();
  return m_options;
}

void Reader::Refuse(CLI::ParseError const& fault, int argc, char** argv) const
{
  std::string const first = argc > 1 ? argv[1] : "";
  bool const isCommand = std::find(m_commands.begin(), m_commands.end(), first) != m_commands.end();
  if (isCommand)
  {
    throw drv_Failure(fault.what() + std::string("\nTry 'inpdeck ") + first + " --help'.");
  }
  std::string const words = first.empty()     ? "no command is given"
                            : first[0] == '-' ? fault.what()
                                              : "'" + first + "' is no command";
  throw drv_Failure(words + "; the commands are " + srv_Joined(m_commands) +
                    "\nTry 'inpdeck --help'.");
}

bool IsColorWanted(std::string const& choice)
{
  if (choice != "auto")
  {
    return choice == "always";
  }
  char const* const no = std::getenv("NO_COLOR");
  char const* const terminal = std::getenv("TERM");
  bool const isRefused = no != nullptr && *no != '\0';
  bool const isDumb = terminal != nullptr && std::string_view(terminal) == "dumb";
  return !isRefused && !isDumb && ::isatty(STDERR_FILENO) == 1;
}

void Reader::Complete()
{
  auto const stage = std::find(c_stages.begin(), c_stages.end(), m_stage);
  m_options.stage = static_cast<drv_stageEnm>(stage - c_stages.begin());
  auto const what = std::find(c_whats.begin(), c_whats.end(), m_what);
  m_options.what = static_cast<drv_whatEnm>(what - c_whats.begin());
  if (m_options.what != drv_keywords && m_options.stage != drv_final)
  {
    throw drv_Failure("there are maps behind the final stage only; leave --stage out");
  }
  m_options.jsonDiagnostics = m_diagnostics == "json";
  m_options.colored = !m_options.jsonDiagnostics && IsColorWanted(m_color);
  if (m_options.outputFile == "-")
  {
    m_options.outputFile.clear();
  }
  m_options.includePath = m_include;
  if (m_include.empty())
  {
    m_options.includePath = std::filesystem::path(m_options.deck).parent_path().string();
  }
  else if (std::error_code error; !std::filesystem::is_directory(m_include, error))
  {
    throw drv_Failure("the include path '" + m_include + "' is no folder");
  }
  for (std::size_t i = 0; i < m_libraryValues.size(); ++i)
  {
    if (!m_libraryValues[i].empty())
    {
      m_options.libraryOptions.emplace_back(c_libraryOptions[i].name, m_libraryValues[i]);
    }
  }
  for (std::string const& word : m_nameWords)
  {
    m_options.name += word;
  }
}

} // namespace

char const* drv_StageName(drv_stageEnm stage) { return c_stages.at(stage).c_str(); }

std::optional<drv_Options> drv_ReadOptions(int argc, char** argv)
{
  return Reader().Read(argc, argv);
}
