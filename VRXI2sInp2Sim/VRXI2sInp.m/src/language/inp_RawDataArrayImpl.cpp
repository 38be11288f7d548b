#include "inp_RawDataArrayImpl.h"

#include "VRXBasException.h"
#include "inp_CharacterWord.h"
#include "inp_Numbers.h"
#include "inp_ParserExceptions.h"
#include "inp_Utils.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace
{

constexpr int c_firstCapacity = 10;
constexpr std::size_t c_longestBlockwise = 255 * 16;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

char const* SkipBlanks(char const* text)
{
  while (IsBlank(*text))
  {
    ++text;
  }
  return text;
}

int CountNonBlanks(char const* text)
{
  int count = 0;
  for (; *text != '\0'; ++text)
  {
    count += !IsBlank(*text);
  }
  return count;
}

/// Counts the characters of a cell behind its leading sign, and tells the type from the counts.
class NumberMarks
{
public:
  /// False for a character that stands in no number.
  bool Count(char c)
  {
    if (c >= '0' && c <= '9')
    {
      ++m_digits;
    }
    else if (c == '.')
    {
      ++m_periods;
    }
    else if (c == '+' || c == '-')
    {
      ++m_signs;
    }
    else if ((c | 0x20) == 'e' || (c | 0x20) == 'd')
    {
      ++m_exponents;
    }
    else
    {
      return false;
    }
    return true;
  }

  /// An integer has at most 9 digits; a longer one counts as a real number.
  inp_Types::typeEnm Type() const
  {
    if (m_signs == 0 && m_periods == 0 && m_exponents == 0)
    {
      return m_digits < 10 ? inp_Types::inp_INTEGER : inp_Types::inp_REAL;
    }
    return m_signs < 2 && m_periods < 2 && m_exponents < 2 ? inp_Types::inp_REAL
                                                           : inp_Types::inp_STRING;
  }

private:
  int m_digits = 0;
  int m_periods = 0;
  int m_signs = 0;
  int m_exponents = 0;
};

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

std::string_view Trimmed(char const* from)
{
  while (*from == ' ' || *from == '\t')
  {
    ++from;
  }
  char const* to = from + std::strlen(from);
  while (to != from && (to[-1] == ' ' || to[-1] == '\t'))
  {
    --to;
  }
  return {from, static_cast<std::size_t>(to - from)};
}

template <class T>
T* Enlarged(T* array, int used, int capacity)
{
  T* const larger =
    static_cast<T*>(mem_OperatorNewInOrderThrow(static_cast<std::size_t>(capacity) * sizeof(T)));
  std::copy(array, array + used, larger);
  mem_Free(array);
  return larger;
}

/// A block for a text of that length. Its last 16 bytes, in which the text ends, are NUL.
char* RoomFor(std::size_t length)
{
  std::size_t const size = inp_RawDataArrayImpl::BlockSize(length);
  char* const block = static_cast<char*>(mem_OperatorNewInOrderThrow(size));
  std::memset(block + size - 16, 0, 16);
  return block;
}

char* NewBlock(char const* text, std::size_t length)
{
  char* const block = RoomFor(length);
  std::memcpy(block, text, length);
  return block;
}

/// The cell of a column, from the one of an earlier column.
char* CellFrom(char* cell, int column, int wanted)
{
  for (; column < wanted; ++column)
  {
    cell += std::strlen(cell) + 1;
  }
  return cell;
}

/// Characters of a row in front of the NUL that ends its last cell; its block is whole words.
std::size_t RowLength(char const* row, int columns)
{
  char const* at = row;
  int left = columns;
  for (int ends = 0; (ends = inp_CountOf(inp_Zeros(inp_LoadWord(at)))) < left;
       at += c_charactersOfWord)
  {
    left -= ends;
  }
  for (; left > 0; ++at)
  {
    left -= *at == '\0' ? 1 : 0;
  }
  return static_cast<std::size_t>(at - row) - 1;
}

/// What texts for cells of a row mean for its block.
struct Replacement
{
  bool fits = true;          ///< each text in its cell, without a comma
  std::ptrdiff_t growth = 0; ///< of the row, in characters
};

Replacement Measure(char* row, inp_RawDataArrayImpl::NewCell const* cells, int count)
{
  Replacement result;
  int column = 0;
  for (int k = 0; k < count; ++k)
  {
    row = CellFrom(row, column, cells[k].column);
    column = cells[k].column;
    std::string_view const text = cells[k].text.View();
    std::size_t const length = std::strlen(row);
    result.fits = result.fits && text.size() <= length && text.find(',') == text.npos;
    result.growth += static_cast<std::ptrdiff_t>(text.size()) - static_cast<std::ptrdiff_t>(length);
  }
  return result;
}

/// Writes texts over cells, blanks behind them.
void WriteOver(char* row, inp_RawDataArrayImpl::NewCell const* cells, int count)
{
  int column = 0;
  for (int k = 0; k < count; ++k)
  {
    row = CellFrom(row, column, cells[k].column);
    column = cells[k].column;
    std::string_view const text = cells[k].text.View();
    std::size_t const length = std::strlen(row);
    std::memcpy(row, text.data(), text.size());
    std::memset(row + text.size(), ' ', length - text.size());
  }
}

/// Writes a row with texts in place of cells; gives the number of its columns.
int WriteRow(char* to, char* row, std::size_t length, int columns,
             inp_RawDataArrayImpl::NewCell const* cells, int count)
{
  char const* const end = row + length;
  char* cell = row; // of `column`, in the old row
  int column = 0;
  for (int k = 0; k < count; ++k)
  {
    char* const next = CellFrom(cell, column, cells[k].column);
    to = std::copy(row, next, to);
    std::string_view const text = cells[k].text.View();
    std::memcpy(to, text.data(), text.size());
    columns = text.find(',') != text.npos ? DivideFrom(to, to + text.size(), columns) : columns;
    to += text.size();
    cell = next;
    column = cells[k].column;
    row = next + std::strlen(next);
  }
  std::copy(static_cast<char const*>(row), end, to);
  return columns;
}

#if defined(__SSE2__)

/// 16 bytes of all ones, then 16 of zero: read at 16 - n, it keeps the first n bytes of a block.
alignas(16) constexpr unsigned char c_keepFirst[32] = {255, 255, 255, 255, 255, 255, 255, 255,
                                                       255, 255, 255, 255, 255, 255, 255, 255};

__m128i Load(void const* from) { return _mm_loadu_si128(static_cast<__m128i const*>(from)); }

/// Copies a line into a block of BlockSize, 16 bytes at a time, overwriting commas by NUL and counting them.
/// Returns the number of columns; 0 when a quote stands in the line, since commas in quotes must stay: the
/// block is then to be filled anew.
int CopyDivided(char* block, char const* line, std::size_t length)
{
  __m128i const comma = _mm_set1_epi8(',');
  __m128i const quote = _mm_set1_epi8('"');
  __m128i commas = _mm_setzero_si128(); // a count in each byte; no line is as long as 255 blocks
  __m128i quotes = _mm_setzero_si128();
  std::size_t const last = length & ~static_cast<std::size_t>(15);
  auto const copy = [&](std::size_t at, __m128i text)
  {
    __m128i const isComma = _mm_cmpeq_epi8(text, comma);
    commas = _mm_sub_epi8(commas, isComma);
    quotes = _mm_or_si128(quotes, _mm_cmpeq_epi8(text, quote));
    _mm_store_si128(reinterpret_cast<__m128i*>(block + at), _mm_andnot_si128(isComma, text));
  };
  for (std::size_t at = 0; at < last; at += 16)
  {
    copy(at, Load(line + at));
  }
  copy(last, _mm_and_si128(Load(line + last), Load(c_keepFirst + 16 - (length - last))));
  if (_mm_movemask_epi8(quotes) != 0)
  {
    return 0;
  }
  __m128i const sums = _mm_sad_epu8(commas, _mm_setzero_si128());
  return 1 + _mm_cvtsi128_si32(sums) + _mm_cvtsi128_si32(_mm_unpackhi_epi64(sums, sums));
}

#endif

} // namespace

inp_RawDataArrayImpl::inp_RawDataArrayImpl(inp_RawDataArrayImpl const& other)
  : inp_DataArrayImpl(other)
{
  try
  {
    while (nrows < other.nrows)
    {
      char const* end = other.m_rows[nrows];
      for (int j = 0; j < other.ncols[nrows]; ++j)
      {
        end += std::strlen(end) + 1;
      }
      AddRow(NewBlock(other.m_rows[nrows], static_cast<std::size_t>(end - other.m_rows[nrows])),
             other.ncols[nrows]);
    }
  }
  catch (std::bad_alloc const&)
  {
    Free();
    throw inp_MemoryException();
  }
}

inp_RawDataArrayImpl::~inp_RawDataArrayImpl() { Free(); }

void inp_RawDataArrayImpl::Clear()
{
  Free();
  nrows = 0;
  m_capacity = 0;
  m_rows = nullptr;
  ncols = nullptr;
}

void inp_RawDataArrayImpl::Free()
{
  mem_FreeAll(reinterpret_cast<void* const*>(m_rows), static_cast<std::size_t>(nrows));
  mem_Free(m_rows);
  mem_Free(ncols);
}

void inp_RawDataArrayImpl::Grow()
{
  int const capacity = std::max(2 * m_capacity, c_firstCapacity);
  // One after the other: only one of the arrays is in memory twice at any time.
  m_rows = Enlarged(m_rows, nrows, capacity);
  ncols = Enlarged(ncols, nrows, capacity);
  m_capacity = capacity;
}

void inp_RawDataArrayImpl::AddRow(char* block, int columns)
{
  if (nrows == m_capacity)
  {
    try
    {
      Grow();
    }
    catch (std::bad_alloc const&)
    {
      mem_Free(block);
      throw;
    }
  }
  m_rows[nrows] = block;
  ncols[nrows] = columns;
  ++nrows;
}

void inp_RawDataArrayImpl::AppendLine(char const* line, std::size_t length)
{
#if defined(__SSE2__)
  if (length < c_longestBlockwise)
  {
    char* const block = static_cast<char*>(mem_OperatorNewInOrderThrow(BlockSize(length)));
    int const columns = CopyDivided(block, line, length);
    if (columns > 0)
    {
      AddRow(block, columns);
      return;
    }
    std::memcpy(block, line, length);
    AddRow(block, DivideFrom(block, block + length, 1));
    return;
  }
#endif
  AppendText(line, length);
}

void inp_RawDataArrayImpl::AppendText(char const* text, std::size_t length)
{
  char* const block = NewBlock(text, length);
  AddRow(block, DivideFrom(block, block + length, 1));
}

void inp_RawDataArrayImpl::Append(char const* line) { AppendText(line, std::strlen(line)); }

void inp_RawDataArrayImpl::AppendRaw(char const* line)
{
  AddRow(NewBlock(line, std::strlen(line)), 1);
}

void inp_RawDataArrayImpl::TakeRow(inp_RawDataArrayImpl& other, int row)
{
  VRXBasAssert(row >= 0 && row < other.nrows, "i >= 0 && i < nrows");
  if (nrows == m_capacity)
  {
    Grow();
  }
  m_rows[nrows] = other.m_rows[row];
  ncols[nrows] = other.ncols[row];
  ++nrows;
  other.m_rows[row] = nullptr;
  other.ncols[row] = 0;
}

cow_String inp_RawDataArrayImpl::Line(int i) const
{
  cow_String line;
  char const* cell = RowText(i);
  for (int column = 0; column < ncols[i]; ++column, cell += std::strlen(cell) + 1)
  {
    line.Append(column > 0 ? "," : "").Append(cell);
  }
  return line;
}

void inp_RawDataArrayImpl::RemoveLastRow()
{
  VRXBasAssert(nrows > 0, "nrows > 0");
  mem_Free(m_rows[--nrows]);
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

inp_Types::typeEnm inp_RawDataArrayImpl::Type(int i, int j) const { return TypeOfCell(Cell(i, j)); }

// As many characters are looked at as the cell has besides blanks. So blanks at its end are never reached,
// and one in its middle makes it a text.
inp_Types::typeEnm inp_RawDataArrayImpl::TypeOfCell(char const* cell)
{
  char const* at = SkipBlanks(cell);
  int left = CountNonBlanks(at);
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
  NumberMarks marks;
  for (; left > 0; --left, ++at)
  {
    if (!marks.Count(*at))
    {
      return inp_Types::inp_STRING;
    }
  }
  return marks.Type();
}

bool inp_RawDataArrayImpl::IsNone(int i, int j) const { return IsNoneCell(Cell(i, j)); }

bool inp_RawDataArrayImpl::IsNoneCell(char const* cell) { return *SkipBlanks(cell) == '\0'; }

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

cow_String inp_RawDataArrayImpl::AsString(int i, int j) const { return TextOfCell(Cell(i, j)); }

cow_String inp_RawDataArrayImpl::TextOfCell(char const* cell)
{
  return inp_Utils::CleanedText(Trimmed(cell));
}

cow_String inp_RawDataArrayImpl::AsStringVerbatim(int i, int j) const
{
  return cow_String(Trimmed(Cell(i, j)));
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
  ncols[i] = DivideFrom(block, block + length, 1);
}

void inp_RawDataArrayImpl::SetCells(int i, NewCell const* cells, int count)
{
  VRXBasAssert(i >= 0 && i < nrows, "i >= 0 && i < nrows");
  VRXBasAssert(count == 0 || (cells[0].column >= 0 && cells[count - 1].column < ncols[i]),
               "j >= 0 && j < ncols[i]");
  char* const old = m_rows[i];
  Replacement const replacement = Measure(old, cells, count);
  if (replacement.fits)
  {
    WriteOver(old, cells, count);
    return;
  }
  std::size_t const length = RowLength(old, ncols[i]);
  m_rows[i] = RoomFor(length + static_cast<std::size_t>(replacement.growth));
  ncols[i] = WriteRow(m_rows[i], old, length, ncols[i], cells, count);
  mem_Free(old);
}

void inp_RawDataArrayImpl::Set(int i, int j, double value) { Set(i, j, cow_String(value)); }

void inp_RawDataArrayImpl::Set(int i, int j, int value) { Set(i, j, cow_String(value)); }

bool inp_RawDataArrayImpl::HasRowContinuation(int i) const { return IsNone(i, Cols(i) - 1); }

inp_RawDataArrayImpl* inp_RawDataArrayImpl::Copy() const { return new inp_RawDataArrayImpl(*this); }
