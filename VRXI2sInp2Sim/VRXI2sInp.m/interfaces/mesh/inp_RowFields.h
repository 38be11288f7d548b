#pragma once

#include "atr_Message.h"
#include "atr_String.h"
#include "cow_List.h"
#include "gsl_Point.h"
#include "inp_Keyword.h"

#include <set>
#include <utility>

/// Fields of data rows for readers that let them go missing: one beyond the row, or the rows, is 0.
/// Rows and columns count from 0.
int inp_IntField(inp_DataArray const& data, int row, int column);
double inp_RealField(inp_DataArray const& data, int row, int column);

/// The parameter is there and has an integer for its value.
bool inp_HasIntegerParameter(inp_Keyword const& keyword, char const* name);

/// The fields of a row, joined by ", ".
cow_String inp_RowText(inp_DataArray const& data, int row);

/// Reads numbers of a keyword's rows, and reports the fields that hold something else. One that is missing
/// or blank is 0; so is one that is no finite number as a whole, "1O." or "9x", and as an integer "1.5".
///
/// Each field that is read costs a copy of its text: for keywords of a few rows.
class inp_NumberFields
{
public:
  /// The keyword must outlive the reader.
  explicit inp_NumberFields(inp_Keyword const& keyword) : m_keyword(keyword) {}

  /// Row and column count from 0.
  double Real(int row, int column);
  int Integer(int row, int column);
  gsl_Point Point(int row, int column);
  /// A message for each field that was read and is no number of the kind asked for.
  cow_List<atr_String> const& Errors() const { return m_errors; }

private:
  void AddFault(atr_MessageRow<3> const& message, int row, int column);

  inp_Keyword const& m_keyword;
  std::set<std::pair<int, int>> m_faults; ///< rows and columns that were reported
  cow_List<atr_String> m_errors;
};
