#pragma once

// What a cow_List stands on: counted blocks, the directory that holds them, and the shape that a size
// hint gives them.

#include "mem_Allocation.h"

#include <cstddef>
#include <iterator>
#include <new>

/// Sets a function that is called with the bad index and the length before the process is aborted
/// for an index out of range. Null, the default, aborts in silence. One hook for all threads.
void cow_SetOutOfRangeHook(void (*hook)(int index, int length)) noexcept;

[[noreturn]] void cow_RaiseOutOfRange(int index, int length) noexcept;

/// Block shift and directory size for an expected number of items.
struct cow_ListShape
{
  int blockShift;
  int directorySize;
};

/// Up to 255 items: blocks of 16 and a directory of 16. Beyond that 8 to 16 larger blocks hold the
/// expected items, and 16 slots are spare: 16384 items give blocks of 2048 and 24 slots.
cow_ListShape cow_ShapeForHint(int hint) noexcept;

/// A counted run of slots for items. Which of them hold items, only the lists know.
template <class T>
struct cow_ListBlock
{
  int count;
  T* items;

  // Header and items share one allocation.
  static cow_ListBlock* Make(int blockShift)
  {
    static_assert(alignof(T) <= 16);
    constexpr std::size_t header = 16;
    void* const memory = mem_OperatorNewThrow(header + (sizeof(T) << blockShift));
    void* const items = static_cast<char*>(memory) + header;
    return ::new (memory) cow_ListBlock{1, static_cast<T*>(items)};
  }

  static void Free(cow_ListBlock* block) noexcept { mem_Free(block); }
};

/// Forward iterator over const items; good until the list is written to.
template <class T>
class cow_ListConstIterator
{
public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = T;
  using difference_type = std::ptrdiff_t;
  using pointer = T const*;
  using reference = T const&;

  cow_ListConstIterator() = default;
  cow_ListConstIterator(cow_ListBlock<T>* const* directory, int blockShift, int position)
    : m_directory(directory), m_position(position), m_blockShift(blockShift)
  {
  }

  reference operator*() const noexcept
  {
    return m_directory[m_position >> m_blockShift]->items[m_position & ((1 << m_blockShift) - 1)];
  }
  pointer operator->() const noexcept { return &**this; }

  cow_ListConstIterator& operator++() noexcept
  {
    ++m_position;
    return *this;
  }
  cow_ListConstIterator operator++(int) noexcept
  {
    cow_ListConstIterator const before = *this;
    ++m_position;
    return before;
  }

  bool operator==(cow_ListConstIterator const& other) const noexcept
  {
    return m_position == other.m_position;
  }

private:
  cow_ListBlock<T>* const* m_directory = nullptr;
  int m_position = 0;
  int m_blockShift = 0;
};

// A directory is one allocation: this head, then the slots.
struct cow_ListDirectoryHead
{
  int count;
  int capacity;
};
inline constexpr std::size_t cow_listDirectoryHeadSize = 16;

/// Allocates a directory, or resizes `old`, which must not be shared; the count of a new one is 1.
cow_ListDirectoryHead* cow_AllocateDirectory(int* old, int capacity);
