#include "inp_InstanceLabels.h"

#include "inp_AssemblyElementVisitor.h"
#include "inp_AssemblyNodeVisitor.h"
#include "inp_KeywordEnm.h"
#include "inp_NodeGenerationVisitor.h"

#include <algorithm>

int inp_InstanceLabels::LargestOf(cow_String const& partName, inp_PartMaps const& parts)
{
  if (!m_isFound)
  {
    m_isFound = true;
    FindLabels(parts);
  }
  int const* const largest = m_largest.ConstFind(partName);
  return largest != nullptr ? *largest : 0;
}

cow_List<cow_String> inp_InstanceLabels::InstancesWithKeywords() const
{
  cow_List<cow_String> names;
  for (inp_Keyword const& assembly : m_keywords)
  {
    for (inp_Keyword const& keyword : assembly.suboptions)
    {
      cow_String const name = keyword.NameIn("name");
      if (keyword.Is(inp_kwInstance) && keyword.suboptions.Length() > 0 &&
          m_instanceParts.IsMember(name))
      {
        names.Append(name);
      }
    }
  }
  return names;
}

// What the walks say goes with them: those that make the maps say it again.
void inp_InstanceLabels::FindLabels(inp_PartMaps const& parts)
{
  cow_List<cow_String> const instanceNames = InstancesWithKeywords();
  if (instanceNames.Empty())
  {
    return;
  }
  cow_List<inp_Keyword> copy = m_keywords;
  inp_LevelMaps maps;
  inp_AssemblyElementVisitor elements(parts, true);
  elements.setInstanceNames(m_instanceParts.Instances());
  elements.VisitList(copy);
  maps.elements = elements.GetElements();
  maps.elsets = elements.GetSets();
  inp_AssemblyNodeVisitor nodes(maps, parts, false);
  nodes.setInstanceNames(m_instanceParts.Instances());
  nodes.VisitList(copy);
  inp_NodeGenerationVisitor const labels(nodes.GetCoordMap(), maps.elements, maps.elsets, true,
                                         false, false, "");
  for (cow_String const& instanceName : instanceNames)
  {
    cow_String const partName = m_instanceParts.ConstGet(instanceName);
    m_largest.InsertUnlessMember(partName, 0);
    int& largest = *m_largest.Find(partName);
    largest = std::max(largest, labels.LargestLabel(instanceName));
  }
}
