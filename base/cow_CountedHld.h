#pragma once

#include <utility>

#include "mem_Allocation.h"

/// A counted handle on a heap object: every copy refers to the same one, and the last one deletes it.
///
///     cow_CountedHld<inp_DataArrayImpl> a(new inp_RawDataArrayImpl);
///     cow_CountedHld<inp_DataArrayImpl> b = a;      // O(1); a write through b is seen through a
///
/// The referent may be null. The count is a plain int: an object graph belongs to one thread at a
/// time. A moved-from handle may only be assigned to or destroyed.
template <class T>
class cow_CountedHld
{
public:
  /// Refers to nothing.
  cow_CountedHld() : cow_CountedHld(nullptr) {}

  /// Takes over `referent`, made with new; null is allowed.
  explicit cow_CountedHld(T* referent) : m_count(NewCount(referent)), m_referent(referent) {}

  cow_CountedHld(cow_CountedHld const& other) noexcept
    : m_count(other.m_count), m_referent(other.m_referent)
  {
    if (m_count != nullptr)
      ++*m_count;
  }

  cow_CountedHld(cow_CountedHld&& other) noexcept
    : m_count(std::exchange(other.m_count, nullptr)),
      m_referent(std::exchange(other.m_referent, nullptr))
  {
  }

  cow_CountedHld& operator=(cow_CountedHld const& other) noexcept
  {
    cow_CountedHld(other).Swap(*this);
    return *this;
  }

  cow_CountedHld& operator=(cow_CountedHld&& other) noexcept
  {
    cow_CountedHld(std::move(other)).Swap(*this);
    return *this;
  }

  /// Takes over `referent` for this handle alone; the other handles keep the old one. A sole holder
  /// deletes the old referent and keeps its count.
  cow_CountedHld& operator=(T* referent)
  {
    if (m_count == nullptr)
      m_count = NewCount(referent);
    else if (*m_count != 1)
    {
      int* const fresh = NewCount(referent);
      --*m_count;
      m_count = fresh;
    }
    else if (referent != m_referent)
    {
      T* const old = std::exchange(m_referent, referent);
      delete old;
    }
    m_referent = referent;
    return *this;
  }

  ~cow_CountedHld()
  {
    if (m_count != nullptr && --*m_count == 0)
    {
      mem_Free(m_count);
      delete m_referent;
    }
  }

  /// The shared referent, null when there is none. A write is seen by every holder.
  T* Get() const noexcept { return m_referent; }
  T* operator->() const noexcept { return m_referent; }
  T& operator*() const noexcept { return *m_referent; }

  T const* ConstGet() const noexcept { return m_referent; }

  bool IsNull() const noexcept { return m_referent == nullptr; }

  /// The number of handles that share the referent.
  int UseCount() const noexcept { return m_count == nullptr ? 0 : *m_count; }

  void Swap(cow_CountedHld& other) noexcept
  {
    std::swap(m_count, other.m_count);
    std::swap(m_referent, other.m_referent);
  }

private:
  // When memory is exhausted the referent is deleted, since the caller has given it away.
  static int* NewCount(T* referent)
  {
    void* const cell = mem_MallocTiny(sizeof(int));
    if (cell == nullptr) [[unlikely]]
    {
      delete referent;
      mem_RaiseExhausted();
    }
    return ::new (cell) int(1);
  }

  int* m_count;
  T* m_referent;
};
