#include "inp_ElementReflection.h"

#include "shp_ShapeDictionary.h"

#include <algorithm>
#include <array>

namespace
{

// The list of nodes of a mirrored element runs the wrong way round: its volume would be negative. Each order
// here exchanges two corners of the base, or two pairs of them, which turns the list round again. The nodes
// on edges and faces follow their corners:
//
//     3-------2        the mirrored      1-------2        an edge 23 of the image
//     |       |        quad, by the      |       |        is edge 43 of the original,
//     0-------1        order 1 4 3 2:    0-------3        and its midside node goes along
//
// clang-format off
constexpr int c_triangle3[] = {1, 3, 2};
constexpr int c_triangle6[] = {1, 3, 2,  6, 5, 4};
constexpr int c_quad4[]     = {1, 4, 3, 2};
constexpr int c_quad8[]     = {1, 4, 3, 2,  8, 7, 6, 5};
constexpr int c_tet4[]      = {1, 3, 2, 4};
constexpr int c_tet10[]     = {1, 3, 2, 4,  7, 6, 5,  8, 10, 9};
constexpr int c_pyramid5[]  = {1, 4, 3, 2, 5};
constexpr int c_wedge6[]    = {1, 3, 2,  4, 6, 5};
constexpr int c_wedge18[]   = {1, 3, 2,  4, 6, 5,  9, 8, 7,  12, 11, 10,  13, 15, 14,  18, 17, 16};
constexpr int c_brick8[]    = {1, 4, 3, 2,  5, 8, 7, 6};
constexpr int c_brick27[]   = {1, 4, 3, 2,  5, 8, 7, 6,  12, 11, 10, 9,  16, 15, 14, 13,
                               17, 20, 19, 18,  21,  22, 23,  27, 26, 25, 24};
// clang-format on

constexpr std::size_t c_mostNodes = std::size(c_brick27);

std::span<int const> OrderOf(shp_shapeEnm shape)
{
  switch (shape)
  {
  case shp_triangle3:
    return c_triangle3;
  case shp_triangle6:
    return c_triangle6;
  case shp_quad4:
    return c_quad4;
  case shp_quad8:
    return c_quad8;
  case shp_tet4:
    return c_tet4;
  case shp_tet10:
    return c_tet10;
  case shp_pyramid5:
    return c_pyramid5;
  case shp_wedge6:
    return c_wedge6;
  case shp_wedge15:
    return std::span(c_wedge18).first(15);
  case shp_wedge18:
    return c_wedge18;
  case shp_brick8:
    return c_brick8;
  case shp_brick20:
    return std::span(c_brick27).first(20);
  case shp_brick27:
    return c_brick27;
  case shp_line:
    break;
  }
  return {};
}

} // namespace

std::span<int const> inp_ReflectionOrder(cow_String const& type)
{
  shp_Shape const* const shape = shp_ShapeDictionary::GetShape(type);
  return shape != nullptr && shape->IsContinuum() ? OrderOf(shape->Kind()) : std::span<int const>();
}

bool inp_ReflectNodes(cow_String const& type, std::span<int> nodes)
{
  std::span<int const> const order = inp_ReflectionOrder(type);
  if (order.empty())
  {
    return false;
  }
  std::array<int, c_mostNodes> before{};
  std::size_t const count = std::min(nodes.size(), order.size());
  std::copy_n(nodes.begin(), count, before.begin());
  std::size_t next = 0;
  for (int const from : order)
  {
    if (from <= static_cast<int>(count))
    {
      nodes[next++] = before[static_cast<std::size_t>(from) - 1];
    }
  }
  return true;
}
