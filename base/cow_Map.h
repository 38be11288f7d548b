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
// SET-1, SET-3, SET-5, ... hang in one chain. So when a path grows longer than cow_longestPath nodes the
// tree is given up for a cow_Btree of the same keys: an operation costs O(log n) whatever the keys are.
// The order of iteration stays that of the tree, which follows from the order in which keys came
// (cow_MapOrder); a walk begins with O(n) steps for it, and a removal makes a tree again, O(n log n).
// Nothing here recurses, so a chain may be as long as it likes.
//
// Counts are plain ints: a map and its copies belong to one thread at a time.

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

#include "cow_Btree.h"
#include "cow_COW.h"
#include "cow_MapKeys.h"
#include "cow_MapOrder.h"

inline constexpr int cow_longestPath = 64;

template <class K, class V>
struct cow_MapNode;

template <class K, class V>
using cow_MapHandle = cow_COW<cow_MapNode<K, V>, cow_Direct<cow_MapNode<K, V>>>;

template <class K, class V>
struct cow_MapNode : cow_MapEntry<K, V>, mem_AllocationOperators
{
  template <class Value>
  cow_MapNode(K const& k, Value&& v) : cow_MapEntry<K, V>{k, std::forward<Value>(v)}
  {
  }
  cow_MapNode(cow_MapNode const&) = default; // shares both children
  cow_MapNode& operator=(cow_MapNode const&) = delete;
  ~cow_MapNode()
  {
    ReleaseTree(left);
    ReleaseTree(right);
  }

  cow_MapHandle<K, V>& Child(int bit) noexcept { return bit == 0 ? left : right; }
  cow_MapHandle<K, V> const& Child(int bit) const noexcept { return bit == 0 ? left : right; }

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

/// A key of a map that has left the tree, with the number of keys that were there before it.
template <class K, class V>
struct cow_NumberedEntry : cow_MapEntry<K, V>
{
  int number;
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
    : m_form(std::move(other.m_form)), m_size(std::exchange(other.m_size, 0))
  {
    if (other.IsSorted())
      other.m_form.template emplace<Handle>();
  }
  // By value: what is assigned may live inside this map.
  cow_Map& operator=(cow_Map other) noexcept
  {
    m_form.swap(other.m_form);
    std::swap(m_size, other.m_size);
    return *this;
  }

  int Size() const noexcept { return m_size; }
  bool Empty() const noexcept { return m_size == 0; }
  void Clear() { *this = cow_Map(); }

  bool IsMember(K const& key) const noexcept { return ConstFind(key) != nullptr; }

  /// The value of `key`, or null: one walk in place of IsMember and ConstGet.
  V const* ConstFind(K const& key) const noexcept;

  /// The value of `key`, which must be present.
  V const& ConstGet(K const& key) const noexcept { return *ConstFind(key); }

  /// The value of `key`, which must be present, for writing; good until the map is copied or changed
  /// in another way. Copies the nodes on the path that another map holds too.
  V& Get(K const& key);

  /// Adds the key, or replaces the value that it has. Always true.
  bool Insert(K const& key, V const& value) { return InsertValue(key, value); }
  bool Insert(K const& key, V&& value) { return InsertValue(key, std::move(value)); }

  /// False when the key is absent. The hole is filled from below, by right children first.
  bool Remove(K const& key);

private:
  friend class cow_ConstMapIterator<K, V>;
  using Entry = cow_MapEntry<K, V>;
  using Node = cow_MapNode<K, V>;
  using Handle = cow_MapHandle<K, V>;
  using Numbered = cow_NumberedEntry<K, V>;
  using Sorted = cow_Btree<K, V, Numbered>;
  struct Found
  {
    Handle* handle;
    int depth;
  };

  bool IsSorted() const noexcept { return m_form.index() != 0; }
  Handle& Root() noexcept { return *std::get_if<0>(&m_form); }
  Handle const& Root() const noexcept { return *std::get_if<0>(&m_form); }
  Sorted& Keys() { return *std::get_if<1>(&m_form)->Get(); }
  Sorted const& Keys() const noexcept { return *std::get_if<1>(&m_form)->ConstGet(); }

  Node const* FindNode(K const& key) const noexcept;
  Found Walk(K const& key);
  template <class Value>
  bool InsertValue(K const& key, Value&& value);
  template <class Visit>
  void VisitInOrder(Visit const& visit) const;
  void LeaveTree();
  void MakeTree();

  // The tree, or the B-tree in place of it. The size lies in bytes that the variant would leave unused.
  [[no_unique_address]] std::variant<Handle, cow_COW<Sorted>> m_form;
  int m_size = 0;
};

/// A walk over the keys that a map has now, in preorder: a node, all of its left subtree, all of its
/// right subtree. Later changes of the map do not disturb it.
///
///     cow_ConstMapIterator<cow_String, int> it(map);
///     for (it.First(); !it.IsDone(); it.Next())
///       use(it.CurrentKey(), it.CurrentValue());
template <class K, class V>
class cow_ConstMapIterator
{
public:
  explicit cow_ConstMapIterator(cow_Map<K, V> const& map) : m_map(map) {}
  cow_ConstMapIterator(cow_ConstMapIterator const&) = delete;
  cow_ConstMapIterator& operator=(cow_ConstMapIterator const&) = delete;

  /// Begins, or begins again; before the first call there is nothing to see. O(size).
  void First()
  {
    Collect();
    m_current = m_entries.get();
  }
  void Next() noexcept { ++m_current; }
  bool IsDone() const noexcept { return m_current == nullptr || *m_current == nullptr; }
  K const& CurrentKey() const noexcept { return (*m_current)->key; }
  V const& CurrentValue() const noexcept { return (*m_current)->value; }

protected:
  using Entry = cow_MapEntry<K, V>;

  Entry const** Entries() noexcept { return m_entries.get(); }
  int Size() const noexcept { return m_map.Size(); }

private:
  void Collect();

  cow_Map<K, V> const m_map;
  std::unique_ptr<Entry const*[]> m_entries;
  Entry const** m_current = nullptr;
};

/// The same walk in the order of a comparison of keys, ascending unless told otherwise.
template <class K, class V>
class cow_ConstMapSortedIt : public cow_ConstMapIterator<K, V>
{
  using Base = cow_ConstMapIterator<K, V>;
  using Entry = cow_MapEntry<K, V>;

public:
  /// A comparison of two `cow_MapEntry<K, V> const*` for qsort.
  using Comparison = int (*)(void const* a, void const* b);

  explicit cow_ConstMapSortedIt(cow_Map<K, V> const& map, Comparison compare = AscSortCmp)
    : Base(map), m_compare(compare)
  {
  }

  void First()
  {
    Base::First();
    std::qsort(Base::Entries(), static_cast<std::size_t>(Base::Size()), sizeof(Entry const*),
               m_compare);
  }

  static int AscSortCmp(void const* a, void const* b)
  {
    return cow_CompareKeys((*static_cast<Entry const* const*>(a))->key,
                           (*static_cast<Entry const* const*>(b))->key);
  }
  static int DescSortCmp(void const* a, void const* b) { return AscSortCmp(b, a); }

private:
  Comparison m_compare;
};

// ----------------------------------------------------------------------------------- algorithms

template <class K, class V>
cow_MapNode<K, V> const* cow_Map<K, V>::FindNode(K const& key) const noexcept
{
  Node const* node = Root().ConstGet();
  for (int depth = 0; node != nullptr && !(node->key == key); ++depth)
    node = node->Child(cow_MapBit(key, depth)).ConstGet();
  return node;
}

template <class K, class V>
V const* cow_Map<K, V>::ConstFind(K const& key) const noexcept
{
  if (IsSorted()) [[unlikely]]
    return Keys().ConstFind(key);
  Node const* const node = FindNode(key);
  return node == nullptr ? nullptr : &node->value;
}

// The handle at which the key's node hangs, or would hang; every node on the way is this map's own.
template <class K, class V>
typename cow_Map<K, V>::Found cow_Map<K, V>::Walk(K const& key)
{
  Found found{&Root(), 0};
  for (; !found.handle->IsNull(); ++found.depth)
  {
    Node* const node = found.handle->Get();
    if (node->key == key)
      break;
    found.handle = &node->Child(cow_MapBit(key, found.depth));
  }
  return found;
}

template <class K, class V>
V& cow_Map<K, V>::Get(K const& key)
{
  return IsSorted() ? *Keys().Find(key) : Walk(key).handle->Get()->value;
}

template <class K, class V>
template <class Value>
bool cow_Map<K, V>::InsertValue(K const& key, Value&& value)
{
  if (IsSorted()) [[unlikely]]
  {
    Sorted& keys = Keys();
    if (V* const present = keys.Find(key))
    {
      *present = std::forward<Value>(value);
      return true;
    }
    keys.AddNew({{key, std::forward<Value>(value)}, m_size});
    ++m_size;
    return true;
  }
  Found const found = Walk(key);
  if (Node* const node = found.handle->Get())
  {
    node->value = std::forward<Value>(value);
    return true;
  }
  *found.handle = new Node(key, std::forward<Value>(value));
  ++m_size;
  if (found.depth >= cow_longestPath) [[unlikely]]
    LeaveTree();
  return true;
}

template <class K, class V>
bool cow_Map<K, V>::Remove(K const& key)
{
  if (!IsMember(key))
    return false;
  if (IsSorted())
    MakeTree();
  Handle* handle = Walk(key).handle;
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

// Keys that go into an empty map in preorder make the same tree again.
template <class K, class V>
void cow_Map<K, V>::LeaveTree()
{
  cow_COW<Sorted> sorted(new Sorted);
  Sorted& keys = *sorted.Get();
  cow_ConstMapIterator<K, V> it(*this);
  for (it.First(); !it.IsDone(); it.Next())
    keys.AddNew({{it.CurrentKey(), it.CurrentValue()}, keys.Size()});
  m_form = std::move(sorted);
}

template <class K, class V>
void cow_Map<K, V>::MakeTree()
{
  Handle root;
  std::vector<Node*> path; // from the root to the node that was made last
  VisitInOrder(
    [&](Entry const& entry, int depth)
    {
      path.resize(static_cast<std::size_t>(depth));
      Handle& handle = path.empty() ? root : path.back()->Child(cow_MapBit(entry.key, depth - 1));
      handle = new Node(entry.key, entry.value);
      path.push_back(handle.Get());
    });
  m_form = std::move(root);
}

/// Calls visit(entry, depth) for the keys of a map without a tree, in the preorder of the tree.
template <class K, class V>
template <class Visit>
void cow_Map<K, V>::VisitInOrder(Visit const& visit) const
{
  std::vector<Numbered const*> entries(static_cast<std::size_t>(m_size));
  cow_BtreeIterator<K, V, Numbered> it(Keys());
  for (it.First(); !it.IsDone(); it.Next())
    entries[static_cast<std::size_t>(it.CurrentEntry().number)] = &it.CurrentEntry();
  cow_MapOrder<Entry> order;
  for (Numbered const* const entry : entries)
    order.Add(*entry);
  order.ForEach(visit);
}

// The right children still to be visited wait at the far end of the array: together with the nodes
// already collected they are never more than the map has.
template <class K, class V>
void cow_ConstMapIterator<K, V>::Collect()
{
  using Node = cow_MapNode<K, V>;
  std::size_t const size = static_cast<std::size_t>(Size());
  if (m_entries == nullptr)
    m_entries.reset(new Entry const*[size + 1]);
  Entry const** next = m_entries.get();
  Entry const** const end = next + size;
  *end = nullptr;
  if (m_map.IsSorted()) [[unlikely]]
    return m_map.VisitInOrder([&](Entry const& entry, int) { *next++ = &entry; });
  Entry const** waiting = end;
  Node const* node = m_map.Root().ConstGet();
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
      node = waiting == end ? nullptr : static_cast<Node const*>(*waiting++);
  }
}
