#pragma once

#include "inp_DataArray.h"
#include "inp_ElementFamily.h"

#include <vector>

class inp_ElementDataArrayImpl;
class inp_RawDataArrayImpl;

/// Walks the rows of *ELEMENT, an element at a time.
///
///     1, n1 ... n15,         a last blank field says that the element goes on in the next row
///     n16 ... n20
///     2, ...
///
/// Even behind such a field a row begins a new element, when the nodes so far are enough for the type and it
/// would bring more than the type takes. Blank rows at the end are ignored. Rows are read in the form in
/// which they are kept, as numbers or as text, and have the same faults in both. Among numbers a 0 is a
/// blank field: rows in which the deck itself has a 0 are kept as text.
///
///     inp_ElementRows rows(keyword.data, family, inp_ElementRows::c_checked, c_dropBlanks);
///     while (rows.Next())
///       if (rows.LabelState() == inp_ElementRows::c_good && rows.Fault() == c_noFault) ...
class inp_ElementRows
{
public:
  enum checkEnm
  {
    c_checked,  ///< node labels are 1 to 999999999
    c_asTheyAre ///< fields are taken as numbers, whatever they are
  };
  enum blankEnm
  {
    c_dropBlanks,
    c_markBlanks ///< a blank optional node becomes c_blankMark
  };
  enum labelEnm
  {
    c_good,
    c_labelNotInteger,
    c_labelNotPositive
  };
  enum faultEnm
  {
    c_noFault,
    c_notInteger,          ///< or blank
    c_notIntegerContinued, ///< on a row behind the first one
    c_negative,
    c_zero
  };
  /// Stands for a blank optional node.
  static constexpr int c_blankMark = -91440;

  /// The data must live, and stay as they are, as long as this.
  inp_ElementRows(inp_DataArray const& data, inp_ElementFamily const& family, checkEnm check,
                  blankEnm blanks);

  /// Goes to the next element, at first to the first one; false behind the last.
  bool Next();

  labelEnm LabelState() const { return m_labelState; }
  int Label() const { return m_label; }
  /// The nodes, at most as many as the type takes. Good until Next; the caller may change them.
  std::vector<int>& Nodes() { return m_nodes; }
  /// The number of nodes given, those included that the type does not take.
  int GivenNodes() const { return static_cast<int>(m_nodes.size()) + m_surplus; }
  /// What is wrong in the nodes: the first fault.
  faultEnm Fault() const { return m_fault; }
  /// The field with that fault, as text; empty for a blank one.
  cow_String FaultText() const;

private:
  struct Row
  {
    int const* cells;
    int count; ///< without the field that says that the element goes on
    bool goesOn;
  };

  int LastRow() const;
  bool IsBlankRow(int row) const;
  int FieldsOfRow(int row) const;
  Row ReadRow(int row);
  Row ReadText(int row, int columns);
  Row ReadAnyForm(int row, int columns);
  void ReadLabel(Row const& row);
  bool IsBlankCell(int cell) const;
  void ReadContinuation(bool goesOn);
  bool LacksConnectorNode() const;
  void AddNodes(Row const& row, int from, int rowNumber);
  void AddNode(int cell, int row, int column);
  void SetFault(faultEnm fault, int row, int column);

  inp_DataArray const& m_data;
  inp_ElementDataArrayImpl const* m_numbers; ///< the rows, when they are kept in this form
  inp_RawDataArrayImpl const* m_texts;       ///< likewise
  inp_ElementFamily m_family;
  bool m_isChecked;
  bool m_marksBlanks;
  int m_rowCount;
  int m_row = 0; ///< the one to be read next
  std::vector<int> m_cells;
  std::vector<int> m_nodes;
  int m_surplus = 0;
  int m_label = 0;
  labelEnm m_labelState = c_good;
  faultEnm m_fault = c_noFault;
  int m_firstRow = 0; ///< of the element
  int m_faultRow = 0;
  int m_faultColumn = 0;
};
