#include "omi_IntTableCoord.h"

#include <type_traits>

static_assert(std::is_trivially_copyable_v<inp_Coord> &&
              std::is_trivially_destructible_v<inp_Coord>);

// Delegates to the default constructor, so that the table counts as built: when memory gives out half way,
// its destructor frees what has been copied.
omi_IntTableCoord::omi_IntTableCoord(omi_IntTableCoord const& other) : omi_IntTableCoord()
{
  for (omi_IntTableIterator<void*> it(other); !it.IsDone(); it.Next())
  {
    Insert(it.CurrentKey(), nullptr);
    Get(it.CurrentKey()) = MakeCoord(*static_cast<inp_Coord const*>(it.CurrentValue()));
  }
}

omi_IntTableCoord::~omi_IntTableCoord()
{
  for (omi_IntTableIterator<void*> it(*this); !it.IsDone(); it.Next())
  {
    mem_Free(it.CurrentValue());
  }
}
