#pragma once

#include "inp_DataArray.h"
#include "inp_Element.h"
#include "mem_Budget.h"

#include <cstdint>

/// A row of *ELGEN: a block of elements that repeat a master in up to three directions.
///
///     master, count, node shift, element shift [, the same of the second and of the third direction]
///
///     1, 3, 1, 1, 2, 10, 100                   label, and by how much its nodes are shifted:
///                                              101 +10   102 +11   103 +12     second row
///                                                1  0      2 +1      3 +2      the master's row
struct inp_ElementGeneration
{
  /// The most elements that the generators of a walk may make. No model comes near; memory would not last.
  static constexpr int c_mostElements = mem_Budget(50000000);
  static constexpr int c_directions = 3;
  static constexpr int c_fields = 1 + 3 * c_directions;

  int master = 0;
  std::int64_t counts[c_directions] = {0, 0, 0};
  std::int64_t nodeShifts[c_directions] = {1, 1, 1};
  std::int64_t elementShifts[c_directions] = {1, 1, 1};

  /// Reads a row. The result is 0, or the number from 1 of a field that is neither blank nor an integer.
  int Read(inp_DataArray const& data, int row);

  struct Range
  {
    std::int64_t lowest;
    std::int64_t highest;
  };
  Range Labels() const; ///< of all elements; saturated
  Range NodeShift() const;
  /// The number of elements, the master included; c_mostElements + 1 when there are more than that.
  std::int64_t Elements() const;

  /// Calls onElement(label, node shift) for all elements, the master included, the first direction
  /// running fastest. Only when the labels are within range.
  template <class OnElement>
  void ForEach(OnElement const& onElement) const
  {
    for (std::int64_t k3 = 0; k3 < counts[2]; ++k3)
    {
      for (std::int64_t k2 = 0; k2 < counts[1]; ++k2)
      {
        for (std::int64_t k1 = 0; k1 < counts[0]; ++k1)
        {
          std::int64_t const label =
            master + k1 * elementShifts[0] + k2 * elementShifts[1] + k3 * elementShifts[2];
          std::int64_t const shift = k1 * nodeShifts[0] + k2 * nodeShifts[1] + k3 * nodeShifts[2];
          onElement(static_cast<int>(label), shift);
        }
      }
    }
  }

private:
  Range Reach(std::int64_t const (&shifts)[c_directions], std::int64_t start) const;
};

/// A row without fields, or with a blank one alone.
bool inp_IsBlankRow(inp_DataArray const& data, int row);

/// An element as generators copy it. The midside nodes of a gasket that the deck left out have no labels in
/// the copy, even when those of the original have been given theirs meanwhile.
inp_Element inp_AsGiven(inp_Element const& element);

/// How many nodes of an element move with its copy: all but those at the end that orient a cross section.
int inp_MovableNodesInGeneration(inp_Element const& element, bool allNodes);
int inp_MovableNodesInCopy(inp_Element const& element);

/// Adds `shift` to the first `count` node labels; a 0, which is no node, stays. False, and no change, when
/// a label would leave the range of labels.
bool inp_ShiftNodes(inp_Element& element, int count, std::int64_t shift);
