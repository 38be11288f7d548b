#pragma once

#include "cow_CountedHld.h"
#include "cow_List.h"
#include "inp_DataArrayImpl.h"

/// A counted handle on the rows of a keyword. Never null.
///
/// Copies share the rows, and deliberately do not copy on write: a write through one of them is
/// seen through all. inp_Keyword::DeepCopy and Copy give independent rows. Indices are those of
/// inp_DataArrayImpl.
class inp_DataArray : private cow_CountedHld<inp_DataArrayImpl>
{
public:
  /// No rows yet, in the raw form.
  inp_DataArray();
  /// Takes over `impl`.
  explicit inp_DataArray(inp_DataArrayImpl* impl);

  /// Takes over `impl` in place of the present rows; other handles keep those.
  void Set(inp_DataArrayImpl* impl);

  int Rows() const { return Impl().Rows(); }
  int Cols(int i) const { return Impl().Cols(i); }
  inp_Types::typeEnm Type(int i, int j) const { return Impl().Type(i, j); }
  bool IsNone(int i, int j) const { return Impl().IsNone(i, j); }
  bool HasValue(int i, int j) const { return Impl().HasValue(i, j); }
  int AsInt(int i, int j) const { return Impl().AsInt(i, j); }
  double AsDouble(int i, int j) const { return Impl().AsDouble(i, j); }
  cow_String AsString(int i, int j) const { return Impl().AsString(i, j); }
  /// The default stands in for a cell that is not there, cleaned as a cell is.
  cow_String AsString(int i, int j, cow_String const& defaultText) const;
  cow_String AsStringVerbatim(int i, int j) const { return Impl().AsStringVerbatim(i, j); }
  bool HasRowContinuation(int i) const { return Impl().HasRowContinuation(i); }

  void Set(int i, int j, cow_String const& text) { Impl().Set(i, j, text); }
  void Set(int i, int j, double value) { Impl().Set(i, j, value); }
  void Set(int i, int j, int value) { Impl().Set(i, j, value); }
  void Append(char const* line) { Impl().Append(line); }
  /// The texts joined by commas make the row.
  void Append(cow_List<cow_String> const& texts);
  void AppendRaw(char const* line) { Impl().AppendRaw(line); }

  /// An independent array with the same rows.
  inp_DataArray Copy() const;

  /// Another handle has the same rows.
  bool IsShared() const { return UseCount() > 1; }

  /// The storage, for readers that know its form. Shared with all copies of this handle.
  inp_DataArrayImpl& Impl() const { return *cow_CountedHld<inp_DataArrayImpl>::Get(); }
};
