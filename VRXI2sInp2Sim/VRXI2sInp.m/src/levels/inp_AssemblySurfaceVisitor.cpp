#include "inp_AssemblySurfaceVisitor.h"

#include "inp_KeywordEnm.h"
#include "inp_LevelMessages.h"

inp_AssemblySurfaceVisitor::inp_AssemblySurfaceVisitor(
  inpM_SetMap const& itsNodeSets, inpM_SetMap const& itsElementSets,
  inpM_InstanceMap<inp_MapInt2Element> const& itsElements, inp_CoordMap const& itsCoordMap,
  inpM_SurfaceMap const& partSurfaces)
  : inp_SurfaceVisitor(itsNodeSets, itsElementSets, itsElements, itsCoordMap),
    m_partSurfaces(partSurfaces)
{
}

void inp_AssemblySurfaceVisitor::Visit(inp_Keyword& keyword)
{
  if (keyword.Is(inp_kwPart))
  {
    NoteAnalyticalSurfaces(keyword);
  }
  else
  {
    inp_SurfaceVisitor::Visit(keyword);
  }
}

void inp_AssemblySurfaceVisitor::NoteAnalyticalSurfaces(inp_Keyword const& part)
{
  cow_String const partName = part.GetParameterAsString("name", "");
  for (inp_Keyword const& keyword : part.suboptions)
  {
    bool const isAnalytical =
      keyword.Is(inp_kwRigidSurface) ||
      (keyword.Is(inp_kwSurface) &&
       inp_Utils::IsAnalyticalSurfaceType(keyword.GetParameterAsString("type", "")));
    if (isAnalytical && keyword.HasParameter("name"))
    {
      m_analyticalSurfaces.emplace(partName.View(),
                                   keyword.GetParameterAsString("name", "").View());
    }
  }
}

void inp_AssemblySurfaceVisitor::VisitInstance(inp_Keyword& keyword)
{
  SetInstanceName(keyword);
  m_part = keyword.NameIn("part");
  if (m_instanceName.Length() > 0 && m_partSurfaces.HasInstanceInPartInstanceSurfaceMap(m_part))
  {
    surfaces.InsertPartInstanceSurfaceMap(m_instanceName,
                                          m_partSurfaces.ConstGetPartInstanceSurfaceMap(m_part));
  }
}

void inp_AssemblySurfaceVisitor::VisitEndInstance(inp_Keyword& keyword)
{
  DefaultAction(keyword);
  ClearInstanceName();
  m_part.Erase();
}

/// The current instance's part has a surface of the keyword's name already, which is an error.
bool inp_AssemblySurfaceVisitor::RedefinesSurfaceOfPart(inp_Keyword const& keyword)
{
  cow_String const name = keyword.NameIn("name");
  bool const isOfPart =
    m_instanceName.Length() > 0 && name.Length() > 0 &&
    (m_partSurfaces.IsMemberPartInstanceSurface(m_part, name) ||
     m_analyticalSurfaces.contains({std::string(m_part.View()), std::string(name.View())}));
  if (isOfPart)
  {
    Say(inp_msgSurfaceOfPartRedefined, keyword, name, m_part, m_instanceName);
  }
  return isOfPart;
}

void inp_AssemblySurfaceVisitor::VisitSurface(inp_Keyword& keyword)
{
  if (!RedefinesSurfaceOfPart(keyword))
  {
    inp_SurfaceVisitor::VisitSurface(keyword);
  }
}

void inp_AssemblySurfaceVisitor::VisitRigidSurface(inp_Keyword& keyword)
{
  if (!RedefinesSurfaceOfPart(keyword))
  {
    VisitAnalyticalSurface(keyword);
  }
}

void inp_AssemblySurfaceVisitor::VisitAnalyticalSurface(inp_Keyword& keyword)
{
  if (CurrentScope().Empty())
  {
    Say(inp_msgAnalyticalSurfaceInAssembly, keyword);
  }
}
