#pragma once

#include "cow_List.h"

/// A walk over the items that a list has now, undisturbed by later writes to that list.
///
///     cow_ListIter<int> it(list);
///     for (it.First(); !it.IsDone(); it.Next())
///       use(it.Current());
template <class T>
class cow_ListIter
{
public:
  explicit cow_ListIter(cow_List<T> const& list) : m_list(list) { First(); }

  void First() noexcept
  {
    m_cursor = 0;
    m_blockIndex = m_list.m_firstOffset >> m_list.m_blockShift;
    m_slot = m_list.m_firstOffset & m_list.SlotMask();
    LoadBlock();
  }

  void Next() noexcept
  {
    ++m_cursor;
    if (++m_slot <= m_list.SlotMask()) [[likely]]
      return;
    m_slot = 0;
    ++m_blockIndex;
    LoadBlock();
  }

  bool IsDone() const noexcept { return m_cursor >= m_list.m_length; }
  T const& Current() const noexcept { return m_items[m_slot]; }
  T const& operator*() const noexcept { return Current(); }
  T const* operator->() const noexcept { return &Current(); }
  int Index() const noexcept { return m_cursor; }

private:
  void LoadBlock() noexcept
  {
    m_items = IsDone() ? nullptr : m_list.m_directory[m_blockIndex]->items;
  }

  cow_List<T> m_list;
  T const* m_items = nullptr;
  int m_cursor = 0;
  int m_blockIndex = 0;
  int m_slot = 0;
};
