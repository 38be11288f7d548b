#include "inp_Spelling.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace
{
constexpr int longestWord = 64;

// The number of edits between two texts of at most longestWord bytes. An edit inserts, deletes or replaces
// one letter, or swaps two neighbours; no letter is edited twice.
int EditDistance(std::string_view a, std::string_view b)
{
  using Row = std::array<int, longestWord + 1>;
  Row twoAbove{}, above{}, row{};
  for (std::size_t j = 0; j <= b.size(); ++j)
    above[j] = static_cast<int>(j);
  for (std::size_t i = 1; i <= a.size(); ++i)
  {
    row[0] = static_cast<int>(i);
    for (std::size_t j = 1; j <= b.size(); ++j)
    {
      int const replaced = above[j - 1] + (a[i - 1] != b[j - 1]);
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        row[j] = std::min(row[j], twoAbove[j - 2] + 1);
    }
    twoAbove = above;
    above = row;
  }
  return above[b.size()];
}

int CommonPrefix(std::string_view a, std::string_view b)
{
  auto const [endA, endB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  return static_cast<int>(endA - a.begin());
}

// How many edits may lie between a word and the one that was probably meant.
int MostEdits(std::size_t length)
{
  return length <= 2 ? 0 : length <= 5 ? 1 : length <= 10 ? 2 : 3;
}

struct Candidate
{
  int distance;
  int commonPrefix;
  std::string_view word;

  auto Rank() const { return std::tuple(distance, -commonPrefix, word.size(), word); }
};
} // namespace

std::vector<std::string_view> inp_NearestWords(std::string_view wanted,
                                               std::vector<std::string_view> const& candidates,
                                               int limit)
{
  std::vector<std::string_view> nearest;
  if (wanted.empty() || wanted.size() > longestWord)
    return nearest;

  int const mostEdits = MostEdits(wanted.size());
  std::vector<Candidate> near;
  for (std::string_view const candidate : candidates)
  {
    int const distance = candidate.starts_with(wanted) ? 0 : EditDistance(wanted, candidate);
    if (distance <= mostEdits)
      near.push_back({distance, CommonPrefix(wanted, candidate), candidate});
  }
  std::sort(near.begin(), near.end(),
            [](Candidate const& a, Candidate const& b) { return a.Rank() < b.Rank(); });
  for (Candidate const& candidate : near)
    if (static_cast<int>(nearest.size()) < limit)
      nearest.push_back(candidate.word);
  return nearest;
}
