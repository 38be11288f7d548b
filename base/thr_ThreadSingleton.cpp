#include "thr_ThreadSingleton.h"

#include <algorithm>
#include <vector>

namespace
{

struct Entry
{
  thr_ThrSingletonRegistry::Finalizer finalizer;
  int level;
};

// Set when this thread's list has been destroyed. A singleton that is built later is never finalized.
thread_local bool isGone = false;

struct Entries
{
  std::vector<Entry> list;

  ~Entries()
  {
    RunAll();
    isGone = true;
  }

  void RunAll()
  {
    while (!list.empty())
    {
      // One at a time, the last of the lowest level: a finalizer may register further ones.
      auto const next = std::min_element(
        list.rbegin(), list.rend(), [](auto const& a, auto const& b) { return a.level < b.level; });
      Finalizer const finalizer = next->finalizer;
      list.erase(std::next(next).base());
      finalizer();
    }
  }

  using Finalizer = thr_ThrSingletonRegistry::Finalizer;
};

thread_local Entries entries;

} // namespace

void thr_ThrSingletonRegistry::Register(Finalizer finalizer, int destructLevel)
{
  if (isGone)
    return;
  // A singleton that was finalized by hand and built anew is already on the list.
  auto const isSame = [finalizer](Entry const& entry) { return entry.finalizer == finalizer; };
  std::erase_if(entries.list, isSame);
  entries.list.push_back({finalizer, destructLevel});
}

void thr_ThrSingletonRegistry::FinalizeAll()
{
  if (!isGone)
    entries.RunAll();
}
