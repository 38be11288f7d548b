#include "inp_SetFixupVisitor.h"

#include "inp_PlaceRules.h"

inp_SetFixupVisitor::inp_SetFixupVisitor(inpM_SetMap const& itsNsets, inpM_SetMap const& itsElsets,
                                         inpM_IdMap const& itsNodeIdMap,
                                         inpM_IdMap const& itsElementIdMap,
                                         inp_ModelParameters const& itsModelParameters)
  : nsets(itsNsets),
    elsets(itsElsets),
    nodeIdMap(itsNodeIdMap),
    elementIdMap(itsElementIdMap),
    modelParameters(&itsModelParameters)
{
}

cow_String inp_SetFixupVisitor::SetTypeEnm2String(inp_SetType type)
{
  return type == inp_nodeSet ? "node " : type == inp_elementSet ? "element " : "";
}

// ---- one value, one parameter ----

cow_String inp_SetFixupVisitor::FixupReference(inp_Reference const& reference,
                                               cow_String const& name)
{
  inp_Scope const& scope = *reference.scope;
  return FixupIdOrSet(*reference.keyword, name, *reference.sets, *reference.ids,
                      scope.m_assemblyName, scope.m_instanceName, scope.m_partName,
                      reference.setType, reference.parameter);
}

/// The maps of nodes are told from those of elements here alone. Those of others stand for what the place
/// at work names.
inp_referenceEnm inp_SetFixupVisitor::WhatOf(inpM_IdMap const& idMap) const
{
  return &idMap == &nodeIdMap      ? inp_refNodes
         : &idMap == &elementIdMap ? inp_refElements
                                   : inp_noReference;
}

cow_String inp_SetFixupVisitor::FixedValue(inp_Keyword const& keyword, cow_String const& value,
                                           inpM_SetMap const& setMap, inpM_IdMap const& idMap,
                                           inp_SetType setType)
{
  inp_Reference reference = AtWork(keyword, WhatOf(idMap));
  reference.sets = &setMap;
  reference.ids = &idMap;
  reference.setType = setType;
  return Fixed(reference, value);
}

cow_String inp_SetFixupVisitor::ReplaceNodeOrNset(inp_Keyword& keyword, cow_String const& value)
{
  return FixedValue(keyword, value, nsets, nodeIdMap, inp_nodeSet);
}

cow_String inp_SetFixupVisitor::ReplaceElementOrElset(inp_Keyword& keyword, cow_String const& value)
{
  return FixedValue(keyword, value, elsets, elementIdMap, inp_elementSet);
}

void inp_SetFixupVisitor::ReplaceIdOrSetParameter(inp_Keyword& keyword, cow_String const& name,
                                                  inpM_SetMap const& setMap,
                                                  inpM_IdMap const& idMap)
{
  RewriteParameter(keyword, name,
                   [&](cow_String const& text)
                   { return FixedValue(keyword, text, setMap, idMap, inp_anySet); });
}

void inp_SetFixupVisitor::ReplaceNodeOrNsetParameter(inp_Keyword& keyword, cow_String const& name)
{
  ReplaceIdOrSetParameter(keyword, name, nsets, nodeIdMap);
}

void inp_SetFixupVisitor::ReplaceElementOrElsetParameter(inp_Keyword& keyword,
                                                         cow_String const& name)
{
  ReplaceIdOrSetParameter(keyword, name, elsets, elementIdMap);
}

// ---- fields of lines ----

inp_Fields inp_SetFixupVisitor::OneField(int row, int column)
{
  return {.columns = inp_Columns::Of(column), .firstRow = row, .endRow = row + 1};
}

void inp_SetFixupVisitor::ReplaceIdOrSetData(inp_Keyword& keyword, inp_Columns const& columns,
                                             inpM_SetMap const& setMap, inpM_IdMap const& idMap,
                                             int rowStep, inp_SetType setType)
{
  RewriteFields(keyword, {.columns = columns, .rowStep = rowStep},
                [&](cow_String const& text)
                { return FixedValue(keyword, text, setMap, idMap, setType); });
}

void inp_SetFixupVisitor::ReplaceIdOrSetAllData(inp_Keyword& keyword, inpM_SetMap const& setMap,
                                                inpM_IdMap const& idMap)
{
  RewriteFields(keyword, {.columns = inp_Columns::All()},
                [&](cow_String const& text)
                { return FixedValue(keyword, text, setMap, idMap, inp_anySet); });
}

void inp_SetFixupVisitor::ReplaceIdOrSetSingleDatum(inp_Keyword& keyword, int row, int col,
                                                    inpM_SetMap const& setMap,
                                                    inpM_IdMap const& idMap)
{
  RewriteFields(keyword, OneField(row, col),
                [&](cow_String const& text)
                { return FixedValue(keyword, text, setMap, idMap, inp_anySet); });
}

void inp_SetFixupVisitor::ReplaceIdSingleDatum(inp_Keyword& keyword, int row, int col,
                                               inpM_SetMap const& setMap, inpM_IdMap const& idMap)
{
  auto const fix = [&](cow_String const& text)
  {
    cow_String id;
    if (!inp_ReadSingleId(text, id))
    {
      return text;
    }
    cow_String const fixed = FixedValue(keyword, id, setMap, idMap, inp_anySet);
    return fixed == id ? text : fixed;
  };
  RewriteFields(keyword, OneField(row, col), fix);
}

void inp_SetFixupVisitor::ReplaceNodeOrNsetData(inp_Keyword& keyword, inp_Columns const& columns,
                                                int rowStep)
{
  ReplaceIdOrSetData(keyword, columns, nsets, nodeIdMap, rowStep, inp_nodeSet);
}

void inp_SetFixupVisitor::ReplaceNodeOrNsetAllData(inp_Keyword& keyword)
{
  ReplaceIdOrSetAllData(keyword, nsets, nodeIdMap);
}

void inp_SetFixupVisitor::ReplaceElementOrElsetData(inp_Keyword& keyword,
                                                    inp_Columns const& columns, int rowStep)
{
  ReplaceIdOrSetData(keyword, columns, elsets, elementIdMap, rowStep, inp_elementSet);
}

void inp_SetFixupVisitor::ReplaceElementOrElsetAllData(inp_Keyword& keyword)
{
  ReplaceIdOrSetAllData(keyword, elsets, elementIdMap);
}

// ---- by the table ----

void inp_SetFixupVisitor::ReplacePlace(inp_Keyword& keyword, inp_ReferencePlace const& place)
{
  if (place.parameter != nullptr)
  {
    place.what == inp_refNodes ? ReplaceNodeOrNsetParameter(keyword, place.parameter)
                               : ReplaceElementOrElsetParameter(keyword, place.parameter);
  }
  else if (place.viaDefinition)
  {
    VisitSurfaceDefinition(keyword);
  }
  else if (place.isId)
  {
    ReplaceIdSingleDatum(keyword, place.firstLine - 1, place.columns.End() - 1, nsets, nodeIdMap);
  }
  else if (place.byValue)
  {
    ReplaceByValue(keyword, place);
  }
  else
  {
    ReplaceWholeColumns(keyword, place);
  }
}

void inp_SetFixupVisitor::ReplaceWholeColumns(inp_Keyword& keyword, inp_ReferencePlace const& place)
{
  bool const isNodes = place.what == inp_refNodes;
  if (place.columns.IsAll())
  {
    isNodes ? ReplaceNodeOrNsetAllData(keyword) : ReplaceElementOrElsetAllData(keyword);
    return;
  }
  int const step = inp_RowStep(place, keyword, *modelParameters);
  isNodes ? ReplaceNodeOrNsetData(keyword, place.columns, step)
          : ReplaceElementOrElsetData(keyword, place.columns, step);
}

cow_String inp_SetFixupVisitor::ReplaceValue(inp_Keyword& keyword, inp_referenceEnm what,
                                             cow_String const& value)
{
  return what == inp_refNodes ? ReplaceNodeOrNset(keyword, value)
                              : ReplaceElementOrElset(keyword, value);
}

void inp_SetFixupVisitor::ReplaceByValue(inp_Keyword& keyword, inp_ReferencePlace const& place)
{
  RewriteFields(keyword, inp_FieldsOf(place, keyword, modelParameters),
                [&](cow_String const& text) { return ReplaceValue(keyword, place.what, text); });
}
