#pragma once

#include "inp_LevelMaps.h"
#include "inp_Visitor.h"
#include "mem_Budget.h"

#include <cstdint>
#include <optional>

class inpM_ElementFaceIdSurface;
class inp_CropDefinition;

/// Turns *SURFACE of one part, of an instance, or of the assembly level into surfaces.
///
///     part scope       *SURFACE, NAME=A                 faces of elements, by set or label
///                      RIM, S1
///                      7, S2
///     assembly scope   *SURFACE, NAME=B, TYPE=NODE      nodes with areas
///                      WHEEL-1.ENDS, 2.5
///                      WHEEL-1.7
///
/// COMBINE makes a surface of others of the scope, CROP cuts one to a box. The scope is the instance or,
/// outside of instances, the part; with neither name it is the assembly.
///
/// Needs:    the node and element sets of the level and, for CROP, its nodes and elements.
/// Produces: surfaces by name. One that is defined again replaces the former one. Analytical
///           surfaces, which lines and arcs describe, are no concern of this walk.
/// Reports:  errors through inp_Visitor, each with its keyword's place; what is right in a keyword
///           counts. Never throws for a fault in the deck.
///
/// What a set gives is shared, so that one surface over ten thousand instances of a part costs no list of
/// elements for each.
class inp_SurfaceVisitor : public inp_Visitor
{
public:
  explicit inp_SurfaceVisitor(inp_LevelMaps const& maps);

  /// The part of each instance. An instance that is not among them cannot be named by a row.
  void setInstancePartNames(inpM_InstanceMap<cow_String> const& names) { instanceParts = names; }

  inpM_SurfaceMap const& GetSurfaces() const { return surfaces; }

  void DefaultAction(inp_Keyword&) override {}
  void VisitSurface(inp_Keyword& keyword) override;

  /// Cuts a surface to a valid box: nodes outside of it go, and faces of elements of which no node lies
  /// in it. Nodes and elements that the maps do not hold stay, as do faces that are not known of their
  /// type. The maps are those of the surface's level; that of a whole surface is the assembly.
  static void Crop(inpM_AssemblyInstanceSurface& surface, inp_CropDefinition const& box,
                   inp_CoordMap const& coords,
                   inpM_InstanceMap<inp_MapInt2Element> const& elements);
  static void Crop(inpM_PartInstanceSurface& piece, inp_CropDefinition const& box,
                   inp_CoordMap const& coords, inp_MapInt2Element const& elements);
  static void Crop(inpM_ElementFaceIdSurface& piece, inp_CropDefinition const& box,
                   inp_CoordMap const& coords, inp_MapInt2Element const& elements);
  static void Crop(inpM_NodeAreaSurface& piece, inp_CropDefinition const& box,
                   inp_CoordMap const& coords);

protected:
  virtual void VisitSurfaceDefinition(inp_Keyword& keyword); ///< of elements or of nodes
  virtual void VisitAnalyticalSurface(inp_Keyword&) {}       ///< within a part or an instance
  virtual inpM_AssemblyInstanceSurface CreateAssemblyLevelSurface(inp_Keyword& keyword);
  virtual inpM_PartInstanceSurfaceHandle CreateInstanceLevelSurface(inp_Keyword& keyword);
  virtual inpM_PartInstanceSurfaceHandle CreateCombinedInstanceLevelSurface(inp_Keyword& keyword);
  inpM_AssemblyInstanceSurface CreateCombinedAssemblyLevelSurface(inp_Keyword& keyword);

  inpM_SetMap nodeSets;
  inpM_SetMap elementSets;
  inpM_SurfaceMap surfaces; ///< being filled
  inpM_InstanceMap<inp_MapInt2Element> elements;
  inp_CoordMap coordMap;
  inpM_InstanceMap<cow_String> instanceParts;
  bool isNodeSurface = false;          ///< kind of the keyword at hand
  std::int64_t copiesLeft = 500000000; ///< of facets, by combinations of this walk

private:
  class Faults;
  class Repeats;
  class PartRows;
  class AssemblyRows;
  struct FaceOrArea;

  std::optional<bool> IsMadeOfNodeSurface(inp_Keyword const& keyword) const;
  std::optional<bool> IsKnownAsNodeSurface(cow_String const& name) const;
  template <class Surface>
  bool IsOfOtherKind(Surface const& surface) const;
  void SayLeftOut(inp_Keyword const& keyword, Faults const& faults);
  inpM_SetMap const& SetsOfKind() const { return isNodeSurface ? nodeSets : elementSets; }
  void ReadInstanceLevelRows(inp_Keyword const& keyword, inpM_PartInstanceSurface& surface);
  void CropNamedSurface(inp_Keyword const& keyword, inpM_PartInstanceSurface& surface);
  void CropNamedSurface(inp_Keyword const& keyword, inpM_AssemblyInstanceSurface& surface);
  bool FindSurface(cow_String const& name, inpM_AssemblyInstanceSurface& found) const;
  static int FirstSurfaceRow(inp_Keyword const& keyword);
  void SayMissingSets(inp_Keyword const& keyword, Faults const& faults);
  bool HasRoomFor(inpM_BaseSet const& set, cow_String const& name, Faults& faults);

  static constexpr std::size_t c_mostOfSet = mem_Budget(50000000);
  static constexpr std::size_t c_mostAdded = 4 * c_mostOfSet;
  std::size_t m_added = 0; ///< ids of sets, by this walk
};

/// What the second field of a row says: of a surface of nodes the area, which is 1.0 where there is no
/// real number; of one of elements the face. The other one stays as it is.
void GetAreaOrFaceId(bool isNode, double& area, cow_String& faceId, inp_DataArray const& data,
                     int row, int column);
