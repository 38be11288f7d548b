#include "inp_NodeNumbers.h"

#include <algorithm>
#include <iterator>

inp_NodeNumbers::inp_NodeNumbers(inp_CoordMap const& coords) : m_coords(coords)
{
  m_levels[cow_String()] = {&m_coords.ConstGetStored(), 1};
  m_order.emplace_back(1, cow_String());
  int next = 1 + m_coords.ConstGetStored().Size();
  for (cow_String const& name : m_coords.Instances())
  {
    inp_CoordMap const& instance = m_coords.ConstGet(name);
    m_levels[name] = {&instance.ConstGetStored(), next};
    m_order.emplace_back(next, name);
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
  std::vector<int> const& labels = LabelsOf(*level->second.nodes);
  auto const place = std::lower_bound(labels.begin(), labels.end(), label);
  number = level->second.first + static_cast<int>(place - labels.begin());
  return true;
}

// A level without nodes begins where the next one does, so the last one that begins at the number has it.
inp_NodeNumbers::Place inp_NodeNumbers::PlaceOf(int number)
{
  auto const above = std::partition_point(
    m_order.begin(), m_order.end(), [number](auto const& level) { return level.first <= number; });
  auto const& [first, name] = *std::prev(above);
  std::vector<int> const& labels = LabelsOf(*m_levels[name].nodes);
  return {name, labels[static_cast<std::size_t>(number - first)]};
}

std::vector<int> const& inp_NodeNumbers::LabelsOf(inp_MapInt2Coord const& nodes)
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
  return labels;
}
