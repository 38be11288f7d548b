// The walk: what each part holds, and the rules that a keyword can be held against at once.

#include "inp_PartInventoryVisitor.h"

#include "inp_PartMessages.h"
#include "inp_Utils.h"

#include <algorithm>
#include <string_view>

namespace
{

enum class ElementKind
{
  neutral, ///< fits into any part
  rigid,
  deformable
};

ElementKind KindOf(std::string_view type)
{
  static constexpr std::string_view neutral[] = {"MASS",    "ROTARYI", "HEATCAP",
                                                 "SPRING1", "SPRING2", "SPRINGA"};
  if (type.starts_with("R3D") || type.starts_with("R2D") || type.starts_with("RAX") ||
      type.starts_with("RB"))
  {
    return ElementKind::rigid;
  }
  bool const isNeutral =
    std::find(std::begin(neutral), std::end(neutral), type) != std::end(neutral);
  return isNeutral ? ElementKind::neutral : ElementKind::deformable;
}

/// IRS elements and drag chains: those that a *RIGID SURFACE works on.
bool IsSlidingType(std::string_view type)
{
  return type.starts_with("IRS") || type.starts_with("DRAG");
}

inp_MapInt2Element const* ElementsOf(inpM_InstanceMap<inp_MapInt2Element> const& levels,
                                     cow_String const& name)
{
  bool const has = levels.IsMember(name) && levels.ConstGetMap(name).HasValue();
  return has ? &levels.ConstGet(name) : nullptr;
}

cow_String Scoped(cow_String const& instanceName, cow_String const& surfaceName)
{
  return instanceName + "." + surfaceName;
}

/// The surface's entry, made at its first mention.
inp_SurfaceUses& Mention(cow_Btree<cow_String, inp_SurfaceUses>& surfaces, cow_String const& key,
                         cow_String const& instanceName, cow_String const& surfaceName,
                         inp_Keyword const& keyword)
{
  if (inp_SurfaceUses* const known = surfaces.Find(key))
  {
    return *known;
  }
  inp_SurfaceUses uses;
  uses.instanceName = instanceName;
  uses.surfaceName = surfaceName;
  uses.place = inp_Utils::PlaceOf(keyword);
  surfaces.InsertUnlessMember(key, uses);
  return *surfaces.Find(key);
}

void Define(inp_SurfaceUses& uses, inp_Keyword const& keyword)
{
  uses.isDefined = true;
  uses.place = inp_Utils::PlaceOf(keyword);
}

} // namespace

inp_PartInventoryVisitor::inp_PartInventoryVisitor(inp_PartMaps const& parts,
                                                   inp_LevelMaps const& assembly)
  : elements(parts.elements),
    m_assemblyElements(assembly.elements),
    partSets(parts.elsets),
    assemblySets(assembly.elsets)
{
}

void inp_PartInventoryVisitor::DefaultAction(inp_Keyword&) {}

void inp_PartInventoryVisitor::VisitInstance(inp_Keyword& keyword)
{
  inp_Visitor::VisitInstance(keyword);
  if (inp_NameParameter const part = keyword.ReadName("part"); part.IsGiven())
  {
    instanceParts.Insert(m_instanceName, part.text);
  }
}

void inp_PartInventoryVisitor::VisitPart(inp_Keyword& keyword)
{
  inp_Visitor::VisitPart(keyword);
  inp_PartContents contents;
  contents.place = inp_Utils::PlaceOf(keyword);
  if (inp_MapInt2Element const* const ofPart = ElementsOf(elements, m_partName))
  {
    std::string_view last; // the elements of a keyword share their type's text
    for (inp_MapInt2ElementIT element(*ofPart); !element.IsDone(); element.Next())
    {
      std::string_view const type = element.CurrentValue().type().View();
      if (type.data() == last.data() && type.size() == last.size())
      {
        continue;
      }
      last = type;
      ElementKind const kind = KindOf(type);
      contents.hasRigidElements |= kind == ElementKind::rigid;
      contents.hasDeformableElements |= kind == ElementKind::deformable;
    }
  }
  partContents.Insert(m_partName, contents);
}

void inp_PartInventoryVisitor::VisitRigidBody(inp_Keyword& keyword)
{
  cow_String const surface = keyword.NameIn("analyticalsurface");
  if (IsInPart())
  {
    CheckRigidBodyOfPart(keyword);
    if (surface.Length() > 0)
    {
      ++Mention(partContents.Find(m_partName)->analyticalSurfaces, surface, cow_String(), surface,
                keyword)
          .count;
    }
  }
  else if (!IsInInstance())
  {
    CheckRigidBodyOfAssembly(keyword);
  }
  else if (surface.Length() > 0)
  {
    cow_String const key = Scoped(m_instanceName, surface);
    ++Mention(instanceSurfaces, key, m_instanceName, surface, keyword).count;
  }
}

// A part's rigid body takes the whole part. A set that is not defined takes nothing of it.
void inp_PartInventoryVisitor::CheckRigidBodyOfPart(inp_Keyword const& keyword)
{
  partContents.Find(m_partName)->hasRigidBody = true;
  cow_String const elset = keyword.NameIn("elset");
  if (elset.Empty())
  {
    return;
  }
  inpM_BaseSet const* const set = partSets.ConstFindNestedSet(m_partName, elset);
  if (set == nullptr)
  {
    SayAt(keyword, inp_msgRigidBodyElsetNotInPart, elset, m_partName);
  }
  inp_MapInt2Element const* const ofPart = ElementsOf(elements, m_partName);
  if (ofPart != nullptr &&
      HasElementOutside(*ofPart, set != nullptr ? set->ConstGetOwnIds() : inpM_OmiSet()))
  {
    SayAt(keyword, inp_msgPartRigidBodyIncomplete, m_partName);
  }
}

bool inp_PartInventoryVisitor::HasElementOutside(inp_MapInt2Element const& partElements,
                                                 inpM_OmiSet const& ids) const
{
  if (ids.Size() >= partElements.Size())
  {
    return false;
  }
  for (inp_MapInt2ElementIT element(partElements); !element.IsDone(); element.Next())
  {
    if (!ids.IsMember(element.CurrentKey()) &&
        KindOf(element.CurrentValue().type().View()) != ElementKind::neutral)
    {
      return true;
    }
  }
  return false;
}

void inp_PartInventoryVisitor::CheckRigidBodyOfAssembly(inp_Keyword const& keyword)
{
  CheckReferencedPart(keyword, "refnode");
  CheckReferencedPart(keyword, "elset");
  cow_String const surface = keyword.NameIn("analyticalsurface");
  cow_List<cow_String> const pieces = inp_Utils::SplitScopedSet(surface);
  int const last = pieces.Length() - 1;
  if (last > 0)
  {
    cow_String const& instanceName = pieces.ConstGet(last - 1);
    cow_String const& surfaceName = pieces.ConstGet(last);
    cow_String const key = Scoped(instanceName, surfaceName);
    ++Mention(assemblySurfaces, key, instanceName, surfaceName, keyword).count;
  }
  else if (surface.Length() > 0)
  {
    SayAt(keyword, inp_msgRigidBodyOfAssemblySurface, surface);
  }
}

void inp_PartInventoryVisitor::CheckReferencedPart(inp_Keyword const& keyword,
                                                   char const* parameter)
{
  cow_List<cow_String> const pieces = inp_Utils::SplitScopedSet(keyword.NameIn(parameter));
  if (pieces.Length() < 2)
  {
    return;
  }
  cow_String const partName = PartOf(pieces.ConstGet(pieces.Length() - 2));
  inp_PartContents const* const contents = partContents.ConstFind(partName);
  if (contents != nullptr && contents->hasRigidBody)
  {
    SayAt(keyword, inp_msgRigidBodyOfRigidPart, partName);
  }
}

void inp_PartInventoryVisitor::VisitRigidSurface(inp_Keyword& keyword)
{
  cow_String const name = keyword.NameIn("elset");
  if (name.Empty() || !keyword.HasParameter("type") || IsAtAssemblyLevel())
  {
    SayAt(keyword, inp_msgRigidSurfaceRequirements);
    return;
  }
  if (IsInPart())
  {
    CheckRigidSurfaceElements(keyword, name, partSets.ConstFindNestedSet(m_partName, name),
                              elements);
  }
  else
  {
    CheckRigidSurfaceElements(keyword, name, assemblySets.ConstFindNestedSet(m_instanceName, name),
                              m_assemblyElements);
  }
}

void inp_PartInventoryVisitor::CheckRigidSurfaceElements(
  inp_Keyword const& keyword, cow_String const& elset, inpM_BaseSet const* set,
  inpM_InstanceMap<inp_MapInt2Element> const& levels)
{
  if (set == nullptr)
  {
    SayAt(keyword,
          IsInPart() ? inp_msgRigidSurfaceElsetNotInPart : inp_msgRigidSurfaceElsetNotInInstance,
          elset, MeshScope());
  }
  else if (set->ConstGetOwnIds().IsEmpty())
  {
    SayAt(keyword, inp_msgRigidSurfaceElsetEmpty, elset, MeshScope());
  }
  else
  {
    CheckRigidSurfaceTypes(keyword, *set, ElementsOf(levels, MeshScope()));
  }
}

// One element of the right type will do. Where labels are unknown, nobody can tell what they were
// meant to be, and their own messages are enough.
void inp_PartInventoryVisitor::CheckRigidSurfaceTypes(inp_Keyword const& keyword,
                                                      inpM_BaseSet const& set,
                                                      inp_MapInt2Element const* known)
{
  bool hasUnknown = false;
  bool hasSliding = false;
  for (inpM_OmiSetIT id(set.ConstGetOwnIds()); !id.IsDone(); id.Next())
  {
    inp_Element const* const element =
      known != nullptr ? known->GetEltPtr(id.CurrentItem()) : nullptr;
    if (element == nullptr)
    {
      hasUnknown = true;
      SayAt(keyword, inp_msgRigidSurfaceElementUnknown, id.CurrentItem(), MeshScope());
      continue;
    }
    hasSliding = hasSliding || IsSlidingType(element->type().View());
  }
  if (!hasUnknown && !hasSliding)
  {
    SayAt(keyword, inp_msgRigidSurfaceRequirements);
  }
}

void inp_PartInventoryVisitor::VisitSurface(inp_Keyword& keyword)
{
  cow_String const name = keyword.NameIn("name");
  if (name.Empty() || !inp_Utils::IsAnalyticalSurfaceType(keyword.NameIn("type")))
  {
    return;
  }
  if (IsInPart())
  {
    inp_PartContents& contents = *partContents.Find(m_partName);
    ++contents.numAnalyticalSurfaces;
    Define(Mention(contents.analyticalSurfaces, name, cow_String(), name, keyword), keyword);
  }
  else if (IsInInstance())
  {
    cow_String const key = Scoped(m_instanceName, name);
    inp_SurfaceUses& uses = Mention(instanceSurfaces, key, m_instanceName, name, keyword);
    inp_SurfaceUses const* const inPart = PartSurface(uses);
    uses.isRefused = inPart != nullptr && inPart->isDefined;
    if (!uses.isRefused)
    {
      Define(uses, keyword);
    }
  }
  else
  {
    SayAt(keyword, inp_msgAnalyticalSurfaceInAssembly, name);
  }
}

cow_String inp_PartInventoryVisitor::PartOf(cow_String const& instanceName) const
{
  return instanceParts.IsMember(instanceName) ? instanceParts.ConstGet(instanceName) : cow_String();
}
