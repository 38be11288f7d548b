#pragma once

#include "inp_SurfaceVisitor.h"

#include <set>
#include <string>
#include <utility>

/// Reads what stands outside of *PART: surfaces within instances and those of the assembly.
///
/// Needs:    a list that is organized; the surfaces of the parts; nodes, elements and sets of the
///           instances and of the assembly; the names of the instances.
/// Produces: for each instance a share of its part's surfaces, and what is new. An instance costs O(1).
/// Reports:  an instance that defines a surface of its part again, analytical ones included, and
///           analytical surfaces outside of parts and instances.
class inp_AssemblySurfaceVisitor : public inp_SurfaceVisitor
{
public:
  inp_AssemblySurfaceVisitor(inp_LevelMaps const& maps, inp_PartMaps const& parts);

  void Visit(inp_Keyword& keyword) override;
  void VisitInstance(inp_Keyword& keyword) override;
  void VisitEndInstance(inp_Keyword& keyword) override;
  void VisitRigidSurface(inp_Keyword& keyword) override;
  void VisitSurface(inp_Keyword& keyword) override;

protected:
  void VisitAnalyticalSurface(inp_Keyword& keyword) override;

private:
  void NoteAnalyticalSurfaces(inp_Keyword const& part);
  bool RedefinesSurfaceOfPart(inp_Keyword const& keyword);

  inpM_SurfaceMap m_partSurfaces;
  std::set<std::pair<std::string, std::string>> m_analyticalSurfaces; ///< of parts: part, surface
};
