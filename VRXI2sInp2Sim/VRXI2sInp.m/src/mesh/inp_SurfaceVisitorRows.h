#pragma once

#include "inp_SetVisitorFaults.h"
#include "inp_SurfaceVisitor.h"

#include <cstdint>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

/// Watches a surface to which others are added, so that each facet is in it once in the end. What is there
/// several times goes whenever the surface has doubled: many small additions cost no more than one large,
/// and a deck that adds the same to a surface again and again does not fill the memory.
template <class Surface>
class inp_SurfaceGrowth
{
public:
  explicit inp_SurfaceGrowth(Surface& surface) : m_surface(surface) {}

  /// So many facets or nodes were added.
  void By(std::int64_t count)
  {
    m_count += count;
    if (m_count > m_limit)
    {
      Finish();
      m_count = m_surface.Count();
      m_limit = 2 * m_count + c_slack;
    }
  }
  void Finish() { m_surface.DropRepeats(); }

private:
  static constexpr std::int64_t c_slack = 10000; // not worth a look

  Surface& m_surface;
  std::int64_t m_count = 0;
  std::int64_t m_limit = c_slack;
};

/// What a row says of its nodes or elements.
struct inp_SurfaceVisitor::FaceOrArea
{
  double area = 1.0;
  cow_String faceId;

  friend bool operator==(FaceOrArea const& a, FaceOrArea const& b)
  {
    return a.area == b.area && a.faceId == b.faceId;
  }
  friend bool operator<(FaceOrArea const& a, FaceOrArea const& b)
  {
    return a.area < b.area || (a.area == b.area && a.faceId < b.faceId);
  }
};

/// The names in a keyword that stand for nothing, each once, those of sets too large to be added, and those
/// of surfaces of another kind.
class inp_SurfaceVisitor::Faults
{
public:
  void Add(cow_String const& name) { Add(m_names, name); }
  void AddTooLarge(cow_String const& name) { Add(m_tooLarge, name); }
  void AddTooLargeUnless(bool fits, cow_String const& name)
  {
    if (!fits)
    {
      AddTooLarge(name);
    }
  }
  cow_List<cow_String> const& Names() const { return m_names; }
  cow_List<cow_String> const& TooLarge() const { return m_tooLarge; }
  void AddOtherKind(cow_String const& name) { Add(m_otherKind, name); }
  cow_List<cow_String> const& OtherKind() const { return m_otherKind; }

private:
  void Add(cow_List<cow_String>& names, cow_String const& name)
  {
    if (m_known.insert(name).second)
    {
      names.Append(name);
    }
  }

  cow_List<cow_String> m_names;
  cow_List<cow_String> m_tooLarge;
  cow_List<cow_String> m_otherKind;
  std::unordered_set<cow_String> m_known;
};

/// Tells rows that bring nothing, because others name the same set. Elements are taken once for a face; of
/// rows of nodes the last one decides, whatever their areas. So the time is that of the sets, however often
/// a deck names them.
class inp_SurfaceVisitor::Repeats
{
public:
  Repeats(inp_DataArray const& data, bool ofNodes) : m_data(data), m_ofNodes(ofNodes) {}

  /// To be asked once for each row that names a set.
  bool Have(FaceOrArea const& faceOrArea, int row)
  {
    cow_String const name = m_data.AsString(row, 0);
    bool const isNew = m_named.emplace(name, m_ofNodes ? FaceOrArea() : faceOrArea).second;
    return !isNew && !(m_ofNodes && LastRow(name) == row);
  }

private:
  int LastRow(cow_String const& name)
  {
    if (m_lastRows.empty())
    {
      for (int row = 0; row < m_data.Rows(); ++row)
      {
        m_lastRows[m_data.HasValue(row, 0) ? m_data.AsString(row, 0) : cow_String()] = row;
      }
    }
    return m_lastRows[name];
  }

  inp_DataArray const& m_data;
  bool m_ofNodes;
  std::set<std::pair<cow_String, FaceOrArea>> m_named;
  std::unordered_map<cow_String, int> m_lastRows; ///< found when a row repeats another
};

/// Reads the rows of one surface of the assembly.
class inp_SurfaceVisitor::AssemblyRows
{
public:
  AssemblyRows(inp_SurfaceVisitor& visitor, inp_Keyword const& keyword,
               inpM_AssemblyInstanceSurface& surface)
    : m_visitor(visitor),
      m_keyword(keyword),
      m_surface(surface),
      m_repeats(keyword.data, visitor.isNodeSurface),
      m_growth(surface)
  {
  }

  void Read(int row);
  void Finish()
  {
    AddIds();
    m_growth.Finish();
  }

  Faults faults;

private:
  void ReadPlain(inp_ScopedField const& field, int row);
  void ReadScoped(inp_ScopedField const& field, cow_String const& text, int row);
  void AddId(cow_String const& instanceName, int id);
  void AddIds();
  void AddSetOfAssembly(inpM_BaseSet const& set);
  void AddMembers(cow_String const& instanceName, FaceOrArea const& faceOrArea,
                  cow_List<int> const& ids);
  inpM_PartInstanceSurfaceHandle MakePiece(FaceOrArea const& faceOrArea,
                                           cow_List<int> const& ids) const;
  bool IsInstance(cow_String const& name);

  inp_SurfaceVisitor& m_visitor;
  inp_Keyword const& m_keyword;
  inpM_AssemblyInstanceSurface& m_surface;
  FaceOrArea m_faceOrArea; ///< of the row at hand
  // Ids of rows one behind the other of one instance and one face or area, not in the surface yet.
  cow_List<int> m_ids;
  cow_String m_idsInstance;
  FaceOrArea m_idsFaceOrArea;
  cow_String m_knownInstance;
  std::unordered_set<cow_String> m_unknownInstances;
  Repeats m_repeats; ///< of sets, as rows name them
  inp_SurfaceGrowth<inpM_AssemblyInstanceSurface> m_growth;
  /// What a set gives; instances of a part have the same sets.
  std::map<std::pair<inpM_BaseSet const*, FaceOrArea>, inpM_PartInstanceSurfaceHandle> m_pieces;
};
