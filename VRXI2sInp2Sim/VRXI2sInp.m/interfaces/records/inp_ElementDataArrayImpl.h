#pragma once

#include "cow_List.h"
#include "cow_Map.h"
#include "inp_DataArrayImpl.h"
#include "mem_SlabArray.h"

#include <vector>

class inp_DataArray;
class inp_MapInt2Element;

/// The rows of *ELEMENT as integers: a label and node labels, in the deck's own layout.
///
///     10, n1 ... n15, 0       a row holds 16 numbers; a last cell of 0 says that the element
///     n16 ... n20             goes on in the next row
///
/// A cell of 0 is a blank one. Takes 4 bytes a cell and 12 a row, in blocks of a slab's size. There are no
/// reals and no texts: asking for them raises nex_PrimException.
class inp_ElementDataArrayImpl : public inp_DataArrayImpl
{
public:
  static constexpr int c_nodesInFirstRow = 15;
  static constexpr int c_nodesInRow = 16;

  inp_ElementDataArrayImpl() = default;
  /// Reads the rows of a raw array. A cell becomes the number that it begins with, or 0.
  explicit inp_ElementDataArrayImpl(inp_DataArray const& raw);
  /// Element label to node labels, in map order.
  explicit inp_ElementDataArrayImpl(cow_Map<int, cow_List<int>> const& elements);
  /// The elements of a list of labels, in list order; a label without an element is skipped.
  inp_ElementDataArrayImpl(cow_List<int> const& ids, inp_MapInt2Element const& elements);
  ~inp_ElementDataArrayImpl() override;

  int Rows() const override { return nrows; }
  int Cols(int i) const override;
  inp_Types::typeEnm Type(int i, int j) const override;
  bool IsNone(int i, int j) const override;
  bool HasValue(int i, int j) const override;
  int AsInt(int i, int j) const override;
  double AsDouble(int i, int j) const override;
  cow_String AsString(int i, int j) const override;
  cow_String AsStringVerbatim(int i, int j) const override { return AsString(i, j); }
  void Set(int i, int j, cow_String const& text) override;
  void Set(int i, int j, double value) override;
  void Set(int i, int j, int value) override;
  void Append(char const* line) override;
  void AppendRaw(char const* line) override;
  bool HasRowContinuation(int i) const override;
  inp_ElementDataArrayImpl* Copy() const override;

  /// True when nothing was lost by the reading: every raw cell was a number other than 0, or blank.
  bool IsExact() const { return m_isExact; }

  /// The cells of a row, Cols(i) of them, for readers of many rows.
  int const* RowCells(int i) const { return rows[static_cast<std::size_t>(i)]; }

private:
  inp_ElementDataArrayImpl(inp_ElementDataArrayImpl const& other);
  inp_ElementDataArrayImpl& operator=(inp_ElementDataArrayImpl const&) = delete;

  void Allocate(int rowCount, std::size_t cellCount);
  int* AddRow(int columns);
  int* TakeCells(std::size_t count);
  int ColumnsOf(int i) const { return ncols[static_cast<std::size_t>(i)]; }
  template <class Nodes>
  void AddElement(int id, int nodeCount, Nodes node);
  void CheckIndex(int i, int j) const;

  int nrows = 0;
  mem_SlabArray<int> ncols;
  mem_SlabArray<int*> rows;
  std::vector<int*> m_blocks; ///< the cells of all rows, row behind row; a row lies in one block
  std::size_t m_expected = 0; ///< cells of the rows to come
  int* m_next = nullptr;
  int* m_end = nullptr;
  bool m_isExact = true;
};
