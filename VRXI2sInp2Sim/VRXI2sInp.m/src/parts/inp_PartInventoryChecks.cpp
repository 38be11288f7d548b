// The rules that need the whole walk: parts as a whole, and who refers to whom.

#include "inp_KeywordEnm.h"
#include "inp_PartInventoryVisitor.h"
#include "inp_PartMessages.h"

#include <vector>

void inp_PartInventoryVisitor::CheckViolations()
{
  RelateLevels();
  cow_BtreeIterator<cow_String, inp_PartContents> part(partContents);
  for (part.First(); !part.IsDone(); part.Next())
  {
    CheckPart(part.CurrentKey(), part.CurrentValue());
  }
  cow_BtreeIterator<cow_String, inp_SurfaceUses> surface(assemblySurfaces);
  for (surface.First(); !surface.IsDone(); surface.Next())
  {
    inp_SurfaceUses const& uses = surface.CurrentValue();
    if (uses.count > 1)
    {
      SayAt(uses.place, inp_msgSurfaceOfManyRigidBodies, uses.surfaceName, uses.instanceName);
    }
  }
  checkPartSurfaceAndRigidBodyDefs();
  checkInstanceSurfaceAndRigidBodyDefs();
  checkAssemblySurfaceAndRigidBodyDefs();
}

void inp_PartInventoryVisitor::CheckPart(cow_String const& partName,
                                         inp_PartContents const& contents)
{
  int const kinds = (contents.numAnalyticalSurfaces > 0 ? 1 : 0) +
                    (contents.hasDeformableElements ? 1 : 0) + (contents.hasRigidElements ? 1 : 0);
  if (kinds > 1)
  {
    SayAt(contents.place, inp_msgPartCombinesKinds, partName);
  }
  if (contents.numAnalyticalSurfaces > 1)
  {
    SayAt(contents.place, inp_msgPartHasManySurfaces, partName);
  }
}

// Notes at a part's surface that its instances or the assembly refer to it, and at an instance's surface
// that the assembly does. Where an instance defines the name itself, that is the surface meant.
void inp_PartInventoryVisitor::RelateLevels()
{
  cow_BtreeIterator<cow_String, inp_SurfaceUses> inInstance(instanceSurfaces);
  for (inInstance.First(); !inInstance.IsDone(); inInstance.Next())
  {
    inp_SurfaceUses const& uses = inInstance.CurrentValue();
    inp_SurfaceUses* const inPart = uses.isDefined || uses.count == 0 ? nullptr : PartSurface(uses);
    if (inPart != nullptr)
    {
      inPart->isUsedAbove = true;
    }
  }
  cow_BtreeIterator<cow_String, inp_SurfaceUses> inAssembly(assemblySurfaces);
  for (inAssembly.First(); !inAssembly.IsDone(); inAssembly.Next())
  {
    inp_SurfaceUses* const ofInstance = instanceSurfaces.Find(inAssembly.CurrentKey());
    bool const isOfInstance = ofInstance != nullptr && ofInstance->isDefined;
    inp_SurfaceUses* const meant =
      isOfInstance ? ofInstance : PartSurface(inAssembly.CurrentValue());
    if (meant != nullptr)
    {
      meant->isUsedAbove = true;
    }
  }
}

/// The surface of the same name in the instance's part, or null.
inp_SurfaceUses* inp_PartInventoryVisitor::PartSurface(inp_SurfaceUses const& instanceSurface)
{
  inp_PartContents* const contents = partContents.Find(PartOf(instanceSurface.instanceName));
  return contents == nullptr ? nullptr
                             : contents->analyticalSurfaces.Find(instanceSurface.surfaceName);
}

void inp_PartInventoryVisitor::checkPartSurfaceAndRigidBodyDefs()
{
  cow_BtreeIterator<cow_String, inp_PartContents> part(partContents);
  for (part.First(); !part.IsDone(); part.Next())
  {
    cow_BtreeIterator<cow_String, inp_SurfaceUses> surface(part.CurrentValue().analyticalSurfaces);
    for (surface.First(); !surface.IsDone(); surface.Next())
    {
      CheckPartSurface(part.CurrentKey(), surface.CurrentValue());
    }
  }
}

// Where definition and reference stand on different levels, the check of the instance says that too.
void inp_PartInventoryVisitor::CheckPartSurface(cow_String const& partName,
                                                inp_SurfaceUses const& uses)
{
  if (uses.isDefined && uses.count == 0 && !uses.isUsedAbove)
  {
    SayAt(uses.place, inp_msgPartSurfaceUnused, uses.surfaceName, partName);
  }
  else if (!uses.isDefined)
  {
    SayAt(uses.place, inp_msgPartSurfaceUndefined, uses.surfaceName, partName);
  }
}

void inp_PartInventoryVisitor::checkInstanceSurfaceAndRigidBodyDefs()
{
  cow_BtreeIterator<cow_String, inp_SurfaceUses> surface(instanceSurfaces);
  for (surface.First(); !surface.IsDone(); surface.Next())
  {
    CheckInstanceSurface(surface.CurrentValue());
  }
}

void inp_PartInventoryVisitor::CheckInstanceSurface(inp_SurfaceUses const& uses)
{
  bool const isUnused = uses.isDefined && uses.count == 0 && !uses.isUsedAbove;
  if (uses.isRefused || (uses.isDefined && !isUnused))
  {
    return;
  }
  inp_SurfaceUses const* const inPart = PartSurface(uses);
  if (inPart != nullptr && (isUnused ? !inPart->isDefined : inPart->isDefined))
  {
    SayAt(uses.place, inp_msgSurfaceOnOtherLevel, uses.surfaceName, PartOf(uses.instanceName),
          uses.instanceName);
    return;
  }
  SayAt(uses.place, isUnused ? inp_msgInstanceSurfaceUnused : inp_msgInstanceSurfaceUndefined,
        uses.surfaceName, uses.instanceName);
}

void inp_PartInventoryVisitor::checkAssemblySurfaceAndRigidBodyDefs()
{
  cow_BtreeIterator<cow_String, inp_SurfaceUses> surface(assemblySurfaces);
  for (surface.First(); !surface.IsDone(); surface.Next())
  {
    inp_SurfaceUses const& uses = surface.CurrentValue();
    inp_SurfaceUses const* const inInstance = instanceSurfaces.ConstFind(surface.CurrentKey());
    inp_SurfaceUses const* const inPart = PartSurface(uses);
    if ((inInstance == nullptr || !inInstance->isDefined) &&
        (inPart == nullptr || !inPart->isDefined))
    {
      SayAt(uses.place, inp_msgAssemblySurfaceUndefined, uses.surfaceName, uses.instanceName);
    }
  }
}

void inp_PartInventoryVisitor::CheckOutOfPlace(cow_List<inp_Keyword> const& keywords)
{
  static constexpr KeywordPair pairs[] = {
    {inp_kwAssembly, inp_kwEndAssembly, "ASSEMBLY", "*END ASSEMBLY"},
    {inp_kwInstance, inp_kwEndInstance, "INSTANCE", "*END INSTANCE"},
    {inp_kwPart, inp_kwEndPart, "PART", "*END PART"},
  };
  cow_Btree<cow_String, int> counts;
  for (KeywordPair const& pair : pairs)
  {
    CountNodeElementKeywords(keywords, pair, counts);
  }
}

namespace
{

using KeywordPair = inp_PartInventoryVisitor::KeywordPair;

// Recursion is safe: the lists of suboptions that a keyword may have form no cycle.
void Count(cow_List<inp_Keyword> const& keywords, KeywordPair const& pair, int& count,
           std::vector<inp_Keyword const*>& open)
{
  for (inp_Keyword const& keyword : keywords)
  {
    if (keyword.Is(pair.opening))
    {
      ++count;
      open.push_back(&keyword);
    }
    else if (keyword.Is(pair.closing))
    {
      --count;
      if (!open.empty())
      {
        open.pop_back();
      }
    }
    Count(keyword.suboptions, pair, count, open);
  }
}

} // namespace

void inp_PartInventoryVisitor::CountNodeElementKeywords(cow_List<inp_Keyword> const& keywords,
                                                        KeywordPair const& pair,
                                                        cow_Btree<cow_String, int>& counts)
{
  cow_String const name = inp_Keyword(pair.opening).Name();
  counts.InsertUnlessMember(name, 0);
  int& count = *counts.Find(name);
  std::vector<inp_Keyword const*> open;
  Count(keywords, pair, count, open);
  if (count > 0)
  {
    atr_Origin const place = open.empty() ? atr_Origin() : inp_Utils::PlaceOf(*open.front());
    SayAt(place, inp_msgClosingKeywordMissing, pair.openingName, pair.closingName);
  }
}
