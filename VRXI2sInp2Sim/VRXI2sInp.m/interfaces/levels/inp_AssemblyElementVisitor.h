#pragma once

#include "inp_ElementVisitor.h"

/// Reads what stands outside of *PART: elements and element sets within instances, and sets of the
/// assembly.
///
/// Needs:    a list that is organized; the elements and element sets of the parts.
/// Produces: for each instance a share of its part's elements and element sets, and what is new. An
///           instance costs O(1) until it gets elements of its own; then it has a table of its own.
///           Elements of the assembly itself are known by label, with their type and without nodes:
///           their keywords are set aside for inp_AssyLevelElemVisitor, since they name nodes of
///           instances, which are to be numbered first.
/// Reports:  an instance that defines an element set of its part again.
class inp_AssemblyElementVisitor : public inp_ElementVisitor
{
public:
  inp_AssemblyElementVisitor(inpM_InstanceMap<inp_MapInt2Element> const& partElements,
                             inpM_SetMap const& partElementSets, bool computesConnectivity);

  /// The keywords that were set aside, in deck order.
  cow_List<inp_Keyword> const& GetKeywords() const { return m_keywords; }

  void Visit(inp_Keyword& keyword) override;
  void VisitInstance(inp_Keyword& keyword) override;
  void VisitEndInstance(inp_Keyword& keyword) override;
  void VisitElement(inp_Keyword& keyword) override;
  void VisitElset(inp_Keyword& keyword) override;

protected:
  bool IsValidInstanceName(cow_String const& name) const override { return IsInstance(name); }

private:
  void SetAside(inp_Keyword const& keyword);

  inpM_InstanceMap<inp_MapInt2Element> m_partElements;
  inpM_SetMap m_partElementSets;
  cow_String m_part; ///< of the current instance
  cow_List<inp_Keyword> m_keywords;
};
