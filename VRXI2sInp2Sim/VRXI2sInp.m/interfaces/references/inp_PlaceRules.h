#pragma once

#include "inp_KeywordEnmFwd.h"
#include "inp_RawDataArrayImpl.h"
#include "inp_ReferencePlace.h"

#include <algorithm>
#include <climits>

class inp_Item;
class inp_Keyword;
class inp_ModelParameters;

/// A keyword's places in inp_FurtherReferences.def, closed by one that names nothing; null when it
/// has none there.
inp_ReferencePlace const* inp_FurtherPlaces(inp_KeywordEnm keyword);

/// The keyword's parameters are such that the place counts.
bool inp_PlaceCounts(inp_ReferencePlace const& place, inp_Keyword const& keyword);

/// Lines from one record of the place to the next; below 1 when nothing is to be touched.
int inp_RowStep(inp_ReferencePlace const& place, inp_Keyword const& keyword,
                inp_ModelParameters const& model);

/// Fields of data lines; rows and columns count from 0.
struct inp_Fields
{
  inp_Columns columns;
  int firstRow = 0;
  int endRow = INT_MAX;
  int rowStep = 1;     ///< below 1 none is meant
  int fewest = 1;      ///< shorter rows are passed over
  bool isText = false; ///< what reads as a number is not meant
  inp_goesOnEnm goesOn = inp_goesOnNever;
};

/// What a place of data lines means in a keyword whose parameters let it count. Without a model, steps that
/// follow from it are taken as 1.
inp_Fields inp_FieldsOf(inp_ReferencePlace const& place, inp_Keyword const& keyword,
                        inp_ModelParameters const* model);

/// The row goes on in the next one, which then names nothing.
bool inp_GoesOn(inp_RawDataArrayImpl const& rows, int row);

/// Calls back for each row that is meant.
template <class OnRow>
void inp_ForEachRow(inp_Fields const& fields, inp_RawDataArrayImpl const& rows, OnRow const& onRow)
{
  int const end = std::min(fields.endRow, rows.Rows());
  bool const areRows = fields.firstRow >= 0 && fields.rowStep > 0;
  for (long long next = fields.firstRow; areRows && next < end; next += fields.rowStep)
  {
    int const row = static_cast<int>(next);
    bool const goesOn = fields.goesOn != inp_goesOnNever && inp_GoesOn(rows, row);
    if (rows.Cols(row) >= fields.fewest)
    {
      onRow(row);
    }
    next += goesOn ? 1 : 0;
  }
}

/// An integer may stand in place of a name of this kind.
constexpr bool inp_TakesNumbers(inp_referenceEnm what)
{
  return what == inp_refNodes || what == inp_refElements || what == inp_refSurface;
}

/// A parameter or a field, as stored, that may be a name: not blank, no switch, no real number, an integer
/// only where `takesNumbers`.
bool inp_MayBeName(inp_Item const& item, bool takesNumbers);
bool inp_MayBeName(char const* cell, bool takesNumbers);

/// Of a field that holds a single node, scoped or not, its label; false for what is no label.
bool inp_ReadSingleId(cow_String const& field, cow_String& id);

/// Lines of a *DISTRIBUTION from one location to the next; below 1 when that is not known.
int inp_DistributionRowStep(inp_Keyword const& keyword, inp_ModelParameters const& model);
