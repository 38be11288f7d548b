#pragma once

// cow_List<T>: an indexed sequence that copies in constant time and pays for a copy when written to.
//
// A copy shares the directory. The first write through either holder copies the directory, and the
// block that it touches; the other blocks stay shared.
//
//     cow_List<int> a;
//     a.Append(1).Append(2);
//     cow_List<int> b = a;      // O(1), shares
//     b.Get(0) = 7;             // b has a directory and a first block of its own; a[0] is still 1
//
// Item i lives at position p = first offset + i, in block p >> shift, slot p & (block size - 1):
//
//     directory    0        1        2        3
//                +--------+--------+--------+--------+--
//                | null   |   *    |   *    |  null  |        null: block not made yet
//                +--------+---|----+---|----+--------+--
//                             |        +--> [ 12 13 14 15 .. ]
//                             +--> [ .. .. .. .. 0 1 2 ... 11 ]     first offset 20, 16 to a block
//
// Reading never copies: ConstGet, operator[], Last, the iterators. Get is the only reading that
// detaches; there is no writable operator[] or begin() to trip over.
//
// Counts are plain ints: a list and its copies belong to one thread at a time. An index out of range
// ends the process, see cow_SetOutOfRangeHook. At most 2^30 items.

#include "cow_ListBlock.h"

#include <algorithm>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

class cow_String;

/// Tag of the constructor that takes a size hint.
struct cow_ListConstruct
{
};

template <class T>
class cow_ListIter;

template <class T>
class cow_List
{
public:
  using value_type = T;
  using const_iterator = cow_ListConstIterator<T>;

  /// No items and no directory.
  cow_List() noexcept = default;

  /// No items, but blocks and a directory fit for `hint` of them.
  cow_List(cow_ListConstruct, int hint);

  explicit cow_List(T const& a) requires std::is_same_v<T, cow_String> { Append(a); }
  cow_List(T const& a, T const& b) requires std::is_same_v<T, cow_String> { Append(a).Append(b); }
  cow_List(T const& a, T const& b, T const& c) requires std::is_same_v<T, cow_String>
  {
    Append(a).Append(b).Append(c);
  }
  cow_List(T const& a, T const& b, T const& c, T const& d) requires std::is_same_v<T, cow_String>
  {
    Append(a).Append(b).Append(c).Append(d);
  }

  cow_List(cow_List const& other) noexcept;            // O(1), shares
  cow_List(cow_List&& other) noexcept { Swap(other); } // O(1), leaves an empty list
  cow_List& operator=(cow_List const& other) noexcept;
  cow_List& operator=(cow_List&& other) noexcept;
  ~cow_List() { Release(); }
  void Swap(cow_List& other) noexcept;

  int Length() const noexcept { return m_length; }
  bool Empty() const noexcept { return m_length == 0; }

  /// Returns `i`, which must be the index of an item.
  int CheckIndex(int i) const noexcept
  {
    if (static_cast<unsigned>(i) >= static_cast<unsigned>(m_length)) [[unlikely]]
      RaiseOutOfRange(i);
    return i;
  }

  T const& ConstGet(int i) const noexcept { return UncheckedConstGet(CheckIndex(i)); }
  T const& operator[](int i) const noexcept { return UncheckedConstGet(CheckIndex(i)); }
  T const& Last() const noexcept { return ConstGet(m_length - 1); }
  T const& UncheckedConstGet(int i) const noexcept { return *AddressOf(m_firstOffset + i); }

  /// The item for writing, good until the list is copied or changed in another way. Copies the
  /// directory and one block where they are shared.
  T& Get(int i);

  const_iterator begin() const noexcept { return {m_directory, m_blockShift, m_firstOffset}; }
  const_iterator end() const noexcept
  {
    return {m_directory, m_blockShift, m_firstOffset + m_length};
  }

  cow_List& Append(T const& x); // amortised O(1)
  cow_List& Append(T&& x);
  cow_List& Prepend(T const& x); // amortised O(1)
  cow_List& Prepend(T&& x);

  /// Puts `x` before item `i`, or behind all when `i` is the length. Moves the shorter side by one.
  void InsertIndex(int i, T const& x);
  void RemoveIndex(int i); // moves the shorter side by one
  void RemoveLast();
  T Pop();

  /// Cuts the list to its first `n` items, or makes the directory fit for `n`; never makes items.
  /// Resize(0) also gives up blocks, directory and size hint.
  void Resize(int n);
  void Clear() noexcept;

  /// Appends copies of `x` up to length `n`; nothing when the list is as long already.
  void Fill(int n, T const& x);
  void Concatenate(cow_List const& other); // copies all of `other`

  /// A new list of copies of the items from `lo` up to but not including `hi`. Bounds beyond the
  /// list are cut to it, and an upper bound below the lower one gives an empty list.
  cow_List Slice(int lo, int hi) const;

  void SetFromArray(T const* items, int count);
  /// An array of copies, to be freed with delete[]; its length in `count`.
  T* GetCArray(int& count) const;

  void Sort(); // ascending
  template <class Less>
  void Sort(Less less);

  // Membership by ==, O(length).
  bool IsMember(T const& x) const;
  bool AppendUnlessMember(T const& x); // true when appended
  bool RemoveMember(T const& x);       // removes the first one; true when there was one

  friend bool operator==(cow_List const& a, cow_List const& b)
  {
    bool const sameItems = a.m_directory == b.m_directory;
    return a.m_length == b.m_length && (sameItems || std::equal(a.begin(), a.end(), b.begin()));
  }

  /// How the items are laid out, for tests and for those who tune hints.
  cow_ListShape Shape() const noexcept { return {m_blockShift, m_directorySize}; }
  int FirstOffset() const noexcept { return m_firstOffset; }

private:
  friend class cow_ListIter<T>;
  using Block = cow_ListBlock<T>;

  [[noreturn]] void RaiseOutOfRange(int i) const noexcept { cow_RaiseOutOfRange(i, m_length); }

  int SlotMask() const noexcept { return (1 << m_blockShift) - 1; }
  T* AddressOf(int position) const noexcept
  {
    return m_directory[position >> m_blockShift]->items + (position & SlotMask());
  }
  T& Item(int i) noexcept { return *AddressOf(m_firstOffset + i); }

  // The slots of a block that hold items.
  int LiveBegin(int block) const noexcept
  {
    return std::max(m_firstOffset - (block << m_blockShift), 0);
  }
  int LiveEnd(int block) const noexcept
  {
    int const end = m_firstOffset + m_length - (block << m_blockShift);
    return std::clamp(end, 0, 1 << m_blockShift);
  }

  void UseDirectory(cow_ListDirectoryHead* head) noexcept;
  void Detach();
  void CopyArray();
  void SetDirectorySize(int size);
  static Block* CopyBlock(Block const* from, int blockShift, int begin, int end);
  void IsolateBlock(int block);
  void Isolate(int position) { IsolateRange(position, position); }
  void IsolateRange(int from, int to);
  void DropBlock(int block, int liveBegin, int liveEnd) noexcept;
  void Truncate(int n);
  void Release() noexcept;
  void MakeRoomInFront();
  T* SlotBehind();
  T* SlotBehindSlow();
  T* SlotInFront();

  int m_length = 0;
  int m_directorySize = 0; // slots in use; the array may be longer
  int m_blockShift = 4;
  int m_firstOffset = 0;
  int* m_directoryCount = nullptr;
  Block** m_directory = nullptr;
};

// ------------------------------------------------------------------------------- construction

template <class T>
cow_List<T>::cow_List(cow_ListConstruct, int hint)
{
  if (hint <= 0)
    return;
  cow_ListShape const shape = cow_ShapeForHint(hint);
  m_blockShift = shape.blockShift;
  SetDirectorySize(shape.directorySize);
}

template <class T>
cow_List<T>::cow_List(cow_List const& other) noexcept
  : m_length(other.m_length),
    m_directorySize(other.m_directorySize),
    m_blockShift(other.m_blockShift),
    m_firstOffset(other.m_firstOffset),
    m_directoryCount(other.m_directoryCount),
    m_directory(other.m_directory)
{
  if (m_directoryCount != nullptr)
    ++*m_directoryCount;
}

// Both assignments keep the old content until the new one is in hand: `other` may live inside it.
template <class T>
cow_List<T>& cow_List<T>::operator=(cow_List const& other) noexcept
{
  cow_List(other).Swap(*this);
  return *this;
}

template <class T>
cow_List<T>& cow_List<T>::operator=(cow_List&& other) noexcept
{
  cow_List(std::move(other)).Swap(*this);
  return *this;
}

template <class T>
void cow_List<T>::Swap(cow_List& other) noexcept
{
  std::swap(m_length, other.m_length);
  std::swap(m_directorySize, other.m_directorySize);
  std::swap(m_blockShift, other.m_blockShift);
  std::swap(m_firstOffset, other.m_firstOffset);
  std::swap(m_directoryCount, other.m_directoryCount);
  std::swap(m_directory, other.m_directory);
}

// ------------------------------------------------------------------------------------- length

template <class T>
void cow_List<T>::Clear() noexcept
{
  cow_List().Swap(*this);
}

template <class T>
void cow_List<T>::Resize(int n)
{
  if (n < 0)
    RaiseOutOfRange(n);
  if (n == 0)
    return Clear();
  Detach();
  if (n < m_length)
    Truncate(n);
  int const lastGroup = (m_firstOffset + n - 1) >> (m_blockShift + 4);
  SetDirectorySize((lastGroup + 1) * 16);
}

// -------------------------------------------------------------------------------------- items

template <class T>
T& cow_List<T>::Get(int i)
{
  int const position = m_firstOffset + CheckIndex(i);
  if (*m_directoryCount != 1) [[unlikely]]
    CopyArray();
  if (m_directory[position >> m_blockShift]->count != 1) [[unlikely]]
    IsolateBlock(position >> m_blockShift);
  return *AddressOf(position);
}

template <class T>
cow_List<T>& cow_List<T>::Append(T const& x)
{
  ::new (static_cast<void*>(SlotBehind())) T(x);
  ++m_length;
  return *this;
}

template <class T>
cow_List<T>& cow_List<T>::Append(T&& x)
{
  ::new (static_cast<void*>(SlotBehind())) T(std::move(x));
  ++m_length;
  return *this;
}

template <class T>
cow_List<T>& cow_List<T>::Prepend(T const& x)
{
  ::new (static_cast<void*>(SlotInFront())) T(x);
  --m_firstOffset;
  ++m_length;
  return *this;
}

template <class T>
cow_List<T>& cow_List<T>::Prepend(T&& x)
{
  ::new (static_cast<void*>(SlotInFront())) T(std::move(x));
  --m_firstOffset;
  ++m_length;
  return *this;
}

template <class T>
void cow_List<T>::InsertIndex(int i, T const& x)
{
  if (i == m_length)
    return void(Append(x));
  if (i == 0)
    return void(Prepend(x));
  CheckIndex(i);
  T item(x); // `x` may be an item that moves
  if (i >= m_length - i)
  {
    IsolateRange(m_firstOffset + i, m_firstOffset + m_length - 1);
    Append(std::move(Item(m_length - 1)));
    for (int to = m_length - 2; to > i; --to)
      Item(to) = std::move(Item(to - 1));
  }
  else
  {
    IsolateRange(m_firstOffset, m_firstOffset + i - 1);
    Prepend(std::move(Item(0)));
    for (int to = 1; to < i; ++to)
      Item(to) = std::move(Item(to + 1));
  }
  Item(i) = std::move(item);
}

template <class T>
void cow_List<T>::RemoveIndex(int i)
{
  CheckIndex(i);
  if (i >= m_length - i)
  {
    IsolateRange(m_firstOffset + i, m_firstOffset + m_length - 1);
    for (int to = i; to < m_length - 1; ++to)
      Item(to) = std::move(Item(to + 1));
    return RemoveLast();
  }
  IsolateRange(m_firstOffset, m_firstOffset + i);
  for (int to = i; to > 0; --to)
    Item(to) = std::move(Item(to - 1));
  std::destroy_at(&Item(0));
  ++m_firstOffset;
  --m_length;
  if ((m_firstOffset & SlotMask()) == 0) // that block is empty now
    DropBlock((m_firstOffset - 1) >> m_blockShift, 0, 0);
}

template <class T>
void cow_List<T>::RemoveLast()
{
  Resize(CheckIndex(m_length - 1));
}

template <class T>
T cow_List<T>::Pop()
{
  T last(Last());
  RemoveLast();
  return last;
}

// --------------------------------------------------------------------------------- whole lists

template <class T>
void cow_List<T>::Fill(int n, T const& x)
{
  while (m_length < n)
    Append(x);
}

template <class T>
void cow_List<T>::Concatenate(cow_List const& other)
{
  int const count = other.m_length; // `other` may be this list
  for (int i = 0; i < count; ++i)
    Append(other.UncheckedConstGet(i));
}

template <class T>
cow_List<T> cow_List<T>::Slice(int lo, int hi) const
{
  lo = std::max(lo, 0);
  hi = std::min(std::max(hi, lo), m_length);
  lo = std::min(lo, hi);
  cow_List result(cow_ListConstruct{}, hi - lo);
  for (int i = lo; i < hi; ++i)
    result.Append(UncheckedConstGet(i));
  return result;
}

template <class T>
void cow_List<T>::SetFromArray(T const* items, int count)
{
  cow_List loaded(cow_ListConstruct{}, count);
  for (int i = 0; i < count; ++i)
    loaded.Append(items[i]);
  Swap(loaded);
}

template <class T>
T* cow_List<T>::GetCArray(int& count) const
{
  std::unique_ptr<T[]> array(new T[static_cast<std::size_t>(m_length)]);
  std::copy(begin(), end(), array.get());
  count = m_length;
  return array.release();
}

template <class T>
void cow_List<T>::Sort()
{
  Sort([](T const& a, T const& b) { return a < b; });
}

template <class T>
template <class Less>
void cow_List<T>::Sort(Less less)
{
  if (m_length < 2)
    return;
  IsolateRange(m_firstOffset, m_firstOffset + m_length - 1);
  std::vector<T> items;
  items.reserve(static_cast<std::size_t>(m_length));
  for (int i = 0; i < m_length; ++i)
    items.push_back(std::move(Item(i)));
  std::sort(items.begin(), items.end(), less);
  for (int i = 0; i < m_length; ++i)
    Item(i) = std::move(items[static_cast<std::size_t>(i)]);
}

template <class T>
bool cow_List<T>::IsMember(T const& x) const
{
  return std::find(begin(), end(), x) != end();
}

template <class T>
bool cow_List<T>::AppendUnlessMember(T const& x)
{
  if (IsMember(x))
    return false;
  Append(x);
  return true;
}

template <class T>
bool cow_List<T>::RemoveMember(T const& x)
{
  int const i = static_cast<int>(std::distance(begin(), std::find(begin(), end(), x)));
  if (i == m_length)
    return false;
  RemoveIndex(i);
  return true;
}

#include "cow_ListIter.h"
#include "cow_ListSharing.h"
