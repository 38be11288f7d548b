#include "drv_Summary.h"

#include "drv_Job.h"
#include "drv_Utf8.h"
#include "drv_Words.h"
#include "inp_KeywordTable.h"
#include "omi_Singleton.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <vector>

namespace
{

constexpr int c_columns = 80;
constexpr std::size_t c_labelWidth = 16;
constexpr std::size_t c_numberWidth = 11;
constexpr std::size_t c_mostSteps = 8;

struct Step
{
  std::string name;
  std::string procedure;
};

struct Census
{
  int keywords = 0;
  int nodeRows = 0;
  int elementRows = 0;
  std::map<int, int> kinds;
  std::map<std::string, int> elementTypes;
  drv_Words materials;
  std::vector<Step> steps;

  int Of(inp_KeywordEnm kind) const
  {
    auto const found = kinds.find(kind);
    return found != kinds.end() ? found->second : 0;
  }
};

std::string TextOf(inp_Keyword const& keyword, char const* parameter)
{
  inp_Item const* const item = keyword.parameters.ConstFind(parameter);
  return item != nullptr ? std::string(item->AsString().View()) : "";
}

std::string NameOf(inp_Keyword const& keyword)
{
  std::string const name = TextOf(keyword, "name");
  return name.empty() ? "(no name)" : name;
}

/// Rows of elements: one that goes on in the next row counts once.
int ElementRows(inp_DataArray const& data)
{
  int elements = 0;
  bool goesOn = false;
  for (int row = 0; row < data.Rows(); ++row)
  {
    elements += goesOn ? 0 : 1;
    goesOn = data.HasRowContinuation(row);
  }
  return elements;
}

/// The keywords that say what is computed in a step.
bool IsProcedure(inp_KeywordEnm keyword)
{
  switch (keyword)
  {
  case inp_kwAnneal:
  case inp_kwBuckle:
  case inp_kwCfd:
  case inp_kwComplexFrequency:
  case inp_kwCoupledTemperatureDisplacement:
  case inp_kwCoupledThermalElectrical:
  case inp_kwDirectCyclic:
  case inp_kwDynamic:
  case inp_kwDynamicTemperatureDisplacement:
  case inp_kwElectromagnetic:
  case inp_kwFrequency:
  case inp_kwGeostatic:
  case inp_kwHeatTransfer:
  case inp_kwMagnetostatic:
  case inp_kwMassDiffusion:
  case inp_kwMatrixGenerate:
  case inp_kwModalDynamic:
  case inp_kwRandomResponse:
  case inp_kwResponseSpectrum:
  case inp_kwSoils:
  case inp_kwStatic:
  case inp_kwSteadyStateDynamics:
  case inp_kwSteadyStateTransport:
  case inp_kwSubstructureGenerate:
  case inp_kwVisco:
    return true;
  default:
    return false;
  }
}

void Count(cow_List<inp_Keyword> const& keywords, Census& census);

void Count(inp_Keyword const& keyword, Census& census)
{
  ++census.keywords;
  ++census.kinds[keyword.keyword];
  if (keyword.Is(inp_kwNode))
  {
    census.nodeRows += keyword.data.Rows();
  }
  else if (keyword.Is(inp_kwElement))
  {
    int const rows = ElementRows(keyword.data);
    census.elementRows += rows;
    census.elementTypes[drv_Upper(TextOf(keyword, "type"))] += rows;
  }
  else if (keyword.Is(inp_kwMaterial))
  {
    census.materials.push_back(NameOf(keyword));
  }
  else if (keyword.Is(inp_kwStep))
  {
    census.steps.push_back({NameOf(keyword), ""});
  }
  else if (!census.steps.empty() && census.steps.back().procedure.empty() &&
           IsProcedure(keyword.keyword))
  {
    census.steps.back().procedure = "*" + drv_Upper(keyword.Name().View());
  }
  Count(keyword.suboptions, census);
}

void Count(cow_List<inp_Keyword> const& keywords, Census& census)
{
  for (inp_Keyword const& keyword : keywords)
  {
    Count(keyword, census);
  }
}

std::string Plural(int count, std::string const& word)
{
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

/// "3 *NODE, 1 *NGEN" of those that the deck has.
std::string CountsOf(Census const& census, std::vector<inp_KeywordEnm> const& kinds)
{
  inp_KeywordTable const& table = thr_ThreadSingleton<inp_KeywordTable>::Instance();
  std::string text;
  for (inp_KeywordEnm const kind : kinds)
  {
    if (int const count = census.Of(kind))
    {
      text += (text.empty() ? "" : ", ") + std::to_string(count) + " *" +
              drv_Upper(table.Name(kind).View());
    }
  }
  return text;
}

/// The most frequent ones first.
std::string CountsOf(std::map<std::string, int> const& counts)
{
  std::vector<std::pair<std::string, int>> sorted(counts.begin(), counts.end());
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](auto const& a, auto const& b) { return a.second > b.second; });
  std::string text;
  for (auto const& [name, count] : sorted)
  {
    text += (text.empty() ? "" : ", ") + std::to_string(count) + " " +
            (name.empty() ? "of no type" : name);
  }
  return text;
}

drv_Words WordsOf(cow_List<cow_String> const& names)
{
  drv_Words words;
  for (cow_String const& name : names)
  {
    words.emplace_back(name.View());
  }
  return words;
}

std::string Size(long long bytes)
{
  char text[32];
  double const size = static_cast<double>(bytes);
  if (bytes < 1000)
  {
    return Plural(static_cast<int>(bytes), "byte");
  }
  bool const isLarge = bytes >= 1000000;
  std::snprintf(text, sizeof text, "%.1f %s", size / (isLarge ? 1e6 : 1e3), isLarge ? "MB" : "kB");
  return text;
}

/// "  label        number   detail", cut to the width of the screen.
std::string Row(std::string const& label, int number, std::string const& detail = "")
{
  std::string const digits = std::to_string(number);
  std::string line = "  " + label;
  line.append(c_labelWidth - std::min(label.size(), c_labelWidth), ' ');
  line.append(c_numberWidth - std::min(digits.size(), c_numberWidth), ' ');
  line += digits;
  if (!detail.empty())
  {
    line += "   " + drv_Printable(detail, c_columns - static_cast<int>(line.size()) - 3);
  }
  return line + "\n";
}

std::string RowUnlessNone(std::string const& label, int number, std::string const& detail = "")
{
  return number == 0 ? "" : Row(label, number, detail);
}

std::string RowUnlessNone(std::string const& label, drv_Words const& names)
{
  return RowUnlessNone(label, static_cast<int>(names.size()), drv_Joined(names));
}

/// Of the reader and of the expansion. A file that both miss is one file.
drv_Words MissingFiles(inp_InputFile const& model)
{
  drv_Words missing = WordsOf(model.readerFacts.missingIncludeFiles);
  for (std::string const& file : WordsOf(model.expansionFacts.missingIncludeFiles))
  {
    if (std::find(missing.begin(), missing.end(), file) == missing.end())
    {
      missing.push_back(file);
    }
  }
  return missing;
}

std::string Steps(std::vector<Step> const& steps)
{
  std::string text;
  std::size_t widest = 0;
  for (Step const& step : steps)
  {
    widest = std::max(widest, std::min<std::size_t>(step.name.size(), 30));
  }
  std::string const margin(2 + c_labelWidth + c_numberWidth + 3, ' ');
  std::size_t const shown = steps.size() > c_mostSteps ? c_mostSteps - 1 : steps.size();
  for (std::size_t i = 0; i < shown; ++i)
  {
    std::string name = drv_Printable(steps[i].name, 30);
    name.append(widest - std::min(widest, name.size()), ' ');
    std::string const procedure =
      steps[i].procedure.empty() ? "(no procedure)" : steps[i].procedure;
    text += margin + name + "  " + drv_Printable(procedure, 14) + "\n";
  }
  return shown < steps.size()
           ? text + margin + "and " + std::to_string(steps.size() - shown) + " more\n"
           : text;
}

std::string Findings()
{
  wip_WIP const& sink = omi_Singleton<wip_WIP>::Instance();
  int const fatal = sink.ErrorCount(wip_readerFatal) + sink.ErrorCount(wip_passFatal);
  drv_Words words;
  if (fatal > 0)
  {
    words.push_back(Plural(fatal, "fatal error"));
  }
  if (int const errors = sink.ErrorCount(wip_error))
  {
    words.push_back(Plural(errors, "error"));
  }
  if (int const warnings = sink.WarningCount())
  {
    words.push_back(Plural(warnings, "warning"));
  }
  return Row("Findings", sink.ErrorCount() + sink.WarningCount(), drv_Joined(words));
}

std::string Form(Census const& census)
{
  bool const isAssembly =
    census.Of(inp_kwPart) + census.Of(inp_kwInstance) + census.Of(inp_kwAssembly) > 0;
  return isAssembly ? "assembly" : "flat model";
}

} // namespace

std::string drv_Summary(drv_Job& job)
{
  inp_InputFile const& model = job.Model();
  Census census;
  Count(job.Keywords(), census);

  std::string text = drv_Printable(model.inputFileName.View(), c_columns - 30) + ": " +
                     Form(census) + ", " + Size(model.readerFacts.bytesRead) + "\n\n";
  text += RowUnlessNone("Include files", WordsOf(model.readerFacts.includedFiles));
  text += RowUnlessNone("Data files", WordsOf(model.expansionFacts.includedFiles));
  text += RowUnlessNone("Missing files", MissingFiles(model));
  text += Row("Keywords", census.keywords, Plural(static_cast<int>(census.kinds.size()), "kind"));
  text += RowUnlessNone("Parts", census.Of(inp_kwPart));
  text += RowUnlessNone("Instances", census.Of(inp_kwInstance));
  text += Row("Node rows", census.nodeRows,
              CountsOf(census, {inp_kwNode, inp_kwNgen, inp_kwNfill, inp_kwNcopy, inp_kwNmap}));
  text += Row("Element rows", census.elementRows, CountsOf(census.elementTypes));
  text += RowUnlessNone("Generators", census.Of(inp_kwElgen) + census.Of(inp_kwElcopy),
                        CountsOf(census, {inp_kwElgen, inp_kwElcopy}));
  text += RowUnlessNone("Sets", census.Of(inp_kwNset) + census.Of(inp_kwElset),
                        CountsOf(census, {inp_kwNset, inp_kwElset}));
  text += RowUnlessNone("Surfaces", census.Of(inp_kwSurface));
  text += RowUnlessNone("Materials", census.Of(inp_kwMaterial), drv_Joined(census.materials));
  text += Row("Steps", static_cast<int>(census.steps.size())) + Steps(census.steps);
  return text + Findings();
}
