#pragma once

#include "inp_DistributionFixupVisitor.h"
#include "inp_MaterialFixupVisitor.h"
#include "inp_OrientationFixupVisitor.h"
#include "inp_RebarFixupVisitor.h"
#include "inp_SetFixupVisitor.h"
#include "inp_SurfaceFixupVisitor.h"

// A period separates scopes in names, so a flat deck's names lose theirs before there are any
// scopes: each becomes "_", but for those in double quotes. What reads as a real number stays.

/// Takes the names under which sets are defined as well: inp_SetDefinitions.def.
class inp_RemovePeriodSetVisitor : public inp_SetFixupVisitor
{
public:
  explicit inp_RemovePeriodSetVisitor(inp_ModelParameters const& itsModelParameters);

#define INP_PLACES(stem, ...) void Visit##stem(inp_Keyword& keyword) override;
#include "inp_SetDefinitions.def"

  cow_String FixupIdOrSet(inp_Keyword const& keyword, cow_String const& value,
                          inpM_SetMap const& setMap, inpM_IdMap const& idMap,
                          cow_String const& assembly, cow_String const& instance,
                          cow_String const& part, inp_SetType setType,
                          cow_String const& parameterName) override;

protected:
  bool MayChange(char const* cell) const override;
};

class inp_RemovePeriodSurfaceVisitor : public inp_SurfaceFixupVisitor
{
public:
  inp_RemovePeriodSurfaceVisitor();
  cow_String FixupSurfaceName(cow_String const& name, cow_String const& instance,
                              cow_String const& assembly, cow_String const& part) override;

protected:
  bool MayChange(char const* cell) const override;
};

class inp_RemovePeriodDistributionVisitor : public inp_DistributionFixupVisitor
{
public:
  using inp_DistributionFixupVisitor::inp_DistributionFixupVisitor;
  cow_String FixupDistributionName(cow_String const& name) override;

protected:
  bool MayChange(char const* cell) const override;
};

class inp_RemovePeriodOrientationVisitor : public inp_OrientationFixupVisitor
{
public:
  using inp_OrientationFixupVisitor::inp_OrientationFixupVisitor;
  cow_String FixupOrientationName(cow_String const& name) override;

protected:
  bool MayChange(char const* cell) const override;
};

class inp_RemovePeriodRebarVisitor : public inp_RebarFixupVisitor
{
public:
  cow_String FixupRebarName(cow_String const& name) override;
};

class inp_RemovePeriodMaterialVisitor : public inp_MaterialFixupVisitor
{
public:
  cow_String FixupMaterialName(cow_String const& name) override;

protected:
  bool MayChange(char const* cell) const override;
};
