#pragma once

#include "cow_Btree.h"
#include "inp_LevelMaps.h"
#include "inp_PartContents.h"
#include "inp_Visitor.h"

/// Checks the rules that span keywords: what may share a part, at which level rigid bodies and
/// analytical surfaces may be defined, and who refers to whom.
///
///     inp_PartInventoryVisitor inventory(model.PartMaps(), model.AssemblyMaps());
///     inventory.VisitList(keywords);         // only a deck with parts
///     inventory.CheckViolations();           // likewise
///     inventory.CheckOutOfPlace(keywords);
///     inventory.Report();
///
/// Needs:    organized keywords, and the maps of parts and of instances that were made of them.
/// Reports:  errors, one for each violation, with the place of the keyword at fault. They stand
///           without the title that other passes put in front.
///
/// A rigid body and its analytical surface belong to one level: both in a part, or both in an
/// instance. A rigid body of the assembly may refer to a surface of either, as instance.surface.
///
/// Time is linear in keywords and elements. Maps are shared, not copied.
class inp_PartInventoryVisitor : public inp_Visitor
{
public:
  inp_PartInventoryVisitor(inp_PartMaps const& parts, inp_LevelMaps const& assembly);

  void DefaultAction(inp_Keyword& keyword) override;
  void VisitInstance(inp_Keyword& keyword) override;
  void VisitPart(inp_Keyword& keyword) override;
  void VisitRigidBody(inp_Keyword& keyword) override;
  void VisitRigidSurface(inp_Keyword& keyword) override;
  void VisitSurface(inp_Keyword& keyword) override;

  /// What the walk alone cannot tell. To be called once, behind it.
  void CheckViolations();

  /// Parts, instances and assemblies that the deck opens and does not close. Steps are not asked
  /// for: the end of the deck closes the last one.
  void CheckOutOfPlace(cow_List<inp_Keyword> const& keywords);

  /// Two keywords of which the second ends what the first begins, with their names in messages.
  struct KeywordPair
  {
    inp_KeywordEnm opening;
    inp_KeywordEnm closing;
    char const* openingName;
    char const* closingName;
  };

  /// Adds to the count under the opening keyword's name one for each opening keyword at any depth
  /// of the list, and takes one away for each closing keyword. Where that leaves a count above
  /// zero, it is an error, with the place of an opening keyword that is not closed.
  void CountNodeElementKeywords(cow_List<inp_Keyword> const& keywords, KeywordPair const& pair,
                                cow_Btree<cow_String, int>& counts);

protected:
  void checkPartSurfaceAndRigidBodyDefs();
  void checkInstanceSurfaceAndRigidBodyDefs();
  void checkAssemblySurfaceAndRigidBodyDefs();

private:
  using SurfaceTree = cow_Btree<cow_String, inp_SurfaceUses>;

  void CheckRigidBodyOfPart(inp_Keyword const& keyword);
  void CheckRigidBodyOfAssembly(inp_Keyword const& keyword);
  void CheckReferencedPart(inp_Keyword const& keyword, char const* parameter);
  bool HasElementOutside(inp_MapInt2Element const& partElements, inpM_OmiSet const& ids) const;
  void CheckRigidSurfaceElements(inp_Keyword const& keyword, cow_String const& elset,
                                 inpM_BaseSet const* set,
                                 inpM_InstanceMap<inp_MapInt2Element> const& levels);
  void CheckRigidSurfaceTypes(inp_Keyword const& keyword, inpM_BaseSet const& set,
                              inp_MapInt2Element const* known);

  void CheckPart(cow_String const& partName, inp_PartContents const& contents);
  void CheckPartSurface(cow_String const& partName, inp_SurfaceUses const& uses);
  void CheckInstanceSurface(inp_SurfaceUses const& uses);
  void RelateLevels();
  cow_String PartOf(cow_String const& instanceName) const;
  inp_SurfaceUses* PartSurface(inp_SurfaceUses const& instanceSurface);

  cow_Btree<cow_String, inp_PartContents> partContents;
  inpM_InstanceMap<inp_MapInt2Element> elements;           ///< of parts, by part
  inpM_InstanceMap<inp_MapInt2Element> m_assemblyElements; ///< of the assembly, by instance
  inpM_SetMap partSets;
  inpM_SetMap assemblySets;
  inpM_InstanceMap<cow_String> instanceParts; ///< instance to part
  SurfaceTree instanceSurfaces;               ///< of instances, by instance.surface
  SurfaceTree assemblySurfaces;               ///< references from the assembly, likewise
};
