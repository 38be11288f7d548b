#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "mem_Allocation.h"

/// What the shared and weak pointers to one object have in common: how many there are, and how the
/// object is deleted. Plain counts: the object and its pointers belong to one thread at a time.
class VRXBasRefCounter : public mem_AllocationOperatorsTiny
{
public:
  VRXBasRefCounter(VRXBasRefCounter const&) = delete;
  VRXBasRefCounter& operator=(VRXBasRefCounter const&) = delete;

  int UseCount() const noexcept { return m_uses; }

  void AddUse() noexcept { ++m_uses; }
  void AddWeak() noexcept { ++m_weaks; }

  void DropUse() noexcept
  {
    if (--m_uses != 0)
      return;
    Dispose();
    DropWeak();
  }
  void DropWeak() noexcept
  {
    if (--m_weaks == 0)
      delete this;
  }

protected:
  VRXBasRefCounter() = default;
  virtual ~VRXBasRefCounter() = default;

private:
  virtual void Dispose() noexcept = 0;

  int m_uses = 1;
  int m_weaks = 1; // all shared pointers together count as one
};

/// Deletes the object as the type that it was handed over as.
template <class T>
class VRXBasRefCounterOf final : public VRXBasRefCounter
{
public:
  explicit VRXBasRefCounterOf(T* object) noexcept : m_object(object) {}

private:
  void Dispose() noexcept override { delete m_object; }

  T* m_object;
};

template <class T>
class VRXBasWeakPtr;

/// A pointer that shares the ownership of its object; the last one deletes it.
template <class T>
class VRXBasSharedPtr
{
public:
  VRXBasSharedPtr() noexcept = default;
  VRXBasSharedPtr(std::nullptr_t) noexcept {}

  /// Takes over `object`, made with new; null is allowed.
  template <class U>
  requires std::is_convertible_v<U*, T*>
  explicit VRXBasSharedPtr(U* object) : m_object(object), m_counter(CounterOf(object)) {}

  VRXBasSharedPtr(VRXBasSharedPtr const& other) noexcept
    : VRXBasSharedPtr(other.m_object, other.m_counter)
  {
  }
  template <class U>
  requires std::is_convertible_v<U*, T*> VRXBasSharedPtr(VRXBasSharedPtr<U> const& other)
  noexcept : VRXBasSharedPtr(other.m_object, other.m_counter) {}
  VRXBasSharedPtr(VRXBasSharedPtr&& other) noexcept { swap(other); }
  VRXBasSharedPtr& operator=(VRXBasSharedPtr other) noexcept
  {
    swap(other);
    return *this;
  }
  ~VRXBasSharedPtr()
  {
    if (m_counter != nullptr)
      m_counter->DropUse();
  }

  void reset() noexcept { VRXBasSharedPtr().swap(*this); }
  template <class U>
  void reset(U* object)
  {
    VRXBasSharedPtr(object).swap(*this);
  }
  void swap(VRXBasSharedPtr& other) noexcept
  {
    std::swap(m_object, other.m_object);
    std::swap(m_counter, other.m_counter);
  }

  T* get() const noexcept { return m_object; }
  T* operator->() const noexcept { return m_object; }
  T& operator*() const noexcept { return *m_object; }
  explicit operator bool() const noexcept { return m_object != nullptr; }

  /// How many shared pointers own the object; 0 for null.
  int use_count() const noexcept { return m_counter == nullptr ? 0 : m_counter->UseCount(); }

  friend bool operator==(VRXBasSharedPtr const& a, VRXBasSharedPtr const& b) noexcept
  {
    return a.m_object == b.m_object;
  }

private:
  template <class U>
  friend class VRXBasSharedPtr;
  template <class U>
  friend class VRXBasWeakPtr;

  VRXBasSharedPtr(T* object, VRXBasRefCounter* counter) noexcept
    : m_object(object), m_counter(counter)
  {
    if (m_counter != nullptr)
      m_counter->AddUse();
  }

  template <class U>
  static VRXBasRefCounter* CounterOf(U* object)
  {
    if (object == nullptr)
      return nullptr;
    try
    {
      return new VRXBasRefCounterOf<U>(object);
    }
    catch (...)
    {
      delete object;
      throw;
    }
  }

  T* m_object = nullptr;
  VRXBasRefCounter* m_counter = nullptr;
};

/// A pointer that watches an object without owning it.
template <class T>
class VRXBasWeakPtr
{
public:
  VRXBasWeakPtr() noexcept = default;
  VRXBasWeakPtr(VRXBasSharedPtr<T> const& shared) noexcept
    : VRXBasWeakPtr(shared.m_object, shared.m_counter)
  {
  }
  VRXBasWeakPtr(VRXBasWeakPtr const& other) noexcept
    : VRXBasWeakPtr(other.m_object, other.m_counter)
  {
  }
  VRXBasWeakPtr(VRXBasWeakPtr&& other) noexcept { swap(other); }
  VRXBasWeakPtr& operator=(VRXBasWeakPtr other) noexcept
  {
    swap(other);
    return *this;
  }
  ~VRXBasWeakPtr()
  {
    if (m_counter != nullptr)
      m_counter->DropWeak();
  }

  void reset() noexcept { VRXBasWeakPtr().swap(*this); }
  void swap(VRXBasWeakPtr& other) noexcept
  {
    std::swap(m_object, other.m_object);
    std::swap(m_counter, other.m_counter);
  }

  int use_count() const noexcept { return m_counter == nullptr ? 0 : m_counter->UseCount(); }
  bool expired() const noexcept { return use_count() == 0; }

  /// A shared pointer to the object; null when the object is gone.
  VRXBasSharedPtr<T> lock() const noexcept
  {
    return expired() ? VRXBasSharedPtr<T>() : VRXBasSharedPtr<T>(m_object, m_counter);
  }

private:
  VRXBasWeakPtr(T* object, VRXBasRefCounter* counter) noexcept
    : m_object(object), m_counter(counter)
  {
    if (m_counter != nullptr)
      m_counter->AddWeak();
  }

  T* m_object = nullptr;
  VRXBasRefCounter* m_counter = nullptr;
};
