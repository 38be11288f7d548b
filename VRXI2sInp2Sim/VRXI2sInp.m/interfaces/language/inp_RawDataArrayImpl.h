#pragma once

#include "inp_DataArrayImpl.h"

#include <cstddef>

/// Data lines kept as text: what the reader makes of every data line.
///
///     line    1, 0.5 ,"a,b"          three columns
///     row     1\0 0.5 \0"a,b"\0      one block: separating commas are overwritten by NUL
///
/// A row costs one block of its line's length, a pointer and an int. Reading a cell walks over the
/// cells before it. Commas within double quotes do not separate.
class inp_RawDataArrayImpl : public inp_DataArrayImpl
{
public:
  inp_RawDataArrayImpl() = default;
  inp_RawDataArrayImpl(inp_RawDataArrayImpl const& other);
  inp_RawDataArrayImpl& operator=(inp_RawDataArrayImpl const&) = delete;
  ~inp_RawDataArrayImpl() override;

  int Rows() const override { return nrows; }
  int Cols(int i) const override;
  /// Told apart by counting characters: integers from 10 digits up are reals.
  inp_Types::typeEnm Type(int i, int j) const override;
  bool IsNone(int i, int j) const override;
  bool HasValue(int i, int j) const override;
  /// The number that the cell begins with, or 0.
  int AsInt(int i, int j) const override;
  /// The same; an exponent letter "D" or "d" becomes "e" in the stored row.
  double AsDouble(int i, int j) const override;
  cow_String AsString(int i, int j) const override;
  cow_String AsStringVerbatim(int i, int j) const override;
  /// Builds the row anew; a column past the end is added, with blank ones between. A text with a
  /// comma outside quotes adds columns.
  void Set(int i, int j, cow_String const& text) override;
  void Set(int i, int j, double value) override;
  void Set(int i, int j, int value) override;
  void Append(char const* line) override;
  void AppendRaw(char const* line) override;
  bool HasRowContinuation(int i) const override;
  inp_RawDataArrayImpl* Copy() const override;

  /// Append for the reader: a line of known length, without NUL bytes. It is read 16 bytes at a time, so the
  /// 16 bytes behind the line must be readable, whatever they hold.
  void AppendLine(char const* line, std::size_t length);

  void Clear();
  void RemoveLastRow();
  /// Moves a row of `other` to the end of this array. What is left there has no columns and must not
  /// be read.
  void TakeRow(inp_RawDataArrayImpl& other, int row);
  /// The row as the line that it was made of.
  cow_String Line(int i) const;

  /// A text for a column.
  struct NewCell
  {
    int column;
    cow_String text;
  };
  /// Replaces cells of a row, which must exist and stand in ascending order, in one go; the others
  /// stay as they are. A text no longer than the cell is written over it; otherwise the row is built
  /// anew, once. A text with a comma outside quotes adds columns.
  void SetCells(int i, NewCell const* cells, int count);

  // What Type, IsNone and AsString say of a cell, for those who walk over RowText.
  static inp_Types::typeEnm TypeOfCell(char const* cell);
  static bool IsNoneCell(char const* cell);
  static cow_String TextOfCell(char const* cell);

  /// The row's cells, each ended by NUL, one behind the other: Cols(i) of them. The text may be
  /// changed in place as long as the cells stay.
  char* RowText(int i) const;

  /// Bytes of a row's block: the text, its NUL, and NUL up to a multiple of 16.
  static constexpr std::size_t BlockSize(std::size_t length)
  {
    return (length + 16) & ~static_cast<std::size_t>(15);
  }

private:
  char* Cell(int i, int j) const;
  void AppendText(char const* text, std::size_t length);
  void AddRow(char* block, int columns);
  void Grow();
  void Free();

  int nrows = 0;
  int m_capacity = 0; ///< 10 from the first row on, then doubled
  char** m_rows = nullptr;
  int* ncols = nullptr;
};
