#include "inp_SurfaceVisitor.h"

#include "inpM_ElementFaceIdSurface.h"
#include "inp_SurfaceMessages.h"
#include "inp_SurfaceVisitorRows.h"

namespace
{

cow_String TypeOf(inp_Keyword const& keyword)
{
  return keyword.GetParameterAsString("type", "ELEMENT");
}

} // namespace

void GetAreaOrFaceId(bool isNode, double& area, cow_String& faceId, inp_DataArray const& data,
                     int row, int column)
{
  bool const hasField = data.HasValue(row, column);
  if (isNode)
  {
    bool const isReal = hasField && data.Type(row, column) == inp_Types::inp_REAL;
    area = isReal ? data.AsDouble(row, column) : 1.0;
  }
  else
  {
    faceId = hasField ? data.AsString(row, column) : cow_String();
  }
}

inp_SurfaceVisitor::inp_SurfaceVisitor(inp_LevelMaps const& maps)
  : nodeSets(maps.nsets), elementSets(maps.elsets), elements(maps.elements), coordMap(maps.nodes)
{
}

void inp_SurfaceVisitor::VisitSurface(inp_Keyword& keyword)
{
  if (!inp_Utils::IsAnalyticalSurfaceType(TypeOf(keyword)))
  {
    VisitSurfaceDefinition(keyword);
  }
  else if (SetScope().Empty())
  {
    Say(inp_msgAnalyticalSurfaceOutsideParts, keyword);
  }
  else
  {
    VisitAnalyticalSurface(keyword);
  }
}

// The expansion has said that a name is missing.
void inp_SurfaceVisitor::VisitSurfaceDefinition(inp_Keyword& keyword)
{
  cow_String const name = keyword.NameIn("name");
  if (name.Empty())
  {
    return;
  }
  bool const isCombined = keyword.HasParameter("combine");
  isNodeSurface = isCombined || keyword.HasParameter("crop")
                    ? IsMadeOfNodeSurface(keyword).value_or(TypeOf(keyword) == "NODE")
                    : TypeOf(keyword) == "NODE";
  if (SetScope().Empty())
  {
    inpM_AssemblyInstanceSurface surface = isCombined ? CreateCombinedAssemblyLevelSurface(keyword)
                                                      : CreateAssemblyLevelSurface(keyword);
    surface.SetInternal(keyword.HasParameter("internal"));
    surfaces.InsertAssemblyInstanceSurface(name, surface);
    return;
  }
  surfaces.InsertPartInstanceSurface(SetScope(), name,
                                     isCombined ? CreateCombinedInstanceLevelSurface(keyword)
                                                : CreateInstanceLevelSurface(keyword));
}

inpM_PartInstanceSurfaceHandle inp_SurfaceVisitor::CreateInstanceLevelSurface(inp_Keyword& keyword)
{
  inpM_PartInstanceSurfaceHandle surface =
    CreateSurface(isNodeSurface ? inpM_nodeSurface : inpM_elementSurface);
  if (keyword.HasParameter("crop"))
  {
    CropNamedSurface(keyword, *surface.Get());
  }
  else
  {
    ReadInstanceLevelRows(keyword, *surface.Get());
  }
  return surface;
}

/// Reads the rows of one surface of a part or an instance. Labels wait for others of the same face or area.
class inp_SurfaceVisitor::PartRows
{
public:
  PartRows(inp_SurfaceVisitor& visitor, inp_DataArray const& data,
           inpM_PartInstanceSurface& surface)
    : m_visitor(visitor),
      m_data(data),
      m_surface(surface),
      m_repeats(data, visitor.isNodeSurface),
      m_growth(surface)
  {
  }

  // *SURFACE row: label or set[, face or area]
  void Read(int row)
  {
    if (!m_data.HasValue(row, 0))
    {
      return;
    }
    FaceOrArea here;
    GetAreaOrFaceId(m_visitor.isNodeSurface, here.area, here.faceId, m_data, row, 1);
    if (!(here == m_faceOrArea))
    {
      AddIds();
      m_faceOrArea = here;
    }
    inp_Types::typeEnm const type = m_data.Type(row, 0);
    int const id = type == inp_Types::inp_INTEGER ? m_data.AsInt(row, 0) : 0;
    if (id >= 1)
    {
      m_ids.Append(id);
    }
    else
    {
      ReadName(m_data.AsString(row, 0), row);
    }
  }

  void Finish()
  {
    AddIds();
    m_growth.Finish();
  }

  Faults faults;

private:
  void ReadName(cow_String const& name, int row)
  {
    auto const* const set = m_visitor.SetsOfKind().ConstFindNestedSet(m_visitor.SetScope(), name);
    if (set == nullptr)
    {
      faults.Add(name);
    }
    else if (!m_repeats.Have(m_faceOrArea, row) && m_visitor.HasRoomFor(*set, name, faults))
    {
      AddIds();
      Add(set->ConstGetIds());
    }
  }

  void AddIds()
  {
    Add(m_ids);
    m_ids.Clear();
  }

  void Add(cow_List<int> const& members)
  {
    if (m_visitor.isNodeSurface)
    {
      static_cast<inpM_NodeAreaSurface&>(m_surface).Add(members, m_faceOrArea.area);
    }
    else
    {
      static_cast<inpM_ElementFaceIdSurface&>(m_surface).Add(m_faceOrArea.faceId, members);
    }
    m_growth.By(members.Length());
  }

  inp_SurfaceVisitor& m_visitor;
  inp_DataArray const& m_data;
  inpM_PartInstanceSurface& m_surface;
  Repeats m_repeats;
  inp_SurfaceGrowth<inpM_PartInstanceSurface> m_growth;
  FaceOrArea m_faceOrArea; ///< face or area of the last row
  cow_List<int> m_ids;     ///< of m_faceOrArea, not in the surface yet
};

void inp_SurfaceVisitor::ReadInstanceLevelRows(inp_Keyword const& keyword,
                                               inpM_PartInstanceSurface& surface)
{
  PartRows rows(*this, keyword.data, surface);
  for (int row = FirstSurfaceRow(keyword); row < keyword.data.Rows(); ++row)
  {
    rows.Read(row);
  }
  rows.Finish();
  SayMissingSets(keyword, rows.faults);
}

// The first row of a cutting surface is its plane.
int inp_SurfaceVisitor::FirstSurfaceRow(inp_Keyword const& keyword)
{
  return TypeOf(keyword) == "CUTTINGSURFACE" ? 1 : 0;
}

/// A surface lists its ids, 4 bytes each and more while it is made; a generated set of a few bytes may
/// hold a thousand million.
bool inp_SurfaceVisitor::HasRoomFor(inpM_BaseSet const& set, cow_String const& name, Faults& faults)
{
  std::size_t const count = set.CountIds();
  if (count > c_mostOfSet || m_added + count > c_mostAdded)
  {
    faults.AddTooLarge(name);
    return false;
  }
  m_added += count;
  return true;
}

// Rows of these types may name what is no set: materials of an Eulerian section, enriched features.
void inp_SurfaceVisitor::SayMissingSets(inp_Keyword const& keyword, Faults const& faults)
{
  SayItemsBelow(inp_msgSurfaceSetsTooLarge, keyword, faults.TooLarge(), keyword.NameIn("name"));
  cow_String const type = TypeOf(keyword);
  if (!(type == "EULERIANMATERIAL") && !(type == "XFEM"))
  {
    SayItemsBelow(inp_msgSurfaceSetsMissing, keyword, faults.Names(), keyword.NameIn("name"));
  }
}
