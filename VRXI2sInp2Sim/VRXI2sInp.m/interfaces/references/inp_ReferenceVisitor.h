#pragma once

#include "inp_KeywordEnmFwd.h"
#include "inp_ParserExceptions.h"
#include "inp_ReferencePlace.h"
#include "inp_Visitor.h"

/// What the walks over references have in common: a table says where a keyword names something, and
/// one operation of the derived class what becomes of a name.
///
/// A field goes in as its AsString text: upper case, no blanks. A text that comes back as it went in
/// changes nothing; else the row is rewritten once, with all that changed in it. Rows kept as
/// numbers name nothing and are passed over.
class inp_ReferenceVisitor : public inp_Visitor
{
public:
  void DefaultAction(inp_Keyword&) override {}

protected:
  /// Makes of a field, in its row, what the operation on names would make of it, without a text.
  /// False leaves the field to that operation. The cell is as stored, closed by NUL; it keeps its
  /// length, so a name that is shorter has blanks behind it.
  virtual bool RewriteInPlace(char*) { return false; }
  /// A character without which a field stays as it is; NUL when there is none.
  virtual char NameMark() const { return '\0'; }

  /// Rewrites the places that count, up to the one that names nothing.
  void ReplacePlaces(inp_Keyword& keyword, inp_ReferencePlace const* place);
  virtual void ReplacePlace(inp_Keyword& keyword, inp_ReferencePlace const& place) = 0;

  /// What `fix` gives; when it raises a fault, the fault is reported and `value` stays. Memory
  /// failures and inp_ElementUndefinedNodesError leave the walk.
  template <class Fix>
  cow_String FixedOrReported(inp_Keyword const& keyword, cow_String const& value, Fix const& fix)
  {
    try
    {
      return fix();
    }
    catch (inp_MemoryException const&)
    {
      throw;
    }
    catch (inp_ElementUndefinedNodesError const&)
    {
      throw;
    }
    catch (nex_AtrException const& fault)
    {
      m_errorList.Append(FaultMessage(keyword, fault.Value()));
    }
    return value;
  }
  virtual atr_String FaultMessage(inp_Keyword const& keyword, atr_String const& fault) const
  {
    return inp_Utils::MessageInKeyword(keyword, fault);
  }
};
