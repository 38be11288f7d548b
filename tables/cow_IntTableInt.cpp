#include "cow_IntTableInt.h"

bool cow_IntTableInt::Insert(int const& key, int const& value)
{
  if (m_table.IsNull())
  {
    m_table = new Table;
  }
  return m_table.Get()->Insert(key, value);
}

bool cow_IntTableInt::Remove(int const& key) { return IsMember(key) && m_table.Get()->Remove(key); }

cow_IntTableInt::Table const& cow_IntTableInt::EmptyTable()
{
  static Table const* const empty = new Table; // lives as long as the process
  return *empty;
}

cow_IntTableInt Invert(cow_IntTableInt const& table)
{
  cow_IntTableInt inverse;
  for (cow_IntTableIntIT it(table); !it.IsDone(); it.Next())
  {
    inverse.Insert(it.CurrentValue(), it.CurrentKey());
  }
  return inverse;
}
