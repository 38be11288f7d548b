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

inp_SurfaceVisitor::inp_SurfaceVisitor(inpM_SetMap const& itsNodeSets,
                                       inpM_SetMap const& itsElementSets,
                                       inpM_InstanceMap<inp_MapInt2Element> const& itsElements,
                                       inp_CoordMap const& itsCoordMap)
  : nodeSets(itsNodeSets), elementSets(itsElementSets), elements(itsElements), coordMap(itsCoordMap)
{
}

void inp_SurfaceVisitor::VisitSurface(inp_Keyword& keyword)
{
  if (!inp_Utils::IsAnalyticalSurfaceType(TypeOf(keyword)))
  {
    VisitSurfaceDefinition(keyword);
  }
  else if (CurrentScope().Empty())
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
  isNodeSurface = IsNodeSurface(keyword);
  bool const isCombined = keyword.HasParameter("combine");
  if (CurrentScope().Empty())
  {
    inpM_AssemblyInstanceSurface surface = isCombined ? CreateCombinedAssemblyLevelSurface(keyword)
                                                      : CreateAssemblyLevelSurface(keyword);
    surface.SetInternal(keyword.HasParameter("internal"));
    surfaces.InsertAssemblyInstanceSurface(name, surface);
    return;
  }
  surfaces.InsertPartInstanceSurface(CurrentScope(), name,
                                     isCombined ? CreateCombinedInstanceLevelSurface(keyword)
                                                : CreateInstanceLevelSurface(keyword));
}

/// What is made of other surfaces is of the kind of the first of them.
bool inp_SurfaceVisitor::IsNodeSurface(inp_Keyword const& keyword) const
{
  bool const isMadeOfOthers = keyword.HasParameter("combine") || keyword.HasParameter("crop");
  if (isMadeOfOthers && keyword.data.HasValue(0, 0))
  {
    cow_String const first = keyword.data.AsString(0, 0);
    inpM_AssemblyInstanceSurface whole;
    if (CurrentScope().Empty() && FindSurface(first, whole))
    {
      return !whole.IsElementSurface();
    }
    if (auto const* const own = surfaces.ConstFindPartInstanceSurface(CurrentScope(), first))
    {
      return !own->IsElementSurface();
    }
  }
  return TypeOf(keyword) == "NODE";
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

// *SURFACE row: label or set[, face or area]
void inp_SurfaceVisitor::ReadInstanceLevelRows(inp_Keyword const& keyword,
                                               inpM_PartInstanceSurface& surface)
{
  inp_DataArray const& data = keyword.data;
  Faults faults;
  Repeats repeats(data, isNodeSurface);
  inp_SurfaceGrowth<inpM_PartInstanceSurface> growth(surface);
  cow_List<int> ids; // of `place`, not in the surface yet
  Place place;
  auto const add = [&](cow_List<int> const& members)
  {
    if (isNodeSurface)
    {
      static_cast<inpM_NodeAreaSurface&>(surface).Add(members, place.area);
    }
    else
    {
      static_cast<inpM_ElementFaceIdSurface&>(surface).Add(place.faceId, members);
    }
    growth.By(members.Length());
  };
  auto const addIds = [&]
  {
    add(ids);
    ids.Clear();
  };
  auto const readName = [&](cow_String const& name, int row)
  {
    auto const* const set = SetsOfKind().ConstFindNestedSet(CurrentScope(), name);
    if (set == nullptr)
    {
      faults.Add(name);
    }
    else if (!repeats.Have(place, row) && HasRoomFor(*set, name, faults))
    {
      addIds();
      add(set->ConstGetIds());
    }
  };
  for (int row = FirstSurfaceRow(keyword); row < data.Rows(); ++row)
  {
    if (!data.HasValue(row, 0))
    {
      continue;
    }
    Place here;
    GetAreaOrFaceId(isNodeSurface, here.area, here.faceId, data, row, 1);
    if (!(here == place))
    {
      addIds();
      place = here;
    }
    inp_Types::typeEnm const type = data.Type(row, 0);
    int const id = type == inp_Types::inp_INTEGER ? data.AsInt(row, 0) : 0;
    if (id >= 1)
    {
      ids.Append(id);
    }
    else
    {
      readName(data.AsString(row, 0), row);
    }
  }
  addIds();
  growth.Finish();
  SayMissingSets(keyword, faults);
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
  SayNames(inp_msgSurfaceSetsTooLarge, keyword, faults.TooLarge());
  cow_String const type = TypeOf(keyword);
  if (!(type == "EULERIANMATERIAL") && !(type == "XFEM"))
  {
    SayNames(inp_msgSurfaceSetsMissing, keyword, faults.Names());
  }
}
