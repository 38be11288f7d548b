#include "drv_Summary.h"

#include "drv_Job.h"
#include "inp_KeywordEnm.h"
#include "inp_KeywordTable.h"
#include "omi_Singleton.h"
#include "srv_Census.h"
#include "srv_Utf8.h"
#include "srv_Words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <vector>

namespace
{

constexpr int c_columns = 80;
constexpr std::size_t c_labelWidth = 16;
constexpr std::size_t c_numberWidth = 11;
constexpr std::size_t c_listLines = 10; ///< for the instances and the steps together
constexpr std::size_t c_nameWidth = 30;

std::string Plural(int count, std::string const& word)
{
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

/// "3 *NODE, 1 *NGEN" of those that the deck has.
std::string CountsOf(srv_KeywordCensus const& census, std::vector<inp_KeywordEnm> const& kinds)
{
  inp_KeywordTable const& table = thr_ThreadSingleton<inp_KeywordTable>::Instance();
  std::string text;
  for (inp_KeywordEnm const kind : kinds)
  {
    if (int const count = census.Of(kind))
    {
      text += (text.empty() ? "" : ", ") + std::to_string(count) + " *" +
              srv_Upper(table.Name(kind).View());
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

srv_Words WordsOf(cow_List<cow_String> const& names)
{
  srv_Words words;
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
    line += "   " + srv_Printable(detail, c_columns - static_cast<int>(line.size()) - 3);
  }
  return line + "\n";
}

std::string RowUnlessNone(std::string const& label, int number, std::string const& detail = "")
{
  return number == 0 ? "" : Row(label, number, detail);
}

std::string RowUnlessNone(std::string const& label, srv_Words const& names)
{
  return RowUnlessNone(label, static_cast<int>(names.size()), srv_Joined(names));
}

/// Of the reader and of the expansion. A file that both miss is one file.
srv_Words MissingFiles(inp_InputFile const& model)
{
  srv_Words missing = WordsOf(model.readerFacts.missingIncludeFiles);
  for (std::string const& file : WordsOf(model.expansionFacts.missingIncludeFiles))
  {
    if (std::find(missing.begin(), missing.end(), file) == missing.end())
    {
      missing.push_back(file);
    }
  }
  return missing;
}

/// A line of a list below a row: a name, and what there is to say of it.
struct Entry
{
  std::string name;
  std::string detail;
};

/// The first entries in two columns; where not all have room, the last line says how many more.
std::string List(std::size_t count, std::size_t lines, Entry (*entryOf)(drv_Job& job, std::size_t),
                 drv_Job& job)
{
  std::string const margin(6, ' ');
  std::size_t const shown = count > lines ? lines - 1 : count;
  std::vector<Entry> entries;
  std::size_t widest = 0;
  for (std::size_t i = 0; i < shown; ++i)
  {
    entries.push_back(entryOf(job, i));
    entries.back().name = srv_Printable(entries.back().name, c_nameWidth);
    widest = std::max(widest, entries.back().name.size());
  }
  std::string text;
  for (Entry const& entry : entries)
  {
    std::size_t const room = c_columns - margin.size() - widest - 2;
    text += margin + entry.name + std::string(widest - entry.name.size() + 2, ' ') +
            srv_Printable(entry.detail, static_cast<int>(room)) + "\n";
  }
  return shown < count ? text + margin + "and " + std::to_string(count - shown) + " more\n" : text;
}

std::string Decimal(double value)
{
  char text[32];
  std::snprintf(text, sizeof text, "%.6g", value == 0 ? 0.0 : value); // no minus before a zero
  return text;
}

std::string Triple(double x, double y, double z)
{
  return Decimal(x) + ", " + Decimal(y) + ", " + Decimal(z);
}

/// The axis of a turn by `degrees`, which is not 0. At half a turn, where the skew part says nothing, it
/// is a column of the rest.
std::array<double, 3> AxisOf(double const (&m)[4][4], double degrees)
{
  std::array<double, 3> axis = {m[2][1] - m[1][2], m[0][2] - m[2][0], m[1][0] - m[0][1]};
  if (degrees > 179.999)
  {
    int const most = m[0][0] >= m[1][1] && m[0][0] >= m[2][2] ? 0 : m[1][1] >= m[2][2] ? 1 : 2;
    for (int i = 0; i < 3; ++i)
    {
      axis[static_cast<std::size_t>(i)] = m[i][most] + (i == most ? 1 : 0);
    }
  }
  double const length = std::hypot(axis[0], axis[1], axis[2]);
  for (double& component : axis)
  {
    component = std::abs(component) < 1e-9 * length ? 0.0 : component / length;
  }
  return axis;
}

/// "at 10, 0, 0, turned by 90 about 0, 0, 1": where the part's origin comes to, and its turn in
/// degrees.
std::string PositionOf(gsl_Matrix const& matrix)
{
  double m[4][4];
  matrix.AsArray(m);
  std::string text = "at " + Triple(m[0][3], m[1][3], m[2][3]);
  double const twiceSine = std::hypot(m[2][1] - m[1][2], m[0][2] - m[2][0], m[1][0] - m[0][1]);
  double const twiceCosine = m[0][0] + m[1][1] + m[2][2] - 1;
  double const degrees = std::atan2(twiceSine, twiceCosine) * 180 / 3.141592653589793;
  if (degrees < 1e-6)
  {
    return text;
  }
  std::array<double, 3> const axis = AxisOf(m, degrees);
  return text + ", turned by " + Decimal(degrees) + " about " + Triple(axis[0], axis[1], axis[2]);
}

Entry InstanceEntry(drv_Job& job, std::size_t index)
{
  inp_InputFile const& model = job.Model();
  cow_String const name = model.instancePartNames.Instances()[static_cast<int>(index)];
  Entry entry{std::string(name.View()),
              "of " + std::string(model.instancePartNames.ConstGet(name).View())};
  if (model.transformationMap.IsMember(name))
  {
    entry.detail += " " + PositionOf(model.transformationMap.ConstGet(name));
  }
  return entry;
}

Entry StepEntry(drv_Job& job, std::size_t index)
{
  srv_KeywordCensus::Step const& step = job.Census().steps[index];
  return {step.name, step.procedure.empty() ? "(no procedure)" : step.procedure};
}

/// Two lists share the lines of the screen; what one does not need of its half goes to the other.
struct Shares
{
  Shares(std::size_t first, std::size_t second)
    : instances(std::max(c_listLines / 2, c_listLines - std::min(c_listLines, second))),
      steps(c_listLines - std::min(instances, first))
  {
  }
  std::size_t instances;
  std::size_t steps;
};

std::string Findings()
{
  wip_WIP const& sink = omi_Singleton<wip_WIP>::Instance();
  int const fatal = sink.ErrorCount(wip_readerFatal) + sink.ErrorCount(wip_passFatal);
  srv_Words words;
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
  return Row("Findings", sink.ErrorCount() + sink.WarningCount(), srv_Joined(words));
}

bool IsAssembly(srv_KeywordCensus const& census)
{
  return census.Of(inp_kwPart) + census.Of(inp_kwInstance) + census.Of(inp_kwAssembly) > 0;
}

/// What the rows say, where there are no maps that know better.
std::string RowsOfMesh(srv_KeywordCensus const& census)
{
  std::string text =
    Row("Node rows", census.nodeRows,
        CountsOf(census, {inp_kwNode, inp_kwNgen, inp_kwNfill, inp_kwNcopy, inp_kwNmap}));
  text += Row("Element rows", census.elementRows, CountsOf(census.elementTypes));
  text += RowUnlessNone("Generators", census.Of(inp_kwElgen) + census.Of(inp_kwElcopy),
                        CountsOf(census, {inp_kwElgen, inp_kwElcopy}));
  text += RowUnlessNone("Sets", census.Of(inp_kwNset) + census.Of(inp_kwElset),
                        CountsOf(census, {inp_kwNset, inp_kwElset}));
  return text + RowUnlessNone("Surfaces", census.Of(inp_kwSurface));
}

std::string Names(std::string const& label, srv_MeshCensus::Names const& names)
{
  srv_Words places;
  for (auto const& [count, place] : {std::pair{names.inParts, "in parts"},
                                     {names.inInstances, "in instances"},
                                     {names.inAssembly, "in the assembly"}})
  {
    if (count > 0)
    {
      places.push_back(std::to_string(count) + " " + place);
    }
  }
  return RowUnlessNone(label, names.All(), srv_Joined(places));
}

std::string Mesh(srv_MeshCensus const& census)
{
  bool const differs = census.partNodes != census.nodes;
  std::string text =
    Row("Nodes", census.nodes, differs ? std::to_string(census.partNodes) + " in the parts" : "");
  text += Row("Elements", census.elements, CountsOf(census.elementTypes));
  text += Names("Node sets", census.nodeSets);
  text += Names("Element sets", census.elementSets);
  return text + Names("Surfaces", census.surfaces);
}

} // namespace

std::string drv_Summary(drv_Job& job)
{
  inp_InputFile const& model = job.Model();
  srv_KeywordCensus const& census = job.Census();
  std::size_t const instances =
    static_cast<std::size_t>(model.instancePartNames.Instances().Length());
  Shares const lines(job.HasMaps() ? instances : 0, census.steps.size());

  std::string text = srv_Printable(model.inputFileName.View(), c_columns - 30) + ": " +
                     (IsAssembly(census) ? "assembly" : "flat model") + ", " +
                     Size(model.readerFacts.bytesRead) + "\n\n";
  text += RowUnlessNone("Include files", WordsOf(model.readerFacts.includedFiles));
  text += RowUnlessNone("Data files", WordsOf(model.expansionFacts.includedFiles));
  text += RowUnlessNone("Missing files", MissingFiles(model));
  text += Row("Keywords", census.keywords, Plural(static_cast<int>(census.kinds.size()), "kind"));
  text += RowUnlessNone("Parts", census.parts);
  if (job.HasMaps())
  {
    text += RowUnlessNone("Instances", static_cast<int>(instances)) +
            List(instances, lines.instances, InstanceEntry, job);
    text += Mesh(srv_CountMesh(model));
  }
  else
  {
    text += RowUnlessNone("Instances", census.Of(inp_kwInstance)) + RowsOfMesh(census);
  }
  text += RowUnlessNone("Materials", census.materials);
  text += Row("Steps", static_cast<int>(census.steps.size())) +
          List(census.steps.size(), lines.steps, StepEntry, job);
  text += Findings();
  if (job.LacksFlatRoad())
  {
    text +=
      "\nThis is a flat model. Flat models are not divided into parts yet, so there are no maps,\n"
      "and the rules that need them were not checked.\n";
  }
  return text;
}
