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

/// A label that consists of digits alone, as nearly all do; 0 for any other text.
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
  // A cell of ten digits has the type of a real number. Here it is a label that is too long.
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

/// Reads a coordinate and finds the NUL that ends its cell. False when the cell is no finite number.
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

/// Reads the values of a row; columns that are missing are 0. False when one is no finite number.
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

/// The rows as text: `data` itself when it holds texts, or else rows that are made of its cells.
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
  std::size_t const count = static_cast<std::size_t>(size);
  ids.ForEachBlock(count, [](std::size_t, int* from, std::size_t length)
                   { std::fill_n(from, length, 0); });
  values.ForEachBlock(count, [](std::size_t, Values* from, std::size_t length)
                      { std::fill_n(from, length, Values{}); });
}

inp_NodeDataArrayImpl::inp_NodeDataArrayImpl(inp_NodeDataArrayImpl const& other)
  : inp_DataArrayImpl(other)
{
  Allocate(other.allocatedSize);
  nrows = other.nrows;
  for (std::size_t row = 0; row < static_cast<std::size_t>(nrows); ++row)
  {
    ids[row] = other.ids[row];
    values[row] = other.values[row];
  }
}

/// Replaces the rows by `size` new ones, whose values are not initialised.
void inp_NodeDataArrayImpl::Allocate(int size)
{
  nrows = 0;
  allocatedSize = 0;
  try
  {
    ids = mem_SlabArray<int>(static_cast<std::size_t>(size));
    values = mem_SlabArray<Values>(static_cast<std::size_t>(size));
  }
  catch (std::bad_alloc const&)
  {
    throw inp_MemoryException();
  }
  allocatedSize = size;
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
    int const label = ReadLabel(raw, row);
    int const columns = label != 0 ? raw.Cols(row) : 0;
    ids[static_cast<std::size_t>(row)] = label;
    if (!ReadValues(raw.RowText(row), columns, values[static_cast<std::size_t>(row)].of))
    {
      badNodes.Insert(label);
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
  return Label(i);
}

double inp_NodeDataArrayImpl::AsDouble(int i, int j) const
{
  CheckIndex(i, j);
  if (j == 0)
  {
    Raise(inp_msgNodeNumberNotDouble);
  }
  return RowValues(i)[j - 1];
}

cow_String inp_NodeDataArrayImpl::AsString(int i, int j) const
{
  CheckIndex(i, j);
  return j == 0 ? cow_String(Label(i)) : cow_String(RowValues(i)[j - 1]);
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
  values[static_cast<std::size_t>(i)].of[j - 1] = value;
}

void inp_NodeDataArrayImpl::Set(int i, int j, int value)
{
  CheckIndex(i, j);
  if (j != 0)
  {
    Raise(inp_msgNodeCoordinateSetInteger);
  }
  ids[static_cast<std::size_t>(i)] = value;
}

void inp_NodeDataArrayImpl::Append(char const*) { Raise(inp_msgNodeGenericLine); }

void inp_NodeDataArrayImpl::AppendRaw(char const*) { Raise(inp_msgNodeGenericLine); }

void inp_NodeDataArrayImpl::Append(int id, double x, double y, double z)
{
  VRXBasAssert(nrows + 1 < allocatedSize, "nrows+1 < allocatedSize");
  ids[static_cast<std::size_t>(nrows)] = id;
  values[static_cast<std::size_t>(nrows)] = {{x, y, z}};
  ++nrows;
}

inp_NodeDataArrayImpl* inp_NodeDataArrayImpl::Copy() const
{
  return new inp_NodeDataArrayImpl(*this);
}
