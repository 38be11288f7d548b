#pragma once

#include "gsl_Matrix.h"
#include "inpM_InstanceMap.h"
#include "inp_CoordMap.h"
#include "inp_MapInt2Element.h"
#include "inp_SetVisitor.h"

class inp_NumberFields;

/// Turns the node keywords of one part, or of the assembly level, into nodes and node sets.
///
/// Handles *NODE, *SYSTEM, *NGEN, *NFILL, *NCOPY, *NMAP and *NSET in deck order: a generator sees only
/// what stands above it. Every other keyword is passed over.
///
/// Needs:    for *NSET with ELSET the element maps and element sets of the same level, which may be empty.
/// Produces: nodes by user label, in the child of the map that has the name of the scope (the part,
///           or else the instance; the map itself at assembly level), and node sets.
/// Reports:  errors and warnings through inp_Visitor, each with its keyword's line. Where a fault ends
///           its keyword, what was generated before stays; no set is made then. Never throws for a
///           fault in the deck.
///
/// Lengths are in the deck's units, angles of the deck are degrees. Stored coordinates are rectangular
/// and in the part's own system; nodes of an instance are read in its position and written back from
/// there. Labels are 1 to 999999999: a generator that would leave this range, or make more nodes than
/// memory may hold, stops.
class inp_NodeVisitor : public inp_SetVisitor
{
public:
  /// With `computeGeometry` false nodes are only numbered: labels and sets come out the same, all
  /// coordinates are zero, and nothing is said of coordinates or of nodes that do not exist.
  explicit inp_NodeVisitor(bool itComputesGeometry);
  inp_NodeVisitor(inpM_InstanceMap<inp_MapInt2Element> const& itsElements,
                  inpM_SetMap const& itsElementSets, inpM_SetMap const& workingSets,
                  bool itComputesGeometry);

  inp_CoordMap const& GetCoordMap() const { return coordMap; }

  /// Adds to the sets of *NSET with ELSET, and to those that name them, the nodes that elements have got
  /// since the walk: midside nodes, whose labels are given out when all other nodes are known, and those
  /// of elements of the assembly, which may be nodes of any instance.
  void FinishNodeSets();

  void VisitNcopy(inp_Keyword& keyword) override;
  void VisitNfill(inp_Keyword& keyword) override;
  void VisitNgen(inp_Keyword& keyword) override;
  void VisitNmap(inp_Keyword& keyword) override;
  void VisitNode(inp_Keyword& keyword) override;
  void VisitNset(inp_Keyword& keyword) override;
  void VisitParticleGeneratorMixture(inp_Keyword& keyword) override;
  void VisitSystem(inp_Keyword& keyword) override;

  /// A point from three fields; those that are missing are 0.0. Counts from 0.
  static gsl_Point ReadPointFromKeywordData(inp_Keyword const& keyword, int row, int column);

protected:
  cow_String KeywordName() const override { return "*NODE"; }
  bool IsValidInstanceName(cow_String const& name) const override { return name == MeshScope(); }

  /// The position of the node whose label a field gives; the origin when there is none.
  gsl_Point ReadNodeFromKeywordData(inp_Keyword const& keyword, cow_String const& instanceName,
                                    int row, int column) const;

  /// Where a node of an element of the assembly itself is.
  struct NodePlace
  {
    cow_String instanceName; ///< empty: in the assembly
    int label;
  };
  /// By the integer that the element holds for the node. To be asked behind the walk.
  virtual NodePlace PlaceOfAssemblyNode(int node) { return {cow_String(), node}; }

  /// Moves a node to where the current instance stands. Its normal is not turned.
  inp_Coord ApplyInstanceTransform(inp_Coord const& coord) const;
  /// Moves a node from there back to where it is stored, and turns its normal back.
  inp_Coord UndoInstanceTransform(inp_Coord const& coord) const;

  /// The arc from A to B about C: its radius, its angle, and directions u, v such that its points are
  /// C + radius * (u cos + v sin), with u towards A. `w` is its axis, and `e` the direction from C to B.
  ///
  /// The arc runs counter-clockwise about `normal`, through a whole turn when A is at B. When `normal` is
  /// zero it takes the shorter way, about the normal of the plane ABC. False, with an error, when there is
  /// no such arc; a warning when A and B are not equally far from C.
  bool CircleData(inp_Keyword const& keyword, gsl_Point const& a, gsl_Point const& b,
                  gsl_Point const& c, gsl_Vector const& normal, double& radius, double& angle,
                  gsl_Vector& u, gsl_Vector& v, gsl_Vector& w, gsl_Vector& e);

  /// Directions have length 1.
  static gsl_Vector ReflectVectorAboutLine(gsl_Vector const& vector, gsl_Vector const& direction);
  static gsl_Vector ReflectVectorAboutPlane(gsl_Vector const& vector, gsl_Vector const& normal);
  static gsl_Vector MatrixVectorMultiply3x3(double const (&matrix)[3][3], gsl_Vector const& vector);

  inp_CoordMap coordMap;        ///< being filled
  gsl_Matrix instanceTransform; ///< to where the current instance stands; identity for a part
  gsl_Matrix systemTransform;   ///< of the latest *SYSTEM
  inpM_InstanceMap<gsl_Matrix> m_instancePositions; ///< for the walk over instances
  inpM_InstanceMap<cow_String> instanceParts;       ///< for the walk over instances
  inpM_InstanceMap<inp_MapInt2Element> elements;
  inpM_SetMap elementSets;
  bool hasAssemblySets = false; ///< sets are searched in the whole model, not in the scope alone
  bool computeGeometry = true;
  bool reportBlended = false;

private:
  struct Arc;
  struct FillRow;
  struct Motion;
  class NodeCopier;
  struct Mapping;
  class MappingReader;
  struct NodesOfElements;
  template <class Rows>
  class NodeReader;
  class KnownNodes;

  /// The map of the scope; null, with an error, when there is no such part or instance.
  inp_CoordMap* TargetMap(inp_Keyword const& keyword);
  inpM_BaseSet const* FindNodeSet(inp_Keyword const& keyword, cow_String const& name);
  void AddNodeSet(inp_Keyword const& keyword, char const* parameter, inpM_SetHandle const& set);
  bool CheckLabel(inp_Keyword const& keyword, long long label);
  /// Counts nodes that are to be generated; false, with an error, when the walk has made too many.
  bool CheckCount(inp_Keyword const& keyword, double count);
  bool CheckListed(inp_Keyword const& keyword, inpM_BaseSet const& set);
  /// Stores a generated node; false, with an error, when its position is not finite.
  bool Store(inp_Keyword const& keyword, inp_CoordMap& map, int label, inp_Coord const& coord);
  template <class Rows>
  void ReadNodes(inp_Keyword const& keyword, Rows const& rows);
  inp_Coord InSystem(inp_Coord coord, cow_String const& system) const;
  void SetSystemInPlane(inp_Keyword const& keyword, gsl_Vector const& x, gsl_Vector inPlane);
  void SetSystemAboutZ(inp_Keyword const& keyword, gsl_Vector const& x);

  bool GenerateRow(inp_Keyword const& keyword, int row, inp_CoordMap& map, cow_List<int>& labels);
  bool StoreOnArc(inp_Keyword const& keyword, inp_CoordMap& map, Arc const& arc, int first,
                  int step, int count, cow_List<int>& labels);
  bool StoreArcPoint(inp_Keyword const& keyword, inp_CoordMap& map, Arc const& arc, int label,
                     double t);
  bool ReadArc(inp_Keyword const& keyword, int row, inp_CoordMap const& map, Arc& arc);
  bool ReadThirdPoint(inp_Keyword const& keyword, int row, inp_CoordMap const& map,
                      inp_NumberFields& fields, Arc& arc);
  void CreateMissingNode(inp_Keyword const& keyword, inp_CoordMap& map, int label);

  bool CheckFillParameters(inp_Keyword const& keyword);
  bool ReadFillRow(inp_Keyword const& keyword, int row, FillRow& fill);
  bool ReadFillSets(inp_Keyword const& keyword, int row, FillRow& fill);
  bool ReadFillIntervals(inp_Keyword const& keyword, int row, FillRow& fill);
  bool FillBetweenSets(inp_Keyword const& keyword, FillRow const& fill, inp_CoordMap& map,
                       cow_List<int>& labels);
  bool FillBetweenNodes(inp_Keyword const& keyword, FillRow const& fill, inp_CoordMap& map, int a,
                        int b, cow_List<int>& labels);
  bool CheckFillEnds(inp_Keyword const& keyword, FillRow const& fill, inp_CoordMap const& map,
                     int a, int b, bool (&isReported)[2]);

  inpM_BaseSet const* FindSetToCopy(inp_Keyword const& keyword);
  bool ReadMotion(inp_Keyword const& keyword, inp_CoordMap const& map, Motion& motion);
  bool ReadReflection(inp_Keyword const& keyword, Motion& motion);
  bool ReadShift(inp_Keyword const& keyword, Motion& motion);

  inpM_BaseSet const* FindSetToMap(inp_Keyword const& keyword);

  void ReadNodeSet(inp_Keyword const& keyword, cow_String const& name);
  void AddNodesOfElements(inp_Keyword const& keyword, cow_String const& name);
  bool AddNodesOfScope(inp_Keyword const& keyword, cow_String const& elset, cow_String const& scope,
                       NodesOfElements& found);
  bool AddNodesOfAssembly(inp_Keyword const& keyword, cow_String const& elset,
                          NodesOfElements& found);
  void InheritUnfinished(inp_Keyword const& keyword, cow_String const& name);
  void InheritUnfinishedOf(cow_String const& field, cow_String const& name);
  void FinishNodeSets(cow_String const& scope, inpM_BaseSetMap const& unfinished);
  void AddNodesOfOwnElements(inpM_BaseSet const& set, KnownNodes const& known, inpM_BaseSet& nodes);
  bool IsImportedWithoutElements(inp_Keyword const& keyword, cow_String const& instanceName);

  inpM_SetMap m_unfinished; ///< by scope and node set, elements whose nodes are not all made
  double m_generated = 0.0; ///< nodes so far, those included that replace others
};
