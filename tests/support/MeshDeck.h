#pragma once

#include "DeckExpansion.h"
#include "inp_NodeVisitor.h"

#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

// What a walk over a deck made, as text to compare, in the form that the program's dump of the maps has.

/// The fewest digits that read back as the same value.
inline std::string NumberText(double value)
{
  char buffer[40];
  auto const end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  std::string const text(buffer, end);
  bool const isWhole = text.find_first_not_of("-0123456789") == std::string::npos;
  return isWhole ? text + ".0" : text;
}

inline std::string ListText(cow_List<int> const& items)
{
  std::string text;
  for (int const item : items)
    text += (text.empty() ? "" : ", ") + std::to_string(item);
  return "[" + text + "]";
}

/// {"1": [x, y, z, nx, ny, nz]}: the nodes of one level, ascending, in position.
inline std::string NodesText(inp_CoordMap const& nodes)
{
  std::string text;
  inp_MapInt2Coord const all = nodes.ConstGet();
  for (inp_MapInt2CoordSIT it(all); !it.IsDone(); it.Next())
  {
    inp_Coord const& node = it.CurrentValue();
    text += (text.empty() ? "" : ", ") + ("\"" + std::to_string(it.CurrentKey())) + "\": [";
    for (double const value : {node.x, node.y, node.z, node.nx, node.ny})
      text += NumberText(value) + ", ";
    text += NumberText(node.nz) + "]";
  }
  return "{" + text + "}";
}

/// The members of a set: [1, 2], or, when it reaches into instances, by instance: {"": [7], "I": [1]}.
inline std::string SetText(inpM_BaseSet const& set)
{
  inpM_BaseSet::InstanceTree const instances = set.ConstGetInstanceTree();
  cow_BtreeIterator<cow_String, inpM_OmiSet> it(instances);
  it.First();
  if (it.IsDone())
    return ListText(set.ConstGetIds());
  std::string text;
  if (set.ConstGetIds().Length() > 0)
    text = "\"\": " + ListText(set.ConstGetIds());
  for (; !it.IsDone(); it.Next())
    text += (text.empty() ? "" : ", ") + ("\"" + std::string(it.CurrentKey().View())) +
            "\": " + ListText(set.ConstGetIds(it.CurrentKey()));
  return "{" + text + "}";
}

/// {"A": [1, 2]}: the sets of one level, ascending by name.
inline std::string SetsText(inpM_BaseSetMap const& sets)
{
  std::string text;
  for (inpM_BaseSetMapSIT it(sets); !it.IsDone(); it.Next())
    text += (text.empty() ? "" : ", ") + ("\"" + std::string(it.CurrentKey().View())) +
            "\": " + SetText(it.CurrentValue());
  return "{" + text + "}";
}

/// A case of a table: a deck or a piece of one, what is made of it, and what is said about it.
struct DeckCase
{
  std::string what, deck, made, messages;
};

/// In what surroundings the node keywords of a deck are read.
struct MeshDeckSetting
{
  std::string scope = "P";            ///< the part, or instance; empty for the assembly
  bool isInstance = false;            ///< `scope` is an instance
  gsl_Matrix position;                ///< of that instance
  std::vector<std::string> instances; ///< of the assembly
  std::vector<std::string> imported;  ///< of these
  bool hasScopeMap = true;            ///< there is a map of nodes for the scope
  bool computeGeometry = true;
  bool bulkConversion = true; ///< node rows become numbers, or the expansion stops
  bool reportBlended = false;
  std::size_t mostBytes = std::size_t{1} << 30; ///< for sets
  inpM_InstanceMap<inp_MapInt2Element> elements;
  inpM_SetMap elementSets;
  inpM_SetMap sets; ///< what is there at the start
};

/// The nodes and node sets that a deck's node keywords make in one scope.
class MeshDeck
{
public:
  explicit MeshDeck(std::string_view deck, MeshDeckSetting const& setting = {})
    : m_expansion(deck, [&](inp_KeywordExpansionVisitor& visitor)
                  { visitor.SetBulkConversion(setting.bulkConversion); }),
      m_walk(setting)
  {
    cow_List<inp_Keyword>& list = m_expansion.list;
    cow_String const deckFile = list.Length() > 0 ? list.ConstGet(0).fileName : cow_String();
    m_walk.VisitList(list);
    messages = m_expansion.messages + MessagesText(m_walk, deckFile);
    nodes = NodesText(Nodes());
    nsets = SetsText(m_walk.GetSets().ConstGet(setting.scope.c_str()));
  }

  std::string nodes;    ///< of the scope
  std::string nsets;    ///< of the scope
  std::string messages; ///< a line each: "line severity: words"

  /// {"nodes": .., "nsets": ..}
  std::string Maps() const { return "{\"nodes\": " + nodes + ", \"nsets\": " + nsets + "}"; }

  /// The map of the scope.
  inp_CoordMap const& Nodes() const { return m_walk.ScopeMap(); }
  inp_Coord Node(int label) const
  {
    EXPECT_TRUE(Nodes().IsMember(label)) << "node " << label;
    return Nodes().ConstGet(label, inp_Coord(NAN, NAN, NAN, NAN, NAN, NAN));
  }
  inp_Keyword const& Keyword(int i) const { return m_expansion.list.ConstGet(i); }
  inp_NodeVisitor const& Visitor() const { return m_walk; }

private:
  class Walk : public inp_NodeVisitor
  {
  public:
    explicit Walk(MeshDeckSetting const& setting)
      : inp_NodeVisitor(setting.elements, setting.elementSets, setting.sets,
                        setting.computeGeometry)
    {
      cow_String const scope = setting.scope.c_str();
      (setting.isInstance ? m_instanceName : m_partName) = scope;
      instanceTransform = setting.position;
      reportBlended = setting.reportBlended;
      mostBytes = setting.mostBytes;
      setInstanceNames(Names(setting.instances));
      setImportedInstances(Names(setting.imported));
      if (scope.Length() > 0 && setting.hasScopeMap)
      {
        inp_CoordMap empty;
        empty.Transform(setting.position);
        coordMap.Insert(scope, empty);
      }
    }

    inp_CoordMap const& ScopeMap() const
    {
      static inp_CoordMap const none;
      cow_String const& scope = MeshScope();
      return scope.Empty() ? coordMap : coordMap.IsMember(scope) ? coordMap.ConstGet(scope) : none;
    }

  private:
    static cow_List<cow_String> Names(std::vector<std::string> const& names)
    {
      cow_List<cow_String> list;
      for (std::string const& name : names)
        list.Append(cow_String(name.c_str()));
      return list;
    }
    bool IsValidInstanceName(cow_String const& name) const override { return IsInstance(name); }
  };

  DeckExpansion m_expansion;
  Walk m_walk;
};
