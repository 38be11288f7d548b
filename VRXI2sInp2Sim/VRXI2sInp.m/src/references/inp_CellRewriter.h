#pragma once

#include "inp_Columns.h"
#include "inp_Keyword.h"
#include "inp_RawDataArrayImpl.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <vector>

/// Puts new texts into the data lines of a keyword: each row is gone through once, and built anew
/// at most once, however many of its fields change. A keyword whose rows are kept as numbers has no
/// rows here.
class inp_CellRewriter
{
public:
  explicit inp_CellRewriter(inp_Keyword const& keyword)
    : m_data(keyword.data), m_rows(dynamic_cast<inp_RawDataArrayImpl*>(&m_data.Impl()))
  {
  }

  int Rows() const { return m_rows != nullptr ? m_rows->Rows() : 0; }
  int Cols(int row) const { return m_rows->Cols(row); }

  /// For each chosen cell of a row of which `wants` says yes (it sees the cell as stored), `fix`
  /// makes a text of the cell's text. Cells whose text stays are not touched.
  template <class Wants, class Fix>
  void Row(int row, inp_Columns const& columns, Wants const& wants, Fix const& fix)
  {
    m_changed.clear();
    int const end = std::min(Cols(row), columns.IsAll() ? INT_MAX : columns.End());
    char const* cell = m_rows->RowText(row);
    for (int column = 0; column < end; ++column)
    {
      if (columns.Has(column) && wants(cell))
      {
        cow_String const text = inp_RawDataArrayImpl::TextOfCell(cell);
        cow_String const fixed = fix(text);
        if (!(fixed == text))
        {
          m_changed.push_back({column, fixed});
        }
      }
      cell = column + 1 < end ? cell + std::strlen(cell) + 1 : cell;
    }
    if (!m_changed.empty())
    {
      m_rows->SetCells(row, m_changed.data(), static_cast<int>(m_changed.size()));
    }
  }

  /// The cell at a row and a column, when there is one.
  template <class Fix>
  void One(int row, int column, Fix const& fix)
  {
    if (row >= 0 && row < Rows())
    {
      int at = 0;
      Row(
        row, inp_Columns::All(), [&](char const*) { return at++ == column; }, fix);
    }
  }

  /// Row for every `step`-th row of [first, end).
  template <class Wants, class Fix>
  void EveryRow(int first, int end, int step, inp_Columns const& columns, Wants const& wants,
                Fix const& fix)
  {
    for (long long row = first; step > 0 && row < std::min(end, Rows()); row += step)
    {
      Row(static_cast<int>(row), columns, wants, fix);
    }
  }

private:
  inp_DataArray m_data; // keeps the rows, whatever becomes of the keyword
  inp_RawDataArrayImpl* m_rows;
  std::vector<inp_RawDataArrayImpl::NewCell> m_changed;
};

/// Stores a parameter's new text, unless it is the old one. Its type is told anew.
template <class Fix>
void inp_RewriteParameter(inp_Keyword& keyword, cow_String const& name, Fix const& fix)
{
  inp_Item const* const item = keyword.parameters.ConstFind(name);
  if (item == nullptr)
  {
    return;
  }
  cow_String const text = item->AsString();
  cow_String const fixed = fix(text);
  if (!(fixed == text))
  {
    inp_Item const told(fixed);
    keyword.parameters.Insert(name,
                              told.Type() != inp_Types::inp_NONE ? told : inp_Item::Text(fixed));
  }
}
