#include "inp_ElementRows.h"

#include "inpM_LabelRange.h"
#include "inp_ElementDataArrayImpl.h"
#include "inp_Numbers.h"
#include "inp_RawDataArrayImpl.h"

#include <cstring>

namespace
{

// What stands for a cell that is no number: values that no label has.
constexpr int c_blankCell = INT_MIN + 1;
constexpr int c_badCell = INT_MIN;
constexpr int c_longestLabel = 9;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

/// The number in a cell, and where the cell ends.
int ReadCell(char const* cell, char const*& end)
{
  char const* at = cell;
  while (IsBlank(*at))
  {
    ++at;
  }
  char const* const digits = at;
  int value = 0;
  for (unsigned digit;
       at - digits < c_longestLabel && (digit = static_cast<unsigned>(*at) - '0') <= 9; ++at)
  {
    value = 10 * value + static_cast<int>(digit);
  }
  char const* const last = at;
  while (IsBlank(*at))
  {
    ++at;
  }
  if (*at == '\0')
  {
    end = at;
    return last == digits ? c_blankCell : value;
  }
  end = at + std::strlen(at);
  return inp_RawDataArrayImpl::TypeOfCell(cell) == inp_Types::inp_INTEGER ? inp_TextToInt(cell)
                                                                          : c_badCell;
}

bool IsInteger(int cell) { return cell <= inpM_largestLabel && cell >= -inpM_largestLabel; }

} // namespace

inp_ElementRows::inp_ElementRows(inp_DataArray const& data, inp_ElementFamily const& family,
                                 checkEnm check, blankEnm blanks)
  : m_data(data),
    m_numbers(dynamic_cast<inp_ElementDataArrayImpl const*>(&data.Impl())),
    m_texts(dynamic_cast<inp_RawDataArrayImpl const*>(&data.Impl())),
    m_family(family),
    m_isChecked(check == c_checked),
    m_marksBlanks(blanks == c_markBlanks),
    m_rowCount(LastRow())
{
}

int inp_ElementRows::LastRow() const
{
  int rows = m_data.Rows();
  while (rows > 0 && IsBlankRow(rows - 1))
  {
    --rows;
  }
  return rows;
}

bool inp_ElementRows::IsBlankRow(int row) const
{
  int const columns = m_data.Cols(row);
  return columns == 0 || (columns == 1 && m_data.IsNone(row, 0));
}

int inp_ElementRows::FieldsOfRow(int row) const
{
  int const columns = m_data.Cols(row);
  return columns == 0 ? 0 : columns - static_cast<int>(m_data.HasRowContinuation(row));
}

inp_ElementRows::Row inp_ElementRows::ReadRow(int row)
{
  int const columns = m_data.Cols(row);
  if (columns == 0)
  {
    return {nullptr, 0, false};
  }
  if (m_numbers != nullptr)
  {
    int const* const cells = m_numbers->RowCells(row);
    bool const goesOn = cells[columns - 1] == 0;
    return {cells, columns - static_cast<int>(goesOn), goesOn};
  }
  return m_texts != nullptr ? ReadText(row, columns) : ReadAnyForm(row, columns);
}

inp_ElementRows::Row inp_ElementRows::ReadText(int row, int columns)
{
  m_cells.resize(static_cast<std::size_t>(columns));
  char const* text = m_texts->RowText(row);
  for (int& cell : m_cells)
  {
    cell = ReadCell(text, text);
    ++text;
  }
  bool const goesOn = m_cells.back() == c_blankCell;
  return {m_cells.data(), columns - static_cast<int>(goesOn), goesOn};
}

inp_ElementRows::Row inp_ElementRows::ReadAnyForm(int row, int columns)
{
  m_cells.clear();
  for (int column = 0; column < columns; ++column)
  {
    inp_Types::typeEnm const type = m_data.Type(row, column);
    m_cells.push_back(type == inp_Types::inp_INTEGER ? m_data.AsInt(row, column)
                      : type == inp_Types::inp_NONE  ? c_blankCell
                                                     : c_badCell);
  }
  bool const goesOn = m_cells.back() == c_blankCell;
  return {m_cells.data(), columns - static_cast<int>(goesOn), goesOn};
}

bool inp_ElementRows::Next()
{
  if (m_row >= m_rowCount)
  {
    return false;
  }
  m_nodes.clear();
  m_surplus = 0;
  m_fault = c_noFault;
  m_firstRow = m_row;
  Row const row = ReadRow(m_row++);
  ReadLabel(row);
  AddNodes(row, 1, m_firstRow);
  if (row.goesOn && row.count > 0)
  {
    ReadContinuation(true);
  }
  return true;
}

void inp_ElementRows::ReadLabel(Row const& row)
{
  int const cell = row.count == 0 || IsBlankCell(row.cells[0]) ? c_blankCell : row.cells[0];
  m_labelState = !IsInteger(cell) ? c_labelNotInteger : cell < 1 ? c_labelNotPositive : c_good;
  m_label = m_labelState == c_good ? cell : 0;
}

// A row that ends in a comma goes on in the next one. For a connector the comma may also mean that
// its second node is left out, as in "7, 3,": that node is 0, and the next row is another element.
void inp_ElementRows::ReadContinuation(bool goesOn)
{
  if (LacksConnectorNode())
  {
    m_nodes.push_back(0);
  }
  while (goesOn && m_row < m_rowCount && GivenNodes() < m_family.maxNodes)
  {
    bool const exceeds = FieldsOfRow(m_row) > m_family.maxNodes - GivenNodes();
    if (exceeds && GivenNodes() >= m_family.minNodes)
    {
      return;
    }
    Row const row = ReadRow(m_row);
    AddNodes(row, 0, m_row++);
    goesOn = row.goesOn;
  }
}

bool inp_ElementRows::IsBlankCell(int cell) const
{
  return cell == c_blankCell || (cell == 0 && m_numbers != nullptr);
}

cow_String inp_ElementRows::FaultText() const
{
  return m_data.IsNone(m_faultRow, m_faultColumn) ? cow_String()
                                                  : m_data.AsString(m_faultRow, m_faultColumn);
}

bool inp_ElementRows::LacksConnectorNode() const
{
  if (m_family.kind != inp_ElementFamily::c_connector || GivenNodes() >= m_family.minNodes)
  {
    return false;
  }
  return GivenNodes() > 0 || m_row >= m_rowCount || FieldsOfRow(m_row) > m_family.maxNodes;
}

void inp_ElementRows::AddNodes(Row const& row, int from, int rowNumber)
{
  for (int column = from; column < row.count; ++column)
  {
    int const cell = row.cells[column];
    if (inpM_IsLabel(cell) && static_cast<int>(m_nodes.size()) < m_family.maxNodes)
    {
      m_nodes.push_back(cell);
    }
    else
    {
      AddNode(cell, rowNumber, column);
    }
  }
}

/// Takes in a field that is no label, or that is more than the type takes.
void inp_ElementRows::AddNode(int cell, int row, int column)
{
  bool const isConnector = m_family.kind == inp_ElementFamily::c_connector;
  bool const isBlank = IsBlankCell(cell);
  int const index = static_cast<int>(m_nodes.size());
  if (index >= m_family.maxNodes)
  {
    m_surplus += isBlank || cell == 0 ? 0 : 1;
  }
  else if (isBlank && m_family.kind == inp_ElementFamily::c_midface && index >= m_family.minNodes)
  {
    if (m_marksBlanks)
    {
      m_nodes.push_back(c_blankMark);
    }
  }
  else if (isConnector && (isBlank || cell == 0))
  {
    m_nodes.push_back(0);
  }
  else if (!m_isChecked)
  {
    m_nodes.push_back(cell == c_blankCell || cell == c_badCell ? m_data.AsInt(row, column) : cell);
  }
  else if (isBlank || !IsInteger(cell))
  {
    SetFault(row == m_firstRow ? c_notInteger : c_notIntegerContinued, row, column);
  }
  else
  {
    SetFault(cell < 0 ? c_negative : c_zero, row, column);
  }
}

void inp_ElementRows::SetFault(faultEnm fault, int row, int column)
{
  m_nodes.push_back(0);
  if (m_fault == c_noFault)
  {
    m_fault = fault;
    m_faultRow = row;
    m_faultColumn = column;
  }
}
