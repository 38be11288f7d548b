#pragma once

#include "inp_ElementVisitor.h"

#include <vector>

class inp_NodeNumbers;

/// Reads the elements of the assembly itself, which connect instances.
///
///     *ELEMENT, TYPE=CONN3D2, ELSET=JOINTS
///     1, WHEEL-1.5, 12                       node 5 of WHEEL-1, node 12 of the assembly
///
/// The walk reads the rows, once. Nodes of instances are known when all levels have been read, so a step
/// behind the walk finds them:
///
///     visitor.VisitList(keywords);       // elements with their types, without nodes
///     visitor.PutNumbers(numbers);       // those whose nodes are there, and no others
///
/// Needs:    for the second step, the nodes of the assembly and of all instances. Parts, instances and
///           keywords of other kinds are passed over, so both a whole organized list and one of the
///           keywords alone will do.
/// Produces: elements at the top level, whose nodes are numbers across the model. The sets that their
///           keywords name are for the reader of sets to make.
/// Reports:  types that may not stand here, each fault of a row, and nodes that are not there, with the
///           keyword's place. An element that is reported is left out, but for a wrong number of nodes.
class inp_AssyLevelElemVisitor : public inp_ElementVisitor
{
public:
  inp_AssyLevelElemVisitor() : inp_ElementVisitor(true) {}

  void Visit(inp_Keyword& keyword) override;
  void VisitElement(inp_Keyword& keyword) override { VisitElementImpl(keyword); }

  /// As the walk reads an *ELEMENT, for another walk that comes to one. `assemblyName` may stand in front of
  /// the names of instances.
  void ReadElements(inp_Keyword const& keyword, cow_String const& assemblyName);
  /// What the last *ELEMENT brings into the set that it names.
  cow_List<int> const& LabelsOfSet() const { return m_labelsOfSet; }

  /// Appends all that has been said to lists of another visitor, which reports it in their order.
  void MoveMessages(cow_List<atr_String>& warnings, cow_List<atr_String>& errors);

  /// Gives the elements that have been read their nodes, and takes out those that name one which is not
  /// there.
  void PutNumbers(inp_NodeNumbers& numbers);
  /// Then, the labels of rows that have brought no element.
  cow_List<int> LeftOut();

  /// Types that may stand at assembly level: connectors, springs, dashpots, masses, rotary inertias and
  /// heat capacitances, by their names.
  static bool MayStandInAssembly(cow_String const& type);

protected:
  void VisitElementImpl(inp_Keyword& keyword);

  /// A field that is no plain label.
  struct Item
  {
    cow_String text;
    inp_Types::typeEnm type;
  };
  struct Row
  {
    int label;
    int nodes; ///< places in ReadKeyword::nodes
    int given;
  };
  /// A keyword's elements before their nodes are found.
  struct ReadKeyword
  {
    inp_Keyword keyword;
    Definition definition;
    cow_String assemblyName;
    std::vector<Item> items;
    std::vector<Row> rows;
    std::vector<int>
      nodes; ///< labels of the assembly; for an item the negative of its place, from 1
  };

  /// The number of the node that an item names as instance.label; false, with an error, when it names
  /// none.
  bool GetGlobalNodeFromScopedID(cow_String const& item, ReadKeyword const& read,
                                 inp_NodeNumbers& numbers, int& node);

private:
  bool ReadAssemblyDefinition(inp_Keyword const& keyword, Definition& definition);
  void ReadRows(ReadKeyword& read);
  void AddRow(ReadKeyword& read, inp_ElementRows& rows);
  bool CheckRow(inp_Keyword const& keyword, Definition const& definition, inp_ElementRows& rows);
  void PutNumbers(ReadKeyword const& read, inp_NodeNumbers& numbers);
  bool ResolveNode(ReadKeyword const& read, int label, inp_NodeNumbers& numbers, int& node);
  bool ResolveItem(ReadKeyword const& read, int label, inp_NodeNumbers& numbers, int& node);
  static inp_DataArray WithItemsNumbered(inp_DataArray const& data, std::vector<Item>& items);

  std::vector<ReadKeyword> m_read;
  cow_List<int> m_labelsOfSet;
  cow_List<int> m_leftOut; ///< by a row; another one may bring the element
};
