#include "inpM_OmiSet.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <functional>
#include <iterator>
#include <limits>
#include <optional>
#include <vector>

namespace
{
std::size_t const alwaysFew = 32;
std::size_t const mostFew = 16384;

/// The members of a run: first, first + step and so on up to last.
struct Run
{
  int first;
  int last; // a member
  unsigned step;

  std::size_t Count() const
  {
    return static_cast<std::size_t>((std::int64_t{last} - first) / step) + 1;
  }
};

/// The run that a row's start, end and step mean, in ascending order; none when the steps lead away from the
/// end.
std::optional<Run> MakeRun(int start, int end, int step)
{
  if (start == end)
  {
    return Run{start, start, 1};
  }
  if (step == 0 || (start < end) != (step > 0))
  {
    return std::nullopt;
  }
  unsigned const stride = step < 0 ? 0u - static_cast<unsigned>(step) : static_cast<unsigned>(step);
  std::int64_t const reach = (std::int64_t{end} - start) / step * step; // falls on the last step
  int const reached = static_cast<int>(start + reach);
  return Run{std::min(start, reached), std::max(start, reached), stride};
}

bool IsBetterFew(std::size_t count, int first, int last)
{
  return count <= alwaysFew ||
         (count <= mostFew && omi_Set::EstimateBytes(first, last, count) > 2 * count * sizeof(int));
}

omi_Set const& NoBits()
{
  static omi_Set const* const none = new omi_Set; // lives as long as the process
  return *none;
}
} // namespace

/// The members of a set: the bits of `many` when it exists, or else the array `few`.
struct inpM_OmiSetData : mem_AllocationOperators
{
  inpM_OmiSetData() = default;
  inpM_OmiSetData(inpM_OmiSetData const& other)
    : few(other.few), many(other.many ? std::make_unique<omi_Set>(*other.many) : nullptr)
  {
  }
  inpM_OmiSetData& operator=(inpM_OmiSetData const&) = delete;

  bool IsEmpty() const { return many ? many->IsEmpty() : few.empty(); }
  bool IsMember(int item) const
  {
    return many ? many->IsMember(item) : std::binary_search(few.begin(), few.end(), item);
  }
  std::size_t Size() const { return many ? static_cast<unsigned>(many->Size()) : few.size(); }

  bool Insert(int item);
  void Insert(Run const& run);
  void Insert(std::vector<int> const& sorted);
  void Merge(omi_Set const& bits);
  bool Remove(int item);

  std::vector<int> few; // sorted, without repeats
  std::unique_ptr<omi_Set> many;

private:
  omi_Set& Many();
};

// The set as bits; turns the array into bits at the first call.
omi_Set& inpM_OmiSetData::Many()
{
  if (!many)
  {
    auto bits = std::make_unique<omi_Set>();
    for (std::size_t i = few.size(); i > 0; --i) // from the largest down: makes room once
    {
      bits->Insert(few[i - 1]);
    }
    many = std::move(bits);
    few = std::vector<int>();
  }
  return *many;
}

bool inpM_OmiSetData::Insert(int item)
{
  if (many)
  {
    return many->Insert(item);
  }
  auto const at =
    few.empty() || few.back() < item ? few.end() : std::lower_bound(few.begin(), few.end(), item);
  if (at != few.end() && *at == item)
  {
    return false;
  }
  few.insert(at, item);
  // The estimate visits all members: it is made only when the array has doubled in length.
  if (few.size() > alwaysFew && std::has_single_bit(few.size() - 1) &&
      !IsBetterFew(few.size(), few.front(), few.back()))
  {
    Many();
  }
  return true;
}

void inpM_OmiSetData::Insert(Run const& run)
{
  int const first = few.empty() ? run.first : std::min(few.front(), run.first);
  int const last = few.empty() ? run.last : std::max(few.back(), run.last);
  if (many || !IsBetterFew(few.size() + run.Count(), first, last))
  {
    Many().InsertRun(run.first, run.last, run.step);
    return;
  }
  std::vector<int> items(run.Count());
  std::int64_t next = run.first;
  for (int& item : items)
  {
    item = static_cast<int>(next);
    next += run.step;
  }
  Insert(items);
}

void inpM_OmiSetData::Insert(std::vector<int> const& sorted)
{
  if (many || few.size() + sorted.size() > mostFew)
  {
    for (std::size_t i = sorted.size(); i > 0; --i)
    {
      Many().Insert(sorted[i - 1]);
    }
    return;
  }
  if (64 * sorted.size() <= few.size()) // merging copies the array: not for a few members at a time
  {
    for (int const item : sorted)
    {
      Insert(item);
    }
    return;
  }
  std::vector<int> both;
  both.reserve(few.size() + sorted.size());
  std::set_union(few.begin(), few.end(), sorted.begin(), sorted.end(), std::back_inserter(both));
  few = std::move(both);
  if (!few.empty() && !IsBetterFew(few.size(), few.front(), few.back()))
  {
    Many();
  }
}

void inpM_OmiSetData::Merge(omi_Set const& bits) { Many() += bits; }

bool inpM_OmiSetData::Remove(int item)
{
  if (many)
  {
    return many->Remove(item);
  }
  auto const at = std::lower_bound(few.begin(), few.end(), item);
  if (at == few.end() || *at != item)
  {
    return false;
  }
  few.erase(at);
  return true;
}

inpM_OmiSet::inpM_OmiSet() = default;
inpM_OmiSet::inpM_OmiSet(inpM_OmiSet const& other) = default;
inpM_OmiSet::inpM_OmiSet(inpM_OmiSet&& other) noexcept = default;
inpM_OmiSet& inpM_OmiSet::operator=(inpM_OmiSet const& other) = default;
inpM_OmiSet& inpM_OmiSet::operator=(inpM_OmiSet&& other) noexcept = default;
inpM_OmiSet::~inpM_OmiSet() = default;

inpM_OmiSet::inpM_OmiSet(cow_List<int> const& items)
{
  std::vector<int> sorted(items.begin(), items.end());
  bool const ascends =
    std::adjacent_find(sorted.begin(), sorted.end(), std::greater_equal<>()) == sorted.end();
  if (!ascends) // rare: labels in rows nearly always ascend
  {
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
  }
  if (!sorted.empty())
  {
    Writable().Insert(sorted);
  }
}

inpM_OmiSetData& inpM_OmiSet::Writable()
{
  if (m_data.IsNull())
  {
    m_data = new inpM_OmiSetData;
  }
  return *m_data.Get();
}

bool inpM_OmiSet::Insert(int item)
{
  bool const mustDetach = m_data.UseCount() > 1;
  return !(mustDetach && IsMember(item)) && Writable().Insert(item);
}

void inpM_OmiSet::Insert(int start, int end, int step)
{
  if (std::optional<Run> const run = MakeRun(start, end, step))
  {
    Writable().Insert(*run);
  }
}

inpM_OmiSet& inpM_OmiSet::operator+=(inpM_OmiSet const& other)
{
  if (other.IsEmpty() || m_data.ConstGet() == other.m_data.ConstGet())
  {
    return *this;
  }
  if (IsEmpty())
  {
    return *this = other;
  }
  inpM_OmiSet const added(other); // holds the data, should `other` be a part of what is written
  if (added.m_data->many && !m_data->many)
  {
    std::vector<int> const few = m_data->few;
    *this = added;
    Writable().Insert(few);
  }
  else if (added.m_data->many)
  {
    Writable().Merge(*added.m_data->many);
  }
  else
  {
    Writable().Insert(added.m_data->few);
  }
  return *this;
}

bool inpM_OmiSet::Remove(int item) { return IsMember(item) && Writable().Remove(item); }
void inpM_OmiSet::Clear() { *this = inpM_OmiSet(); }
bool inpM_OmiSet::IsMember(int item) const { return !m_data.IsNull() && m_data->IsMember(item); }
bool inpM_OmiSet::IsEmpty() const { return m_data.IsNull() || m_data->IsEmpty(); }

int inpM_OmiSet::Size() const { return m_data.IsNull() ? 0 : static_cast<int>(m_data->Size()); }

cow_List<int> inpM_OmiSet::ConstGetArrayCounterpart() const
{
  cow_List<int> items(cow_ListConstruct(), Size());
  for (inpM_OmiSetIT it(*this); !it.IsDone(); it.Next())
  {
    items.Append(it.CurrentItem());
  }
  return items;
}

omi_BlkBitVect inpM_OmiSet::ConstGetBits() const
{
  if (!m_data.IsNull() && m_data->many)
  {
    return m_data->many->nonNegatives;
  }
  omi_BlkBitVect bits;
  for (inpM_OmiSetIT it(*this, false); !it.IsDone() && it.CurrentItem() >= 0; it.Next())
  {
    bits.SetBit(static_cast<unsigned>(it.CurrentItem()));
  }
  return bits;
}

bool inpM_OmiSet::IsGenerated(int& start, int& end, int& step) const
{
  if (IsEmpty())
  {
    return false;
  }
  inpM_OmiSetIT it(*this);
  std::int64_t const first = it.CurrentItem();
  std::int64_t const last = inpM_OmiSetIT(*this, false).CurrentItem();
  it.Next();
  std::int64_t const stride = it.IsDone() ? 1 : it.CurrentItem() - first;
  if (stride > std::numeric_limits<int>::max() || last - first != stride * (Size() - 1))
  {
    return false;
  }
  // With a stride of 1 there can be no gap: the size is that of the whole run.
  for (std::int64_t expected = first + stride; stride != 1 && !it.IsDone(); it.Next())
  {
    if (it.CurrentItem() != expected)
    {
      return false;
    }
    expected += stride;
  }
  start = static_cast<int>(first);
  end = static_cast<int>(last);
  step = static_cast<int>(stride);
  return true;
}

bool operator==(inpM_OmiSet const& a, inpM_OmiSet const& b)
{
  if (a.m_data.ConstGet() == b.m_data.ConstGet())
  {
    return true;
  }
  if (a.Size() != b.Size())
  {
    return false;
  }
  inpM_OmiSetIT other(b);
  for (inpM_OmiSetIT it(a); !it.IsDone(); it.Next(), other.Next())
  {
    if (it.CurrentItem() != other.CurrentItem())
    {
      return false;
    }
  }
  return true;
}

std::size_t inpM_OmiSet::Bytes() const
{
  std::size_t bytes = sizeof(int);
  if (!m_data.IsNull())
  {
    bytes += sizeof(inpM_OmiSetData) + m_data->few.capacity() * sizeof(int);
    bytes += m_data->many ? sizeof(omi_Set) + m_data->many->Bytes() : 0;
  }
  return bytes;
}

std::size_t inpM_OmiSet::EstimateBytes(int start, int end, int step)
{
  std::optional<Run> const run = MakeRun(start, end, step);
  std::size_t const fixed = sizeof(int) + sizeof(inpM_OmiSetData);
  if (!run)
  {
    return fixed;
  }
  return IsBetterFew(run->Count(), run->first, run->last)
           ? fixed + run->Count() * sizeof(int)
           : fixed + sizeof(omi_Set) + omi_Set::EstimateBytes(run->first, run->last, run->Count());
}

inpM_OmiSetIT::inpM_OmiSetIT(inpM_OmiSet const& set, bool isAscending)
  : m_share(set),
    m_isAscending(isAscending),
    m_few(nullptr),
    m_many(!set.m_data.IsNull() && set.m_data->many ? *set.m_data->many : NoBits())
{
  if (!m_share.m_data.IsNull() && !m_share.m_data->many)
  {
    m_few = m_share.m_data->few.data();
    m_count = m_share.m_data->few.size();
  }
  First();
}

inpM_OmiSetIT::~inpM_OmiSetIT() = default;

void inpM_OmiSetIT::First()
{
  m_place = 0;
  if (m_isAscending)
  {
    m_many.First();
  }
  else
  {
    m_many.Last();
  }
}

void inpM_OmiSetIT::Next()
{
  if (m_few != nullptr)
  {
    ++m_place;
  }
  else if (m_isAscending)
  {
    m_many.Next();
  }
  else
  {
    m_many.Previous();
  }
}
