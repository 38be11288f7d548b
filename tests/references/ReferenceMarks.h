#pragma once

#include "DeckKeywords.h"
#include "KeywordText.h"
#include "inp_DistributionFixupVisitor.h"
#include "inp_MaterialFixupVisitor.h"
#include "inp_ModelParameters.h"
#include "inp_OrientationFixupVisitor.h"
#include "inp_SetFixupVisitor.h"
#include "inp_SurfaceFixupVisitor.h"

#include <string>

// Visitors that put a mark behind whatever they are offered: #N nodes, #E elements, #S surfaces,
// #O orientations, #D distributions, #M materials.

class MarkSets : public inp_SetFixupVisitor
{
public:
  explicit MarkSets(inp_ModelParameters const& model)
    : inp_SetFixupVisitor(inpM_SetMap(), inpM_SetMap(), inpM_IdMap(), inpM_IdMap(), model)
  {
  }
  cow_String FixupReference(inp_Reference const& reference, cow_String const& name) override
  {
    bool const isNodes = reference.what == inp_refNodes;
    EXPECT_EQ(isNodes, reference.sets == &nsets && reference.ids == &nodeIdMap);
    return name + (isNodes ? "#N" : "#E");
  }
  cow_String FixupIdOrSet(inp_Keyword const&, cow_String const& value, inpM_SetMap const&,
                          inpM_IdMap const&, cow_String const&, cow_String const&,
                          cow_String const&, inp_SetType, cow_String const&) override
  {
    return value;
  }
};

class MarkSurfaces : public inp_SurfaceFixupVisitor
{
public:
  MarkSurfaces() : inp_SurfaceFixupVisitor(inpM_SurfaceMap()) {}
  cow_String FixupSurfaceName(cow_String const& name, cow_String const&, cow_String const&,
                              cow_String const&) override
  {
    return name + "#S";
  }
};

class MarkOrientations : public inp_OrientationFixupVisitor
{
public:
  MarkOrientations() : inp_OrientationFixupVisitor({}) {}
  cow_String FixupOrientationName(cow_String const& name) override { return name + "#O"; }
};

class MarkDistributions : public inp_DistributionFixupVisitor
{
public:
  using inp_DistributionFixupVisitor::inp_DistributionFixupVisitor;
  cow_String FixupDistributionName(cow_String const& name) override { return name + "#D"; }
};

class MarkMaterials : public inp_MaterialFixupVisitor
{
public:
  cow_String FixupMaterialName(cow_String const& name) override { return name + "#M"; }
};

/// Every keyword with all its references marked. Sets come last, as a marked number is none any
/// more.
inline void MarkAll(cow_List<inp_Keyword>& keywords, inp_ModelParameters const& model)
{
  MarkOrientations().VisitList(keywords);
  MarkDistributions(model).VisitList(keywords);
  MarkMaterials().VisitList(keywords);
  MarkSurfaces().VisitList(keywords);
  MarkSets(model).VisitList(keywords);
}

/// The same of a deck's text, a line a keyword.
inline std::string Marked(std::string const& deck, inp_ModelParameters const& model = {})
{
  cow_List<inp_Keyword> keywords = DeckKeywords(deck);
  MarkAll(keywords, model);
  std::string text;
  for (inp_Keyword const& keyword : keywords)
  {
    text += (text.empty() ? "" : "\n") + KeywordText(keyword);
  }
  return text;
}

/// A keyword of which the place counts: the parameters that it wants, and no rows.
inline inp_Keyword WithParametersFor(inp_KeywordEnm which, inp_ReferencePlace const& place)
{
  inp_Keyword keyword(which);
  for (inp_PlaceCondition const& condition : place.conditions)
  {
    bool const wantsWord = condition.test == inp_PlaceCondition::is;
    if (wantsWord || condition.test == inp_PlaceCondition::has)
    {
      keyword.parameters.Insert(condition.parameter,
                                wantsWord ? inp_Item::Text(condition.words[0]) : inp_Item(true));
    }
    else if (condition.test == inp_PlaceCondition::isOther)
    {
      keyword.parameters.Insert(condition.parameter, inp_Item::Text("OTHER"));
    }
  }
  if (!place.IsData())
  {
    keyword.parameters.Insert(place.parameter, inp_Item::Text("A"));
  }
  if (place.step == inp_stepDistribution)
  {
    keyword.parameters.Insert("type", inp_Item::Text("LENGTH"));
  }
  return keyword;
}
