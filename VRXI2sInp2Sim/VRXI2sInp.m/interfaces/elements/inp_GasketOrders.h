#pragma once

#include "cow_String.h"

#include <span>

/// How the nodes of a solid element become those of a gasket, for *ELEMENT with SOLID ELEMENT NUMBERING.
///
/// A gasket lists the corners of its bottom and their midside nodes, then those of its top. Face number
/// s of the solid element becomes the bottom; `order` holds, for each node of the gasket, its index in
/// the list of the solid element, from 0.
struct inp_GasketOrder
{
  std::span<int const> order;
  int faces;         ///< how many numbers s there are; 0 for a type whose rows stay as they are
  int nodesRequired; ///< in the solid element, for the order to apply
};

/// The order of a type in upper case. A number s that is no face gives an empty order.
inp_GasketOrder inp_GasketOrderOf(cow_String const& type, int face);
