#pragma once

#include "inp_Keyword.h"

/// Fields of data rows for readers that let them go missing: one beyond the row, or the rows, is 0 or
/// empty. Rows and columns count from 0.
int inp_IntField(inp_DataArray const& data, int row, int column);
double inp_RealField(inp_DataArray const& data, int row, int column);
cow_String inp_TextField(inp_DataArray const& data, int row, int column);

/// The parameter is there and has an integer for its value.
bool inp_HasIntegerParameter(inp_Keyword const& keyword, char const* name);

/// The fields of a row, joined by ", ".
cow_String inp_RowText(inp_DataArray const& data, int row);
