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
    switch (m_random() % 16)
    {
    case 0:
      return Below(2048) * (1 << 20);
    case 1:
      return -Below(2048) * (1 << 20);
    case 2:
      return 999999999 - Below(70);
    case 3:
      return std::numeric_limits<int>::min() + Below(70);
    case 4:
      return std::numeric_limits<int>::max() - Below(70);
    case 5:
      return Below(1000000000);
    case 6:
    case 7:
    case 8:
      return -Below(500);
    default:
      return m_run + Below(500);
    }
  }

  /// A number from 0 up to but not including `limit`.
  int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

  /// Moves the dense run elsewhere.
  void MoveRun() { m_run = Below(4) == 0 ? 0 : 1000 * Below(100000); }

private:
  std::mt19937 m_random;
  int m_run{0};
};
