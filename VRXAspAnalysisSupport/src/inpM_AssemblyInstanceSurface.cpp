#include "inpM_AssemblyInstanceSurface.h"

#include "inpM_IdMap.h"

void inpM_AssemblyInstanceSurface::Add(cow_String const& instanceName,
                                       inpM_PartInstanceSurface const& piece)
{
  m_pieces.Add(instanceName, piece);
}

void inpM_AssemblyInstanceSurface::Add(inpM_AssemblyInstanceSurface const& other)
{
  if (m_pieces.IsEmpty())
  {
    m_pieces = other.m_pieces;
  }
  else
  {
    for (inpM_PartInstanceSurfaceMapSIT it(other.m_pieces); !it.IsDone(); it.Next())
    {
      m_pieces.Add(it.CurrentKey(), it.CurrentValue());
    }
  }
  m_nodes.Add(other.m_nodes);
}

void inpM_AssemblyInstanceSurface::Intersection(cow_String const& instanceName,
                                                inpM_PartInstanceSurface const& piece)
{
  inpM_AssemblyInstanceSurface common;
  common.Add(instanceName, piece);
  Intersection(common);
}

void inpM_AssemblyInstanceSurface::Intersection(inpM_AssemblyInstanceSurface const& other)
{
  inpM_PartInstanceSurfaceMap common;
  for (inpM_PartInstanceSurfaceMapSIT it(m_pieces); !it.IsDone(); it.Next())
  {
    if (inpM_PartInstanceSurface const* const piece = other.m_pieces.ConstFind(it.CurrentKey()))
    {
      common.Insert(it.CurrentKey(), it.CurrentHandle());
      common.Get(it.CurrentKey()).Intersection(*piece);
    }
  }
  m_nodes.Intersection(other.m_nodes);
  m_pieces = common;
}

void inpM_AssemblyInstanceSurface::Difference(cow_String const& instanceName,
                                              inpM_PartInstanceSurface const& piece)
{
  if (inpM_PartInstanceSurface* const own = m_pieces.Find(instanceName))
  {
    own->Difference(piece);
  }
}

void inpM_AssemblyInstanceSurface::Difference(inpM_AssemblyInstanceSurface const& other)
{
  for (inpM_PartInstanceSurfaceMapSIT it(other.m_pieces); !it.IsDone(); it.Next())
  {
    Difference(it.CurrentKey(), it.CurrentValue());
  }
  m_nodes.Difference(other.m_nodes);
}

bool inpM_AssemblyInstanceSurface::IsCrossInstanceNodeBasedSurface() const
{
  int reached = 0;
  for (inpM_PartInstanceSurfaceMapSIT it(m_pieces); !it.IsDone(); it.Next())
  {
    reached += !it.CurrentValue().IsElementSurface() && !it.CurrentValue().IsEmpty() ? 1 : 0;
  }
  return reached > 1;
}

bool inpM_AssemblyInstanceSurface::IsElementSurface() const
{
  inpM_PartInstanceSurfaceMapSIT it(m_pieces);
  while (!it.IsDone() && it.CurrentValue().IsElementSurface())
  {
    it.Next();
  }
  return it.IsDone() && m_nodes.IsEmpty();
}

bool inpM_AssemblyInstanceSurface::IsEmpty() const
{
  inpM_PartInstanceSurfaceMapSIT it(m_pieces);
  while (!it.IsDone() && it.CurrentValue().IsEmpty())
  {
    it.Next();
  }
  return it.IsDone() && m_nodes.IsEmpty();
}

std::int64_t inpM_AssemblyInstanceSurface::Count() const
{
  std::int64_t count = m_nodes.Count();
  for (inpM_PartInstanceSurfaceMapSIT it(m_pieces); !it.IsDone(); it.Next())
  {
    count += it.CurrentValue().Count();
  }
  return count;
}

void inpM_AssemblyInstanceSurface::DropRepeats()
{
  inpM_PartInstanceSurfaceMap const pieces = m_pieces;
  for (inpM_PartInstanceSurfaceMapSIT it(pieces); !it.IsDone(); it.Next())
  {
    m_pieces.Get(it.CurrentKey()).DropRepeats();
  }
}

void inpM_AssemblyInstanceSurface::Renumber(inpM_IdMap const& nodes, inpM_IdMap const& elements,
                                            bool toUser)
{
  inpM_PartInstanceSurfaceMap const pieces = m_pieces;
  for (inpM_PartInstanceSurfaceMapSIT it(pieces); !it.IsDone(); it.Next())
  {
    inpM_IdMap const& ids = it.CurrentValue().IsElementSurface() ? elements : nodes;
    cow_String const& instanceName = it.CurrentKey();
    m_pieces.Get(instanceName)
      .Renumber(instanceName.Empty() ? ids : ids.ConstGet(instanceName), toUser);
  }
  m_nodes.Renumber(nodes, toUser);
}
