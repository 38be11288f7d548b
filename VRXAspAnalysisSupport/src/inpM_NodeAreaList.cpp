#include "inpM_NodeAreaList.h"

#include "inpM_IdMap.h"

namespace
{
inpM_NodeAreaList::Table const& NoAreas()
{
  static thread_local inpM_NodeAreaList::Table const none;
  return none;
}
} // namespace

bool inpM_NodeAreaList::Insert(int node, double area)
{
  if (m_areas.IsNull())
  {
    m_areas = new Table;
  }
  return m_areas.Get()->Insert(node, area);
}

bool inpM_NodeAreaList::Remove(int node) { return IsMember(node) && m_areas.Get()->Remove(node); }

cow_List<int> inpM_NodeAreaList::ConstGetNodes() const
{
  cow_List<int> nodes;
  for (inpM_NodeAreaListIT it(*this); !it.IsDone(); it.Next())
  {
    nodes.Append(it.CurrentKey());
  }
  return nodes;
}

void inpM_NodeAreaList::Add(inpM_NodeAreaList const& other)
{
  if (IsEmpty())
  {
    *this = other;
    return;
  }
  for (inpM_NodeAreaListIT it(other); !it.IsDone(); it.Next())
  {
    Insert(it.CurrentKey(), it.CurrentValue());
  }
}

void inpM_NodeAreaList::Difference(inpM_NodeAreaList const& other)
{
  for (inpM_NodeAreaListIT it(other); !it.IsDone(); it.Next())
  {
    Remove(it.CurrentKey());
  }
}

void inpM_NodeAreaList::Intersection(inpM_NodeAreaList const& other)
{
  inpM_NodeAreaList const common = other; // which may be this list
  for (inpM_NodeAreaListIT it(*this); !it.IsDone(); it.Next())
  {
    if (!common.IsMember(it.CurrentKey()))
    {
      Remove(it.CurrentKey());
    }
  }
}

void inpM_NodeAreaList::Renumber(inpM_IdMap const& idMap, bool toUser)
{
  if (!idMap.HasIds())
  {
    return;
  }
  cow_IntTableInt const& numbers = toUser ? idMap.ConstGetToUser() : idMap.ConstGetToNew();
  inpM_NodeAreaList renumbered;
  for (inpM_NodeAreaListIT it(*this); !it.IsDone(); it.Next())
  {
    int number = 0;
    if (numbers.ConstGetValue(it.CurrentKey(), number))
    {
      renumbered.Insert(number, it.CurrentValue());
    }
  }
  *this = renumbered;
}

inpM_NodeAreaListIT::inpM_NodeAreaListIT(inpM_NodeAreaList const& list)
  : m_share(list), m_iterator(list.m_areas.IsNull() ? NoAreas() : *list.m_areas)
{
}
