#include "inp_MapInt2Coord.h"

namespace
{
omi_IntTableCoord const& NoCoords()
{
  static omi_IntTableCoord const* const none =
    new omi_IntTableCoord; // lives as long as the process
  return *none;
}
} // namespace

bool inp_MapInt2Coord::Insert(int const& label, inp_Coord const& coord)
{
  inp_Coord* const copy = omi_IntTableCoord::MakeCoord(coord);
  try
  {
    if (m_table.IsNull())
    {
      m_table = new omi_IntTableCoord;
    }
    omi_IntTableCoord& table = *m_table.Get();
    if (!table.IsMember(label))
    {
      return table.Insert(label, copy);
    }
    void*& cell = table.Get(label);
    mem_Free(cell);
    cell = copy;
    return false;
  }
  catch (...)
  {
    mem_Free(copy);
    throw;
  }
}

bool inp_MapInt2Coord::Remove(int const& label)
{
  if (!IsMember(label))
  {
    return false;
  }
  omi_IntTableCoord& table = *m_table.Get();
  mem_Free(table.Get(label));
  return table.Remove(label);
}

std::size_t inp_MapInt2Coord::Bytes() const
{
  if (m_table.IsNull())
  {
    return 0;
  }
  std::size_t bytes = sizeof(omi_IntTableCoord) + m_table->Bytes();
  for (omi_IntTableIterator<void*> it(*m_table); !it.IsDone(); it.Next())
  {
    bytes += mem_UsableSize(it.CurrentValue());
  }
  return bytes;
}

inp_MapInt2CoordSIT::inp_MapInt2CoordSIT(inp_MapInt2Coord const& map)
  : m_share(map), m_iterator(m_share.m_table.IsNull() ? NoCoords() : *m_share.m_table)
{
}
