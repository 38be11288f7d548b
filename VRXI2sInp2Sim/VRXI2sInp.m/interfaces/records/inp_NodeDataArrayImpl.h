#pragma once

#include "inp_DataArrayImpl.h"
#include "mem_SlabArray.h"

class inp_DataArray;

/// The rows of *NODE as numbers: a label and six reals each.
///
///     column      0        1  2  3         4  5  6
///     holds       label    x, y, z         components of the normal
///
/// Every row has all seven columns; what a data line does not give is 0. A blank line is a row of
/// label 0. Takes 52 bytes a row, in blocks of a slab's size.
///
/// Reading or writing a column as a type that it does not hold raises nex_PrimException.
class inp_NodeDataArrayImpl : public inp_DataArrayImpl
{
public:
  static constexpr int c_columns = 7;
  static constexpr int c_values = 6;

  inp_NodeDataArrayImpl() = default;
  /// Room for `allocatedSize` rows, of which Append fills all but one.
  explicit inp_NodeDataArrayImpl(int allocatedSize);

  int Rows() const override { return nrows; }
  int Cols(int i) const override;
  inp_Types::typeEnm Type(int i, int j) const override;
  bool IsNone(int, int) const override { return false; }
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
  bool HasRowContinuation(int) const override { return false; }
  inp_NodeDataArrayImpl* Copy() const override;

  /// A whole row, for loops over all of them: the label, and the c_values reals of columns 1 to 6. The
  /// index is not checked.
  int Label(int i) const { return ids[static_cast<std::size_t>(i)]; }
  double const* RowValues(int i) const { return values[static_cast<std::size_t>(i)].of; }

  /// Writes the next row. The array does not grow: one row more than is written must be allocated.
  virtual void Append(int id, double x, double y, double z);

  /// Replaces all rows by those of a raw array. Columns beyond the seventh are passed over.
  /// Labels are 1 to 999999999. Raises nex_PrimException for the first bad label, or else one
  /// that names the nodes (102 at most) whose coordinates are no finite numbers; inp_MemoryException
  /// when memory is exhausted. Exponent letters "D" become "e" in the raw rows.
  void SetRaw(inp_DataArray const& raw);

private:
  struct Values
  {
    double of[c_values];
  };

  inp_NodeDataArrayImpl(inp_NodeDataArrayImpl const& other);
  inp_NodeDataArrayImpl& operator=(inp_NodeDataArrayImpl const&) = delete;
  void Allocate(int size);
  void CheckIndex(int i, int j) const;

  int nrows = 0;
  int allocatedSize = 0;
  mem_SlabArray<int> ids;
  mem_SlabArray<Values> values;
};
