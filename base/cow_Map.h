#pragma once

// cow_Map<K, V>: a copy-on-write digital search tree, steered by the bits of the key.
//
//     cow_Map<cow_String, int> a;
//     a.Insert("type", 1);
//     cow_Map<cow_String, int> b = a;   // O(1), shares
//     b.Insert("name", 2);              // copies the nodes on the path to the new one; a is unchanged
//
// A node holds a key, a value and two children. A search compares the key at each node, and goes to
// the left child for bit 0, to the right child for bit 1, where bit number `depth` is cow_MapBit(key,
// depth). The tree is never rebalanced: iteration is in preorder, and that order is fixed by the keys
// and the history of insertions and removals. It shows in what is printed, so it must not change.
//
// An operation costs the length of its path. That is log2(Size()) for keys that differ in their low
// bits. Texts differ by the low bits of their bytes only, and those that do not, such as the names
// SET-1, SET-3, SET-5, ... hang in one chain, which a search walks from its top: a million such names
// in one map are slow, and cow_Btree serves them better. Nothing here recurses, so a chain may be as
// long as it likes.
//
// Counts are plain ints: a map and its copies belong to one thread at a time.

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <utility>

#include "cow_COW.h"
#include "cow_String.h"

/// Bit number `depth` of an integer key, beginning again every 32.
inline int cow_MapBit(int key, int depth) noexcept
{
  return static_cast<int>((static_cast<unsigned>(key) >> (depth & 31)) & 1U);
}

/// The low bit of one byte of a text, taken alternately from the front (even depths) and the back.
/// Beyond the length of the text the bit is 0.
inline int cow_MapBit(cow_String const& key, int depth) noexcept
{
  int const length = key.Length();
  if (depth > length)
    return 0;
  int const half = depth >> 1;
  // Depth 0 of the empty text reads the closing NUL.
  int const at = (depth & 1) == 0 ? half : length - half - 1;
  return key.CStr()[at] & 1;
}

/// Below, equal to or above 0: the order of sorted iteration. Texts compare by bytes.
inline int cow_CompareKeys(int a, int b) noexcept { return a < b ? -1 : a > b ? 1 : 0; }

inline int cow_CompareKeys(cow_String const& a, cow_String const& b) noexcept
{
  int const order = a.View().compare(b.View());
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

template <class K, class V>
struct cow_MapNode;

template <class K, class V>
using cow_MapHandle = cow_COW<cow_MapNode<K, V>, cow_Direct<cow_MapNode<K, V>>>;

template <class K, class V>
struct cow_MapNode : mem_AllocationOperators
{
  cow_MapNode(K const& k, V const& v) : key(k), value(v) {}
  cow_MapNode(K const& k, V&& v) : key(k), value(std::move(v)) {}
  cow_MapNode(cow_MapNode const&) = default; // shares both children
  cow_MapNode& operator=(cow_MapNode const&) = delete;
  ~cow_MapNode()
  {
    ReleaseTree(left);
    ReleaseTree(right);
  }

  cow_MapHandle<K, V>& Child(int bit) noexcept { return bit == 0 ? left : right; }
  cow_MapHandle<K, V> const& Child(int bit) const noexcept { return bit == 0 ? left : right; }

  K key;
  V value;
  cow_MapHandle<K, V> left;
  cow_MapHandle<K, V> right;

private:
  static bool IsSole(cow_MapHandle<K, V> const& handle) noexcept
  {
    return handle.UseCount() == 1 && !handle.IsNull();
  }

  // Deletes what no other map holds, a node at a time and without recursion: left children are
  // rotated up until the node on top has none, and that node goes.
  static void ReleaseTree(cow_MapHandle<K, V>& handle)
  {
    if (!IsSole(handle))
      return;
    cow_MapHandle<K, V> top(std::move(handle));
    while (IsSole(top))
    {
      cow_MapNode* const node = top.Get();
      if (IsSole(node->left))
      {
        cow_MapHandle<K, V> child(std::move(node->left));
        node->left = std::move(child.Get()->right);
        child.Get()->right = std::move(top);
        top = std::move(child);
      }
      else
      {
        cow_MapHandle<K, V> rest(std::move(node->right));
        top = std::move(rest);
      }
    }
  }
};

template <class K, class V>
class cow_ConstMapIterator;

template <class K, class V>
class cow_Map
{
public:
  cow_Map() = default;
  cow_Map(cow_Map const&) noexcept = default; // O(1), shares
  cow_Map(cow_Map&& other) noexcept           // leaves an empty map
    : m_root(std::move(other.m_root)), m_size(std::exchange(other.m_size, 0))
  {
  }
  // By value: what is assigned may live inside this map.
  cow_Map& operator=(cow_Map other) noexcept
  {
    m_root.Swap(other.m_root);
    std::swap(m_size, other.m_size);
    return *this;
  }

  int Size() const noexcept { return m_size; }
  bool Empty() const noexcept { return m_size == 0; }
  void Clear() { *this = cow_Map(); }

  bool IsMember(K const& key) const noexcept { return FindNode(key) != nullptr; }

  /// The value of `key`, or null: one walk in place of IsMember and ConstGet.
  V const* ConstFind(K const& key) const noexcept
  {
    cow_MapNode<K, V> const* const node = FindNode(key);
    return node == nullptr ? nullptr : &node->value;
  }

  /// The value of `key`, which must be present.
  V const& ConstGet(K const& key) const noexcept { return FindNode(key)->value; }

  /// The value of `key`, which must be present, for writing; good until the map is copied or changed
  /// in another way. Copies the nodes on the path that another map holds too.
  V& Get(K const& key) { return Walk(key)->Get()->value; }

  /// Adds the key, or replaces the value that it has. Always true.
  bool Insert(K const& key, V const& value) { return InsertValue(key, value); }
  bool Insert(K const& key, V&& value) { return InsertValue(key, std::move(value)); }

  /// False when the key is absent. The hole is filled from below, by right children first.
  bool Remove(K const& key);

private:
  friend class cow_ConstMapIterator<K, V>;
  using Node = cow_MapNode<K, V>;
  using Handle = cow_MapHandle<K, V>;

  Node const* FindNode(K const& key) const noexcept;
  Handle* Walk(K const& key);
  template <class Value>
  bool InsertValue(K const& key, Value&& value);

  Handle m_root;
  int m_size = 0;
};

/// A walk over the nodes that a map has now, in preorder: a node, all of its left subtree, all of its
/// right subtree. Later changes of the map do not disturb it.
///
///     cow_ConstMapIterator<cow_String, int> it(map);
///     for (it.First(); !it.IsDone(); it.Next())
///       use(it.CurrentKey(), it.CurrentValue());
template <class K, class V>
class cow_ConstMapIterator
{
public:
  explicit cow_ConstMapIterator(cow_Map<K, V> const& map) : m_root(map.m_root), m_size(map.m_size)
  {
  }
  cow_ConstMapIterator(cow_ConstMapIterator const&) = delete;
  cow_ConstMapIterator& operator=(cow_ConstMapIterator const&) = delete;

  /// Begins, or begins again; before the first call there is nothing to see. O(size).
  void First()
  {
    Collect();
    m_current = m_nodes.get();
  }
  void Next() noexcept { ++m_current; }
  bool IsDone() const noexcept { return m_current == nullptr || *m_current == nullptr; }
  K const& CurrentKey() const noexcept { return (*m_current)->key; }
  V const& CurrentValue() const noexcept { return (*m_current)->value; }

protected:
  using Node = cow_MapNode<K, V>;

  Node const** Nodes() noexcept { return m_nodes.get(); }
  int Size() const noexcept { return m_size; }

private:
  void Collect();

  cow_MapHandle<K, V> m_root;
  int m_size;
  std::unique_ptr<Node const*[]> m_nodes;
  Node const** m_current = nullptr;
};

/// The same walk in the order of a comparison of keys, ascending unless told otherwise.
template <class K, class V>
class cow_ConstMapSortedIt : public cow_ConstMapIterator<K, V>
{
  using Base = cow_ConstMapIterator<K, V>;
  using Node = cow_MapNode<K, V>;

public:
  /// A comparison of two `cow_MapNode<K, V> const*` for qsort.
  using Comparison = int (*)(void const* a, void const* b);

  explicit cow_ConstMapSortedIt(cow_Map<K, V> const& map, Comparison compare = AscSortCmp)
    : Base(map), m_compare(compare)
  {
  }

  void First()
  {
    Base::First();
    std::qsort(Base::Nodes(), static_cast<std::size_t>(Base::Size()), sizeof(Node const*),
               m_compare);
  }

  static int AscSortCmp(void const* a, void const* b)
  {
    return cow_CompareKeys((*static_cast<Node const* const*>(a))->key,
                           (*static_cast<Node const* const*>(b))->key);
  }
  static int DescSortCmp(void const* a, void const* b) { return AscSortCmp(b, a); }

private:
  Comparison m_compare;
};

// ----------------------------------------------------------------------------------- algorithms

template <class K, class V>
cow_MapNode<K, V> const* cow_Map<K, V>::FindNode(K const& key) const noexcept
{
  Node const* node = m_root.ConstGet();
  for (int depth = 0; node != nullptr && !(node->key == key); ++depth)
    node = node->Child(cow_MapBit(key, depth)).ConstGet();
  return node;
}

// The handle at which the key's node hangs, or would hang; every node on the way is this map's own.
template <class K, class V>
cow_MapHandle<K, V>* cow_Map<K, V>::Walk(K const& key)
{
  Handle* handle = &m_root;
  for (int depth = 0; !handle->IsNull(); ++depth)
  {
    Node* const node = handle->Get();
    if (node->key == key)
      break;
    handle = &node->Child(cow_MapBit(key, depth));
  }
  return handle;
}

template <class K, class V>
template <class Value>
bool cow_Map<K, V>::InsertValue(K const& key, Value&& value)
{
  Handle* const handle = Walk(key);
  if (Node* const node = handle->Get())
  {
    node->value = std::forward<Value>(value);
    return true;
  }
  *handle = new Node(key, std::forward<Value>(value));
  ++m_size;
  return true;
}

template <class K, class V>
bool cow_Map<K, V>::Remove(K const& key)
{
  if (!IsMember(key))
    return false;
  Handle* handle = Walk(key);
  for (Node* node = handle->Get();;)
  {
    Handle* const below = !node->right.IsNull() ? &node->right : &node->left;
    if (below->IsNull())
      break;
    Node* const child = below->Get();
    node->key = std::move(child->key);
    node->value = std::move(child->value);
    node = child;
    handle = below;
  }
  *handle = nullptr;
  --m_size;
  return true;
}

// The right children still to be visited wait at the far end of the array: together with the nodes
// already collected they are never more than the map has.
template <class K, class V>
void cow_ConstMapIterator<K, V>::Collect()
{
  std::size_t const size = static_cast<std::size_t>(m_size);
  if (m_nodes == nullptr)
    m_nodes.reset(new Node const*[size + 1]);
  Node const** next = m_nodes.get();
  Node const** const end = next + size;
  Node const** waiting = end;
  Node const* node = m_root.ConstGet();
  while (node != nullptr)
  {
    *next++ = node;
    Node const* const left = node->left.ConstGet();
    Node const* const right = node->right.ConstGet();
    if (left != nullptr && right != nullptr)
      *--waiting = right;
    if (left != nullptr)
      node = left;
    else if (right != nullptr)
      node = right;
    else
      node = waiting == end ? nullptr : *waiting++;
  }
  *end = nullptr;
}
