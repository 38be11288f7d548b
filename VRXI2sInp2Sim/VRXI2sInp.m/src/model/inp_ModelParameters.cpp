#include "inp_ModelParameters.h"

#include "inp_DistributionTableDB.h"

bool inp_ModelParameters::isCsysRectangular(cow_String const& name) const
{
  int const* const isRectangular = rectangularCsys.ConstFind(name);
  return isRectangular != nullptr && *isRectangular != 0;
}

int inp_ModelParameters::getTableSize(cow_String const& name) const
{
  return thr_ThreadSingleton<inp_DistributionTableDB>::Instance().getTableSize(name);
}
