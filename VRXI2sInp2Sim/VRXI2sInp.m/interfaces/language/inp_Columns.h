#pragma once

#include <bit>
#include <cstdint>

/// A choice of columns of data rows, counted from 0 as in inp_DataArray: some of the first 64, or
/// all.
class inp_Columns
{
public:
  constexpr inp_Columns() = default;

  static constexpr inp_Columns All()
  {
    inp_Columns columns;
    columns.m_isAll = true;
    return columns;
  }
  /// A column outside 0 to 63 is left out.
  static constexpr inp_Columns Of(int column)
  {
    inp_Columns columns;
    columns.Add(column);
    return columns;
  }
  /// By the numbers that people use, from 1.
  template <class... Fields>
  static constexpr inp_Columns OfFields(Fields... fields)
  {
    inp_Columns columns;
    (columns.Add(fields - 1), ...);
    return columns;
  }

  constexpr void Add(int column)
  {
    if (column >= 0 && column < 64)
    {
      m_bits |= std::uint64_t{1} << column;
    }
  }

  constexpr bool IsAll() const { return m_isAll; }
  constexpr bool Has(int column) const
  {
    return m_isAll || (column >= 0 && column < 64 && ((m_bits >> column) & 1) != 0);
  }
  /// No column from this one on is chosen, as long as not all are.
  constexpr int End() const { return static_cast<int>(std::bit_width(m_bits)); }

private:
  std::uint64_t m_bits = 0;
  bool m_isAll = false;
};
