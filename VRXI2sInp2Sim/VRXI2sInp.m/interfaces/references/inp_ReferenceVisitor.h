#pragma once

#include "inp_KeywordEnmFwd.h"
#include "inp_ParserExceptions.h"
#include "inp_PlaceRules.h"
#include "inp_Reference.h"
#include "inp_Visitor.h"

#include <functional>
#include <memory>
#include <unordered_map>

class inp_ReferenceAnswers;

/// What the walks that rewrite references have in common: tables say where a keyword names something, and
/// one operation of the derived class, FixupReference, says what becomes of a name. Who only wants to know
/// the names calls inp_ForEachReference.
///
/// Only what may be a name comes to FixupReference: no blank field, no parameter without a value, no real
/// number; integers only where labels may stand. A name comes as its AsString text: upper case, no blanks. A
/// text that comes back as it went in changes nothing; else the row is rewritten once, with all that changed
/// in it. Rows kept as numbers name nothing and are passed over.
///
/// Handles on the same rows see what becomes of them: a list in which several keywords have the same rows
/// gets them rewritten once, by the first of these keywords. A keyword that is to differ needs its own rows
/// (inp_Keyword::DeepCopy) before the walk.
///
/// Reports:  what FixupReference raises, with the keyword's place and the name as its subject; the name
///           stays and the walk goes on with the next. Memory failures and inp_ElementUndefinedNodesError
///           leave the walk.
class inp_ReferenceVisitor : public inp_Visitor
{
public:
  inp_ReferenceVisitor();
  ~inp_ReferenceVisitor() override;
  inp_ReferenceVisitor(inp_ReferenceVisitor const&) = delete;
  inp_ReferenceVisitor& operator=(inp_ReferenceVisitor const&) = delete;

  void VisitList(cow_List<inp_Keyword>& list) override;
  /// The keyword's handler, and then the places of inp_FurtherReferences.def.
  void Visit(inp_Keyword& keyword) override;
  void DefaultAction(inp_Keyword&) override {}

protected:
  /// The text that is to stand in place of a name.
  virtual cow_String FixupReference(inp_Reference const& reference, cow_String const& name) = 0;
  /// What FixupReference says follows from the name, what it names and the scope alone: then it is asked
  /// once for fields that are alike.
  virtual bool AnswersByName() const { return false; }

  /// What the walk rewrites the names of; other places of its tables stay.
  virtual bool Serves(inp_referenceEnm what) const = 0;
  /// An integer may stand in place of a name.
  virtual bool TakesNumbers() const { return true; }
  /// Makes of a field, in its row, what FixupReference would make of it, without a text. False leaves the
  /// field to FixupReference. The cell is as stored, closed by NUL; it keeps its length, so a name that is
  /// shorter has blanks behind it.
  virtual bool RewriteInPlace(char*) { return false; }
  /// A character without which a field stays as it is; NUL when there is none.
  virtual char NameMark() const { return '\0'; }

  /// Rewrites the places that count, up to the one that names nothing.
  void ReplacePlaces(inp_Keyword& keyword, inp_ReferencePlace const* place);
  /// Hands a place to the operations of the family. What these do not say of it, such as its lines and its
  /// kind, holds for the fields that they rewrite meanwhile.
  virtual void ReplacePlace(inp_Keyword& keyword, inp_ReferencePlace const& place) = 0;
  /// Where steps follow from the model.
  virtual inp_ModelParameters const* Model() const { return nullptr; }

  /// The text that is to stand in place of a name: by way of the operations of the family to Fixed.
  using Fix = std::function<cow_String(cow_String const&)>;
  // All names go through these two. An absent parameter is passed over.
  void RewriteFields(inp_Keyword& keyword, inp_Fields const& fields, Fix const& fix);
  void RewriteParameter(inp_Keyword& keyword, cow_String const& name, Fix const& fix);

  /// The name that is being rewritten, of a place of the tables or another one of the same kind.
  inp_Reference AtWork(inp_Keyword const& keyword, inp_referenceEnm what = inp_noReference) const;
  /// What FixupReference makes of it, or the name itself when it raises a fault, which is reported.
  cow_String Fixed(inp_Reference const& reference, cow_String const& name);
  virtual atr_String FaultMessage(inp_Reference const& reference, cow_String const& name,
                                  atr_String const& fault) const;

private:
  inp_Fields WithinPlace(inp_Keyword const& keyword, inp_Fields fields) const;
  cow_String const* FixCell(char* cell, bool isText, Fix const& fix);
  bool HasRowsBehind(inp_Keyword const& keyword);

  inp_ReferencePlace const* m_place = nullptr; ///< of the tables, while it is rewritten
  inp_Reference m_at;                          ///< the name that is being rewritten
  bool m_hasFault = false;                     ///< of the name at work
  cow_String m_fixed;                          ///< of the last field
  std::unique_ptr<inp_ReferenceAnswers> m_answers;
  bool m_isKept = false;      ///< answers for the fields at hand are
  bool m_isList = false;      ///< the walk is over a list
  bool m_areRowsDone = false; ///< those of the keyword at hand
  std::unordered_map<inp_DataArrayImpl const*, inp_DataArray>
    m_sharedRows; ///< that have been rewritten
};
