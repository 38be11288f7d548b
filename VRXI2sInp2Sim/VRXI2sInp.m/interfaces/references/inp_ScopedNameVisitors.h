#pragma once

#include "inp_DistributionFixupVisitor.h"
#include "inp_MaterialFixupVisitor.h"
#include "inp_OrientationFixupVisitor.h"
#include "inp_RebarFixupVisitor.h"
#include "inp_SetFixupVisitor.h"
#include "inp_SurfaceFixupVisitor.h"

// In an assembly deck a name of the model may be written with the assembly's in front: Assy.P-1.S
// is P-1.S. These take the prefix away from names that stand in no part, instance, assembly or
// substructure. The assembly's name is the text before the first period, compared as it stands; a
// name without that prefix stays.
//
// inp_ScopedName<kind>Visitor, for each kind of inp_NameKinds.def.

/// Also takes the members of *NSET and *ELSET, of GENERATE rows start and end, and the element set
/// of which *NSET takes the nodes.
class inp_ScopedNameSetVisitor : public inp_SetFixupVisitor
{
public:
  inp_ScopedNameSetVisitor(inpM_SetMap const& itsNsets, inpM_SetMap const& itsElsets,
                           inpM_IdMap const& itsNodeIdMap, inpM_IdMap const& itsElementIdMap,
                           cow_String const& itsAssemblyName,
                           inp_ModelParameters const& itsModelParameters);

  void VisitElset(inp_Keyword& keyword) override;
  void VisitNset(inp_Keyword& keyword) override;

  cow_String FixupIdOrSet(inp_Keyword const& keyword, cow_String const& value,
                          inpM_SetMap const& setMap, inpM_IdMap const& idMap,
                          cow_String const& assembly, cow_String const& instance,
                          cow_String const& part, inp_SetType setType,
                          cow_String const& parameterName) override;

protected:
  bool RewriteInPlace(char* cell) override;
  char NameMark() const override { return '.'; }
  bool AnswersByName() const override { return true; }

private:
  cow_String assemblyName;
};

class inp_ScopedNameSurfaceVisitor : public inp_SurfaceFixupVisitor
{
public:
  /// A continued job's names are treated like any other's.
  inp_ScopedNameSurfaceVisitor(inpM_SurfaceMap const& itsSurfaces,
                               cow_String const& itsAssemblyName, bool restartJob);

  /// No keyword reaches this one.
  virtual void VisitSurfaceDefinition(inp_Keyword& keyword);

  cow_String FixupSurfaceName(cow_String const& name, cow_String const& instance,
                              cow_String const& assembly, cow_String const& part) override;

protected:
  bool RewriteInPlace(char* cell) override;
  char NameMark() const override { return '.'; }
  bool AnswersByName() const override { return true; }

private:
  cow_String assemblyName;
};

// Behind the assembly's name stands what the base's constructor takes.
#define INP_NAME_KIND_BY_HAND(kind, operation, ...)
#define INP_NAME_KIND(kind, operation, ...)                                                        \
  class inp_ScopedName##kind##Visitor : public inp_##kind##FixupVisitor                            \
  {                                                                                                \
  public:                                                                                          \
    template <class... Needs>                                                                      \
    explicit inp_ScopedName##kind##Visitor(cow_String const& itsAssemblyName,                      \
                                           Needs const&... needs)                                  \
      : inp_##kind##FixupVisitor(needs...), assemblyName(itsAssemblyName)                          \
    {                                                                                              \
    }                                                                                              \
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
                                                                                                   \
  private:                                                                                         \
    cow_String assemblyName;                                                                       \
  };
#include "inp_NameKinds.def"
