#pragma once

#include "mem_Allocation.h"

#include <algorithm>
#include <cstddef>
#include <utility>

/// An array of built-in values, or of arrays of them, in blocks of a slab's size. So a large array can reuse
/// slabs that were given back, where it would otherwise need new memory of its whole length. Small ones are
/// taken in order.
///
///     index    0 ........ n-1 | n ........ 2n-1 | 2n .. size-1
///     block    0              | 1               | 2, which is no longer than it must be
///
/// The length is fixed at the start, and the values are not initialised. Raises std::bad_alloc.
template <class T>
class mem_SlabArray
{
public:
  static constexpr std::size_t c_inBlock = (65536 - 64) / sizeof(T);

  mem_SlabArray() = default;
  explicit mem_SlabArray(std::size_t size);
  mem_SlabArray(mem_SlabArray&& other) noexcept
    : m_blocks(std::exchange(other.m_blocks, nullptr)), m_count(std::exchange(other.m_count, 0))
  {
  }
  mem_SlabArray& operator=(mem_SlabArray&& other) noexcept
  {
    std::swap(m_blocks, other.m_blocks);
    std::swap(m_count, other.m_count);
    return *this;
  }
  ~mem_SlabArray();

  T& operator[](std::size_t index) { return m_blocks[index / c_inBlock][index % c_inBlock]; }
  T const& operator[](std::size_t index) const
  {
    return m_blocks[index / c_inBlock][index % c_inBlock];
  }

  /// Calls what is given for each run of values that lie side by side, first to last, with the first
  /// index, the values and their number.
  template <class Visit>
  void ForEachBlock(std::size_t size, Visit const& visit)
  {
    for (std::size_t from = 0; from < size; from += c_inBlock)
    {
      visit(from, m_blocks[from / c_inBlock], std::min(c_inBlock, size - from));
    }
  }

private:
  T** m_blocks = nullptr;
  std::size_t m_count = 0; ///< blocks
};

template <class T>
mem_SlabArray<T>::mem_SlabArray(std::size_t size)
{
  if (size == 0)
  {
    return;
  }
  std::size_t const count = (size + c_inBlock - 1) / c_inBlock;
  m_blocks = static_cast<T**>(mem_OperatorNewThrowBuiltin(count * sizeof(T*)));
  try
  {
    for (std::size_t left = size; m_count < count; ++m_count)
    {
      std::size_t const length = std::min(left, c_inBlock);
      m_blocks[m_count] = static_cast<T*>(mem_OperatorNewInOrderThrow(length * sizeof(T)));
      left -= length;
    }
  }
  catch (...)
  {
    this->~mem_SlabArray();
    throw;
  }
}

template <class T>
mem_SlabArray<T>::~mem_SlabArray()
{
  for (std::size_t i = 0; i < m_count; ++i)
  {
    mem_Free(m_blocks[i]);
  }
  mem_Free(m_blocks);
}
