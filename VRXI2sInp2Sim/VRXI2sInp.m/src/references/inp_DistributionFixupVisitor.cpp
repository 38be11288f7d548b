#include "inp_DistributionFixupVisitor.h"

#include "inp_KeywordEnm.h"
#include "inp_PlaceRules.h"

#include <algorithm>

#define INP_PLACES_VISITOR inp_DistributionFixupVisitor
#define INP_PLACES_TABLE "inp_DistributionReferences.def"
#include "inp_PlaceHandlers.def"

namespace
{

/// The values of the first record, when it begins with a blank field.
cow_List<inp_Item> DefaultsOf(inp_Keyword const& keyword, int linesOfRecord)
{
  inp_DataArray const& data = keyword.data;
  cow_List<inp_Item> items;
  if (data.Rows() == 0 || !data.IsNone(0, 0))
  {
    return items;
  }
  for (int row = 0; row < std::min(linesOfRecord, data.Rows()); ++row)
  {
    int cols = data.Cols(row);
    while (cols > 0 && data.IsNone(row, cols - 1))
    {
      --cols;
    }
    for (int column = row == 0 ? 1 : 0; column < cols; ++column)
    {
      items.Append(inp_Item(data.AsString(row, column)));
    }
  }
  return items;
}

} // namespace

// *DISTRIBUTION rows: [node or element], value, ...
void inp_DistributionFixupVisitor::VisitDistribution(inp_Keyword& keyword)
{
  // The table is known by the name that it has before the walk.
  int const linesOfRecord = std::max(1, inp_DistributionRowStep(keyword, *modelParameters));
  ReplacePlaces(keyword, placesOfDistribution);
  cow_List<inp_Item> const defaults = DefaultsOf(keyword, linesOfRecord);
  if (inp_Item const* const name = keyword.parameters.ConstFind("name");
      name != nullptr && defaults.Length() > 0)
  {
    defaultsByName.Insert(name->AsString(), defaults);
  }
}

double inp_DistributionFixupVisitor::GetDefaultDataDouble(cow_String const& distribution, int index,
                                                          double otherwise) const
{
  cow_List<inp_Item> const* const defaults = defaultsByName.ConstFind(distribution);
  if (defaults == nullptr || index < 0 || index >= defaults->Length())
  {
    return otherwise;
  }
  inp_Item const& item = defaults->ConstGet(index);
  bool const isNumber = item.Type() == inp_Types::inp_INTEGER || item.Type() == inp_Types::inp_REAL;
  return isNumber ? item.AsDouble() : otherwise;
}
