#pragma once

#include "cow_String.h"

#include <span>

/// The nodes of a face, as indices into the element's list of nodes, from 0. The corners come first, in
/// the order that makes the normal of a solid's face point into the element; then the midside nodes in the
/// same order; then the node in the middle of the face.
struct shp_Face
{
  static constexpr int c_mostNodes = 9;

  int count;
  int nodes[c_mostNodes];

  std::span<int const> Nodes() const { return {nodes, static_cast<std::size_t>(count)}; }
};

enum shp_shapeEnm
{
  shp_line,
  shp_triangle3,
  shp_triangle6,
  shp_quad4,
  shp_quad8,
  shp_tet4,
  shp_tet10,
  shp_pyramid5,
  shp_wedge6,
  shp_wedge15,
  shp_wedge18, ///< the last three nodes, on the quadrilateral faces, are optional
  shp_brick8,
  shp_brick20,
  shp_brick27 ///< the last six nodes, on the faces, are optional
};

/// How the elements of a type list their nodes, and which of them make a face.
class shp_Shape
{
public:
  shp_shapeEnm Kind() const { return m_kind; }
  int NumNodes() const { return m_numNodes; } ///< with the optional ones
  /// Solids, and elements of the plane, whose faces are edges: no shells, lines, or interfaces.
  bool IsContinuum() const { return m_isContinuum; }

  /// By number, from 0: S1, S2 and so on. Shells and lines have SPOS and SNEG, both of all nodes. A face
  /// may name an optional node that an element does not have.
  std::span<shp_Face const> Faces() const { return m_faces; }

  /// The number of the face of that name, as "S3" or "SNEG"; -1 for a name of none.
  int FaceIndex(cow_String const& faceId) const;

private:
  friend class shp_ShapeDictionary;

  constexpr shp_Shape(shp_shapeEnm kind, int numNodes, bool isContinuum, bool hasSides,
                      std::span<shp_Face const> faces)
    : m_kind(kind),
      m_numNodes(numNodes),
      m_isContinuum(isContinuum),
      m_hasSides(hasSides),
      m_faces(faces)
  {
  }

  shp_shapeEnm m_kind;
  int m_numNodes;
  bool m_isContinuum;
  bool m_hasSides; ///< its faces are SPOS and SNEG
  std::span<shp_Face const> m_faces;
};

/// The shapes of the element types.
class shp_ShapeDictionary
{
public:
  /// The shape of a type, whatever its case; null for one without faces that are known here.
  static shp_Shape const* GetShape(cow_String const& type);

private:
  struct Shapes;
};
