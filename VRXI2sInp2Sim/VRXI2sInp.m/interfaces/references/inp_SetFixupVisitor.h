#pragma once

#include "inpM_IdMap.h"
#include "inpM_SetMap.h"
#include "inp_Columns.h"
#include "inp_ReferenceVisitor.h"
#include "inp_SetType.h"

class inp_ModelParameters;

/// Finds every place where nodes, elements or their sets are named, and stores what FixupIdOrSet
/// makes of the name. The places stand in inp_SetReferences.def.
///
///     parameter, field  ->  ReplaceNodeOrNset...      ->  ReplaceIdOrSet...  ->  FixupIdOrSet
///                           ReplaceElementOrElset...
///
/// A derived class overrides FixupIdOrSet, or FixupReference, which knows more: whether nodes or elements
/// are named, and by which field.
class inp_SetFixupVisitor : public inp_ReferenceVisitor
{
public:
  /// The model parameters must live as long as the visitor.
  inp_SetFixupVisitor(inpM_SetMap const& itsNsets, inpM_SetMap const& itsElsets,
                      inpM_IdMap const& itsNodeIdMap, inpM_IdMap const& itsElementIdMap,
                      inp_ModelParameters const& itsModelParameters);

  void setLumenCompatible(bool value) { lumenCompatible = value; }
  bool LumenCompatible() const { return lumenCompatible; }

#define INP_PLACES_UNREACHED(stem, ...)
#define INP_PLACES(stem, ...) void Visit##stem(inp_Keyword& keyword) override;
#include "inp_SetReferences.def"

  /// The text that is to stand in place of `value`, a number or a name. The maps are those of nodes
  /// or of elements, the three names the walk's place; the parameter's name is empty for fields.
  /// Whole columns and single values come with their type, the rest as inp_anySet.
  virtual cow_String FixupIdOrSet(inp_Keyword const& keyword, cow_String const& value,
                                  inpM_SetMap const& setMap, inpM_IdMap const& idMap,
                                  cow_String const& assembly, cow_String const& instance,
                                  cow_String const& part, inp_SetType setType,
                                  cow_String const& parameterName) = 0;

  // Columns of every `rowStep`-th line from the first on; a step below 1 touches none.
  virtual void ReplaceNodeOrNsetData(inp_Keyword& keyword, inp_Columns const& columns, int rowStep);
  virtual void ReplaceNodeOrNsetAllData(inp_Keyword& keyword);
  virtual void ReplaceElementOrElsetData(inp_Keyword& keyword, inp_Columns const& columns,
                                         int rowStep);
  virtual void ReplaceElementOrElsetAllData(inp_Keyword& keyword);
  // An absent parameter is passed over.
  virtual void ReplaceNodeOrNsetParameter(inp_Keyword& keyword, cow_String const& name);
  virtual void ReplaceElementOrElsetParameter(inp_Keyword& keyword, cow_String const& name);
  /// Takes numbers alone. Of a scoped number the last piece goes in, and the field takes what comes
  /// back. Rows and columns count from 0; those that are not there are passed over.
  virtual void ReplaceIdSingleDatum(inp_Keyword& keyword, int row, int col,
                                    inpM_SetMap const& setMap, inpM_IdMap const& idMap);
  virtual void ReplaceIdOrSetSingleDatum(inp_Keyword& keyword, int row, int col,
                                         inpM_SetMap const& setMap, inpM_IdMap const& idMap);
  virtual void ReplaceIdOrSetData(inp_Keyword& keyword, inp_Columns const& columns,
                                  inpM_SetMap const& setMap, inpM_IdMap const& idMap, int rowStep,
                                  inp_SetType setType);
  virtual void ReplaceIdOrSetAllData(inp_Keyword& keyword, inpM_SetMap const& setMap,
                                     inpM_IdMap const& idMap);
  virtual void ReplaceIdOrSetParameter(inp_Keyword& keyword, cow_String const& name,
                                       inpM_SetMap const& setMap, inpM_IdMap const& idMap);
  // One value; the caller stores it.
  virtual cow_String ReplaceNodeOrNset(inp_Keyword& keyword, cow_String const& value);
  virtual cow_String ReplaceElementOrElset(inp_Keyword& keyword, cow_String const& value);

  // No keyword reaches these: they are called by other handlers, or by derived classes.
#define INP_PLACES_UNREACHED(stem, ...) virtual void Visit##stem(inp_Keyword& keyword);
#define INP_PLACES(stem, ...)
#define INP_PLACES_BY_HAND(stem, ...)
#include "inp_SetReferences.def"

  /// "node ", "element ", or "" for any other value.
  static cow_String SetTypeEnm2String(inp_SetType type);

  /// The places of a keyword, closed by one that names nothing; null when it has none.
  static inp_ReferencePlace const* Places(inp_KeywordEnm keyword);

protected:
  bool Serves(inp_referenceEnm what) const override
  {
    return what == inp_refNodes || what == inp_refElements;
  }
  cow_String FixupReference(inp_Reference const& reference, cow_String const& name) override;
  void ReplacePlace(inp_Keyword& keyword, inp_ReferencePlace const& place) override;
  inp_ModelParameters const* Model() const override { return modelParameters; }

  inpM_SetMap nsets;
  inpM_SetMap elsets;
  inpM_IdMap nodeIdMap;
  inpM_IdMap elementIdMap;
  bool lumenCompatible = false;
  inp_ModelParameters const* modelParameters;
  std::int64_t mostListed = 20000000; ///< numbers that take the place of ranges in the walk

private:
  static inp_Fields OneField(int row, int column);
  inp_referenceEnm WhatOf(inpM_IdMap const& idMap) const;
  cow_String FixedValue(inp_Keyword const& keyword, cow_String const& value,
                        inpM_SetMap const& setMap, inpM_IdMap const& idMap, inp_SetType setType);
  void ReplaceWholeColumns(inp_Keyword& keyword, inp_ReferencePlace const& place);
  void ReplaceByValue(inp_Keyword& keyword, inp_ReferencePlace const& place);
  cow_String ReplaceValue(inp_Keyword& keyword, inp_referenceEnm what, cow_String const& value);
  void ExpandGenerated(inp_Keyword& keyword);

  std::int64_t m_listed = 0; ///< of mostListed
};
