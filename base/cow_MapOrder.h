#pragma once

// cow_MapOrder<Entry>: the tree that entries make when they go into a cow_Map one after another, found
// without walking its long paths.
//
// Keys that have run out of bits go left at every node, so the long paths of such a tree are runs of left
// turns. Here each run is an array of slots, and a key without further bits is put at its end at once:
//
//           A                  run 0: A C D     begins at the root
//         /   \                run 1: B E       right of A
//        C     B
//       /     /
//      D     E
//
// An entry costs the bits of its key, however deep it hangs. The entries must outlive this.

#include <cstddef>
#include <vector>

#include "cow_MapKeys.h"

template <class Entry>
class cow_MapOrder
{
public:
  /// Hangs the entry where the bits of its key, which must be new, leave the tree.
  void Add(Entry const& entry)
  {
    int const end = cow_MapBitsEnd(entry.key);
    std::size_t run = 0;
    std::size_t at = 0;
    for (int depth = 0; depth < end && at < m_runs[run].slots.size(); ++depth)
    {
      if (cow_MapBit(entry.key, depth) == 0)
      {
        ++at;
        continue;
      }
      run = RightOf(run, at, depth);
      at = 0;
    }
    m_runs[run].slots.push_back({&entry, 0});
  }

  /// Calls visit(entry, depth) for each, in preorder: along a run, then what hangs right of its last slot,
  /// and so on back to its first.
  template <class Visit>
  void ForEach(Visit const& visit) const
  {
    std::vector<std::size_t> waiting{0};
    while (!waiting.empty())
    {
      Run const& run = m_runs[waiting.back()];
      waiting.pop_back();
      int depth = run.depth;
      for (Slot const& slot : run.slots)
      {
        visit(*slot.entry, depth++);
        if (slot.right != 0)
          waiting.push_back(slot.right);
      }
    }
  }

private:
  struct Slot
  {
    Entry const* entry;
    std::size_t right; ///< the run that begins with the right child, 0 when there is none
  };
  struct Run
  {
    int depth; ///< of its first slot
    std::vector<Slot> slots;
  };

  /// The run that hangs right of a slot. It is made when there is none; the caller puts an entry in at once.
  std::size_t RightOf(std::size_t run, std::size_t at, int depth)
  {
    std::size_t& right = m_runs[run].slots[at].right;
    if (right != 0)
      return right;
    right = m_runs.size();
    m_runs.push_back({depth + 1, {}});
    return m_runs.size() - 1;
  }

  std::vector<Run> m_runs{{0, {}}};
};
