#pragma once

#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inp_CoordMap.h"
#include "inp_ElementFamily.h"
#include "inp_MapInt2Element.h"
#include "inp_Visitor.h"

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

/// Makes the nodes that elements imply and no keyword lists: those of the layers of layered elements,
/// each where its bottom node is, and the midside nodes of quadratic gaskets.
///
///     inp_NodeGenerationVisitor nodes(coords, elements, elementSets, true, false, true, "");
///     nodes.VisitListAndReport(keywords);
///     nodes.GetCoordMap();
///
/// Needs:    the elements that inp_ElementVisitor made of the same keywords, and the nodes of the level.
/// Produces: the nodes with those added. A node that exists stays as it is. Elements may stand on nodes
///           that others make, in any order. Midside nodes get labels above those of all nodes and all
///           connectivity of the part and, where that is told, of its instances. They are written into the
///           elements, in the table that others share.
/// Reports:  errors with the keyword's place; the walk goes on.
class inp_NodeGenerationVisitor : public inp_Visitor
{
public:
  /// Without `checkNodes` elements have no connectivity, and nothing is made. In a `restartJob` an old
  /// set or a master may belong to the earlier job, and one that is missing is passed over. `inParts`:
  /// the walk is over the keywords of parts, and else over those of instances. `partName` is where the
  /// walk begins; empty for a deck with parts.
  inp_NodeGenerationVisitor(inp_CoordMap const& coords,
                            inpM_InstanceMap<inp_MapInt2Element> const& elementMap,
                            inpM_SetMap const& elementSetMap, bool checkNodes, bool restartJob,
                            bool inParts, cow_String const& partName);

  void setLumenCompatible(bool isCompatible) { lumenCompatible = isCompatible; }
  bool LumenCompatible() const { return lumenCompatible; }

  /// Gives for the name of a part the largest label that its instances use, so that none of theirs is that
  /// of a midside node. Asked when the first such node of the part is made.
  void setLabelsInUse(std::function<int(cow_String const&)> const& largest)
  {
    m_largestInUse = largest;
  }

  /// The largest label of the nodes and of the connectivity of a part or an instance; 0 where both are
  /// empty. O(connectivity).
  int LargestLabel(cow_String const& name) const;

  inp_CoordMap const& GetCoordMap() const { return coordMap; }

  void Visit(inp_Keyword& keyword) override;
  void DefaultAction(inp_Keyword&) override {}
  void VisitElcopy(inp_Keyword& keyword) override;
  void VisitElement(inp_Keyword& keyword) override;
  void VisitElgen(inp_Keyword& keyword) override;
  void VisitInstance(inp_Keyword& keyword) override;
  void VisitPart(inp_Keyword& keyword) override;
  virtual bool IsValidInstanceName(cow_String const& name) const { return name == MeshScope(); }

protected:
  /// The largest label of a part or an instance, 0 for one without nodes.
  int FindMaxNodeLabel(cow_String const& name) const;

  /// The weights of the corners (-1,-1), (1,-1), (1,1), (-1,1) and of the midside nodes behind each, at a
  /// point of a quadrilateral with eight nodes.
  void BiquadraticInterpolator(double const& r, double const& s, double* weights) const;

  /// Puts the nodes 17 and 18, as far as they are new, into the middle of both faces of a gasket, or
  /// lets them wait for the nodes of the face.
  void GenerateGasketGK3D18MidsideNodes(inp_CoordMap& coords, int const* nodes, bool isFirstNew,
                                        bool isSecondNew);
  /// The point (r, s) of a face of which `nodes` are the eight nodes; false when one of them is missing.
  bool GenerateGasketGK3D18MidsideNodes(inp_CoordMap const& coords, int const* nodes, double r,
                                        double s, inp_Coord& point) const;

  /// The set, or null with a message.
  inpM_BaseSet const* CheckExistenceOfSet(inp_Keyword const& keyword, cow_String const& name);

  inp_CoordMap coordMap;
  inpM_InstanceMap<inp_MapInt2Element> elements;
  inpM_SetMap elementSets;
  int nextLabel; ///< of a midside node, once it is raised; 0 until the first one of the scope

private:
  using ShortRow = atr_MessageRow<2>;

  /// Nodes that can be made once others are there: those above a bottom node, or the one in the middle
  /// of a face.
  struct Implied
  {
    int const* nodes; ///< of the element, from the bottom node on; or the eight of the face
    int step;         ///< from a layer to the next one; 0 for a face
    int layers;       ///< or for a face the label of the node in its middle
  };

  bool IsInScope() const;
  void BeginScope();
  void CompleteElement(inp_Keyword const& keyword, int label, ShortRow const& tooFewNodes);
  void AddMidsideNodes(inp_Keyword const& keyword, int label, inp_Element& element,
                       inp_CoordMap& coords);
  int NewLabel();
  void Make(Implied const& implied, inp_CoordMap& coords);
  void MakeColumn(Implied const& implied, inp_CoordMap& coords);
  void MakeMiddle(Implied const& implied, inp_CoordMap& coords);
  void InsertNode(int label, inp_Coord const& coord, inp_CoordMap& coords);
  void AddLayers(inp_Keyword const& keyword, inp_Element const& element,
                 inp_ElementFamily const& family, inp_CoordMap& coords,
                 ShortRow const& tooFewNodes);

  bool m_checksNodes;
  bool m_isRestart;
  bool m_isInParts;
  bool lumenCompatible = false;
  std::function<int(cow_String const&)> m_largestInUse = [](cow_String const&) { return 0; };
  std::int64_t m_generated = 0;                            ///< elements of *ELGEN so far
  std::unordered_map<int, std::vector<Implied>> m_waiting; ///< by the label that is missing
  std::vector<Implied> m_ready;                            ///< to be made next
};
