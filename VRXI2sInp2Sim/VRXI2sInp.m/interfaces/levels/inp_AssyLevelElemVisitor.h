#pragma once

#include "inpM_IdMap.h"
#include "inp_ElementVisitor.h"

#include <vector>

/// Reads the elements of the assembly itself, which connect instances.
///
///     *ELEMENT, TYPE=CONN3D2, ELSET=JOINTS
///     1, WHEEL-1.5, 12                       node 5 of WHEEL-1, node 12 of the assembly
///
/// Needs:    the numbers of the nodes: of the assembly, and by instance. Parts, instances and keywords of
///           other kinds are passed over, so both a whole organized list and one of the keywords alone will
///           do.
/// Produces: elements at the top level, whose nodes are the numbers, and element sets of the assembly. An
///           element with a node that cannot be found is left out.
/// Reports:  types that may not stand here, and each fault of a row, with its keyword's place.
class inp_AssyLevelElemVisitor : public inp_ElementVisitor
{
public:
  explicit inp_AssyLevelElemVisitor(inpM_IdMap const& nodeIdMap)
    : inp_ElementVisitor(true), m_nodeIds(nodeIdMap)
  {
  }

  void Visit(inp_Keyword& keyword) override;
  void VisitElement(inp_Keyword& keyword) override { VisitElementImpl(keyword); }

  /// Types that may stand at assembly level: connectors, springs, dashpots, masses, rotary inertias and
  /// heat capacitances, by their names.
  static bool MayStandInAssembly(cow_String const& type);

protected:
  void VisitElementImpl(inp_Keyword& keyword);

  /// The number of the node that an item names as instance.label; false, with an error, when it names
  /// none.
  bool GetGlobalNodeFromScopedID(cow_String const& item, inp_Keyword const& keyword, int& node);

private:
  struct Item;
  struct Found;
  void ReadElement(inp_Keyword const& keyword, Definition const& definition, inp_ElementRows& rows,
                   Found& found);
  bool ResolveNodes(inp_Keyword const& keyword, Definition const& definition, int label,
                    std::vector<Item> const& items, std::vector<int>& nodes);
  bool ResolveItem(inp_Keyword const& keyword, Definition const& definition, int label,
                   Item const& item, int& node);
  bool GetAssemblyNode(inp_Keyword const& keyword, Definition const& definition, int& node);

  inpM_IdMap m_nodeIds;
};
