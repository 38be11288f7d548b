#pragma once

#include "inp_SurfaceVisitor.h"

/// Reads the surfaces inside *PART; what stands elsewhere is passed over. Needs a list that is
/// organized; produces surfaces by part.
class inp_PartSurfaceVisitor : public inp_SurfaceVisitor
{
public:
  using inp_SurfaceVisitor::inp_SurfaceVisitor;

  void Visit(inp_Keyword& keyword) override;
};
