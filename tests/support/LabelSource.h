#pragma once

#include <cstdint>
#include <limits>
#include <random>

/// Numbers as decks and careless callers use them, from a fixed seed: dense runs, gaps of 2^20, both
/// signs, the largest label and the ends of the range of an int.
class LabelSource
{
public:
  explicit LabelSource(unsigned seed) : m_random(seed) {}

  int Next()
  {
    int const kind = Below(16);
    int const rare[] = {Below(2048) * (1 << 20),
                        -Below(2048) * (1 << 20),
                        999999999 - Below(70),
                        std::numeric_limits<int>::min() + Below(70),
                        std::numeric_limits<int>::max() - Below(70),
                        Below(1000000000)};
    return kind < 6 ? rare[kind] : kind < 9 ? -Below(500) : m_run + Below(500);
  }

  /// A number from 0 up to but not including `limit`.
  int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

  /// Moves the dense run elsewhere.
  void MoveRun() { m_run = Below(4) == 0 ? 0 : 1000 * Below(100000); }

private:
  std::mt19937 m_random;
  int m_run{0};
};
