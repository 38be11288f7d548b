#pragma once

// What a cow_List<T> does to its directory and its blocks: how they are shared, copied for a writer, made for
// an item to come, and dropped. cow_List.h shows how they lie.
//
//     Detach, CopyArray       a directory of one's own, whose blocks may be shared
//     Isolate...              blocks of one's own as well, for the items about to be written
//     SlotBehind, SlotInFront where the next item goes, in a block of one's own
//     DropBlock, Release      gives up a share; the last one destroys the items

#include "cow_List.h"

template <class T>
void cow_List<T>::UseDirectory(cow_ListDirectoryHead* head) noexcept
{
  void* const slots = reinterpret_cast<char*>(head) + cow_listDirectoryHeadSize;
  m_directoryCount = &head->count;
  m_directory = static_cast<Block**>(slots);
}

template <class T>
void cow_List<T>::Detach()
{
  if (m_directoryCount != nullptr && *m_directoryCount != 1)
    CopyArray();
}

template <class T>
void cow_List<T>::CopyArray()
{
  int* const sharedCount = m_directoryCount;
  Block* const* const shared = m_directory;
  UseDirectory(cow_AllocateDirectory(nullptr, m_directorySize));
  std::copy_n(shared, m_directorySize, m_directory);
  for (int block = 0; block < m_directorySize; ++block)
    if (m_directory[block] != nullptr)
      ++m_directory[block]->count;
  --*sharedCount;
}

// The directory must not be shared, and slots that are cut off must hold no items. The array is made longer
// by half each time, so that a long row of appends copies each slot only a few times.
template <class T>
void cow_List<T>::SetDirectorySize(int size)
{
  int const capacity = m_directoryCount == nullptr
                         ? 0
                         : reinterpret_cast<cow_ListDirectoryHead*>(m_directoryCount)->capacity;
  if (size > capacity)
    UseDirectory(cow_AllocateDirectory(m_directoryCount, std::max(size, capacity + capacity / 2)));
  for (int block = size; block < m_directorySize; ++block)
    DropBlock(block, 0, 0);
  if (size > m_directorySize)
    std::fill(m_directory + m_directorySize, m_directory + size, nullptr);
  m_directorySize = size;
}

// A new block with copies of the given slots.
template <class T>
cow_ListBlock<T>* cow_List<T>::CopyBlock(Block const* from, int blockShift, int begin, int end)
{
  Block* const copy = Block::Make(blockShift);
  try
  {
    if (begin < end)
      std::uninitialized_copy(from->items + begin, from->items + end, copy->items + begin);
  }
  catch (...)
  {
    Block::Free(copy);
    throw;
  }
  return copy;
}

template <class T>
void cow_List<T>::IsolateBlock(int block)
{
  Block*& slot = m_directory[block];
  if (slot == nullptr)
    slot = Block::Make(m_blockShift);
  else if (slot->count != 1)
  {
    Block* const copy = CopyBlock(slot, m_blockShift, LiveBegin(block), LiveEnd(block));
    --slot->count;
    slot = copy;
  }
}

template <class T>
void cow_List<T>::IsolateRange(int from, int to)
{
  Detach();
  for (int block = from >> m_blockShift; block <= to >> m_blockShift; ++block)
    IsolateBlock(block);
}

template <class T>
void cow_List<T>::DropBlock(int block, int liveBegin, int liveEnd) noexcept
{
  Block* const dropped = std::exchange(m_directory[block], nullptr);
  if (dropped == nullptr || --dropped->count != 0)
    return;
  if (liveBegin < liveEnd)
    std::destroy(dropped->items + liveBegin, dropped->items + liveEnd);
  Block::Free(dropped);
}

template <class T>
void cow_List<T>::Release() noexcept
{
  if (m_directoryCount == nullptr || --*m_directoryCount != 0)
    return;
  for (int block = 0; block < m_directorySize; ++block)
    DropBlock(block, LiveBegin(block), LiveEnd(block));
  mem_Free(m_directoryCount);
}

// The directory must not be shared. The only step that can fail is the first, so the list stays whole.
template <class T>
void cow_List<T>::Truncate(int n)
{
  int const kept = (m_firstOffset + n - 1) >> m_blockShift;
  int const last = (m_firstOffset + m_length - 1) >> m_blockShift;
  int const newEnd = m_firstOffset + n - (kept << m_blockShift);
  Block*& slot = m_directory[kept];
  if (slot->count != 1)
  {
    Block* const copy = CopyBlock(slot, m_blockShift, LiveBegin(kept), newEnd);
    --slot->count;
    slot = copy;
  }
  else
    std::destroy(slot->items + newEnd, slot->items + LiveEnd(kept));
  for (int block = kept + 1; block <= last; ++block)
    DropBlock(block, LiveBegin(block), LiveEnd(block));
  m_length = n;
}

template <class T>
T* cow_List<T>::SlotBehind()
{
  int const position = m_firstOffset + m_length;
  int const block = position >> m_blockShift;
  if (block < m_directorySize && *m_directoryCount == 1 && m_directory[block] != nullptr &&
      m_directory[block]->count == 1) [[likely]]
    return m_directory[block]->items + (position & SlotMask());
  return SlotBehindSlow();
}

template <class T>
T* cow_List<T>::SlotBehindSlow()
{
  int const position = m_firstOffset + m_length;
  if (position >> m_blockShift >= m_directorySize)
    Resize(m_length + 1);
  Isolate(position);
  return AddressOf(position);
}

template <class T>
T* cow_List<T>::SlotInFront()
{
  if (m_firstOffset == 0)
    MakeRoomInFront();
  Isolate(m_firstOffset - 1);
  return AddressOf(m_firstOffset - 1);
}

// Moves the blocks to the end of the directory, which grows first when it is full: by 16 slots, and
// by half its size once it is large.
template <class T>
void cow_List<T>::MakeRoomInFront()
{
  int const used = (m_length + SlotMask()) >> m_blockShift;
  if (used == m_directorySize)
    Resize(((used + used / 2 / 16 * 16) << m_blockShift) + 1);
  else
    Detach();
  for (int block = used; block < m_directorySize; ++block)
    DropBlock(block, 0, 0);
  int const freed = m_directorySize - used;
  std::copy_backward(m_directory, m_directory + used, m_directory + m_directorySize);
  std::fill_n(m_directory, freed, nullptr);
  m_firstOffset = freed << m_blockShift;
}
