#pragma once

#include "cow_String.h"

/// One facet of a surface of elements: an element, and the name of a face of it, such as S1 or SPOS.
struct inpM_SurfaceFacet
{
  int elementId{0};
  cow_String faceId;

  /// Names an element. A face may go without a name: the analysis then takes all free ones.
  bool isValid() const { return elementId > 0; }
};
