#pragma once

#include "inp_CharacterWord.h"
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
  /// Where `mark` is not NUL, rows that have it nowhere may stay as they are.
  explicit inp_CellRewriter(inp_Keyword const& keyword, char mark = '\0')
    : m_data(keyword.data),
      m_rows(dynamic_cast<inp_RawDataArrayImpl*>(&m_data.Impl())),
      m_mark(mark)
  {
  }

  int Rows() const { return m_rows != nullptr ? m_rows->Rows() : 0; }
  int Cols(int row) const { return m_rows->Cols(row); }
  /// A cell that is there, as it is stored.
  char const* Cell(int row, int column) const
  {
    char const* cell = m_rows->RowText(row);
    for (; column > 0; --column)
    {
      cell += std::strlen(cell) + 1;
    }
    return cell;
  }

  /// For each chosen cell of a row of which `wants` says yes, `fix` makes a text of the cell's text.
  /// Cells whose text stays are not touched. `wants` sees the cell as stored, and may rewrite it
  /// there and say no.
  template <class Wants, class Fix>
  void Row(int row, inp_Columns const& columns, Wants const& wants, Fix const& fix)
  {
    // The scan pays only where all columns are chosen.
    if (m_mark != '\0' && columns.IsAll() && !HasMark(row))
    {
      return;
    }
    m_changed.clear();
    int const end = std::min(Cols(row), columns.IsAll() ? INT_MAX : columns.End());
    char* cell = m_rows->RowText(row);
    for (int column = 0; column < end; ++column)
    {
      if (columns.Has(column) && wants(cell))
      {
        m_row = row;
        m_column = column;
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

  /// While `fix` works.
  int CurrentRow() const { return m_row; }
  int CurrentColumn() const { return m_column; }

private:
  // A row is whole words, with NUL behind its last cell.
  bool HasMark(int row) const
  {
    char const* at = m_rows->RowText(row);
    for (int cells = Cols(row); cells > 0; at += c_charactersOfWord)
    {
      inp_CharacterWord const word = inp_LoadWord(at);
      if (inp_Zeros(word ^ inp_Each(m_mark)) != 0)
      {
        return true;
      }
      cells -= inp_CountOf(inp_Zeros(word));
    }
    return false;
  }

  inp_DataArray m_data; // keeps the rows, whatever becomes of the keyword
  inp_RawDataArrayImpl* m_rows;
  char m_mark;
  int m_row = 0;
  int m_column = 0;
  std::vector<inp_RawDataArrayImpl::NewCell> m_changed;
};
