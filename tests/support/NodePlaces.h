#pragma once

#include "MeshDeck.h"

#include <vector>

/// A node that is expected, to 1e-10 in each component.
struct NodePlace
{
  int label;
  double x, y, z;
  double nx = 0.0, ny = 0.0, nz = 0.0;
};

/// All these nodes, and with `others` nodes that are not looked at.
inline void ExpectNodes(MeshDeck const& deck, std::vector<NodePlace> const& places, int others = 0)
{
  EXPECT_EQ(static_cast<int>(places.size()) + others, deck.Nodes().Count()) << deck.nodes;
  for (NodePlace const& place : places)
  {
    inp_Coord const node = deck.Node(place.label);
    double const expected[] = {place.x, place.y, place.z, place.nx, place.ny, place.nz};
    double const found[] = {node.x, node.y, node.z, node.nx, node.ny, node.nz};
    for (int i = 0; i < 6; ++i)
      EXPECT_NEAR(expected[i], found[i], 1e-10)
        << "node " << place.label << " component " << i << " of " << deck.nodes;
  }
}
