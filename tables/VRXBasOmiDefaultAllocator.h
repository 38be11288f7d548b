#pragma once

#include "mem_Allocation.h"

#include <cstddef>
#include <cstring>

/// Memory of the integer-keyed tables: from the general allocator, cleared to zero.
///
/// A cleared block is what makes a null pointer of every unused table entry and a clear bit of every
/// unused slot, so no table writes its entries a second time after it has asked for them.
class VRXBasOmiDefaultAllocator
{
public:
  /// Returns `size` bytes of zeroes; raises std::bad_alloc when there is no memory.
  static void* allocate(std::size_t size)
  {
    return std::memset(mem_OperatorNewThrow(size), 0, size);
  }

  /// Frees what `allocate` returned; null does nothing.
  static void deallocate(void* memory) { mem_Free(memory); }
};
