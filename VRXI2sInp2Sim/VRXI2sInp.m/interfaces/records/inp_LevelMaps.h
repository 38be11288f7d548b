#pragma once

#include "cow_Map.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inpM_SurfaceMap.h"
#include "inp_CoordMap.h"
#include "inp_MapInt2Element.h"

/// What the levels of one kind hold, each map with a child for every part, or for every instance. At the top
/// of the maps of instances stands what belongs to the assembly itself.
///
///     inp_LevelMaps const maps = model.AssemblyMaps();
///     maps.nodes.ConstGet("WHEEL-1").ConstGet(5);        // a node of an instance, in position
///     maps.nsets.ConstFindNestedSet("WHEEL-1", "RIM");
///
/// A copy shares the maps and costs O(1).
struct inp_LevelMaps
{
  inp_CoordMap nodes;
  inpM_InstanceMap<inp_MapInt2Element> elements;
  inpM_SetMap nsets;
  inpM_SetMap elsets;
  inpM_SurfaceMap surfaces;
};

/// Those of parts: a type of its own, so that they cannot be taken for those of instances.
struct inp_PartMaps : inp_LevelMaps
{
  cow_Map<cow_String, int> userElements; ///< number of nodes by type, whatever part defines it
};
