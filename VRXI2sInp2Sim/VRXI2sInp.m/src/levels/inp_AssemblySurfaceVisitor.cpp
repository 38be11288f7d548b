#include "inp_AssemblySurfaceVisitor.h"

#include "inp_KeywordEnm.h"
#include "inp_LevelMessages.h"

namespace
{

bool IsAnalyticalSurface(inp_Keyword const& keyword)
{
  return keyword.Is(inp_kwRigidSurface) ||
         (keyword.Is(inp_kwSurface) &&
          inp_Utils::IsAnalyticalSurfaceType(keyword.GetParameterAsString("type", "")));
}

} // namespace

inp_AssemblySurfaceVisitor::inp_AssemblySurfaceVisitor(inp_LevelMaps const& maps,
                                                       inp_PartMaps const& parts)
  : inp_SurfaceVisitor(maps), m_partSurfaces(parts.surfaces)
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
  cow_String const partName = part.NameIn("name");
  for (inp_Keyword const& keyword : part.suboptions)
  {
    if (IsAnalyticalSurface(keyword) && keyword.ReadName("name").IsGiven())
    {
      m_analyticalSurfaces.emplace(partName.View(), keyword.NameIn("name").View());
    }
  }
}

void inp_AssemblySurfaceVisitor::VisitInstance(inp_Keyword& keyword)
{
  SetInstanceName(keyword);
  if (m_instanceName.Length() > 0 &&
      m_partSurfaces.HasInstanceInPartInstanceSurfaceMap(m_instancePart))
  {
    surfaces.InsertPartInstanceSurfaceMap(
      m_instanceName, m_partSurfaces.ConstGetPartInstanceSurfaceMap(m_instancePart));
  }
}

void inp_AssemblySurfaceVisitor::VisitEndInstance(inp_Keyword& keyword)
{
  DefaultAction(keyword);
  ClearInstanceName();
}

/// The current instance's part has a surface of the keyword's name already, which is an error.
bool inp_AssemblySurfaceVisitor::RedefinesSurfaceOfPart(inp_Keyword const& keyword)
{
  cow_String const name = keyword.NameIn("name");
  bool const isOfPart =
    m_instanceName.Length() > 0 && name.Length() > 0 &&
    (m_partSurfaces.IsMemberPartInstanceSurface(m_instancePart, name) ||
     m_analyticalSurfaces.contains({std::string(m_instancePart.View()), std::string(name.View())}));
  if (isOfPart)
  {
    Say(inp_msgSurfaceOfPartRedefined, keyword, name, m_instancePart, m_instanceName);
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
  if (SetScope().Empty())
  {
    Say(inp_msgAnalyticalSurfaceInAssembly, keyword);
  }
}
