#pragma once

#include "inp_SetVisitorFaults.h"
#include "inp_SurfaceVisitor.h"

#include <map>
#include <set>
#include <unordered_set>
#include <utility>

/// What a row says of its nodes or elements.
struct inp_SurfaceVisitor::Place
{
  double area = 1.0;
  cow_String faceId;

  friend bool operator==(Place const& a, Place const& b)
  {
    return a.area == b.area && a.faceId == b.faceId;
  }
  friend bool operator<(Place const& a, Place const& b)
  {
    return a.area < b.area || (a.area == b.area && a.faceId < b.faceId);
  }
};

/// The names in a keyword that stand for nothing, each once.
class inp_SurfaceVisitor::Faults
{
public:
  void Add(cow_String const& name)
  {
    if (m_known.insert(name).second)
    {
      m_names.Append(name);
    }
  }
  cow_List<cow_String> const& Names() const { return m_names; }

private:
  cow_List<cow_String> m_names;
  std::unordered_set<cow_String> m_known;
};

template <int Places>
void inp_SurfaceVisitor::SayMissing(atr_MessageRow<Places> const& row, inp_Keyword const& keyword,
                                    Faults const& faults)
{
  if (faults.Names().Length() > 0)
  {
    atr_String const text = inp_Utils::MessageWithItems(
      atr_Say(row, keyword.GetParameterAsString("name", "")), faults.Names());
    ListOf(row.severity).Append(inp_Utils::MessageInKeyword(keyword, text));
  }
}

/// Reads the rows of one surface of the assembly.
class inp_SurfaceVisitor::AssemblyRows
{
public:
  AssemblyRows(inp_SurfaceVisitor& visitor, inp_Keyword const& keyword,
               inpM_AssemblyInstanceSurface& surface)
    : m_visitor(visitor), m_keyword(keyword), m_surface(surface)
  {
  }

  void Read(int row);
  void Finish() { AddIds(); }

  Faults faults;

private:
  void ReadPlain(cow_String const& name);
  void ReadScoped(inp_ScopedField const& field, cow_String const& text);
  void AddId(cow_String const& instanceName, int id);
  void AddIds();
  void AddSetOfAssembly(inpM_BaseSet const& set);
  void AddMembers(cow_String const& instanceName, Place const& place, cow_List<int> const& ids);
  bool IsAddedAlready(cow_String const& name);
  inpM_PartInstanceSurfaceHandle MakePiece(Place const& place, cow_List<int> const& ids) const;
  bool IsInstance(cow_String const& name);

  inp_SurfaceVisitor& m_visitor;
  inp_Keyword const& m_keyword;
  inpM_AssemblyInstanceSurface& m_surface;
  Place m_place; ///< of the row at hand
  // Ids of rows one behind the other that go to one instance and place, not in the surface yet.
  cow_List<int> m_ids;
  cow_String m_idsInstance;
  Place m_idsPlace;
  cow_String m_knownInstance;
  std::unordered_set<cow_String> m_unknownInstances;
  std::set<std::pair<cow_String, Place>> m_added; ///< sets of elements, as rows name them
  /// What a set gives; instances of a part have the same sets.
  std::map<std::pair<inpM_BaseSet const*, Place>, inpM_PartInstanceSurfaceHandle> m_pieces;
};
