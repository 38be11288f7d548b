#pragma once

#include "cow_String.h"
#include "inp_Types.h"
#include "mem_Allocation.h"

/// The rows of data lines below a keyword, in one of several forms of storage.
///
/// Rows and columns count from 0. An index out of range is a programming error and raises
/// VRXBasAssertException, but for HasValue, which answers false.
class inp_DataArrayImpl : public mem_AllocationOperators
{
public:
  virtual ~inp_DataArrayImpl() = default;

  virtual int Rows() const = 0;
  virtual int Cols(int i) const = 0;
  virtual inp_Types::typeEnm Type(int i, int j) const = 0;
  /// The cell is blank.
  virtual bool IsNone(int i, int j) const = 0;
  /// The cell exists and is not blank. Takes any index.
  virtual bool HasValue(int i, int j) const = 0;
  virtual int AsInt(int i, int j) const = 0;
  virtual double AsDouble(int i, int j) const = 0;
  /// Upper case and without blanks, text in double quotes excepted.
  virtual cow_String AsString(int i, int j) const = 0;
  /// As written, without blanks and tabs at both ends.
  virtual cow_String AsStringVerbatim(int i, int j) const = 0;
  virtual void Set(int i, int j, cow_String const& text) = 0;
  virtual void Set(int i, int j, double value) = 0;
  virtual void Set(int i, int j, int value) = 0;
  /// Adds a data line as a row, divided into columns.
  virtual void Append(char const* line) = 0;
  /// Adds a line as a row of one column.
  virtual void AppendRaw(char const* line) = 0;
  /// The line ended in a comma: what it describes goes on in the next row.
  virtual bool HasRowContinuation(int i) const = 0;
  /// An independent copy; the caller owns it.
  virtual inp_DataArrayImpl* Copy() const = 0;

protected:
  inp_DataArrayImpl() = default;
  inp_DataArrayImpl(inp_DataArrayImpl const&) = default;
  inp_DataArrayImpl& operator=(inp_DataArrayImpl const&) = default;
};
