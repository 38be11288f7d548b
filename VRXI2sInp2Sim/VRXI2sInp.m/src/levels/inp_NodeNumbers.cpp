#include "inp_NodeNumbers.h"

#include <algorithm>

inp_NodeNumbers::inp_NodeNumbers(inp_CoordMap const& coords) : m_coords(coords)
{
  m_levels[cow_String()] = {&m_coords.ConstGetStored(), 1};
  int next = 1 + m_coords.ConstGetStored().Size();
  for (cow_String const& name : m_coords.Instances())
  {
    inp_CoordMap const& instance = m_coords.ConstGet(name);
    m_levels[name] = {&instance.ConstGetStored(), next};
    next += instance.Count();
  }
}

bool inp_NodeNumbers::Find(cow_String const& instanceName, int label, int& number)
{
  auto const level = m_levels.find(instanceName);
  if (level == m_levels.end() || !level->second.nodes->IsMember(label))
  {
    return false;
  }
  number = level->second.first + PlaceOf(*level->second.nodes, label);
  return true;
}

/// The place of a label that is there, from 0, in the ascending order of all.
int inp_NodeNumbers::PlaceOf(inp_MapInt2Coord const& nodes, int label)
{
  std::vector<int>& labels = m_labels[&nodes];
  if (labels.empty())
  {
    labels.reserve(static_cast<std::size_t>(nodes.Size()));
    for (inp_MapInt2CoordSIT it(nodes); !it.IsDone(); it.Next())
    {
      labels.push_back(it.CurrentKey());
    }
  }
  return static_cast<int>(std::lower_bound(labels.begin(), labels.end(), label) - labels.begin());
}
