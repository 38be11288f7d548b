#include "shp_ShapeDictionary.h"

#include "inp_ElementInfo.h"

#include <string_view>

namespace
{

// clang-format off

// Nodes of the larger shapes, from 0. A midside node stands behind the corners, for each edge in the
// order given here:
//   quad      01 12 23 30             brick   01 12 23 30, 45 56 67 74, 04 15 26 37, inside, faces
//   triangle  01 12 20                wedge   01 12 20, 34 45 53, 03 14 25, quadrilateral faces
//                                     tet     01 12 20, 03 13 23
constexpr shp_Face c_triangle3[] = {{2, {0, 1}}, {2, {1, 2}}, {2, {2, 0}}};
constexpr shp_Face c_triangle6[] = {{3, {0, 1, 3}}, {3, {1, 2, 4}}, {3, {2, 0, 5}}};
constexpr shp_Face c_quad4[] = {{2, {0, 1}}, {2, {1, 2}}, {2, {2, 3}}, {2, {3, 0}}};
constexpr shp_Face c_quad8[] = {{3, {0, 1, 4}}, {3, {1, 2, 5}}, {3, {2, 3, 6}}, {3, {3, 0, 7}}};

constexpr shp_Face c_tet4[] = {{3, {0, 1, 2}}, {3, {0, 3, 1}}, {3, {1, 3, 2}}, {3, {2, 3, 0}}};
constexpr shp_Face c_tet10[] = {
  {6, {0, 1, 2, 4, 5, 6}}, {6, {0, 3, 1, 7, 8, 4}},
  {6, {1, 3, 2, 8, 9, 5}}, {6, {2, 3, 0, 9, 7, 6}}};

constexpr shp_Face c_pyramid5[] = {
  {4, {0, 1, 2, 3}}, {3, {0, 4, 1}}, {3, {1, 4, 2}}, {3, {2, 4, 3}}, {3, {3, 4, 0}}};

constexpr shp_Face c_wedge6[] = {
  {3, {0, 1, 2}}, {3, {3, 5, 4}}, {4, {0, 3, 4, 1}}, {4, {1, 4, 5, 2}}, {4, {2, 5, 3, 0}}};
constexpr shp_Face c_wedge15[] = {
  {6, {0, 1, 2, 6, 7, 8}}, {6, {3, 5, 4, 11, 10, 9}},
  {8, {0, 3, 4, 1, 12, 9, 13, 6}}, {8, {1, 4, 5, 2, 13, 10, 14, 7}},
  {8, {2, 5, 3, 0, 14, 11, 12, 8}}};
constexpr shp_Face c_wedge18[] = {
  {6, {0, 1, 2, 6, 7, 8}}, {6, {3, 5, 4, 11, 10, 9}},
  {9, {0, 3, 4, 1, 12, 9, 13, 6, 15}}, {9, {1, 4, 5, 2, 13, 10, 14, 7, 16}},
  {9, {2, 5, 3, 0, 14, 11, 12, 8, 17}}};

constexpr shp_Face c_brick8[] = {
  {4, {0, 1, 2, 3}}, {4, {4, 7, 6, 5}}, {4, {0, 4, 5, 1}},
  {4, {1, 5, 6, 2}}, {4, {2, 6, 7, 3}}, {4, {3, 7, 4, 0}}};
constexpr shp_Face c_brick20[] = {
  {8, {0, 1, 2, 3,  8,  9, 10, 11}}, {8, {4, 7, 6, 5, 15, 14, 13, 12}},
  {8, {0, 4, 5, 1, 16, 12, 17,  8}}, {8, {1, 5, 6, 2, 17, 13, 18,  9}},
  {8, {2, 6, 7, 3, 18, 14, 19, 10}}, {8, {3, 7, 4, 0, 19, 15, 16, 11}}};
constexpr shp_Face c_brick27[] = {
  {9, {0, 1, 2, 3,  8,  9, 10, 11, 21}}, {9, {4, 7, 6, 5, 15, 14, 13, 12, 22}},
  {9, {0, 4, 5, 1, 16, 12, 17,  8, 23}}, {9, {1, 5, 6, 2, 17, 13, 18,  9, 24}},
  {9, {2, 6, 7, 3, 18, 14, 19, 10, 25}}, {9, {3, 7, 4, 0, 19, 15, 16, 11, 26}}};

// Both sides of a shell, by its number of nodes.
constexpr shp_Face c_sides2[] = {{2, {0, 1}}, {2, {0, 1}}};
constexpr shp_Face c_sides3[] = {{3, {0, 1, 2}}, {3, {0, 1, 2}}};
constexpr shp_Face c_sides4[] = {{4, {0, 1, 2, 3}}, {4, {0, 1, 2, 3}}};
constexpr shp_Face c_sides6[] = {{6, {0, 1, 2, 3, 4, 5}}, {6, {0, 1, 2, 3, 4, 5}}};
constexpr shp_Face c_sides8[] = {{8, {0, 1, 2, 3, 4, 5, 6, 7}}, {8, {0, 1, 2, 3, 4, 5, 6, 7}}};
constexpr shp_Face c_sides9[] = {
  {9, {0, 1, 2, 3, 4, 5, 6, 7, 8}}, {9, {0, 1, 2, 3, 4, 5, 6, 7, 8}}};

enum classEnm { c_solid, c_interfaceSolid, c_plane, c_interfacePlane, c_shell, c_line };

// The families whose elements have faces; the stem is what stands in front of the number of nodes.
struct Family
{
  std::string_view stem;
  classEnm kind;
};
constexpr Family c_families[] = {
  {"C3D",  c_solid}, {"DC3D", c_solid}, {"DCC3D", c_solid}, {"AC3D", c_solid}, {"Q3D", c_solid},
  {"EC3D", c_solid}, {"EMC3D", c_solid}, {"FC3D", c_solid}, {"CSS", c_solid}, {"SC", c_solid},
  {"COH3D", c_interfaceSolid}, {"GK3D", c_interfaceSolid},
  {"CPE",  c_plane}, {"CPS",  c_plane}, {"CPEG",  c_plane}, {"CAX",  c_plane}, {"CGAX", c_plane},
  {"DC2D", c_plane}, {"DCAX", c_plane}, {"DCC2D", c_plane}, {"DCCAX", c_plane}, {"AC2D", c_plane},
  {"ACAX", c_plane}, {"EMC2D", c_plane}, {"EMCP", c_plane}, {"WARP2D", c_plane},
  {"COH2D", c_interfacePlane}, {"COHAX", c_interfacePlane},
  {"S", c_shell}, {"DS", c_shell}, {"STRI", c_shell}, {"M3D", c_shell}, {"R3D", c_shell},
  {"SFM3D", c_shell},
  {"SAX", c_line}, {"DSAX", c_line}, {"MAX", c_line}, {"MGAX", c_line}, {"SFMAX", c_line},
  {"SFMGAX", c_line}, {"RAX", c_line}, {"R2D", c_line}};

// clang-format on

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The number behind the stem; 0 when the name is not of the family.
int NumberBehind(std::string_view type, std::string_view stem)
{
  int number = 0;
  if (type.starts_with(stem))
  {
    for (std::size_t i = stem.size(); i < type.size() && IsDigit(type[i]); ++i)
    {
      number = 10 * number + (type[i] - '0');
    }
  }
  return number;
}

/// The family of a type, and the number of nodes in its name. False for a type without faces.
bool FindFamily(std::string_view type, Family& family, int& number)
{
  for (Family const& candidate : c_families)
  {
    family = candidate;
    number = NumberBehind(type, family.stem);
    if (number != 0)
    {
      return true;
    }
  }
  return false;
}

shp_Shape const* WithNodes(std::span<shp_Shape const> shapes, int nodes)
{
  for (shp_Shape const& shape : shapes)
  {
    if (shape.NumNodes() == nodes)
    {
      return &shape;
    }
  }
  return nullptr;
}

} // namespace

struct shp_ShapeDictionary::Shapes
{
  static constexpr shp_Shape solids[] = {
    {shp_tet4, 4, true, false, c_tet4},        {shp_pyramid5, 5, true, false, c_pyramid5},
    {shp_wedge6, 6, true, false, c_wedge6},    {shp_brick8, 8, true, false, c_brick8},
    {shp_tet10, 10, true, false, c_tet10},     {shp_wedge15, 15, true, false, c_wedge15},
    {shp_brick20, 20, true, false, c_brick20}, {shp_brick27, 27, true, false, c_brick27}};
  static constexpr shp_Shape wedge18{shp_wedge18, 18, true, false, c_wedge18};
  static constexpr shp_Shape planes[] = {{shp_triangle3, 3, true, false, c_triangle3},
                                         {shp_quad4, 4, true, false, c_quad4},
                                         {shp_triangle6, 6, true, false, c_triangle6},
                                         {shp_quad8, 8, true, false, c_quad8}};
  static constexpr shp_Shape interfaces[] = {{shp_quad4, 4, false, false, c_quad4},
                                             {shp_wedge6, 6, false, false, c_wedge6},
                                             {shp_brick8, 8, false, false, c_brick8}};
  static constexpr shp_Shape shells[] = {
    {shp_line, 2, false, true, c_sides2},  {shp_triangle3, 3, false, true, c_sides3},
    {shp_quad4, 4, false, true, c_sides4}, {shp_triangle6, 6, false, true, c_sides6},
    {shp_quad8, 8, false, true, c_sides8}, {shp_quad8, 9, false, true, c_sides9}};
};

/// The number in a name decides where it is the number of nodes that a row lists: that of COH3D8P, which
/// lists more, decides nothing. Shells and lines go by the fewest nodes of a row instead.
shp_Shape const* shp_ShapeDictionary::GetShape(cow_String const& type)
{
  inp_ElementInfo const* const info = inp_ElementInfo::elementInfo(type);
  Family family{};
  int number = 0;
  if (info == nullptr || !FindFamily(info->name, family, number))
  {
    return nullptr;
  }
  std::string_view const name = info->name;
  bool const isPlainList = number == info->minNodes || number == info->maxNodes;
  int const nodes = isPlainList ? number : 0;
  switch (family.kind)
  {
  case c_solid:
    return name.starts_with("C3D15V") ? &Shapes::wedge18 : WithNodes(Shapes::solids, nodes);
  case c_plane:
    return WithNodes(Shapes::planes, nodes);
  case c_interfaceSolid:
  case c_interfacePlane:
  {
    bool const isLinear = name.find('L', family.stem.size()) == name.npos &&
                          (family.kind == c_interfacePlane) == (number == 4);
    return WithNodes(Shapes::interfaces, isLinear ? nodes : 0);
  }
  case c_shell:
  case c_line:
    return WithNodes(Shapes::shells, info->minNodes);
  }
  return nullptr;
}

int shp_Shape::FaceIndex(cow_String const& faceId) const
{
  cow_String name = faceId;
  std::string_view const text = name.ToUpper().View();
  if (m_hasSides)
  {
    return text == "SPOS" ? 0 : text == "SNEG" ? 1 : -1;
  }
  bool const isNumbered = text.size() == 2 && text[0] == 'S' && IsDigit(text[1]);
  int const index = isNumbered ? text[1] - '1' : -1;
  return index < static_cast<int>(m_faces.size()) ? index : -1;
}
