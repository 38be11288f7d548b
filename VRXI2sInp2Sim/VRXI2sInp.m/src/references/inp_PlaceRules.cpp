#include "inp_PlaceRules.h"

#include "inp_Keyword.h"
#include "inp_KeywordEnm.h"
#include "inp_ModelParameters.h"
#include "inp_PlaceRows.h"
#include "inp_Utils.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <string_view>

namespace
{

constexpr int c_valuesOfLine = 8;

#define INP_PLACES INP_PLACES_ARRAY
#include "inp_FurtherReferences.def"

bool IsOneOf(cow_String const& text, inp_PlaceCondition const& condition)
{
  auto const isText = [&text](char const* word)
  { return word != nullptr && text.View() == std::string_view(word); };
  return std::any_of(std::begin(condition.words), std::end(condition.words), isText);
}

bool Holds(inp_PlaceCondition const& condition, inp_Keyword const& keyword)
{
  inp_Item const* const item = keyword.parameters.ConstFind(condition.parameter);
  bool const isText = item != nullptr && item->Type() == inp_Types::inp_STRING;
  bool const fits = isText && IsOneOf(item->AsString(), condition);
  switch (condition.test)
  {
  case inp_PlaceCondition::has:
    return item != nullptr;
  case inp_PlaceCondition::lacks:
    return item == nullptr;
  case inp_PlaceCondition::is:
    return fits;
  case inp_PlaceCondition::isOrAbsent:
    return fits || !isText;
  case inp_PlaceCondition::isNot:
    return !fits;
  case inp_PlaceCondition::isOther:
    return isText && !fits;
  }
  return false;
}

bool ParameterCounts(inp_ReferencePlace const& place, inp_Keyword const& keyword)
{
  inp_Item const* const item = keyword.parameters.ConstFind(place.parameter);
  return item != nullptr && (!place.isText || item->Type() == inp_Types::inp_STRING);
}

/// The lines of a record of so many values.
int LinesOf(long long values)
{
  return static_cast<int>(
    std::clamp(values / c_valuesOfLine + 1, -1LL, static_cast<long long>(INT_MAX)));
}

long long PointsOf(inp_ModelParameters const& model)
{
  return model.hasTemperatureElms() ? model.getNumGaussPts() : model.getNumTempPts();
}

bool IsSkewInContinuum(inp_Keyword const& keyword)
{
  return keyword.GetParameterAsString("geometry", "ISOPARAMETRIC") == "SKEW" &&
         !keyword.HasParameter("single") &&
         keyword.GetParameterAsString("element", "") == "CONTINUUM";
}

bool IsReal(std::string_view text)
{
  return inp_Types::IsDouble(text) || inp_Types::IsDoubleD(text);
}

bool BeginsWithNumber(inp_DataArray const& data, inp_numbersEnm kind)
{
  if (kind == inp_noNumbers || data.Rows() == 0)
  {
    return false;
  }
  cow_String const first = data.AsString(0, 0);
  return inp_Types::IsDouble(first.View()) ||
         (kind == inp_numbersWithD && inp_Types::IsDoubleD(first.View()));
}

} // namespace

inp_ReferencePlace const* inp_FurtherPlaces(inp_KeywordEnm keyword)
{
  switch (static_cast<int>(keyword))
  {
#define INP_PLACES(stem, ...)                                                                      \
  case inp_kw##stem:                                                                               \
    return placesOf##stem;
#include "inp_FurtherReferences.def"
  default:
    return nullptr;
  }
}

bool inp_PlaceCounts(inp_ReferencePlace const& place, inp_Keyword const& keyword)
{
  if (!place.IsData() && !ParameterCounts(place, keyword))
  {
    return false;
  }
  for (inp_PlaceCondition const& condition : place.conditions)
  {
    if (condition.parameter != nullptr && !Holds(condition, keyword))
    {
      return false;
    }
  }
  return true;
}

int inp_RowStep(inp_ReferencePlace const& place, inp_Keyword const& keyword,
                inp_ModelParameters const& model)
{
  switch (place.step)
  {
  case inp_stepFixed:
    return place.stepLines;
  case inp_stepPoints:
    return LinesOf(PointsOf(model));
  case inp_stepFields:
    return LinesOf(PointsOf(model) * keyword.GetParameterAsInt("number", 1));
  case inp_stepDistribution:
    return inp_DistributionRowStep(keyword, model);
  case inp_stepBackstresses:
    return keyword.GetParameterAsInt("numberbackstresses", 1);
  case inp_stepDependentVariables:
    return LinesOf(model.getNumDepVars() + 1LL + (keyword.HasParameter("rebar") ? 1 : 0));
  case inp_stepElementVariables:
    return LinesOf(model.getNumElemDepVars());
  case inp_stepRebar:
    return IsSkewInContinuum(keyword) ? 2 : 1;
  }
  return 1;
}

inp_Fields inp_FieldsOf(inp_ReferencePlace const& place, inp_Keyword const& keyword,
                        inp_ModelParameters const* model)
{
  inp_Fields fields;
  fields.columns = place.columns;
  fields.firstRow = place.firstLine - 1 + (BeginsWithNumber(keyword.data, place.numbers) ? 1 : 0);
  fields.endRow = place.lastLine > 0 ? place.lastLine : INT_MAX;
  fields.rowStep = model != nullptr ? inp_RowStep(place, keyword, *model) : place.stepLines;
  fields.fewest = place.fieldsAtLeast;
  fields.isText = place.isText;
  fields.goesOn = place.goesOn;
  return fields;
}

// Loads that follow the rotation of a structure have their data in a second line.
bool inp_GoesOn(inp_RawDataArrayImpl const& rows, int row)
{
  char const* type = rows.RowText(row);
  if (rows.Cols(row) < 2)
  {
    return false;
  }
  type += std::strlen(type) + 1;
  while (*type == ' ' || *type == '\t' || *type == '\r')
  {
    ++type;
  }
  // Most loads have a number here, which is told without a text.
  if ((*type | 0x20) != 't')
  {
    return false;
  }
  cow_String const text = inp_RawDataArrayImpl::TextOfCell(type);
  return text == "TFD" || text == "TWD" || text == "TSI";
}

bool inp_MayBeName(inp_Item const& item, bool takesNumbers)
{
  return item.Type() == inp_Types::inp_STRING ||
         (item.Type() == inp_Types::inp_INTEGER && takesNumbers);
}

bool inp_MayBeName(char const* cell, bool takesNumbers)
{
  inp_Types::typeEnm const type = inp_RawDataArrayImpl::TypeOfCell(cell);
  if (type == inp_Types::inp_STRING || type == inp_Types::inp_NONE)
  {
    return type == inp_Types::inp_STRING;
  }
  return takesNumbers && !IsReal(cell);
}

// Coordinates may stand where the node is not named: 1.5 is no node 5.
bool inp_ReadSingleId(cow_String const& field, cow_String& id)
{
  cow_List<cow_String> const pieces = inp_Utils::SplitScopedSet(field);
  id = inp_Utils::IsScopedSetId(pieces) ? pieces.Last() : field;
  return inp_Types::IsInteger(id.View()) && !inp_Types::IsDouble(field.View());
}

int inp_DistributionRowStep(inp_Keyword const& keyword, inp_ModelParameters const& model)
{
  if (keyword.HasParameter("type"))
  {
    return keyword.GetParameterAsString("type", "") == "SHELL3DSTIFFNESS" ? 3 : 1;
  }
  inp_Item const* const table = keyword.parameters.ConstFind("table");
  return table != nullptr ? model.getTableSize(table->AsString()) : 0;
}
