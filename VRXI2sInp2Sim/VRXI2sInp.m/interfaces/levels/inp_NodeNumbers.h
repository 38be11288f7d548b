#pragma once

#include "inp_CoordMap.h"

#include <unordered_map>
#include <utility>
#include <vector>

/// The numbers that the nodes of an assembly have across the model, asked for one by one: those that
/// inp_CoordMap::Renumber(1, false) gives to all of them.
///
///     inp_NodeNumbers numbers(coords);
///     int number = 0;
///     numbers.Find("WHEEL-1", 5, number);     // true, and the number of node 5 of WHEEL-1
///     numbers.PlaceOf(number).instanceName;   // "WHEEL-1" again
///
/// Holds the first number of each instance. The labels of a table of nodes are listed when the first of
/// its nodes is asked for, once for all instances that share it: springs between thousands of instances
/// of a large part cost its nodes once.
class inp_NodeNumbers
{
public:
  explicit inp_NodeNumbers(inp_CoordMap const& coords); // O(instances)

  bool HasInstance(cow_String const& name) const { return m_levels.count(name) > 0; }

  /// The number of a node of an instance, or with an empty name of the assembly; false when there is no
  /// such node. O(log nodes).
  bool Find(cow_String const& instanceName, int label, int& number);

  /// A node by its label; of the assembly itself when the name is empty.
  struct Place
  {
    cow_String instanceName;
    int label;
  };
  /// The way back, for a number that Find has given. O(log instances).
  Place PlaceOf(int number);

private:
  struct Level
  {
    inp_MapInt2Coord const* nodes;
    int first; ///< number of its first node
  };
  std::vector<int> const& LabelsOf(inp_MapInt2Coord const& nodes);

  inp_CoordMap m_coords; ///< a share, so that the tables stay
  std::unordered_map<cow_String, Level> m_levels;
  std::vector<std::pair<int, cow_String>> m_order; ///< first numbers of the levels, ascending
  std::unordered_map<inp_MapInt2Coord const*, std::vector<int>> m_labels; ///< ascending
};
