#include "inp_AssemblyElementVisitor.h"

#include "inp_KeywordEnm.h"
#include "inp_LevelMessages.h"

namespace
{

/// The own ids of a sorted set may be a run to the largest label, which is not to be listed.
void AddOwnIdsBut(inpM_OmiSet const& leftOut, inpM_BaseSet const& set, inpM_BaseSet& result)
{
  if (!set.IsUnsorted())
  {
    inpM_OmiSet kept = set.ConstGetOwnIds();
    for (inpM_OmiSetIT id(leftOut); !id.IsDone(); id.Next())
    {
      kept.Remove(id.CurrentItem());
    }
    result.Add(kept);
    return;
  }
  cow_List<int> kept;
  for (int const id : set.ConstGetIds())
  {
    if (!leftOut.IsMember(id))
    {
      kept.Append(id);
    }
  }
  result.Add(kept);
}

/// The set without some of its own ids.
inpM_SetHandle Without(inpM_OmiSet const& leftOut, inpM_BaseSet const& set)
{
  inpM_SetHandle result = CreateSet(cow_List<int>(), set.SetType(), set.IsUnsorted());
  AddOwnIdsBut(leftOut, set, *result.Get());
  inpM_BaseSet::InstanceTree const instances = set.ConstGetInstanceTree();
  cow_BtreeIterator<cow_String, inpM_OmiSet> it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    if (set.IsUnsorted())
    {
      result.Get()->Add(it.CurrentKey(), set.ConstGetIds(it.CurrentKey()));
    }
    else
    {
      result.Get()->Add(it.CurrentKey(), it.CurrentValue());
    }
  }
  return result;
}

bool HasAny(inpM_BaseSet const& set, inpM_OmiSet const& ids)
{
  inpM_OmiSet const own = set.ConstGetOwnIds();
  bool hasAny = false;
  for (inpM_OmiSetIT id(ids); !id.IsDone() && !hasAny; id.Next())
  {
    hasAny = own.IsMember(id.CurrentItem());
  }
  return hasAny;
}

} // namespace

inp_AssemblyElementVisitor::inp_AssemblyElementVisitor(inp_PartMaps const& parts,
                                                       bool computesConnectivity)
  : inp_ElementVisitor(computesConnectivity),
    m_partElements(parts.elements),
    m_partElementSets(parts.elsets)
{
  userElementNodes = parts.userElements;
}

// The walk over parts has read the types that the model or a part defines.
void inp_AssemblyElementVisitor::Visit(inp_Keyword& keyword)
{
  if (!keyword.Is(inp_kwPart) && !(keyword.Is(inp_kwUserElement) && IsOutsideScopes()))
  {
    inp_ElementVisitor::Visit(keyword);
  }
}

void inp_AssemblyElementVisitor::VisitInstance(inp_Keyword& keyword)
{
  SetInstanceName(keyword);
  if (m_instanceName.Empty())
  {
    return;
  }
  bool const hasElements = m_partElements.IsMember(m_instancePart);
  elements.Insert(m_instanceName,
                  hasElements ? m_partElements.ConstGet(m_instancePart) : inp_MapInt2Element());
  if (m_partElementSets.HasInstance(m_instancePart))
  {
    sets.InsertNestedSetMap(m_instanceName, m_partElementSets.ConstGetNestedSetMap(m_instancePart));
  }
}

void inp_AssemblyElementVisitor::VisitEndInstance(inp_Keyword& keyword)
{
  DefaultAction(keyword);
  ClearInstanceName();
}

void inp_AssemblyElementVisitor::VisitElement(inp_Keyword& keyword)
{
  if (MeshScope().Length() > 0)
  {
    inp_ElementVisitor::VisitElement(keyword);
  }
  else
  {
    ReadOwnElements(keyword);
  }
}

void inp_AssemblyElementVisitor::ReadOwnElements(inp_Keyword const& keyword)
{
  m_keywords.Append(keyword);
  m_own.ReadElements(keyword, m_assemblyName);
  m_own.MoveMessages(m_warningList, m_errorList);
  if (!elements.HasValue() && m_own.GetElements().HasValue())
  {
    elements.Insert(m_own.GetElements().ConstGet()); // a share: nodes come into both
  }
  cow_String const setName = keyword.NameIn("elset");
  if (setName.Length() > 0 && m_own.LabelsOfSet().Length() > 0)
  {
    AddElementSet(keyword, setName, m_own.LabelsOfSet());
  }
}

void inp_AssemblyElementVisitor::PutNumbers(inp_NodeNumbers& numbers)
{
  m_own.PutNumbers(numbers);
  m_own.Report();
  inpM_OmiSet const leftOut(m_own.LeftOut());
  inpM_BaseSetMap const before = leftOut.IsEmpty() ? inpM_BaseSetMap() : sets.ConstGetMap();
  for (inpM_BaseSetMapIT it(before); !it.IsDone(); it.Next())
  {
    if (HasAny(it.CurrentValue(), leftOut))
    {
      sets.InsertSet(it.CurrentKey(), Without(leftOut, it.CurrentValue()));
    }
  }
}

/// An instance leaves the sets of its part as they are.
bool inp_AssemblyElementVisitor::MayChangeSet(inp_Keyword const& keyword, cow_String const& name)
{
  bool const isOfPart = m_instanceName.Length() > 0 && m_instancePart.Length() > 0 &&
                        m_partElementSets.HasNestedSet(m_instancePart, name);
  if (isOfPart)
  {
    Say(inp_msgElementSetOfPartRedefined, keyword, name, m_instancePart, m_instanceName);
  }
  return !isOfPart;
}
