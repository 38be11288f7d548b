#include "inp_ReferencePlaces.h"

#include "inp_DistributionFixupVisitor.h"
#include "inp_KeywordEnm.h"
#include "inp_MaterialFixupVisitor.h"
#include "inp_OrientationFixupVisitor.h"
#include "inp_PlaceRules.h"
#include "inp_SetFixupVisitor.h"
#include "inp_SurfaceFixupVisitor.h"

namespace
{

cow_String Upper(char const* name) { return cow_String(name).ToUpper(); }

/// "a", "a or b", "a, b or c".
cow_String Listed(cow_List<cow_String> const& items, char const* last)
{
  cow_String text;
  for (int i = 0; i < items.Length(); ++i)
  {
    text.Append(i == 0 ? "" : i + 1 < items.Length() ? ", " : last).Append(items.ConstGet(i));
  }
  return text;
}

cow_String FieldWords(inp_Columns const& columns)
{
  if (columns.IsAll())
  {
    return "all fields";
  }
  cow_List<cow_String> runs;
  for (int first = 0; first < columns.End(); ++first)
  {
    if (columns.Has(first))
    {
      int last = first;
      while (columns.Has(last + 1))
      {
        ++last;
      }
      cow_String run(first + 1);
      if (last > first)
      {
        run.Append(last == first + 1 ? " and " : " to ").Append(cow_String(last + 1));
      }
      runs.Append(run);
      first = last;
    }
  }
  bool const isOne = columns.End() > 0 && runs.Length() == 1 &&
                     runs.ConstGet(0).Find(' ') == runs.ConstGet(0).Length();
  return (isOne ? "field " : "fields ") + Listed(runs, " and ");
}

char const* StepWords(inp_ReferencePlace const& place)
{
  switch (place.step)
  {
  case inp_stepFixed:
    return place.stepLines == 2 ? "every second line" : "every line";
  case inp_stepPoints:
    return "the first line of every record, which has a value for each section or temperature "
           "point";
  case inp_stepFields:
    return "the first line of every record, which has NUMBER values for each section or "
           "temperature point";
  case inp_stepDistribution:
    return "the first line of every record, whose length TYPE or TABLE tells";
  case inp_stepBackstresses:
    return "the first of NUMBERBACKSTRESSES lines";
  case inp_stepDependentVariables:
    return "the first line of every record, which has the solution-dependent variables of a point";
  case inp_stepElementVariables:
    return "the first line of every record, which has the solution-dependent variables of an "
           "element";
  case inp_stepRebar:
    return "every line, or every second one when GEOMETRY is SKEW, ELEMENT is CONTINUUM and SINGLE "
           "is absent";
  }
  return "";
}

cow_String LineWords(inp_ReferencePlace const& place)
{
  if (place.lastLine != 0)
  {
    return "line " + cow_String(place.lastLine);
  }
  cow_String const from =
    place.firstLine > 1 ? " from line " + cow_String(place.firstLine) + " on" : cow_String();
  return StepWords(place) + from;
}

cow_String ConditionOf(inp_PlaceCondition const& condition)
{
  cow_List<cow_String> words;
  for (char const* word : condition.words)
  {
    if (word != nullptr)
    {
      words.Append(word);
    }
  }
  cow_String const name = Upper(condition.parameter);
  switch (condition.test)
  {
  case inp_PlaceCondition::has:
    return name + " is given";
  case inp_PlaceCondition::lacks:
    return name + " is absent";
  case inp_PlaceCondition::is:
    return name + " is " + Listed(words, " or ");
  case inp_PlaceCondition::isOrAbsent:
    return name + " is " + Listed(words, " or ") + " or absent";
  case inp_PlaceCondition::isNot:
    return name + " is absent or not " + Listed(words, " or ");
  case inp_PlaceCondition::isOther:
    return name + " is not " + Listed(words, " or ");
  }
  return "";
}

} // namespace

std::vector<inp_ReferencePlace> inp_ReferencePlaces(inp_KeywordEnm keyword)
{
  if (keyword == inp_kwModalPrint)
  {
    keyword = inp_kwPrint; // the operation that serves both
  }
  std::vector<inp_ReferencePlace> places;
  for (auto const* place :
       {inp_SetFixupVisitor::Places(keyword), inp_SurfaceFixupVisitor::Places(keyword),
        inp_OrientationFixupVisitor::Places(keyword), inp_DistributionFixupVisitor::Places(keyword),
        inp_MaterialFixupVisitor::Places(keyword), inp_FurtherPlaces(keyword)})
  {
    for (; place != nullptr && place->what != inp_noReference; ++place)
    {
      places.push_back(*place);
    }
  }
  return places;
}

char const* inp_NamedThings(inp_referenceEnm what)
{
  switch (what)
  {
  case inp_noReference:
    return "nothing";
  case inp_refNodes:
    return "nodes or node sets";
  case inp_refElements:
    return "elements or element sets";
  case inp_refSurface:
    return "surfaces";
  case inp_refOrientation:
    return "orientations";
  case inp_refInflator:
    return "inflators or their properties";
  case inp_refDistribution:
    return "distributions";
  case inp_refTable:
    return "distribution tables";
  case inp_refMaterial:
    return "materials";
  case inp_refGenerator:
    return "particle generators";
  }
  return "";
}

cow_String inp_PlaceWords(inp_ReferencePlace const& place)
{
  if (!place.IsData())
  {
    return Upper(place.parameter) + (place.isText ? ", if it is a text" : "");
  }
  cow_String text = FieldWords(place.columns) + " of " + LineWords(place);
  if (place.isId)
  {
    text.Append(", numbers only");
  }
  if (place.isText)
  {
    text.Append(", texts only");
  }
  if (place.fieldsAtLeast > 1)
  {
    text.Append(", of ").Append(cow_String(place.fieldsAtLeast)).Append(" fields at least");
  }
  if (place.numbers != inp_noNumbers)
  {
    text.Append(", but for a first line that begins with a real number");
  }
  if (place.goesOn == inp_goesOnFollowerLoads)
  {
    text.Append(", not in a line behind one of TFD, TWD or TSI");
  }
  if (place.note != nullptr)
  {
    text.Append(", ").Append(place.note);
  }
  return text;
}

cow_String inp_ConditionWords(inp_ReferencePlace const& place)
{
  cow_List<cow_String> conditions;
  for (inp_PlaceCondition const& condition : place.conditions)
  {
    if (condition.parameter != nullptr)
    {
      conditions.Append(ConditionOf(condition));
    }
  }
  return Listed(conditions, " and ");
}
