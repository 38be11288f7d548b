#include "inp_GasketOrders.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace
{

// The rows of bricks: first face s, beginning at the corner that makes the thickness of the gasket point into
// the solid element, then the opposite face, each corner above the one that it lies over. Midside nodes
// follow the corners of their face; those of the four edges between the faces are left out.
//
//         7-------6        s = 1, the bottom, is row 0 1 2 3 below 4 5 6 7
//        /|      /|        s = 2, the top, is row 7 6 5 4 below 3 2 1 0: seen from the other side
//       4-------5 |        s = 3, the front, is row 0 4 5 1 below 3 7 6 2
//       | 3-----|-2
//       |/      |/
//       0-------1
//
// The other solid elements follow from the same rule.
//   brick of 8     the corners of these rows: entries 0 to 3 and 8 to 11
//   wedge          only the triangles lie opposite each other, so there are two rows. Face 1 is 0 1 2
//                  below 3 4 5. Face 2 is taken backwards from its last corner, as face 2 of a brick is:
//                  5 4 3 below 2 1 0. Midside nodes of 01 12 20 are 6 7 8, of 34 45 53 are 9 10 11.
//   quad           four rows, one an edge. Edge s runs from corner s - 1 to the next one; above its ends
//                  stand the corners before and behind it. The bottom is given from left to right with
//                  the element above it, as corners run counterclockwise. Midside nodes of the edges
//                  01 12 23 30 are 4 5 6 7, and the one of the edge opposite stands above.
//
// clang-format off
constexpr std::array<int, 16> c_brick20[] = {
  {0, 1, 2, 3,  8,  9, 10, 11, 4, 5, 6, 7, 12, 13, 14, 15},
  {7, 6, 5, 4, 14, 13, 12, 15, 3, 2, 1, 0, 10,  9,  8, 11},
  {0, 4, 5, 1, 16, 12, 17,  8, 3, 7, 6, 2, 19, 14, 18, 10},
  {2, 1, 5, 6,  9, 17, 13, 18, 3, 0, 4, 7, 11, 16, 15, 19},
  {7, 3, 2, 6, 19, 10, 18, 14, 4, 0, 1, 5, 16,  8, 17, 12},
  {4, 0, 3, 7, 16, 11, 19, 15, 5, 1, 2, 6, 17,  9, 18, 13}};
constexpr std::array<int, 8> c_brick8[] = {
  {0, 1, 2, 3, 4, 5, 6, 7},
  {7, 6, 5, 4, 3, 2, 1, 0},
  {0, 4, 5, 1, 3, 7, 6, 2},
  {2, 1, 5, 6, 3, 0, 4, 7},
  {7, 3, 2, 6, 4, 0, 1, 5},
  {4, 0, 3, 7, 5, 1, 2, 6}};
constexpr std::array<int, 12> c_wedge15[] = {
  {0, 1, 2,  6,  7,  8, 3, 4, 5, 9, 10, 11},
  {5, 4, 3, 10,  9, 11, 2, 1, 0, 7,  6,  8}};
constexpr std::array<int, 6> c_wedge6[] = {
  {0, 1, 2, 3, 4, 5},
  {5, 4, 3, 2, 1, 0}};
constexpr std::array<int, 4> c_quad4[] = {
  {0, 1, 3, 2},
  {1, 2, 0, 3},
  {2, 3, 1, 0},
  {3, 0, 2, 1}};
constexpr std::array<int, 6> c_quad8[] = {
  {0, 1, 4, 3, 2, 6},
  {1, 2, 5, 0, 3, 7},
  {2, 3, 6, 1, 0, 4},
  {3, 0, 7, 2, 1, 5}};
// clang-format on

template <std::size_t Nodes, std::size_t Faces>
inp_GasketOrder Pick(std::array<int, Nodes> const (&rows)[Faces], int face)
{
  if (face < 1 || face > static_cast<int>(Faces))
  {
    return {{}, static_cast<int>(Faces), 0};
  }
  std::array<int, Nodes> const& row = rows[face - 1];
  return {row, static_cast<int>(Faces), *std::max_element(row.begin(), row.end()) + 1};
}

bool IsOf(std::string_view type, std::string_view stem)
{
  return type.starts_with(stem) &&
         (type.size() == stem.size() || type[stem.size()] == 'N' || type[stem.size()] == 'T');
}

} // namespace

inp_GasketOrder inp_GasketOrderOf(cow_String const& type, int face)
{
  std::string_view const name = type.View();
  if (IsOf(name, "GK3D18"))
  {
    return Pick(c_brick20, face);
  }
  if (IsOf(name, "GK3D12M"))
  {
    return Pick(c_wedge15, face);
  }
  if (IsOf(name, "GK3D8"))
  {
    return Pick(c_brick8, face);
  }
  if (IsOf(name, "GK3D6"))
  {
    return Pick(c_wedge6, face);
  }
  if (IsOf(name, "GKPE4") || IsOf(name, "GKPS4") || IsOf(name, "GKAX4") || IsOf(name, "GK3D4L"))
  {
    return Pick(c_quad4, face);
  }
  if (IsOf(name, "GKPE6") || IsOf(name, "GKPS6"))
  {
    return Pick(c_quad8, face);
  }
  return {{}, 0, 0};
}
