#include "inpM_NodeAreaSurface.h"

#include "aio_ostream.h"
#include "inpM_IdMap.h"

inpM_NodeAreaSurface::~inpM_NodeAreaSurface() = default;

void inpM_NodeAreaSurface::Add(cow_List<int> const& nodes, double area)
{
  for (int const node : nodes)
  {
    m_nodes.Insert(node, area);
  }
}

void inpM_NodeAreaSurface::Add(inpM_PartInstanceSurface const& other)
{
  m_nodes.Add(other.ConstGetNodeAreaList());
}

void inpM_NodeAreaSurface::Difference(inpM_PartInstanceSurface const& other)
{
  m_nodes.Difference(other.ConstGetNodeAreaList());
}

void inpM_NodeAreaSurface::Intersection(inpM_PartInstanceSurface const& other)
{
  m_nodes.Intersection(other.ConstGetNodeAreaList());
}

void inpM_NodeAreaSurface::Print(aio_ostream& stream) const
{
  for (inpM_NodeAreaListIT it(m_nodes); !it.IsDone(); it.Next())
  {
    stream << it.CurrentKey() << ' ' << it.CurrentValue() << '\n';
  }
}

void inpM_NodeAreaSurface::Cleanup(inpM_IdMap const& idMap)
{
  if (!idMap.HasIds())
  {
    return;
  }
  inpM_NodeAreaList known;
  for (inpM_NodeAreaListIT it(m_nodes); !it.IsDone(); it.Next())
  {
    if (idMap.IsMember(it.CurrentKey()))
    {
      known.Insert(it.CurrentKey(), it.CurrentValue());
    }
  }
  m_nodes = known;
}
