#include "inp_AssemblyElementVisitor.h"

#include "inp_ElementRows.h"
#include "inp_KeywordEnm.h"
#include "inp_LevelMessages.h"

inp_AssemblyElementVisitor::inp_AssemblyElementVisitor(
  inpM_InstanceMap<inp_MapInt2Element> const& partElements, inpM_SetMap const& partElementSets,
  bool computesConnectivity)
  : inp_ElementVisitor(computesConnectivity),
    m_partElements(partElements),
    m_partElementSets(partElementSets)
{
}

// Types that a part defines serve its elements; those that are defined elsewhere serve all.
void inp_AssemblyElementVisitor::Visit(inp_Keyword& keyword)
{
  if (!keyword.Is(inp_kwPart))
  {
    inp_ElementVisitor::Visit(keyword);
  }
}

void inp_AssemblyElementVisitor::VisitInstance(inp_Keyword& keyword)
{
  SetInstanceName(keyword);
  m_part = keyword.NameIn("part");
  if (m_instanceName.Empty())
  {
    return;
  }
  bool const hasElements = m_partElements.IsMember(m_part);
  elements.Insert(m_instanceName,
                  hasElements ? m_partElements.ConstGet(m_part) : inp_MapInt2Element());
  if (m_partElementSets.HasInstance(m_part))
  {
    sets.InsertNestedSetMap(m_instanceName, m_partElementSets.ConstGetNestedSetMap(m_part));
  }
}

void inp_AssemblyElementVisitor::VisitEndInstance(inp_Keyword& keyword)
{
  DefaultAction(keyword);
  ClearInstanceName();
  m_part.Erase();
}

void inp_AssemblyElementVisitor::VisitElement(inp_Keyword& keyword)
{
  if (CurrentName().Length() > 0)
  {
    inp_ElementVisitor::VisitElement(keyword);
  }
  else
  {
    SetAside(keyword);
  }
}

// What is wrong in the keyword is for the later reading to say.
void inp_AssemblyElementVisitor::SetAside(inp_Keyword const& keyword)
{
  m_keywords.Append(keyword);
  cow_String const type = keyword.NameIn("type").ToUpper();
  inp_ElementInfo const* const info = inp_ElementInfo::elementInfo(type);
  inp_ElementFamily const family =
    info != nullptr ? inp_FamilyOf(*info, keyword.HasParameter("offset")) : inp_ElementFamily();
  inp_MapInt2Element& map = CurrentElements();
  cow_List<int> labels;
  inp_ElementRows rows(keyword.data, family, inp_ElementRows::c_asTheyAre,
                       inp_ElementRows::c_dropBlanks);
  while (rows.Next())
  {
    if (rows.LabelState() == inp_ElementRows::c_good)
    {
      map.InsertPtr(rows.Label(), inp_Element::Make(type, 0, nullptr, 0, 0, 0));
      labels.Append(rows.Label());
    }
  }
  cow_String const setName = keyword.NameIn("elset");
  if (setName.Length() > 0 && labels.Length() > 0)
  {
    AddElementSet(keyword, setName, labels);
  }
}

void inp_AssemblyElementVisitor::VisitElset(inp_Keyword& keyword)
{
  cow_String const name = keyword.NameIn("elset");
  if (m_instanceName.Length() > 0 && m_part.Length() > 0 &&
      m_partElementSets.HasNestedSet(m_part, name))
  {
    Say(inp_msgElementSetOfPartRedefined, keyword, name, m_part, m_instanceName);
    return;
  }
  inp_ElementVisitor::VisitElset(keyword);
}
