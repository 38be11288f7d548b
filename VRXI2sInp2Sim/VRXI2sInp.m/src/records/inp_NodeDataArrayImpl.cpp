#include "inp_NodeDataArrayImpl.h"

#include "VRXBasException.h"
#include "inpM_OmiSet.h"
#include "inp_DataArray.h"
#include "inp_Numbers.h"
#include "inp_ParserExceptions.h"
#include "inp_RawDataArrayImpl.h"
#include "inp_RecordMessages.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <new>

namespace
{

constexpr int c_longestLabel = 9;
constexpr int c_mostNamedNodes = 102;

template <class Row, class... Arguments>
[[noreturn]] void Raise(Row const& row, Arguments const&... arguments)
{
  throw nex_AtrException(atr_Say(row, arguments...));
}

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// A label of digits alone, the form that nearly every row has; 0 for any other text.
int PlainLabel(char const* cell)
{
  while (*cell == ' ' || *cell == '\t')
  {
    ++cell;
  }
  int label = 0;
  int digits = 0;
  for (; *cell >= '0' && *cell <= '9' && digits < c_longestLabel; ++cell, ++digits)
  {
    label = 10 * label + (*cell - '0');
  }
  while (*cell == ' ' || *cell == '\t' || *cell == '\r')
  {
    ++cell;
  }
  return *cell == '\0' ? label : 0;
}

bool IsAllDigits(cow_String const& text)
{
  return text.Length() > 0 && std::all_of(text.CStr(), text.CStr() + text.Length(),
                                          [](char c) { return c >= '0' && c <= '9'; });
}

int ReadLabel(inp_RawDataArrayImpl const& raw, int row)
{
  int const plain = PlainLabel(raw.RowText(row));
  if (plain > 0)
  {
    return plain;
  }
  if (raw.Cols(row) == 1 && raw.IsNone(row, 0))
  {
    return 0;
  }
  cow_String const text = raw.AsString(row, 0);
  // A cell of ten digits counts as a real elsewhere; here it is a label that is too long.
  inp_Types::typeEnm const type = raw.Type(row, 0);
  if (type != inp_Types::inp_INTEGER && !(type == inp_Types::inp_REAL && IsAllDigits(text)))
  {
    Raise(inp_msgNodeLabelNotInteger, text);
  }
  if (text.Length() > c_longestLabel)
  {
    Raise(inp_msgNodeLabelTooLong, text);
  }
  int const label = inp_TextToInt(text.CStr());
  if (label < 1)
  {
    Raise(inp_msgNodeLabelNotPositive, text);
  }
  return label;
}

/// Reads a coordinate and gives the end of its cell, the NUL. False when the cell is no number.
bool ReadValue(char* cell, double& value, char*& cellEnd)
{
  char const* end = nullptr;
  value = inp_TextToDouble(cell, &end);
  if (*end == 'D' || *end == 'd')
  {
    char* letter = std::strchr(cell, 'D');
    letter = letter != nullptr ? letter : std::strchr(cell, 'd');
    *letter = 'e';
    value = inp_TextToDouble(cell, &end);
  }
  bool good = std::isfinite(value);
  for (; *end != '\0'; ++end)
  {
    good = good && IsSpace(*end);
  }
  cellEnd = cell + (end - cell);
  return good;
}

/// Reads the values of a row; those that it does not have are 0. False when one is no number.
bool ReadValues(char* text, int columns, double* values)
{
  std::fill(values, values + inp_NodeDataArrayImpl::c_values, 0.0);
  bool good = true;
  char* end = text + std::strlen(text);
  int const last = std::min(columns, inp_NodeDataArrayImpl::c_columns);
  for (int column = 1; column < last; ++column)
  {
    good = ReadValue(end + 1, values[column - 1], end) && good;
  }
  return good;
}

[[noreturn]] void RaiseBadNodes(inpM_OmiSet const& nodes)
{
  cow_String list;
  int named = 0;
  inpM_OmiSetIT node(nodes, true);
  for (node.First(); !node.IsDone() && named < c_mostNamedNodes; node.Next(), ++named)
  {
    list.Append(" ").Append(cow_String(node.CurrentItem()));
  }
  Raise(inp_msgNodeCoordinatesInvalid, list);
}

/// The rows as text, whatever form they are in: those of `data` itself, or made of its cells.
inp_RawDataArrayImpl const& AsRaw(inp_DataArray const& data,
                                  std::unique_ptr<inp_RawDataArrayImpl>& made)
{
  if (auto const* const raw = dynamic_cast<inp_RawDataArrayImpl const*>(&data.Impl()))
  {
    return *raw;
  }
  made = std::make_unique<inp_RawDataArrayImpl>();
  for (int row = 0; row < data.Rows(); ++row)
  {
    cow_String line;
    for (int column = 0; column < data.Cols(row); ++column)
    {
      line.Append(column > 0 ? "," : "").Append(data.AsStringVerbatim(row, column));
    }
    made->inp_RawDataArrayImpl::Append(line.CStr());
  }
  return *made;
}

} // namespace

inp_NodeDataArrayImpl::inp_NodeDataArrayImpl(int size)
{
  Allocate(size);
  std::memset(ids, 0, static_cast<std::size_t>(size) * sizeof(int));
  std::memset(values, 0, static_cast<std::size_t>(size) * sizeof(Values));
}

inp_NodeDataArrayImpl::inp_NodeDataArrayImpl(inp_NodeDataArrayImpl const& other)
  : inp_DataArrayImpl(other)
{
  Allocate(other.allocatedSize);
  nrows = other.nrows;
  std::copy(other.ids, other.ids + nrows, ids);
  std::copy(other.values[0], other.values[0] + c_values * static_cast<std::size_t>(nrows),
            values[0]);
}

inp_NodeDataArrayImpl::~inp_NodeDataArrayImpl() { Free(); }

/// Nothing is kept of the present rows; the new ones hold anything.
void inp_NodeDataArrayImpl::Allocate(int size)
{
  Free();
  std::size_t const rows = static_cast<std::size_t>(std::max(size, 1));
  try
  {
    ids = static_cast<int*>(mem_OperatorNewThrowBuiltin(rows * sizeof(int)));
    values = static_cast<Values*>(mem_OperatorNewThrowBuiltin(rows * sizeof(Values)));
  }
  catch (std::bad_alloc const&)
  {
    Free();
    throw inp_MemoryException();
  }
  allocatedSize = size;
}

void inp_NodeDataArrayImpl::Free()
{
  mem_Free(ids);
  mem_Free(values);
  ids = nullptr;
  values = nullptr;
  nrows = 0;
  allocatedSize = 0;
}

void inp_NodeDataArrayImpl::CheckIndex(int i, int j) const
{
  VRXBasAssert(i >= 0 && i < nrows, "i >= 0 && i < nrows");
  VRXBasAssert(j >= 0 && j < c_columns, "j >= 0 && j < 7");
}

void inp_NodeDataArrayImpl::SetRaw(inp_DataArray const& data)
{
  std::unique_ptr<inp_RawDataArrayImpl> made;
  inp_RawDataArrayImpl const& raw = AsRaw(data, made);
  Allocate(raw.Rows());
  nrows = raw.Rows();
  inpM_OmiSet badNodes;
  for (int row = 0; row < nrows; ++row)
  {
    ids[row] = ReadLabel(raw, row);
    int const columns = ids[row] != 0 ? raw.Cols(row) : 0;
    if (!ReadValues(raw.RowText(row), columns, values[row]))
    {
      badNodes.Insert(ids[row]);
    }
  }
  if (badNodes.Size() > 0)
  {
    RaiseBadNodes(badNodes);
  }
}

int inp_NodeDataArrayImpl::Cols(int i) const
{
  VRXBasAssert(i >= 0 && i < nrows, "i >= 0 && i < nrows");
  return c_columns;
}

inp_Types::typeEnm inp_NodeDataArrayImpl::Type(int i, int j) const
{
  CheckIndex(i, j);
  return j == 0 ? inp_Types::inp_INTEGER : inp_Types::inp_REAL;
}

bool inp_NodeDataArrayImpl::HasValue(int i, int j) const
{
  return i >= 0 && i < nrows && j >= 0 && j < c_columns;
}

int inp_NodeDataArrayImpl::AsInt(int i, int j) const
{
  CheckIndex(i, j);
  if (j != 0)
  {
    Raise(inp_msgNodeDataNotInteger);
  }
  return ids[i];
}

double inp_NodeDataArrayImpl::AsDouble(int i, int j) const
{
  CheckIndex(i, j);
  if (j == 0)
  {
    Raise(inp_msgNodeNumberNotDouble);
  }
  return values[i][j - 1];
}

cow_String inp_NodeDataArrayImpl::AsString(int i, int j) const
{
  CheckIndex(i, j);
  return j == 0 ? cow_String(ids[i]) : cow_String(values[i][j - 1]);
}

void inp_NodeDataArrayImpl::Set(int i, int j, cow_String const&)
{
  CheckIndex(i, j);
  Raise(inp_msgNodeSetString);
}

void inp_NodeDataArrayImpl::Set(int i, int j, double value)
{
  CheckIndex(i, j);
  if (j == 0)
  {
    Raise(inp_msgNodeNumberSetDouble);
  }
  values[i][j - 1] = value;
}

void inp_NodeDataArrayImpl::Set(int i, int j, int value)
{
  CheckIndex(i, j);
  if (j != 0)
  {
    Raise(inp_msgNodeCoordinateSetInteger);
  }
  ids[i] = value;
}

void inp_NodeDataArrayImpl::Append(char const*) { Raise(inp_msgNodeGenericLine); }

void inp_NodeDataArrayImpl::AppendRaw(char const*) { Raise(inp_msgNodeGenericLine); }

void inp_NodeDataArrayImpl::Append(int id, double x, double y, double z)
{
  VRXBasAssert(nrows + 1 < allocatedSize, "nrows+1 < allocatedSize");
  ids[nrows] = id;
  double const row[c_values] = {x, y, z};
  std::copy(row, row + c_values, values[nrows]);
  ++nrows;
}

inp_NodeDataArrayImpl* inp_NodeDataArrayImpl::Copy() const
{
  return new inp_NodeDataArrayImpl(*this);
}
