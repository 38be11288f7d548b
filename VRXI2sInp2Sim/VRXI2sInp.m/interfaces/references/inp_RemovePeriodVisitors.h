#pragma once

#include "inp_DistributionFixupVisitor.h"
#include "inp_MaterialFixupVisitor.h"
#include "inp_OrientationFixupVisitor.h"
#include "inp_RebarFixupVisitor.h"
#include "inp_SetFixupVisitor.h"
#include "inp_SurfaceFixupVisitor.h"

// A period separates scopes in names, so a flat deck's names lose theirs before there are any
// scopes: each becomes "_", but for those in double quotes. What reads as a real number stays.
//
// A definition and its references change together or not at all: the definitions of materials and
// of distribution tables keep their periods, and so do the references to them.
//
// inp_RemovePeriod<kind>Visitor, for each kind of inp_NameKinds.def.

/// Takes the keywords that define sets as well: inp_SetDefinitions.def.
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
  bool RewriteInPlace(char* cell) override;
  char NameMark() const override { return '.'; }
  bool AnswersByName() const override { return true; }
};

class inp_RemovePeriodSurfaceVisitor : public inp_SurfaceFixupVisitor
{
public:
  inp_RemovePeriodSurfaceVisitor();
  cow_String FixupSurfaceName(cow_String const& name, cow_String const& instance,
                              cow_String const& assembly, cow_String const& part) override;

protected:
  bool RewriteInPlace(char* cell) override;
  char NameMark() const override { return '.'; }
  bool AnswersByName() const override { return true; }
};

// The base's constructor serves.
#define INP_NAME_KIND_BY_HAND(kind, operation, ...)
#define INP_NAME_KIND(kind, operation, ...)                                                        \
  class inp_RemovePeriod##kind##Visitor : public inp_##kind##FixupVisitor                          \
  {                                                                                                \
  public:                                                                                          \
    using inp_##kind##FixupVisitor::inp_##kind##FixupVisitor;                                      \
    cow_String operation(__VA_ARGS__) override;                                                    \
                                                                                                   \
  protected:                                                                                       \
    bool Serves(inp_referenceEnm what) const override                                              \
    {                                                                                              \
      return inp_IsRenamed(what) && inp_##kind##FixupVisitor::Serves(what);                        \
    }                                                                                              \
    bool RewriteInPlace(char* cell) override;                                                      \
    char NameMark() const override { return '.'; }                                                 \
    bool AnswersByName() const override { return true; }                                           \
  };
#include "inp_NameKinds.def"
