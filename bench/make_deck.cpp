// Writes decks of any size to measure with: blocks of C3D8R hexahedra as a preprocessor would write
// them, flat or as parts in instances, with sets, surfaces, steps and any number of small keywords.
// The same options always give the same deck, byte for byte.

#include "DeckText.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace
{

struct Options
{
  int nodes = 100000;
  std::string form = "flat";
  int parts = 4;
  int instances = 8;
  int blocks = 1;
  std::string labels = "dense";
  int sets = 4;
  int surfaces = 2;
  int steps = 1;
  int keywords = 0;
  std::string file;
};

// A block of nx * ny * nz nodes. Nodes and elements are counted from 0 with x running fastest.
struct Grid
{
  int nx, ny, nz;

  // The block nearest to a cube that holds about the given number of nodes.
  explicit Grid(int nodes)
  {
    nx = std::max(2, static_cast<int>(std::lround(std::cbrt(nodes))));
    ny = nx;
    nz = std::max(2, (nodes + nx * ny / 2) / (nx * ny));
  }

  int Nodes() const { return nx * ny * nz; }
  int Elements() const { return (nx - 1) * (ny - 1) * (nz - 1); }
  int Node(int i, int j, int k) const { return i + nx * (j + ny * k); }
  int Element(int i, int j, int k) const { return i + (nx - 1) * (j + (ny - 1) * k); }
};

// The labels that a mesh gives to its nodes or elements.
//
// dense      1, 2, 3, ...
// gapped     runs of a hundred with gaps of 150 between them, and nine gaps of a million
// scrambled  the dense labels in random order, as after a bandwidth optimizer
class Labels
{
public:
  Labels(std::string const& kind, int count) : m_kind(kind), m_count(count)
  {
    if (m_kind != "scrambled")
      return;
    m_shuffled.resize(static_cast<std::size_t>(count));
    std::iota(m_shuffled.begin(), m_shuffled.end(), 1);
    std::mt19937 random(20240229);
    for (std::size_t last = m_shuffled.size(); last > 1; --last)
      std::swap(m_shuffled[last - 1], m_shuffled[random() % last]);
  }

  bool AreDense() const { return m_kind == "dense"; }

  int operator[](int index) const
  {
    if (!m_shuffled.empty())
      return m_shuffled[static_cast<std::size_t>(index)];
    if (m_kind == "gapped")
      return 1 + index + index / 100 * 150 + static_cast<int>(10LL * index / m_count) * 1'000'000;
    return 1 + index;
  }

private:
  std::string m_kind;
  int m_count;
  std::vector<int> m_shuffled;
};

// Up to a tenth of the spacing, so that coordinates have digits and no element turns inside out.
double Jitter(std::uint32_t seed)
{
  seed = (seed ^ (seed >> 16)) * 0x7feb352dU;
  seed = (seed ^ (seed >> 15)) * 0x846ca68bU;
  return ((seed >> 8) / 16777216.0 - 0.5) * 0.2;
}

class Mesh
{
public:
  Mesh(DeckText& out, Options const& options, int nodes)
    : m_out(out),
      m_options(options),
      m_grid(nodes),
      m_nodes(options.labels, m_grid.Nodes()),
      m_elements(options.labels, m_grid.Elements())
  {
  }

  // Nodes, elements, sets, surfaces and the section: what a part holds, and a flat deck at its top.
  void Write(int sets, int surfaces) const
  {
    InBlocks("*NODE\n", m_grid.Nodes(), [this](int node) { WriteNode(node); });
    InBlocks("*ELEMENT, TYPE=C3D8R, ELSET=SOLID\n", m_grid.Elements(),
             [this](int element) { WriteElement(element); });
    WriteLayer("BASE", 0);
    WriteLayer("LOADED", m_grid.nz - 1);
    for (int set = 0; set < sets; ++set)
      WriteSet(set, sets);
    for (int surface = 0; surface < surfaces; ++surface)
      WriteSurface(surface);
    m_out.Text("*SOLID SECTION, ELSET=SOLID, MATERIAL=STEEL\n");
  }

  double Width() const { return m_grid.nx * spacing; }

private:
  static constexpr double spacing = 1.25;

  // Divides the rows evenly over the keywords.
  template <class WriteRow>
  void InBlocks(char const* keyword, int rows, WriteRow const& writeRow) const
  {
    int const blocks = std::min(m_options.blocks, rows);
    int row = 0;
    for (int block = 0; block < blocks; ++block)
    {
      m_out.Text(keyword);
      int const end = static_cast<int>(static_cast<long long>(rows) * (block + 1) / blocks);
      for (; row < end; ++row)
        writeRow(row);
    }
  }

  void WriteNode(int node) const
  {
    int const layer = m_grid.nx * m_grid.ny;
    m_out.Integer(m_nodes[node], 7);
    WriteCoordinate(node % m_grid.nx, 3 * node);
    WriteCoordinate(node % layer / m_grid.nx, 3 * node + 1);
    WriteCoordinate(node / layer, 3 * node + 2);
    m_out.Text("\n");
  }

  void WriteCoordinate(int step, int seed) const
  {
    m_out.Text(", ");
    m_out.Fixed((step + Jitter(static_cast<std::uint32_t>(seed))) * spacing, 10, 5);
  }

  void WriteElement(int element) const
  {
    int const row = m_grid.nx - 1;
    int const layer = row * (m_grid.ny - 1);
    m_out.Integer(m_elements[element]);
    for (int const rise : {0, 1})
      WriteFace(element % row, element % layer / row, element / layer + rise);
    m_out.Text("\n");
  }

  void WriteFace(int i, int j, int k) const
  {
    for (int const node : {m_grid.Node(i, j, k), m_grid.Node(i + 1, j, k),
                           m_grid.Node(i + 1, j + 1, k), m_grid.Node(i, j + 1, k)})
    {
      m_out.Text(", ");
      m_out.Integer(m_nodes[node]);
    }
  }

  void WriteLayer(char const* name, int k) const
  {
    m_out.Text("*NSET, NSET=", name);
    int const first = m_grid.Node(0, 0, k);
    WriteMembers(m_nodes, first, first + m_grid.nx * m_grid.ny);
  }

  // The sets hold a sixteenth of the mesh among them, node sets and element sets in turn.
  void WriteSet(int set, int sets) const
  {
    bool const ofNodes = set % 2 == 0;
    long long const count = ofNodes ? m_grid.Nodes() : m_grid.Elements();
    int const first = static_cast<int>(count * set / sets);
    int const size = std::max(1, static_cast<int>(count / 16 / sets));
    m_out.Text(ofNodes ? "*NSET, NSET=SET-" : "*ELSET, ELSET=SET-");
    m_out.Integer(set + 1);
    WriteMembers(ofNodes ? m_nodes : m_elements, first, first + size, set % 4 < 2);
  }

  // Dense labels may be generated; otherwise they are listed, sixteen to a row.
  void WriteMembers(Labels const& labels, int first, int end, bool generate = true) const
  {
    if (generate && labels.AreDense())
    {
      m_out.Text(", GENERATE\n");
      m_out.Integer(labels[first], 7);
      m_out.Text(", ");
      m_out.Integer(labels[end - 1], 7);
      m_out.Text(", 1\n");
      return;
    }
    m_out.Text("\n");
    std::vector<int> members;
    for (int index = first; index < end; ++index)
      members.push_back(labels[index]);
    WriteList(members);
  }

  void WriteList(std::vector<int>& members) const
  {
    std::sort(members.begin(), members.end());
    for (std::size_t index = 0; index < members.size(); ++index)
    {
      m_out.Integer(members[index], 7);
      bool const ends = index % 16 == 15 || index + 1 == members.size();
      m_out.Text(ends ? "\n" : ", ");
    }
  }

  // The lower and the upper face in turn, each by a set of its own.
  void WriteSurface(int surface) const
  {
    bool const isUpper = surface % 2 == 1;
    std::vector<int> members;
    for (int j = 0; j + 1 < m_grid.ny; ++j)
      for (int i = 0; i + 1 < m_grid.nx; ++i)
        members.push_back(m_elements[m_grid.Element(i, j, isUpper ? m_grid.nz - 2 : 0)]);
    std::string const name = "FACE-" + std::to_string(surface + 1);
    m_out.Text("*ELSET, ELSET=", name, "\n");
    WriteList(members);
    m_out.Text("*SURFACE, TYPE=ELEMENT, NAME=", name, "\n", name, isUpper ? ", S2\n" : ", S1\n");
  }

  DeckText& m_out;
  Options const& m_options;
  Grid m_grid;
  Labels m_nodes;
  Labels m_elements;
};

class Deck
{
public:
  Deck(DeckText& out, Options const& options) : m_out(out), m_options(options) {}

  void Write()
  {
    m_out.Text("*HEADING\nBlock of hexahedra for measurements\n");
    if (m_options.form == "assembly")
      WriteAssembly();
    else
      Mesh(m_out, m_options, m_options.nodes).Write(m_options.sets, m_options.surfaces);
    m_out.Text("*MATERIAL, NAME=STEEL\n*DENSITY\n 7.85E-9,\n*ELASTIC\n 210000., 0.3\n");
    for (int keyword = 0; keyword < m_options.keywords; ++keyword)
      WriteSmallKeyword(keyword);
    m_out.Text("*BOUNDARY\nBASE, ENCASTRE\n");
    for (int step = 0; step < m_options.steps; ++step)
      WriteStep(step + 1);
  }

private:
  static int Share(int total, int index, int of)
  {
    return static_cast<int>(static_cast<long long>(total) * (index + 1) / of -
                            static_cast<long long>(total) * index / of);
  }

  void WriteAssembly()
  {
    double width = 0;
    for (int part = 0; part < m_options.parts; ++part)
    {
      Mesh const mesh(m_out, m_options, Share(m_options.nodes, part, m_options.parts));
      m_out.Text("*PART, NAME=", PartName(part), "\n");
      mesh.Write(Share(m_options.sets, part, m_options.parts),
                 Share(m_options.surfaces, part, m_options.parts));
      m_out.Text("*END PART\n");
      width = std::max(width, mesh.Width());
    }
    m_out.Text("*ASSEMBLY, NAME=BLOCKS\n");
    for (int instance = 0; instance < m_options.instances; ++instance)
      WriteInstance(instance, 1.5 * width * instance);
    for (char const* name : {"BASE", "LOADED"})
      for (int instance = 0; instance < m_options.instances; ++instance)
        m_out.Text("*NSET, NSET=", name, ", INSTANCE=", InstanceName(instance), "\n", name, "\n");
    m_out.Text("*END ASSEMBLY\n");
  }

  static std::string PartName(int part) { return "BLOCK-" + std::to_string(part + 1); }
  static std::string InstanceName(int instance) { return "COPY-" + std::to_string(instance + 1); }

  // Instances stand in a row along x; every second one is turned by 30 degrees about its z axis.
  void WriteInstance(int instance, double x)
  {
    m_out.Text("*INSTANCE, NAME=", InstanceName(instance),
               ", PART=", PartName(instance % m_options.parts), "\n");
    WritePoint(x, "0., 0.\n");
    if (instance % 2 == 1)
    {
      WritePoint(x, "0., 0., ");
      WritePoint(x, "0., 1., 30.\n");
    }
    m_out.Text("*END INSTANCE\n");
  }

  void WritePoint(double x, char const* rest)
  {
    m_out.Fixed(x, 10, 3);
    m_out.Text(", ", rest);
  }

  // Five keywords in turn: an amplitude, then a material of four.
  void WriteSmallKeyword(int keyword)
  {
    std::string const number = std::to_string(keyword / 5 + 1);
    switch (keyword % 5)
    {
    case 0:
      m_out.Text("*AMPLITUDE, NAME=CURVE-", number, ", DEFINITION=TABULAR, TIME=STEP TIME\n",
                 " 0., 0., 0.1, 0.25, 0.2, 0.75, 0.3, 1.\n 0.9, 1., 1., 0.\n");
      break;
    case 1:
      m_out.Text("*MATERIAL, NAME=ALLOY-", number, "\n");
      break;
    case 2:
      m_out.Text("*DENSITY\n 2.7E-9,\n");
      break;
    case 3:
      m_out.Text("*ELASTIC, TYPE=ISOTROPIC\n 70000., 0.33\n");
      break;
    default:
      m_out.Text("*PLASTIC, HARDENING=ISOTROPIC\n 240., 0.\n 265., 0.02\n 290., 0.08\n");
    }
  }

  void WriteStep(int step)
  {
    m_out.Text("*STEP, NAME=LOAD-", std::to_string(step), ", NLGEOM=YES, INC=100\n");
    m_out.Text("*STATIC\n 0.1, 1., 1E-5, 0.5\n*CLOAD, OP=NEW\nLOADED, 3, -12.5\n");
    m_out.Text("*RESTART, WRITE, FREQUENCY=10\n*OUTPUT, FIELD, FREQUENCY=1\n");
    m_out.Text("*NODE OUTPUT\nU, RF\n*ELEMENT OUTPUT, DIRECTIONS=YES\nS, E\n*END STEP\n");
  }

  DeckText& m_out;
  Options const& m_options;
};

void Describe(CLI::App& app, Options& options)
{
  app.option_defaults()->always_capture_default();
  auto const positive = CLI::Range(1, 50'000'000);
  auto const some = CLI::Range(0, 50'000'000);
  app.add_option("--nodes", options.nodes, "nodes in the deck, about as many as elements")
    ->check(CLI::Range(64, 50'000'000));
  app.add_option("--form", options.form, "flat or assembly")
    ->check(CLI::IsMember({"flat", "assembly"}));
  app.add_option("--parts", options.parts, "parts that share the nodes of an assembly")
    ->check(CLI::Range(1, 10'000));
  app.add_option("--instances", options.instances, "instances of those parts, in turn")
    ->check(CLI::Range(1, 100'000));
  app
    .add_option("--blocks", options.blocks, "keywords that the rows of nodes and of elements fill")
    ->check(positive);
  app.add_option("--labels", options.labels, "dense, gapped or scrambled")
    ->check(CLI::IsMember({"dense", "gapped", "scrambled"}));
  app.add_option("--sets", options.sets, "sets beside those that loads and supports need")
    ->check(some);
  app.add_option("--surfaces", options.surfaces, "surfaces")->check(some);
  app.add_option("--steps", options.steps, "steps")->check(some);
  app.add_option("--keywords", options.keywords, "small keywords before the steps")->check(some);
  app.add_option("-o", options.file, "file to write")->required();
}

} // namespace

int main(int argc, char** argv)
{
  CLI::App app("Writes a deck to measure with.");
  Options options;
  Describe(app, options);
  CLI11_PARSE(app, argc, argv);

  DeckText out(options.file);
  Deck(out, options).Write();
  if (out.Close())
    return 0;
  std::fprintf(stderr, "make_deck: cannot write '%s'\n", options.file.c_str());
  return 2;
}
