// Surfaces that are made of other surfaces.

#include "inp_CropDefinition.h"
#include "inp_SurfaceMessages.h"
#include "inp_SurfaceVisitorRows.h"

#include <vector>

namespace
{

enum combineEnm
{
  c_union,
  c_intersection,
  c_difference
};

combineEnm CombinationOf(inp_Keyword const& keyword)
{
  cow_String const word = keyword.GetParameterAsString("combine", "UNION");
  return word == "INTERSECTION" ? c_intersection : word == "DIFFERENCE" ? c_difference : c_union;
}

/// Counts the facets that are copied when surfaces are added to another one: those of the others, and once
/// its own. What is empty takes a share of the first.
class CopyCount
{
public:
  std::int64_t Of(inpM_PartInstanceSurface const& surface, inpM_PartInstanceSurface const& other,
                  cow_String const& instanceName = cow_String())
  {
    if (surface.IsEmpty())
    {
      return 0;
    }
    return other.Count() + (m_detached.insert(instanceName).second ? surface.Count() : 0);
  }

  std::int64_t Of(inpM_AssemblyInstanceSurface const& surface,
                  inpM_AssemblyInstanceSurface const& other)
  {
    std::int64_t count = Of(surface.ConstGetNodeSurface(), other.ConstGetNodeSurface());
    inpM_PartInstanceSurfaceMap const& pieces = surface.ConstGetInstance2PartInstanceSurfaceMap();
    inpM_PartInstanceSurfaceMapSIT it(other.ConstGetInstance2PartInstanceSurfaceMap());
    for (; !it.IsDone(); it.Next())
    {
      inpM_PartInstanceSurface const* const piece = pieces.ConstFind(it.CurrentKey());
      count += piece != nullptr ? Of(*piece, it.CurrentValue(), it.CurrentKey()) : 0;
    }
    return count;
  }

private:
  std::unordered_set<cow_String> m_detached; ///< instances whose pieces are no shares any more
};

/// A field of the rows, and whether none behind it is the same.
struct CombinedName
{
  cow_String text;
  bool isLast;
};

/// Makes one surface of several: the first is the start, the others are applied to it in turn. A surface
/// that is named again changes nothing, but for the start when it is to be taken away, and for areas in a
/// union: there the last mention of a surface counts once more. What is to be taken away is gathered first.
template <class Surface>
class Combination
{
public:
  /// Both are empty, and of the kind that is to be made. `left` is how many facets may be copied.
  Combination(combineEnm how, Surface& result, Surface& taken, std::int64_t& left)
    : m_how(how),
      m_result(result),
      m_taken(taken),
      m_left(left),
      m_growth(how == c_difference ? taken : result)
  {
  }

  /// False when the other one is left out, since it is too large.
  bool Apply(CombinedName const& name, Surface const& other)
  {
    bool const isStart = !std::exchange(m_hasStart, true);
    if (isStart && m_how == c_difference)
    {
      m_result.Add(other);
      return true;
    }
    bool const decidesAreas = name.isLast && m_how == c_union && !other.IsElementSurface();
    bool const counts = m_applied.insert(name.text).second || decidesAreas;
    if (counts && !TakeRoom(isStart ? c_union : m_how, other))
    {
      return false;
    }
    if (counts)
    {
      Combine(isStart ? c_union : m_how, other);
    }
    return true;
  }

  void Finish()
  {
    m_growth.Finish();
    m_result.Difference(m_taken);
  }

private:
  bool TakeRoom(combineEnm how, Surface const& other)
  {
    std::int64_t const needed = CountCopies(how, other);
    bool const fits = needed <= m_left;
    m_left -= fits ? needed : 0;
    return fits;
  }

  std::int64_t CountCopies(combineEnm how, Surface const& other)
  {
    switch (how)
    {
    case c_union:
      return m_copies.Of(m_result, other);
    case c_intersection:
      return m_result.Count() + other.Count();
    case c_difference:
      return m_copies.Of(m_result, other) + m_copiesTaken.Of(m_taken, other);
    }
    return 0;
  }

  void Combine(combineEnm how, Surface const& other)
  {
    switch (how)
    {
    case c_union:
      m_result.Add(other);
      m_growth.By(other.Count());
      break;
    case c_intersection:
      m_result.Intersection(other);
      break;
    case c_difference:
      m_taken.Add(other);
      m_growth.By(other.Count());
      break;
    }
  }

  combineEnm m_how;
  Surface& m_result;
  Surface& m_taken;
  std::int64_t& m_left;
  CopyCount m_copies;
  CopyCount m_copiesTaken;
  inp_SurfaceGrowth<Surface> m_growth;
  bool m_hasStart = false;
  std::unordered_set<cow_String> m_applied;
};

/// The names in the rows of a combined surface, in order.
std::vector<CombinedName> NamesOf(inp_DataArray const& data)
{
  std::vector<CombinedName> names;
  for (int row = 0; row < data.Rows(); ++row)
  {
    for (int column = 0; column < data.Cols(row); ++column)
    {
      if (!data.IsNone(row, column))
      {
        names.push_back({data.AsString(row, column), false});
      }
    }
  }
  std::unordered_set<cow_String> behind;
  for (auto name = names.rbegin(); name != names.rend(); ++name)
  {
    name->isLast = behind.insert(name->text).second;
  }
  return names;
}

inp_CoordMap const& CoordsOf(inp_CoordMap const& coords, cow_String const& instanceName)
{
  static thread_local inp_CoordMap const none;
  return instanceName.Empty()            ? coords
         : coords.IsMember(instanceName) ? coords.ConstGet(instanceName)
                                         : none;
}

inp_MapInt2Element ElementsOf(inpM_InstanceMap<inp_MapInt2Element> const& elements,
                              cow_String const& instanceName)
{
  if (instanceName.Empty())
  {
    return elements.HasValue() ? elements.ConstGet() : inp_MapInt2Element();
  }
  bool const hasElements =
    elements.IsMember(instanceName) && elements.ConstGetMap(instanceName).HasValue();
  return hasElements ? elements.ConstGet(instanceName) : inp_MapInt2Element();
}

} // namespace

/// A surface of the assembly, or the piece of an instance as a surface of the assembly.
bool inp_SurfaceVisitor::FindSurface(cow_String const& name,
                                     inpM_AssemblyInstanceSurface& found) const
{
  inp_ScopedField const field(name, m_assemblyName);
  if (!field.fits)
  {
    return false;
  }
  if (field.instanceName.Empty())
  {
    auto const* const whole = surfaces.ConstFindAssemblyInstanceSurface(field.last);
    found = whole != nullptr ? *whole : found;
    return whole != nullptr;
  }
  auto const* const piece = surfaces.ConstFindPartInstanceSurface(field.instanceName, field.last);
  if (piece != nullptr)
  {
    found.Add(field.instanceName, *piece);
  }
  return piece != nullptr;
}

/// Tells the kind of a surface of the scope; nothing when there is none, or it has none.
std::optional<bool> inp_SurfaceVisitor::IsKnownAsNodeSurface(cow_String const& name) const
{
  inpM_AssemblyInstanceSurface whole;
  if (SetScope().Empty())
  {
    return FindSurface(name, whole) && !whole.IsEmpty() ? std::optional(!whole.IsElementSurface())
                                                        : std::nullopt;
  }
  auto const* const own = surfaces.ConstFindPartInstanceSurface(SetScope(), name);
  return own != nullptr ? std::optional(!own->IsElementSurface()) : std::nullopt;
}

/// What is made of other surfaces is of the kind of the first of them that is there.
std::optional<bool> inp_SurfaceVisitor::IsMadeOfNodeSurface(inp_Keyword const& keyword) const
{
  if (keyword.HasParameter("crop"))
  {
    return keyword.data.HasValue(0, 0) ? IsKnownAsNodeSurface(keyword.data.AsString(0, 0))
                                       : std::nullopt;
  }
  for (CombinedName const& name : NamesOf(keyword.data))
  {
    if (std::optional<bool> const isOfNodes = IsKnownAsNodeSurface(name.text))
    {
      return isOfNodes;
    }
  }
  return std::nullopt;
}

/// Nothing is lost of a surface without anything in it.
template <class Surface>
bool inp_SurfaceVisitor::IsOfOtherKind(Surface const& surface) const
{
  return !surface.IsEmpty() && surface.IsElementSurface() == isNodeSurface;
}

void inp_SurfaceVisitor::SayLeftOut(inp_Keyword const& keyword, Faults const& faults)
{
  cow_String const name = keyword.NameIn("name");
  SayItemsBelow(inp_msgCombinedSurfacesMissing, keyword, faults.Names(), name);
  SayItemsBelow(inp_msgCombinedSurfacesOfOtherKind, keyword, faults.OtherKind(), name,
                isNodeSurface ? "nodes" : "elements");
  SayItemsBelow(inp_msgCombinedSurfacesTooLarge, keyword, faults.TooLarge(), name);
}

inpM_PartInstanceSurfaceHandle
inp_SurfaceVisitor::CreateCombinedInstanceLevelSurface(inp_Keyword& keyword)
{
  inpM_PartInstanceSurfaceHandle surface =
    CreateSurface(isNodeSurface ? inpM_nodeSurface : inpM_elementSurface);
  inpM_PartInstanceSurfaceHandle taken =
    CreateSurface(isNodeSurface ? inpM_nodeSurface : inpM_elementSurface);
  Combination<inpM_PartInstanceSurface> combination(CombinationOf(keyword), *surface.Get(),
                                                    *taken.Get(), copiesLeft);
  Faults faults;
  for (CombinedName const& name : NamesOf(keyword.data))
  {
    auto const* const other = surfaces.ConstFindPartInstanceSurface(SetScope(), name.text);
    if (other == nullptr)
    {
      faults.Add(name.text);
    }
    else if (IsOfOtherKind(*other))
    {
      faults.AddOtherKind(name.text);
    }
    else
    {
      faults.AddTooLargeUnless(combination.Apply(name, *other), name.text);
    }
  }
  combination.Finish();
  SayLeftOut(keyword, faults);
  return surface;
}

inpM_AssemblyInstanceSurface
inp_SurfaceVisitor::CreateCombinedAssemblyLevelSurface(inp_Keyword& keyword)
{
  inpM_AssemblyInstanceSurface surface;
  inpM_AssemblyInstanceSurface taken;
  Combination<inpM_AssemblyInstanceSurface> combination(CombinationOf(keyword), surface, taken,
                                                        copiesLeft);
  Faults faults;
  for (CombinedName const& name : NamesOf(keyword.data))
  {
    inpM_AssemblyInstanceSurface other;
    if (!FindSurface(name.text, other))
    {
      faults.Add(name.text);
    }
    else if (IsOfOtherKind(other))
    {
      faults.AddOtherKind(name.text);
    }
    else
    {
      faults.AddTooLargeUnless(combination.Apply(name, other), name.text);
    }
  }
  combination.Finish();
  SayLeftOut(keyword, faults);
  return surface;
}

// *SURFACE, CROP rows: surface; first corner, second corner; directions a, b
void inp_SurfaceVisitor::CropNamedSurface(inp_Keyword const& keyword,
                                          inpM_PartInstanceSurface& surface)
{
  inp_CropDefinition const box(keyword);
  Faults faults;
  if (box.IsValid() && keyword.data.HasValue(0, 0))
  {
    cow_String const name = keyword.data.AsString(0, 0);
    if (auto const* const whole = surfaces.ConstFindPartInstanceSurface(SetScope(), name))
    {
      surface.Add(*whole);
      Crop(surface, box, CoordsOf(coordMap, SetScope()), ElementsOf(elements, SetScope()));
    }
    else
    {
      faults.Add(name);
    }
  }
  SayItemsBelow(inp_msgCombinedSurfacesMissing, keyword, faults.Names(), keyword.NameIn("name"));
}

void inp_SurfaceVisitor::CropNamedSurface(inp_Keyword const& keyword,
                                          inpM_AssemblyInstanceSurface& surface)
{
  inp_CropDefinition const box(keyword);
  Faults faults;
  if (box.IsValid() && keyword.data.HasValue(0, 0))
  {
    cow_String const name = keyword.data.AsString(0, 0);
    if (FindSurface(name, surface))
    {
      Crop(surface, box, coordMap, elements);
    }
    else
    {
      faults.Add(name);
    }
  }
  SayItemsBelow(inp_msgCombinedSurfacesMissing, keyword, faults.Names(), keyword.NameIn("name"));
}

void inp_SurfaceVisitor::Crop(inpM_AssemblyInstanceSurface& surface, inp_CropDefinition const& box,
                              inp_CoordMap const& coords,
                              inpM_InstanceMap<inp_MapInt2Element> const& elements)
{
  inpM_AssemblyInstanceSurface cropped;
  cropped.SetInternal(surface.IsInternal());
  inpM_PartInstanceSurfaceMapSIT it(surface.ConstGetInstance2PartInstanceSurfaceMap());
  for (; !it.IsDone(); it.Next())
  {
    inpM_PartInstanceSurfaceHandle piece = it.CurrentHandle();
    Crop(*piece.Get(), box, CoordsOf(coords, it.CurrentKey()),
         ElementsOf(elements, it.CurrentKey()));
    cropped.Add(it.CurrentKey(), *piece);
  }
  inpM_NodeAreaSurface nodes = surface.ConstGetNodeSurface();
  Crop(nodes, box, coords);
  cropped.Add(nodes);
  surface = cropped;
}
