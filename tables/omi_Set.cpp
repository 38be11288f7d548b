#include "omi_Set.h"

#include <algorithm>
#include <cstdint>

namespace
{
// Sets the bits from `first` to `last`, `step` apart.
void SetEach(omi_BlkBitVect& bits, std::uint64_t first, std::uint64_t last, unsigned step)
{
  if (step == 1)
  {
    bits.SetRange(static_cast<unsigned>(first), static_cast<unsigned>(last));
    return;
  }
  for (std::uint64_t bit = first; bit <= last; bit += step)
  {
    bits.SetBit(static_cast<unsigned>(bit));
  }
}
} // namespace

void omi_Set::InsertRun(int first, int last, unsigned step)
{
  if (first > last)
  {
    return;
  }
  std::int64_t from = first;
  if (first < 0)
  {
    std::int64_t const span = std::min(last, -1) - from;
    std::int64_t const nearest = from + span / step * step; // the last of the run below zero
    SetEach(negatives, static_cast<std::uint64_t>(-nearest), static_cast<std::uint64_t>(-from),
            step);
    from = nearest + step;
  }
  if (from <= last)
  {
    SetEach(nonNegatives, static_cast<std::uint64_t>(from), static_cast<std::uint64_t>(last), step);
  }
}

std::size_t omi_Set::EstimateBytes(int first, int last, std::size_t count)
{
  std::size_t bytes = 0;
  if (first < 0)
  {
    bytes += omi_BlkBitVect::EstimateBytes(Magnitude(std::min(last, -1)), Magnitude(first), count);
  }
  if (last >= 0)
  {
    bytes += omi_BlkBitVect::EstimateBytes(Magnitude(std::max(first, 0)), Magnitude(last), count);
  }
  return bytes;
}

void omi_SetIT::StandOnNegative(unsigned magnitude)
{
  m_item = static_cast<int>(0u - magnitude);
  m_isDone = false;
}

void omi_SetIT::StandOnNonNegative(unsigned magnitude)
{
  m_item = static_cast<int>(magnitude);
  m_isDone = false;
}

void omi_SetIT::First()
{
  unsigned magnitude = 0;
  m_isDone = true;
  if (m_negatives.Last(magnitude))
  {
    StandOnNegative(magnitude);
  }
  else if (m_nonNegatives.First(magnitude))
  {
    StandOnNonNegative(magnitude);
  }
}

void omi_SetIT::Last()
{
  unsigned magnitude = 0;
  m_isDone = true;
  if (m_nonNegatives.Last(magnitude))
  {
    StandOnNonNegative(magnitude);
  }
  else if (m_negatives.First(magnitude))
  {
    StandOnNegative(magnitude);
  }
}

void omi_SetIT::Next()
{
  unsigned magnitude = 0;
  m_isDone = true;
  bool const wasNegative = m_item < 0;
  if (wasNegative && m_negatives.Previous(magnitude))
  {
    StandOnNegative(magnitude);
  }
  else if (wasNegative ? m_nonNegatives.First(magnitude) : m_nonNegatives.Next(magnitude))
  {
    StandOnNonNegative(magnitude);
  }
}

void omi_SetIT::Previous()
{
  unsigned magnitude = 0;
  m_isDone = true;
  bool const wasNegative = m_item < 0;
  if (!wasNegative && m_nonNegatives.Previous(magnitude))
  {
    StandOnNonNegative(magnitude);
  }
  else if (wasNegative ? m_negatives.Next(magnitude) : m_negatives.First(magnitude))
  {
    StandOnNegative(magnitude);
  }
}
