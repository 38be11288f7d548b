#pragma once

#include "cow_CountedHld.h"

/// Copies a referent by its copy constructor.
template <class T>
struct cow_Direct
{
  static T* Copy(T const& referent) { return new T(referent); }
};

/// Copies a polymorphic referent by its virtual `T* Copy() const`.
template <class T>
struct cow_Virtual
{
  static T* Copy(T const& referent) { return referent.Copy(); }
};

/// A counted handle that behaves as a value: copies share the referent until one of them writes.
///
///     cow_COW<gsl_Matrix> a(new gsl_Matrix);
///     cow_COW<gsl_Matrix> b = a;        // O(1), shares
///     b.Get()->SetIdentity();           // b has a copy of its own now, a is unchanged
///
/// Reading goes through ConstGet, `->` and `*` and never copies; Get is the only way to write. The
/// referent may be null; null reads as null and is not copied.
template <class T, class Copier = cow_Direct<T>>
class cow_COW : private cow_CountedHld<T>
{
  using Holder = cow_CountedHld<T>;

public:
  cow_COW() = default;
  explicit cow_COW(T* referent) : Holder(referent) {}

  /// Takes over `referent` for this handle alone; the other handles keep the old one.
  cow_COW& operator=(T* referent)
  {
    Holder::operator=(referent);
    return *this;
  }

  T const* ConstGet() const noexcept { return Holder::ConstGet(); }
  T const* operator->() const noexcept { return Holder::ConstGet(); }
  T const& operator*() const noexcept { return *Holder::ConstGet(); }

  /// Copies the referent when another handle shares it.
  T* Get()
  {
    if (Holder::UseCount() != 1) [[unlikely]]
      Holder::operator=(Holder::IsNull() ? nullptr : Copier::Copy(*Holder::ConstGet()));
    return Holder::Get();
  }

  using Holder::IsNull;
  using Holder::UseCount;

  void Swap(cow_COW& other) noexcept { Holder::Swap(other); }
};

/// The same handle, under the name that sets are held by.
template <class T, class Copier = cow_Direct<T>>
class cow_ArrayCOW : public cow_COW<T, Copier>
{
public:
  cow_ArrayCOW() = default;
  explicit cow_ArrayCOW(T* referent) : cow_COW<T, Copier>(referent) {}

  cow_ArrayCOW& operator=(T* referent)
  {
    cow_COW<T, Copier>::operator=(referent);
    return *this;
  }
};
