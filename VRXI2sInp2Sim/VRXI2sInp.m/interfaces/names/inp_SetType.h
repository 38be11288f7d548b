#pragma once

/// What a set holds, or what a name refers to.
enum inp_SetType : int
{
  inp_elementSet = 0,
  inp_nodeSet = 1,
  inp_anySet = 2 ///< not told
};
