#pragma once

#include <cstddef>
#include <map>
#include <utility>

#include "VRXBasPair.h"

/// An ordered tree of entries with unique keys. Its iterators walk in ascending key order and stay
/// good while other entries are inserted; an entry reads as `first` and `second`.
template <class K, class V>
class VRXBasTreeGeneric
{
public:
  using iterator = typename std::map<K, V>::iterator;
  using const_iterator = typename std::map<K, V>::const_iterator;

  /// The entry of the key, and whether it is new; a value that is there already stays.
  VRXBasPair<iterator, bool> InsertUnique(K const& key, V const& value)
  {
    auto const [entry, isNew] = m_entries.emplace(key, value);
    return {entry, isNew};
  }

  iterator begin() noexcept { return m_entries.begin(); }
  iterator end() noexcept { return m_entries.end(); }
  const_iterator begin() const noexcept { return m_entries.begin(); }
  const_iterator end() const noexcept { return m_entries.end(); }

  iterator find(K const& key) { return m_entries.find(key); }
  const_iterator find(K const& key) const { return m_entries.find(key); }
  std::size_t erase(K const& key) { return m_entries.erase(key); }

  std::size_t size() const noexcept { return m_entries.size(); }
  bool empty() const noexcept { return m_entries.empty(); }
  void clear() noexcept { m_entries.clear(); }

protected:
  std::map<K, V> m_entries;
};

/// An ordered map with unique keys.
template <class K, class V>
class VRXBasMap : public VRXBasTreeGeneric<K, V>
{
public:
  /// The value of the key; a default-made one is put in when the key is absent.
  V& operator[](K const& key) { return this->m_entries[key]; }
};
