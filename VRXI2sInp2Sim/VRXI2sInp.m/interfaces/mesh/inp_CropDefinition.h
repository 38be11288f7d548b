#pragma once

#include "gsl_Matrix.h"
#include "gsl_Point.h"
#include "gsl_Vector.h"

class inp_Coord;
class inp_Keyword;

/// The box to which *SURFACE, CROP cuts a surface.
///
///     *SURFACE, NAME=CUT, CROP
///     WHOLE                          the surface to be cut
///     x1, y1, z1, x2, y2, z2         two opposite corners
///     xa, ya, za, xb, yb, zb         the box's own directions
///
/// With the third row, corners count along the box's own axes, from the first corner on; without it,
/// the box goes from the origin of coordinates to the second corner, and the first one plays no part.
/// Missing numbers are 0. The bounds belong to the box.
///
/// A keyword without a name or the second row gives a box that is not valid, and nothing is to be taken
/// from the surface then. So does one whose directions make no orientation, which draws a warning, and
/// one with a field that is no number, which is an error.
class inp_CropDefinition
{
public:
  explicit inp_CropDefinition(inp_Keyword const& keyword);

  bool IsValid() const { return valid; }

  /// Tells whether a node, in its position, lies in a valid box.
  bool IsInBox(inp_Coord const& node) const;

private:
  bool Orient(inp_Keyword const& keyword, gsl_Vector a, gsl_Vector const& b);

  bool valid = false;
  bool oriented = false; ///< there is a third row
  gsl_Vector extent;     ///< of the box along its own axes
  gsl_Point origin;      ///< used when oriented
  gsl_Matrix rotation;   ///< into the box's axes; used when oriented
};
