#pragma once

#include "inp_Visitor.h"

/// Checks names and titles for well-formed UTF-8 before they travel to files that must be.
///
/// Produces: titles of the model and of its steps that are not well-formed become empty. Only the
///           first line of a title is read.
/// Reports:  an error for each name that is not well-formed, which stays; a warning, without the
///           keyword's title, for each title removed.
class inp_Utf8ValidityVisitor : public inp_Visitor
{
public:
  /// The keyword's "name".
  void DefaultAction(inp_Keyword& keyword) override;

  void VisitCoupling(inp_Keyword& keyword) override;
  void VisitElset(inp_Keyword& keyword) override;
  void VisitHeading(inp_Keyword& keyword) override;
  void VisitMaterial(inp_Keyword& keyword) override;
  void VisitNset(inp_Keyword& keyword) override;
  void VisitStep(inp_Keyword& keyword) override;

  /// The text is not well-formed; an empty one is.
  static bool IsBad(cow_String const& text);
  /// Tells whether a parameter's value is bad, and reports it.
  bool IsParameterValueBad(inp_Keyword const& keyword, cow_String const& name,
                           cow_String const& value);
  /// The same for the keyword's "name"; a keyword without one has no bad one.
  bool CheckNameParameterValue(inp_Keyword const& keyword);

private:
  bool CheckParameterValue(inp_Keyword const& keyword, cow_String const& name);
  void CheckTitle(inp_Keyword& keyword, atr_MessageRow<0> const& row);
};
