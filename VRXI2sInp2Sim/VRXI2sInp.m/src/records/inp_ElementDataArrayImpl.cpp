#include "inp_ElementDataArrayImpl.h"

#include "VRXBasException.h"
#include "inp_DataArray.h"
#include "inp_MapInt2Element.h"
#include "inp_Numbers.h"
#include "inp_ParserExceptions.h"
#include "inp_RawDataArrayImpl.h"
#include "inp_RecordMessages.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>

namespace
{

template <class Row>
[[noreturn]] void Raise(Row const& row)
{
  throw nex_AtrException(atr_Say(row));
}

/// The number of rows of an element with so many nodes.
int RowsOfElement(int nodes)
{
  int const overFirst = nodes - inp_ElementDataArrayImpl::c_nodesInFirstRow;
  return overFirst <= 0 ? 1 : static_cast<int>(std::ceil(overFirst * 0.0625)) + 1;
}

/// Reads up to 7 digits with a NUL behind them and returns their end; null for any other text.
///
/// All digits are converted at once, as the bytes of one integer: first neighbouring digits are joined to
/// numbers below 100, 10 a + b for each pair of bytes, and then two multiplications add up the four pairs
/// with their powers of ten.
///
/// The text must lie in a block that is aligned to 16 and a multiple of 16 long, as those of rows are. Then
/// 8 bytes may be read, whatever they hold, wherever they do not cross a multiple of 16.
char const* ReadShortNumber(char const* text, int& value)
{
  if constexpr (std::endian::native != std::endian::little)
  {
    return nullptr;
  }
  if ((reinterpret_cast<std::uintptr_t>(text) & 15) > 8)
  {
    return nullptr;
  }
  std::uint64_t digits;
  std::memcpy(&digits, text, sizeof digits);
  digits ^= 0x3030303030303030; // a digit's byte is now its value, below 10
  std::uint64_t const others = ((digits + 0x0606060606060606) | digits) & 0xF0F0F0F0F0F0F0F0;
  int const count = std::countr_zero(others) / 8;
  if (count == 0 || count == 8 || text[count] != '\0')
  {
    return nullptr;
  }
  digits <<= 8 * (8 - count); // leading zeros
  digits = 10 * digits + (digits >> 8);
  std::uint64_t const thousands = (digits & 0x000000FF000000FF) * 0x000F424000000064;
  std::uint64_t const ones = ((digits >> 16) & 0x000000FF000000FF) * 0x0000271000000001;
  value = static_cast<int>((thousands + ones) >> 32);
  return text + count;
}

/// The number that a cell begins with, and the cell's end. `isExact` becomes false when the cell holds
/// something else as well, or a 0, which would be taken for a blank cell.
int ReadCell(char const* cell, char const*& end, bool& isExact)
{
  char const* at = cell;
  while (*at == ' ')
  {
    ++at;
  }
  int number = 0;
  if (char const* const last = ReadShortNumber(at, number))
  {
    end = last;
    isExact &= number != 0;
    return number;
  }
  char const* const digits = at;
  unsigned value = 0;
  for (unsigned digit; (digit = static_cast<unsigned>(*at) - '0') <= 9; ++at)
  {
    value = 10 * value + digit;
  }
  if (*at == '\0' && at - digits <= 9)
  {
    isExact &= value != 0 || at == digits;
    end = at;
    return static_cast<int>(value);
  }
  end = at + std::strlen(at);
  number = inp_TextToInt(cell);
  inp_Types::typeEnm const type = inp_RawDataArrayImpl::TypeOfCell(cell);
  isExact &= type == inp_Types::inp_NONE || (type == inp_Types::inp_INTEGER && number != 0);
  return number;
}

} // namespace

inp_ElementDataArrayImpl::inp_ElementDataArrayImpl(inp_DataArray const& raw)
{
  std::size_t cellCount = 0;
  for (int row = 0; row < raw.Rows(); ++row)
  {
    cellCount += static_cast<std::size_t>(raw.Cols(row));
  }
  Allocate(raw.Rows(), cellCount);
  auto const* const texts = dynamic_cast<inp_RawDataArrayImpl const*>(&raw.Impl());
  for (int row = 0; row < raw.Rows(); ++row)
  {
    int const columns = raw.Cols(row);
    int* const cells = AddRow(columns);
    char const* text = texts != nullptr ? texts->RowText(row) : nullptr;
    for (int column = 0; column < columns; ++column)
    {
      if (text == nullptr)
      {
        cells[column] = raw.AsInt(row, column);
      }
      else
      {
        cells[column] = ReadCell(text, text, m_isExact);
        ++text;
      }
    }
  }
}

inp_ElementDataArrayImpl::inp_ElementDataArrayImpl(cow_Map<int, cow_List<int>> const& elements)
{
  int rowCount = 0;
  std::size_t cells = 0;
  cow_ConstMapIterator<int, cow_List<int>> element(elements);
  for (element.First(); !element.IsDone(); element.Next())
  {
    int const nodes = element.CurrentValue().Length();
    rowCount += RowsOfElement(nodes);
    cells += static_cast<std::size_t>(nodes + RowsOfElement(nodes));
  }
  Allocate(rowCount, cells);
  for (element.First(); !element.IsDone(); element.Next())
  {
    cow_List<int> const& nodes = element.CurrentValue();
    AddElement(element.CurrentKey(), nodes.Length(), nodes.begin());
  }
}

inp_ElementDataArrayImpl::inp_ElementDataArrayImpl(cow_List<int> const& ids,
                                                   inp_MapInt2Element const& elements)
{
  int rowCount = 0;
  std::size_t cells = 0;
  for (int id : ids)
  {
    if (inp_Element const* const element = elements.GetEltPtr(id))
    {
      int const elementRows = RowsOfElement(element->numNodesPerElement());
      rowCount += elementRows;
      cells += static_cast<std::size_t>(element->numNodesPerElement() + elementRows);
    }
  }
  Allocate(rowCount, cells);
  for (int id : ids)
  {
    if (inp_Element const* const element = elements.GetEltPtr(id))
    {
      AddElement(id, element->numNodesPerElement(), element->topology());
    }
  }
}

inp_ElementDataArrayImpl::inp_ElementDataArrayImpl(inp_ElementDataArrayImpl const& other)
  : inp_DataArrayImpl(other)
{
  std::size_t cells = 0;
  for (int row = 0; row < other.nrows; ++row)
  {
    cells += static_cast<std::size_t>(other.ColumnsOf(row));
  }
  Allocate(other.nrows, cells);
  for (int row = 0; row < other.nrows; ++row)
  {
    int const columns = other.ColumnsOf(row);
    std::copy_n(other.RowCells(row), columns, AddRow(columns));
  }
  m_isExact = other.m_isExact;
}

inp_ElementDataArrayImpl::~inp_ElementDataArrayImpl()
{
  for (int* const block : m_blocks)
  {
    mem_Free(block);
  }
}

void inp_ElementDataArrayImpl::Allocate(int rowCount, std::size_t cellCount)
{
  try
  {
    ncols = mem_SlabArray<int>(static_cast<std::size_t>(rowCount));
    rows = mem_SlabArray<int*>(static_cast<std::size_t>(rowCount));
  }
  catch (std::bad_alloc const&)
  {
    throw inp_MemoryException();
  }
  m_expected = cellCount;
}

/// Room for the cells of a row, in the block at hand or, where that has not enough, in a new one.
int* inp_ElementDataArrayImpl::TakeCells(std::size_t count)
{
  if (count > static_cast<std::size_t>(m_end - m_next))
  {
    std::size_t const size = std::max(count, std::min(m_expected, mem_SlabArray<int>::c_inBlock));
    try
    {
      m_blocks.push_back(nullptr);
      m_next = static_cast<int*>(mem_OperatorNewInOrderThrow(size * sizeof(int)));
    }
    catch (std::bad_alloc const&)
    {
      m_end = m_next = nullptr;
      throw inp_MemoryException();
    }
    m_blocks.back() = m_next;
    m_end = m_next + size;
  }
  m_expected -= std::min(count, m_expected);
  return std::exchange(m_next, m_next + count);
}

/// Adds a row and returns its cells, which the caller fills.
int* inp_ElementDataArrayImpl::AddRow(int columns)
{
  int* const cells = TakeCells(static_cast<std::size_t>(columns));
  rows[static_cast<std::size_t>(nrows)] = cells;
  ncols[static_cast<std::size_t>(nrows)] = columns;
  ++nrows;
  return cells;
}

template <class Nodes>
void inp_ElementDataArrayImpl::AddElement(int id, int nodeCount, Nodes node)
{
  int left = nodeCount;
  int limit = c_nodesInFirstRow;
  do
  {
    bool const isFirst = left == nodeCount;
    int const count = std::min(left, limit);
    int* cell = AddRow(isFirst + count + (left > limit));
    if (isFirst)
    {
      *cell++ = id;
    }
    for (int i = 0; i < count; ++i)
    {
      *cell++ = *node;
      ++node;
    }
    if (left > limit)
    {
      *cell = 0;
    }
    left -= count;
    limit = c_nodesInRow;
  } while (left > 0);
}

void inp_ElementDataArrayImpl::CheckIndex(int i, int j) const
{
  VRXBasAssert(i >= 0 && i < nrows, "i >= 0 && i < nrows");
  VRXBasAssert(j >= 0 && j < ColumnsOf(i), "j >= 0 && j < ncols[i]");
}

int inp_ElementDataArrayImpl::Cols(int i) const
{
  VRXBasAssert(i >= 0 && i < nrows, "i >= 0 && i < nrows");
  return ColumnsOf(i);
}

inp_Types::typeEnm inp_ElementDataArrayImpl::Type(int i, int j) const
{
  return IsNone(i, j) ? inp_Types::inp_NONE : inp_Types::inp_INTEGER;
}

bool inp_ElementDataArrayImpl::IsNone(int i, int j) const
{
  CheckIndex(i, j);
  return RowCells(i)[j] == 0;
}

bool inp_ElementDataArrayImpl::HasValue(int i, int j) const
{
  return i >= 0 && i < nrows && j >= 0 && j < ColumnsOf(i) && RowCells(i)[j] != 0;
}

int inp_ElementDataArrayImpl::AsInt(int i, int j) const
{
  CheckIndex(i, j);
  return RowCells(i)[j];
}

double inp_ElementDataArrayImpl::AsDouble(int, int) const { Raise(inp_msgElementDataNotDouble); }

cow_String inp_ElementDataArrayImpl::AsString(int i, int j) const
{
  CheckIndex(i, j);
  return cow_String(RowCells(i)[j]);
}

void inp_ElementDataArrayImpl::Set(int, int, cow_String const&)
{
  Raise(inp_msgElementIllegalOperation);
}

void inp_ElementDataArrayImpl::Set(int, int, double) { Raise(inp_msgElementIllegalOperation); }

void inp_ElementDataArrayImpl::Set(int i, int j, int value)
{
  CheckIndex(i, j);
  rows[static_cast<std::size_t>(i)][j] = value;
}

void inp_ElementDataArrayImpl::Append(char const*) { Raise(inp_msgElementGenericLine); }

void inp_ElementDataArrayImpl::AppendRaw(char const*) { Raise(inp_msgElementGenericLine); }

bool inp_ElementDataArrayImpl::HasRowContinuation(int i) const
{
  return RowCells(i)[ColumnsOf(i) - 1] == 0;
}

inp_ElementDataArrayImpl* inp_ElementDataArrayImpl::Copy() const
{
  return new inp_ElementDataArrayImpl(*this);
}
