#pragma once

// cow_Btree<K, V>: a copy-on-write map in ascending order of its keys.
//
//     cow_Btree<cow_String, unsigned int> uses;
//     uses.InsertUnlessMember("TOP", 0);
//     ++*uses.Find("TOP");
//
// A B-tree of up to 31 keys a node. A copy shares the root; a write copies the nodes on its path that
// are shared. Every operation costs O(log n); a copy is O(1). Keys compare by cow_CompareKeys, texts
// by bytes. Keys are never removed. Keys that come in ascending order fill their nodes.

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "cow_COW.h"
#include "cow_MapKeys.h"

template <class K, class Entry>
struct cow_BtreeNode : mem_AllocationOperators
{
  using Handle = cow_COW<cow_BtreeNode, cow_Direct<cow_BtreeNode>>;
  static constexpr std::size_t half = 15;
  static constexpr std::size_t full = 2 * half + 1;

  std::vector<Entry> entries;
  std::vector<Handle> children; // one more than entries, or none in a leaf

  /// The first entry whose key is not below `key`.
  std::size_t Position(K const& key) const
  {
    auto const below = [](Entry const& entry, K const& k)
    { return cow_CompareKeys(entry.key, k) < 0; };
    auto const found = std::lower_bound(entries.begin(), entries.end(), key, below);
    return static_cast<std::size_t>(found - entries.begin());
  }
  bool Has(std::size_t at, K const& key) const
  {
    return at < entries.size() && cow_CompareKeys(entries[at].key, key) == 0;
  }

  /// Splits the full child at `at` to make room for a key. Its middle entry moves up into this node:
  ///
  ///        | D |                                | D     M |
  ///        +---+---+            becomes         +---+-----+-----+
  ///        |       |                            |       |       |
  ///      A B     G J M P S                     A B     G J     P S
  ///
  /// For a key behind all others the last entry moves up instead of the middle one: keys then probably come
  /// in ascending order, and the lower node is left full and not half empty.
  void SplitChild(std::size_t at, K const& key)
  {
    cow_BtreeNode* const lower = children[at].Get();
    Handle upperHandle(new cow_BtreeNode);
    cow_BtreeNode* const upper = upperHandle.Get();
    std::ptrdiff_t const kept = lower->Position(key) == full ? full - 1 : half;
    auto const middle = lower->entries.begin() + kept;
    upper->entries.reserve(full);
    upper->entries.assign(std::move_iterator(middle + 1), std::move_iterator(lower->entries.end()));
    if (!lower->children.empty())
    {
      auto const cut = lower->children.begin() + kept + 1;
      upper->children.assign(std::move_iterator(cut), std::move_iterator(lower->children.end()));
      lower->children.erase(cut, lower->children.end());
    }
    entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(at), std::move(*middle));
    lower->entries.erase(middle, lower->entries.end());
    children.insert(children.begin() + static_cast<std::ptrdiff_t>(at) + 1, std::move(upperHandle));
  }
};

template <class K, class V, class Entry>
class cow_BtreeIterator;

/// `Entry` is cow_MapEntry<K, V>, or is derived from it to note more of a key.
template <class K, class V, class Entry = cow_MapEntry<K, V>>
class cow_Btree
{
public:
  int Size() const noexcept { return m_size; }
  bool IsMember(K const& key) const { return ConstFind(key) != nullptr; }

  /// Adds the key with its value, and is true; false, and nothing happens, when the key is present.
  bool InsertUnlessMember(K const& key, V const& value)
  {
    if (IsMember(key))
      return false;
    AddNew({key, value});
    return true;
  }

  /// Adds the key, or gives it another value.
  void Insert(K const& key, V const& value)
  {
    if (V* const present = Find(key))
    {
      *present = value;
      return;
    }
    AddNew({key, value});
  }

  /// Adds an entry whose key is absent.
  void AddNew(Entry entry);

  /// The value of `key` for writing, good until the map is copied or added to; null when absent.
  V* Find(K const& key);

  /// The value of `key`; null when absent.
  V const* ConstFind(K const& key) const;

private:
  friend class cow_BtreeIterator<K, V, Entry>;
  using Node = cow_BtreeNode<K, Entry>;

  typename Node::Handle m_root;
  int m_size = 0;
};

/// An ascending walk over the keys that a map has now, undisturbed by later changes of that map.
///
///     cow_BtreeIterator<cow_String, int> it(map);
///     for (it.First(); !it.IsDone(); it.Next())
///       use(it.CurrentKey(), it.CurrentValue());
template <class K, class V, class Entry = cow_MapEntry<K, V>>
class cow_BtreeIterator
{
public:
  explicit cow_BtreeIterator(cow_Btree<K, V, Entry> const& map) : m_root(map.m_root) {}

  /// Begins, or begins again; before the first call there is nothing to see.
  void First()
  {
    m_path.clear();
    Descend(m_root.ConstGet());
  }

  void Next()
  {
    std::size_t const at = ++m_path.back().at;
    Node const* const node = m_path.back().node;
    if (!node->children.empty())
      return Descend(node->children[at].ConstGet());
    while (!m_path.empty() && m_path.back().at == m_path.back().node->entries.size())
      m_path.pop_back();
  }

  bool IsDone() const noexcept { return m_path.empty(); }
  K const& CurrentKey() const noexcept { return CurrentEntry().key; }
  V const& CurrentValue() const noexcept { return CurrentEntry().value; }
  Entry const& CurrentEntry() const noexcept
  {
    return m_path.back().node->entries[m_path.back().at];
  }

private:
  using Node = cow_BtreeNode<K, Entry>;
  struct Step
  {
    Node const* node;
    std::size_t at;
  };

  void Descend(Node const* node)
  {
    while (node != nullptr)
    {
      m_path.push_back({node, 0});
      node = node->children.empty() ? nullptr : node->children.front().ConstGet();
    }
  }

  typename Node::Handle m_root;
  std::vector<Step> m_path;
};

template <class K, class V, class Entry>
V const* cow_Btree<K, V, Entry>::ConstFind(K const& key) const
{
  Node const* node = m_root.ConstGet();
  while (node != nullptr)
  {
    std::size_t const at = node->Position(key);
    if (node->Has(at, key))
      return &node->entries[at].value;
    node = node->children.empty() ? nullptr : node->children[at].ConstGet();
  }
  return nullptr;
}

template <class K, class V, class Entry>
V* cow_Btree<K, V, Entry>::Find(K const& key)
{
  if (!IsMember(key))
    return nullptr;
  for (Node* node = m_root.Get();;)
  {
    std::size_t const at = node->Position(key);
    if (node->Has(at, key))
      return &node->entries[at].value;
    node = node->children[at].Get();
  }
}

// Full nodes are split on the way down, so that a node always has room for the entry that moves up.
template <class K, class V, class Entry>
void cow_Btree<K, V, Entry>::AddNew(Entry entry)
{
  if (m_root.IsNull())
    m_root = new Node;
  if (m_root->entries.size() == Node::full)
  {
    typename Node::Handle grown(new Node);
    grown.Get()->children.push_back(m_root);
    m_root = std::move(grown);
    m_root.Get()->SplitChild(0, entry.key);
  }
  Node* node = m_root.Get();
  std::size_t at = node->Position(entry.key);
  while (!node->children.empty())
  {
    if (node->children[at]->entries.size() == Node::full)
    {
      node->SplitChild(at, entry.key);
      at = node->Position(entry.key);
    }
    node = node->children[at].Get();
    at = node->Position(entry.key);
  }
  node->entries.insert(node->entries.begin() + static_cast<std::ptrdiff_t>(at), std::move(entry));
  ++m_size;
}
