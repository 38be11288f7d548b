#include "inp_RawDataArrayImpl.h"

#include "VRXBasException.h"
#include "inp_Numbers.h"
#include "inp_ParserExceptions.h"
#include "inp_Utils.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace
{

constexpr int c_firstCapacity = 10;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

/// Overwrites the separating commas of a text by NUL and gives the number of columns.
int DivideFrom(char* text, char const* end, int columns)
{
  bool inQuotes = false;
  for (; text != end; ++text)
  {
    if (*text == '"')
    {
      inQuotes = !inQuotes;
    }
    else if (*text == ',' && !inQuotes)
    {
      *text = '\0';
      ++columns;
    }
  }
  return columns;
}

#if defined(__SSE2__)

/// The same, 16 characters at a time up to the first quote. The block is aligned and as long as a
/// multiple of 16, with NUL behind the text.
int Divide(char* block, std::size_t length)
{
  __m128i const comma = _mm_set1_epi8(',');
  __m128i const quote = _mm_set1_epi8('"');
  int columns = 1;
  for (std::size_t at = 0; at < length; at += 16)
  {
    __m128i* const place = reinterpret_cast<__m128i*>(block + at);
    __m128i const text = _mm_load_si128(place);
    __m128i const isComma = _mm_cmpeq_epi8(text, comma);
    if (_mm_movemask_epi8(_mm_cmpeq_epi8(text, quote)) != 0)
    {
      return DivideFrom(block + at, block + length, columns);
    }
    _mm_store_si128(place, _mm_andnot_si128(isComma, text));
    columns += std::popcount(static_cast<unsigned>(_mm_movemask_epi8(isComma)));
  }
  return columns;
}

#else

int Divide(char* block, std::size_t length) { return DivideFrom(block, block + length, 1); }

#endif

/// A block with the text and NUL up to the block's end, which lies on a multiple of 16.
char* NewBlock(char const* text, std::size_t length)
{
  std::size_t const size = (length + 16) & ~static_cast<std::size_t>(15);
  char* const block = static_cast<char*>(mem_OperatorNewThrow(size));
  std::memset(block + size - 16, 0, 16);
  std::memcpy(block, text, length);
  return block;
}

} // namespace

inp_RawDataArrayImpl::inp_RawDataArrayImpl(inp_RawDataArrayImpl const& other)
  : inp_DataArrayImpl(other)
{
  try
  {
    while (nrows < other.nrows)
    {
      MakeRoom();
      char const* end = other.m_rows[nrows];
      for (int j = 0; j < other.ncols[nrows]; ++j)
      {
        end += std::strlen(end) + 1;
      }
      m_rows[nrows] =
        NewBlock(other.m_rows[nrows], static_cast<std::size_t>(end - other.m_rows[nrows]));
      ncols[nrows] = other.ncols[nrows];
      ++nrows;
    }
  }
  catch (std::bad_alloc const&)
  {
    Free();
    throw inp_MemoryException();
  }
}

inp_RawDataArrayImpl::~inp_RawDataArrayImpl() { Free(); }

void inp_RawDataArrayImpl::Free()
{
  for (int i = 0; i < nrows; ++i)
  {
    mem_Free(m_rows[i]);
  }
  delete[] m_rows;
  delete[] ncols;
}

void inp_RawDataArrayImpl::MakeRoom()
{
  if (nrows < m_capacity)
  {
    return;
  }
  int const capacity = std::max(2 * m_capacity, c_firstCapacity);
  // One array at a time, so that at the peak only one of them stands twice.
  char** const rows = new char*[static_cast<std::size_t>(capacity)];
  std::copy(m_rows, m_rows + nrows, rows);
  delete[] m_rows;
  m_rows = rows;
  int* const columns = new int[static_cast<std::size_t>(capacity)];
  std::copy(ncols, ncols + nrows, columns);
  delete[] ncols;
  ncols = columns;
  m_capacity = capacity;
}

void inp_RawDataArrayImpl::AppendLine(char const* line, std::size_t length)
{
  MakeRoom();
  char* const block = NewBlock(line, length);
  m_rows[nrows] = block;
  ncols[nrows] = Divide(block, length);
  ++nrows;
}

void inp_RawDataArrayImpl::Append(char const* line) { AppendLine(line, std::strlen(line)); }

void inp_RawDataArrayImpl::AppendRaw(char const* line)
{
  MakeRoom();
  m_rows[nrows] = NewBlock(line, std::strlen(line));
  ncols[nrows] = 1;
  ++nrows;
}

int inp_RawDataArrayImpl::Cols(int i) const
{
  VRXBasAssert(i >= 0 && i < nrows, "i >= 0 && i < nrows");
  return ncols[i];
}

char* inp_RawDataArrayImpl::RowText(int i) const
{
  VRXBasAssert(i >= 0 && i < nrows, "i >= 0 && i < nrows");
  return m_rows[i];
}

char* inp_RawDataArrayImpl::Cell(int i, int j) const
{
  VRXBasAssert(i >= 0 && i < nrows, "i >= 0 && i < nrows");
  VRXBasAssert(j >= 0 && j < ncols[i], "j >= 0 && j < ncols[i]");
  char* cell = m_rows[i];
  for (; j > 0; --j)
  {
    cell += std::strlen(cell) + 1;
  }
  return cell;
}

inp_Types::typeEnm inp_RawDataArrayImpl::Type(int i, int j) const
{
  char const* at = Cell(i, j);
  while (IsBlank(*at))
  {
    ++at;
  }
  int left = 0;
  for (char const* other = at; *other != '\0'; ++other)
  {
    left += !IsBlank(*other);
  }
  if (left == 0)
  {
    return inp_Types::inp_NONE;
  }
  if (std::strchr("DEde", *at) != nullptr)
  {
    return inp_Types::inp_STRING;
  }
  if (*at == '+' || *at == '-')
  {
    ++at;
    --left;
  }
  // A blank within the cell uses up a step of the walk and is no part of a number.
  int signs = 0;
  int periods = 0;
  int exponents = 0;
  int digits = 0;
  for (; left > 0; --left, ++at)
  {
    char const c = *at;
    if (c >= '0' && c <= '9')
    {
      ++digits;
    }
    else if (c == '.')
    {
      ++periods;
    }
    else if (c == '+' || c == '-')
    {
      ++signs;
    }
    else if ((c | 0x20) == 'e' || (c | 0x20) == 'd')
    {
      ++exponents;
    }
    else
    {
      return inp_Types::inp_STRING;
    }
  }
  if (signs == 0 && periods == 0)
  {
    if (exponents == 0)
    {
      return digits < 10 ? inp_Types::inp_INTEGER : inp_Types::inp_REAL;
    }
    return exponents == 1 ? inp_Types::inp_REAL : inp_Types::inp_STRING;
  }
  return signs < 2 && periods < 2 && exponents < 2 ? inp_Types::inp_REAL : inp_Types::inp_STRING;
}

bool inp_RawDataArrayImpl::IsNone(int i, int j) const
{
  char const* at = Cell(i, j);
  while (IsBlank(*at))
  {
    ++at;
  }
  return *at == '\0';
}

bool inp_RawDataArrayImpl::HasValue(int i, int j) const
{
  return i >= 0 && i < nrows && j >= 0 && j < ncols[i] && !IsNone(i, j);
}

int inp_RawDataArrayImpl::AsInt(int i, int j) const { return inp_TextToInt(Cell(i, j)); }

double inp_RawDataArrayImpl::AsDouble(int i, int j) const
{
  char* const cell = Cell(i, j);
  char* letter = std::strchr(cell, 'D');
  if (letter == nullptr)
  {
    letter = std::strchr(cell, 'd');
  }
  if (letter != nullptr)
  {
    *letter = 'e';
  }
  return inp_TextToDouble(cell);
}

cow_String inp_RawDataArrayImpl::AsString(int i, int j) const
{
  return inp_Utils::TakeOutSpacesAndUpperOutsideQuoted(AsStringVerbatim(i, j));
}

cow_String inp_RawDataArrayImpl::AsStringVerbatim(int i, int j) const
{
  char const* from = Cell(i, j);
  while (*from == ' ' || *from == '\t')
  {
    ++from;
  }
  char const* to = from + std::strlen(from);
  while (to != from && (to[-1] == ' ' || to[-1] == '\t'))
  {
    --to;
  }
  return cow_String(from, static_cast<int>(to - from));
}

void inp_RawDataArrayImpl::Set(int i, int j, cow_String const& text)
{
  VRXBasAssert(i >= 0 && i < nrows, "i >= 0 && i < nrows");
  VRXBasAssert(j >= 0, "j >= 0");
  int const columns = std::max(ncols[i], j + 1);
  cow_String line;
  for (int column = 0; column < columns; ++column)
  {
    if (column > 0)
    {
      line.Append(",");
    }
    if (column == j)
    {
      line.Append(text);
    }
    else if (column < ncols[i])
    {
      line.Append(AsStringVerbatim(i, column));
    }
  }
  std::size_t const length = static_cast<std::size_t>(line.Length());
  char* const block = NewBlock(line.CStr(), length);
  mem_Free(m_rows[i]);
  m_rows[i] = block;
  ncols[i] = Divide(block, length);
}

void inp_RawDataArrayImpl::Set(int i, int j, double value) { Set(i, j, cow_String(value)); }

void inp_RawDataArrayImpl::Set(int i, int j, int value) { Set(i, j, cow_String(value)); }

bool inp_RawDataArrayImpl::HasRowContinuation(int i) const { return IsNone(i, Cols(i) - 1); }

inp_RawDataArrayImpl* inp_RawDataArrayImpl::Copy() const { return new inp_RawDataArrayImpl(*this); }
