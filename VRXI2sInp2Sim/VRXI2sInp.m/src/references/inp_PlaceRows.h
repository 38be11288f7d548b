#pragma once

#include "inp_ReferencePlace.h"

#include <cstddef>

// How the rows of a table of references become arrays, each closed by a place that names nothing. A
// source defines INP_PLACES as INP_PLACES_ARRAY before it includes the table.
#define NODES inp_ReferencePlace::Of(inp_refNodes)
#define ELEMENTS inp_ReferencePlace::Of(inp_refElements)
#define SURFACE inp_ReferencePlace::Of(inp_refSurface)
#define ORIENTATION inp_ReferencePlace::Of(inp_refOrientation)
#define INFLATOR inp_ReferencePlace::Of(inp_refInflator)
#define DISTRIBUTION inp_ReferencePlace::Of(inp_refDistribution)
#define TABLE inp_ReferencePlace::Of(inp_refTable)
#define MATERIAL inp_ReferencePlace::Of(inp_refMaterial)
#define GENERATOR inp_ReferencePlace::Of(inp_refGenerator)

template <std::size_t Count>
constexpr bool inp_AreServed(inp_ReferencePlace const (&places)[Count])
{
  for (inp_ReferencePlace const& place : places)
  {
    if (!place.IsServed())
    {
      return false;
    }
  }
  return true;
}

#define INP_PLACES_ARRAY(stem, ...)                                                                \
  constexpr inp_ReferencePlace placesOf##stem[] = {__VA_ARGS__, inp_ReferencePlace{}};             \
  static_assert(inp_AreServed(placesOf##stem), "a place of " #stem " asks for what no walk does");
