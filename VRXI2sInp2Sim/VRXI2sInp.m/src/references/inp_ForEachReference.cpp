#include "inp_ForEachReference.h"

#include "inp_Keyword.h"
#include "inp_PlaceRules.h"
#include "inp_ReferencePlaces.h"

namespace
{

using Callback = std::function<void(inp_Reference const&)>;

/// A field that is to hold a single node names it by a number.
bool IsMeant(inp_ReferencePlace const& place, char const* cell)
{
  cow_String id;
  return inp_MayBeName(cell, inp_TakesNumbers(place.what) && !place.isText) &&
         (!place.isId || inp_ReadSingleId(inp_RawDataArrayImpl::TextOfCell(cell), id));
}

void ForEachField(inp_Keyword const& keyword, inp_ReferencePlace const& place,
                  inp_ModelParameters const& model, inp_Reference& reference,
                  Callback const& callback)
{
  auto const* const rows = dynamic_cast<inp_RawDataArrayImpl const*>(&keyword.data.Impl());
  if (rows == nullptr)
  {
    return;
  }
  inp_Fields const fields = inp_FieldsOf(place, keyword, &model);
  inp_ForEachRow(fields, *rows,
                 [&](int row)
                 {
                   int const end = fields.columns.IsAll()
                                     ? rows->Cols(row)
                                     : std::min(rows->Cols(row), fields.columns.End());
                   char const* cell = rows->RowText(row);
                   for (int column = 0; column < end; ++column)
                   {
                     if (fields.columns.Has(column) && IsMeant(place, cell))
                     {
                       reference.row = row;
                       reference.column = column;
                       reference.cell = cell;
                       callback(reference);
                     }
                     cell = column + 1 < end ? cell + std::strlen(cell) + 1 : cell;
                   }
                 });
}

} // namespace

void inp_ForEachReference(inp_Keyword const& keyword, inp_Scope const& scope,
                          inp_ModelParameters const& model, Callback const& callback)
{
  for (inp_ReferencePlace const& place : inp_ReferencePlaces(keyword.keyword))
  {
    if (!inp_PlaceCounts(place, keyword))
    {
      continue;
    }
    inp_Reference reference;
    reference.what = place.what;
    reference.keyword = &keyword;
    reference.scope = &scope;
    if (place.IsData())
    {
      ForEachField(keyword, place, model, reference, callback);
    }
    else if (inp_MayBeName(*keyword.parameters.ConstFind(place.parameter),
                           inp_TakesNumbers(place.what)))
    {
      reference.parameter = place.parameter;
      callback(reference);
    }
  }
}
