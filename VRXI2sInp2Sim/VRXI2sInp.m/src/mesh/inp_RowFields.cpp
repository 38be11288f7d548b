#include "inp_RowFields.h"

namespace
{

bool HasField(inp_DataArray const& data, int row, int column)
{
  return row < data.Rows() && column < data.Cols(row);
}

} // namespace

int inp_IntField(inp_DataArray const& data, int row, int column)
{
  return HasField(data, row, column) ? data.AsInt(row, column) : 0;
}

double inp_RealField(inp_DataArray const& data, int row, int column)
{
  return HasField(data, row, column) ? data.AsDouble(row, column) : 0.0;
}

cow_String inp_TextField(inp_DataArray const& data, int row, int column)
{
  return HasField(data, row, column) ? data.AsString(row, column) : cow_String();
}

bool inp_HasIntegerParameter(inp_Keyword const& keyword, char const* name)
{
  inp_Item const* const item = keyword.parameters.ConstFind(name);
  return item != nullptr && item->Type() == inp_Types::inp_INTEGER;
}

cow_String inp_RowText(inp_DataArray const& data, int row)
{
  cow_String text;
  for (int column = 0; column < data.Cols(row); ++column)
  {
    text.Append(column > 0 ? ", " : "").Append(data.AsString(row, column));
  }
  return text;
}
