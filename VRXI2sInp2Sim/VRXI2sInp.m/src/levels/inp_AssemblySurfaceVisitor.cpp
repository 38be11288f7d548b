#include "inp_AssemblySurfaceVisitor.h"

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
  if (!keyword.Is(inp_kwPart))
  {
    inp_SurfaceVisitor::Visit(keyword);
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

void inp_AssemblySurfaceVisitor::VisitSurface(inp_Keyword& keyword)
{
  cow_String const name = keyword.NameIn("name");
  if (m_instanceName.Length() > 0 && m_partSurfaces.IsMemberPartInstanceSurface(m_part, name))
  {
    Say(inp_msgSurfaceOfPartRedefined, keyword, name, m_part, m_instanceName);
    return;
  }
  inp_SurfaceVisitor::VisitSurface(keyword);
}

void inp_AssemblySurfaceVisitor::VisitAnalyticalSurface(inp_Keyword& keyword)
{
  if (CurrentScope().Empty())
  {
    Say(inp_msgAnalyticalSurfaceInAssembly, keyword);
  }
}
