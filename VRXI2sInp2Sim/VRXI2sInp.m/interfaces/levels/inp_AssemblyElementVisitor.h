#pragma once

#include "inp_AssyLevelElemVisitor.h"
#include "inp_LevelMaps.h"

/// Reads what stands outside of *PART: elements and element sets within instances, and sets of the
/// assembly.
///
/// Needs:    a list that is organized; the elements, element sets and user types of the parts.
/// Produces: for each instance a share of its part's elements and element sets, and what is new. An
///           instance costs O(1) until it gets elements of its own; then it has a table of its own.
///           Elements of the assembly itself are read by inp_AssyLevelElemVisitor. They name nodes of
///           instances, so they have none until PutNumbers.
/// Reports:  an instance that defines an element set of its part again, and what is wrong in the rows of
///           elements of the assembly. Nodes of theirs that are not there PutNumbers reports.
class inp_AssemblyElementVisitor : public inp_ElementVisitor
{
public:
  inp_AssemblyElementVisitor(inp_PartMaps const& parts, bool computesConnectivity);

  /// The *ELEMENT keywords of the assembly itself, in deck order.
  cow_List<inp_Keyword> const& GetKeywords() const { return m_keywords; }

  /// Behind the walk, when all nodes are there: gives the elements of the assembly their nodes, reports
  /// nodes that are not there, and takes elements that are left out from the sets of the assembly.
  void PutNumbers(inp_NodeNumbers& numbers);

  void Visit(inp_Keyword& keyword) override;
  void VisitInstance(inp_Keyword& keyword) override;
  void VisitEndInstance(inp_Keyword& keyword) override;
  void VisitElement(inp_Keyword& keyword) override;

protected:
  bool MayChangeSet(inp_Keyword const& keyword, cow_String const& name) override;
  bool IsValidInstanceName(cow_String const& name) const override { return IsInstance(name); }

private:
  void ReadOwnElements(inp_Keyword const& keyword);

  inpM_InstanceMap<inp_MapInt2Element> m_partElements;
  inpM_SetMap m_partElementSets;
  cow_List<inp_Keyword> m_keywords;
  inp_AssyLevelElemVisitor m_own; ///< reads the elements of the assembly itself
};
