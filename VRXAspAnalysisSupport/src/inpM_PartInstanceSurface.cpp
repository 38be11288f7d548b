#include "inpM_PartInstanceSurface.h"

#include "inpM_ElementFaceIdSurface.h"
#include "inpM_NodeAreaSurface.h"

inpM_PartInstanceSurface::~inpM_PartInstanceSurface() = default;

inpM_PartInstanceSurfaceHandle CreateSurface(inpM_SurfaceTypes type)
{
  if (type == inpM_nodeSurface)
  {
    return inpM_PartInstanceSurfaceHandle(new inpM_NodeAreaSurface);
  }
  return inpM_PartInstanceSurfaceHandle(new inpM_ElementFaceIdSurface);
}
