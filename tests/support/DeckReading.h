#pragma once

#include "DeckFiles.h"
#include "KeywordText.h"
#include "inp_Parser.h"

#include <string>

/// How a file is read; the defaults are those of an analysis.
struct DeckReadingOptions
{
  bool strict = true;
  bool keepData = true;
  int startLine = 0;
  int endLine = 0;
};

/// Makes a folder the working folder for a while: files are looked for there first, and a test must
/// not find those of the folder that it happens to be started in.
class InFolder
{
public:
  explicit InFolder(std::string const& folder) : m_before(std::filesystem::current_path())
  {
    std::filesystem::current_path(folder);
  }
  ~InFolder()
  {
    std::error_code error;
    std::filesystem::current_path(m_before, error);
  }
  InFolder(InFolder const&) = delete;
  InFolder& operator=(InFolder const&) = delete;

private:
  std::filesystem::path m_before;
};

/// Everything that the reader makes of a file below a test's folder, as text to compare. File names
/// come without the folder, and that of the deck itself not at all.
struct DeckReading
{
  DeckReading(DeckFiles const& files, std::string const& name, DeckReadingOptions options = {})
    : m_files(files), m_file(files.Path(name))
  {
    InFolder const here(files.Folder());
    inp_Parser parser(m_file.c_str(), files.Folder().c_str(), cow_List<cow_String>(), "", true,
                      options.keepData, false, options.startLine, options.endLine);
    list = parser.Parse(options.strict);
    for (inp_Keyword const& keyword : list)
      keywords += Listed(keyword) + "\n";
    AddMessages("fatal", parser.GetFatalErrors());
    AddMessages("error", parser.GetErrors());
    AddMessages("warning", parser.GetWarnings());
    skipped = Joined(parser.GetSkippedDataLines());
    included = Joined(parser.GetIncludedFiles());
    missing = Joined(parser.GetMissingIncludeFiles());
  }

  cow_List<inp_Keyword> list;
  /// A line each: "line name {comment; comment} parameter, parameter=value: cell|cell / cell".
  std::string keywords;
  /// A line each: "line error Code(keyword): words"; fatal errors first, warnings last.
  std::string messages;
  std::string skipped, included, missing; ///< joined by "; "

private:
  std::string Place(cow_String const& file, int line) const
  {
    bool const isDeck = file.Empty() || file == m_file.c_str();
    std::string const name = isDeck ? "" : m_files.WithoutFolder(file.CStr()) + ":";
    return name + std::to_string(line) + " ";
  }

  static std::string Joined(cow_List<cow_String> const& texts)
  {
    std::string joined;
    for (int i = 0; i < texts.Length(); ++i)
      joined += (i > 0 ? "; " : "") + std::string(texts.ConstGet(i).View());
    return joined;
  }

  std::string Listed(inp_Keyword const& keyword) const
  {
    return Place(keyword.fileName, keyword.lineNumber) + KeywordText(keyword);
  }

  void AddMessages(char const* severity, cow_List<atr_String> const& texts)
  {
    for (atr_String const& message : texts)
    {
      atr_Origin const* const origin = message.Origin();
      if (origin == nullptr)
      {
        messages += "without origin: ";
      }
      else
      {
        messages += Place(origin->file, origin->line) + severity + " " + origin->code;
        messages += "(" + std::string(origin->keyword.View()) + "): ";
      }
      messages += m_files.WithoutFolder(message.CStr()) + "\n";
    }
  }

  DeckFiles const& m_files;
  std::string m_file;
};
