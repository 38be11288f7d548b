#pragma once

#include "VRXBasOmiDefaultAllocator.h"

#include <bit>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

/// Length of a table of pointers that must grow from `present` entries to at least `wanted`: the next
/// power of two, so that growing step by step costs a constant each, or for a leap just what is wanted.
inline unsigned omi_GrownCount(unsigned present, unsigned wanted)
{
  return wanted / 2 > present ? wanted : std::bit_ceil(wanted);
}

/// An array that grows by blocks of a fixed size and keeps no block that was never written.
///
///     index   ........bbbbbbbbbbcccccc        b = index >> blockShift    entry of the block table
///                                             c = index & cellMask       cell of that block
///     blockTable -> [ * | 0 | 0 | * ]         0 = a block that no cell was written of
///                     |           |
///                  [cells]     [cells]        cellsPerBlock cells each, zeroes or default values at first
///
/// A cell never moves while blocks are added, so a reference to one stays good until `Clear` or, for
/// plain data, `Reshape`. The fields are public to be read: lookups in hot loops are written out with
/// the shift and the mask. Nobody but this class writes them.
template <class T>
class omi_BlockedArray
{
public:
  /// Makes an empty array with 2 to the power `shift` cells a block. Allocates nothing.
  explicit omi_BlockedArray(unsigned shift) { SetShift(shift); }
  omi_BlockedArray(omi_BlockedArray const& other);     // deep
  omi_BlockedArray(omi_BlockedArray&& other) noexcept; // leaves the other empty
  omi_BlockedArray& operator=(omi_BlockedArray other) noexcept
  {
    Swap(other);
    return *this;
  }
  ~omi_BlockedArray() { Clear(); }

  /// The address of a cell, or null when its block does not exist. O(1).
  T* GetCell(unsigned index) const
  {
    unsigned const block = index >> blockShift;
    if (block >= blockCount || blockTable[block] == nullptr)
    {
      return nullptr;
    }
    return blockTable[block] + (index & cellMask);
  }

  /// The cell itself; makes its block when there is none. O(1) but for the growth of the block table.
  T& MakeCell(unsigned index)
  {
    unsigned const block = index >> blockShift;
    if (block >= blockCount)
    {
      Reserve(block + 1);
    }
    if (blockTable[block] == nullptr)
    {
      blockTable[block] = NewBlock();
    }
    return blockTable[block][index & cellMask];
  }

  /// Makes the block table at least `count` entries long.
  void Reserve(unsigned count);

  /// Takes the blocks of another array of the same shape and puts them in from block `first` on, over
  /// entries that are null. No cell is copied or moved; the other array is left empty.
  void Adopt(omi_BlockedArray& from, unsigned first);

  /// Joins blocks to larger ones of 2 to the power `shift` cells. For plain data, whose cells move.
  void Reshape(unsigned shift) requires std::is_trivially_copyable_v<T>;

  /// Frees all blocks and the block table; the block size stays.
  void Clear();
  void Swap(omi_BlockedArray& other) noexcept;

  /// Bytes on the heap, without what the allocator adds.
  std::size_t Bytes() const;

  unsigned blockCount{0}; // entries of the block table
  unsigned cellsPerBlock{1};
  unsigned blockShift{0}; // log2 of the cells per block
  unsigned cellMask{0};   // cells per block minus one
  T** blockTable{nullptr};

private:
  void SetShift(unsigned shift)
  {
    cellsPerBlock = 1u << shift;
    blockShift = shift;
    cellMask = cellsPerBlock - 1;
  }

  T* NewBlock();
  void FreeBlock(T* block);
  void BlockCopy(T* to, T const* from);
  void BlockInitialize(T* block);
};

template <class T>
omi_BlockedArray<T>::omi_BlockedArray(omi_BlockedArray const& other)
{
  SetShift(other.blockShift);
  omi_BlockedArray copy(blockShift); // frees what is done so far when the memory gives out
  if (other.blockCount != 0)
  {
    copy.Reserve(other.blockCount);
  }
  for (unsigned block = 0; block < other.blockCount; ++block)
  {
    if (other.blockTable[block] != nullptr)
    {
      copy.blockTable[block] = copy.NewBlock();
      BlockCopy(copy.blockTable[block], other.blockTable[block]);
    }
  }
  Swap(copy);
}

template <class T>
omi_BlockedArray<T>::omi_BlockedArray(omi_BlockedArray&& other) noexcept
{
  SetShift(other.blockShift);
  Swap(other);
}

template <class T>
void omi_BlockedArray<T>::Reserve(unsigned count)
{
  if (count <= blockCount)
  {
    return;
  }
  unsigned const newCount = omi_GrownCount(blockCount, count);
  auto** const newTable =
    static_cast<T**>(VRXBasOmiDefaultAllocator::allocate(std::size_t{newCount} * sizeof(T*)));
  if (blockCount != 0)
  {
    std::memcpy(newTable, blockTable, std::size_t{blockCount} * sizeof(T*));
  }
  VRXBasOmiDefaultAllocator::deallocate(blockTable);
  blockTable = newTable;
  blockCount = newCount;
}

template <class T>
void omi_BlockedArray<T>::Adopt(omi_BlockedArray& from, unsigned first)
{
  unsigned used = from.blockCount;
  while (used > 0 && from.blockTable[used - 1] == nullptr)
  {
    --used;
  }
  Reserve(first + used);
  for (unsigned block = 0; block < used; ++block)
  {
    blockTable[first + block] = std::exchange(from.blockTable[block], nullptr);
  }
  from.Clear();
}

template <class T>
void omi_BlockedArray<T>::Reshape(unsigned shift) requires std::is_trivially_copyable_v<T>
{
  if (shift <= blockShift)
  {
    return;
  }
  omi_BlockedArray larger(shift);
  unsigned const step = shift - blockShift;
  unsigned const within = (1u << step) - 1;
  for (unsigned block = 0; block < blockCount; ++block)
  {
    if (blockTable[block] != nullptr)
    {
      T& target = larger.MakeCell((block >> step << shift) + ((block & within) << blockShift));
      std::memcpy(&target, blockTable[block], std::size_t{cellsPerBlock} * sizeof(T));
    }
  }
  Swap(larger);
}

template <class T>
void omi_BlockedArray<T>::Clear()
{
  for (unsigned block = 0; block < blockCount; ++block)
  {
    if (blockTable[block] != nullptr)
    {
      FreeBlock(blockTable[block]);
    }
  }
  VRXBasOmiDefaultAllocator::deallocate(blockTable);
  blockTable = nullptr;
  blockCount = 0;
}

template <class T>
void omi_BlockedArray<T>::Swap(omi_BlockedArray& other) noexcept
{
  std::swap(blockCount, other.blockCount);
  std::swap(cellsPerBlock, other.cellsPerBlock);
  std::swap(blockShift, other.blockShift);
  std::swap(cellMask, other.cellMask);
  std::swap(blockTable, other.blockTable);
}

template <class T>
std::size_t omi_BlockedArray<T>::Bytes() const
{
  std::size_t bytes = std::size_t{blockCount} * sizeof(T*);
  for (unsigned block = 0; block < blockCount; ++block)
  {
    bytes += blockTable[block] != nullptr ? std::size_t{cellsPerBlock} * sizeof(T) : 0;
  }
  return bytes;
}

template <class T>
T* omi_BlockedArray<T>::NewBlock()
{
  void* const memory = VRXBasOmiDefaultAllocator::allocate(std::size_t{cellsPerBlock} * sizeof(T));
  auto* const block = static_cast<T*>(memory);
  try
  {
    BlockInitialize(block);
  }
  catch (...)
  {
    VRXBasOmiDefaultAllocator::deallocate(memory);
    throw;
  }
  return block;
}

template <class T>
void omi_BlockedArray<T>::FreeBlock(T* block)
{
  if constexpr (!std::is_trivially_destructible_v<T>)
  {
    std::destroy_n(block, cellsPerBlock);
  }
  VRXBasOmiDefaultAllocator::deallocate(block);
}

template <class T>
void omi_BlockedArray<T>::BlockCopy(T* to, T const* from)
{
  if constexpr (std::is_trivially_copyable_v<T>)
  {
    std::memcpy(to, from, std::size_t{cellsPerBlock} * sizeof(T));
  }
  else
  {
    for (unsigned cell = 0; cell < cellsPerBlock; ++cell)
    {
      to[cell] = from[cell];
    }
  }
}

template <class T>
void omi_BlockedArray<T>::BlockInitialize(T* block)
{
  if constexpr (!std::is_trivially_default_constructible_v<T>)
  {
    std::uninitialized_value_construct_n(block, cellsPerBlock);
  }
}
