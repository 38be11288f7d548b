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

  /// Null where there are none of text.
  inp_RawDataArrayImpl const* Rows() const { return m_rows; }

  /// For each chosen cell of a row, `fix(column, cell)` gives the text that is to stand there, or null
  /// where the cell stays. It sees the cell as stored, and may rewrite it there within its length. The text
  /// is copied before the next call.
  template <class Fix>
  void Row(int row, inp_Columns const& columns, Fix const& fix)
  {
    // The scan pays only where all columns are chosen.
    if (m_mark != '\0' && columns.IsAll() && !HasMark(row))
    {
      return;
    }
    m_changed.clear();
    int const end = std::min(m_rows->Cols(row), columns.IsAll() ? INT_MAX : columns.End());
    char* cell = m_rows->RowText(row);
    for (int column = 0; column < end; ++column)
    {
      cow_String const* const text = columns.Has(column) ? fix(column, cell) : nullptr;
      if (text != nullptr)
      {
        m_changed.push_back({column, *text});
      }
      cell = column + 1 < end ? cell + std::strlen(cell) + 1 : cell;
    }
    if (!m_changed.empty())
    {
      m_rows->SetCells(row, m_changed.data(), static_cast<int>(m_changed.size()));
    }
  }

private:
  // A row is whole words, with NUL behind its last cell.
  bool HasMark(int row) const
  {
    char const* at = m_rows->RowText(row);
    for (int cells = m_rows->Cols(row); cells > 0; at += c_charactersOfWord)
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
  std::vector<inp_RawDataArrayImpl::NewCell> m_changed;
};
