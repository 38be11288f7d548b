#pragma once

#include "inp_Visitor.h"

/// Frees the rows of *NODE, *ELEMENT, *NSET and *ELSET inside parts once the maps hold them, so
/// that a large part does not stay in memory twice.
///
/// Each keyword gets an empty array of the kind that it has when expanded. Rows that another copy
/// of the keyword shares go with that copy. Reports nothing, and does nothing at all where results
/// are to stay fit for the Lumen pre-processor.
class inp_KwdDataReleaseVisitor : public inp_Visitor
{
public:
  /// `releaseData` is the caller's word that the rows are not needed any more; nothing asks for it.
  inp_KwdDataReleaseVisitor(bool releaseData, bool lumenCompatible);

  bool LumenCompatible() const { return m_lumenCompatible; }

  void DefaultAction(inp_Keyword& keyword) override;
  void VisitElement(inp_Keyword& keyword) override;
  void VisitElset(inp_Keyword& keyword) override;
  void VisitNode(inp_Keyword& keyword) override;
  void VisitNset(inp_Keyword& keyword) override;

private:
  template <class Rows>
  void Release(inp_Keyword& keyword);

  bool m_lumenCompatible;
};
