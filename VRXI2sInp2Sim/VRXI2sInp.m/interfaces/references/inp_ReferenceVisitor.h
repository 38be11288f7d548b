#pragma once

#include "inp_KeywordEnmFwd.h"
#include "inp_ParserExceptions.h"
#include "inp_ReferencePlace.h"
#include "inp_Visitor.h"

#include <climits>
#include <functional>

class inp_CellRewriter;

/// What the walks over references have in common: a table says where a keyword names something, and
/// one operation of the derived class what becomes of a name.
///
/// Only what may be a name comes to that operation: no blank field, no parameter without a value, no
/// real number; integers only where labels may stand (see TakesNumbers).
///
/// A field goes in as its AsString text: upper case, no blanks. A text that comes back as it went in
/// changes nothing; else the row is rewritten once, with all that changed in it. Rows kept as
/// numbers name nothing and are passed over.
class inp_ReferenceVisitor : public inp_Visitor
{
public:
  /// The keyword's handler, and then the places of inp_FurtherReferences.def.
  void Visit(inp_Keyword& keyword) override;
  void DefaultAction(inp_Keyword&) override {}

protected:
  /// The text that is to stand in place of a name.
  using Fix = std::function<cow_String(cow_String const&)>;

  /// Fields of data lines; rows and columns count from 0.
  struct Fields
  {
    inp_Columns columns;
    int firstRow = 0;
    int endRow = INT_MAX;
    int rowStep = 1;     ///< below 1 none is touched
    int fewest = 1;      ///< shorter rows are passed over
    bool isText = false; ///< integers stay
    /// Of a row, whether the next one continues it and is passed over; may be null.
    bool (*goesOn)(inp_CellRewriter const& cells, int row) = nullptr;
  };

  /// What the walk rewrites the names of; other places of its tables stay.
  virtual bool Serves(inp_referenceEnm what) const = 0;
  /// An integer may stand in place of a name.
  virtual bool TakesNumbers() const { return true; }
  /// Makes of a field, in its row, what the operation on names would make of it, without a text.
  /// False leaves the field to that operation. The cell is as stored, closed by NUL; it keeps its
  /// length, so a name that is shorter has blanks behind it.
  virtual bool RewriteInPlace(char*) { return false; }
  /// A character without which a field stays as it is; NUL when there is none.
  virtual char NameMark() const { return '\0'; }

  /// Rewrites the places that count, up to the one that names nothing.
  void ReplacePlaces(inp_Keyword& keyword, inp_ReferencePlace const* place);
  virtual void ReplacePlace(inp_Keyword& keyword, inp_ReferencePlace const& place) = 0;

  // All names go through these two.
  void RewriteFields(inp_Keyword& keyword, Fields const& fields, Fix const& fix);
  /// An absent parameter is passed over.
  void RewriteParameter(inp_Keyword& keyword, cow_String const& name, Fix const& fix);

  /// What `fix` gives; when it raises a fault, the fault is reported and `value` stays. Memory
  /// failures and inp_ElementUndefinedNodesError leave the walk.
  template <class Fixing>
  cow_String FixedOrReported(inp_Keyword const& keyword, cow_String const& value, Fixing const& fix)
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
      ReportFault(FaultMessage(keyword, value, fault.Value()), value);
    }
    return value;
  }
  virtual atr_String FaultMessage(inp_Keyword const& keyword, cow_String const& /*name*/,
                                  atr_String const& fault) const
  {
    return inp_Utils::MessageInKeyword(keyword, fault);
  }
  /// Where the name stands that is being rewritten: "field 3 of data line 1", "ORIENTATION"; empty
  /// outside of the two operations above.
  cow_String PlaceAtWork() const;

private:
  bool MayBeName(inp_Item const& item) const;
  bool MayBeName(char const* cell, bool isText) const;
  void ReportFault(atr_String message, cow_String const& name);

  /// Where the name stands that is being rewritten; fields count from 1, 0 when there is none.
  struct
  {
    cow_String parameter;
    int line = 0;
    int field = 0;
  } m_place;
};
