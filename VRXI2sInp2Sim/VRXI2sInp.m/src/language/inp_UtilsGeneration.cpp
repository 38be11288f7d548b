#include "inp_DataArray.h"
#include "inp_GenerationMessages.h"
#include "inp_Numbers.h"
#include "inp_Types.h"
#include "inp_Utils.h"
#include "mem_Budget.h"

#include <cstdint>

namespace
{

constexpr int c_longestLabel = 9;

/// The most that one call may list. A number takes 4 bytes, a name some fifty.
constexpr std::int64_t c_mostNumbers = mem_Budget((std::int64_t{3} << 30) / sizeof(int));
constexpr std::int64_t c_mostNames = mem_Budget(20000000);

/// True when steps lead from the start exactly to the end. 64 bits, as the ends may lie further apart than
/// an int reaches.
bool CanStep(long long difference, long long step)
{
  return difference == 0 || (difference % step == 0 && (difference > 0) == (step > 0));
}

/// False, with an error, when the row gives no range.
bool ReadRange(cow_List<int> const& row, cow_String const& keywordName,
               cow_List<atr_String>& errors, inp_ScopedRange& range)
{
  if (row.Length() < 2)
  {
    errors.Append(atr_Say(inp_msgGenerationItemsMissing, keywordName));
    return false;
  }
  range.start = row.ConstGet(0);
  range.end = row.ConstGet(1);
  range.step = row.Length() > 2 && row.ConstGet(2) != 0 ? row.ConstGet(2) : 1;
  bool const isRange = CanStep(static_cast<long long>(range.end) - range.start, range.step);
  if (!isRange)
  {
    errors.Append(atr_Say(inp_msgGenerationIncrement, cow_String(range.step),
                          cow_String(range.start), cow_String(range.end), keywordName));
  }
  return isRange;
}

/// Counts the range against what may still be listed; false, with an error, when it is too long.
bool TakeRoom(inp_ScopedRange const& range, std::int64_t& left, cow_String const& keywordName,
              cow_List<atr_String>& errors)
{
  if (range.Count() > left)
  {
    errors.Append(inp_Utils::RangeTooLarge(range, keywordName));
    return false;
  }
  left -= range.Count();
  return true;
}

cow_List<int> IntegersOfRow(inp_DataArray const& data, int row)
{
  cow_List<int> items;
  for (int column = 0; column < data.Cols(row); ++column)
  {
    if (!data.IsNone(row, column))
    {
      items.Append(data.AsInt(row, column));
    }
  }
  return items;
}

/// Reads a row whose ends may have an instance in front. False when the row gives no range, with an error
/// unless it has fewer than two fields.
bool ReadScopedRow(inp_DataArray const& data, int row, cow_String const& keywordName,
                   cow_List<atr_String>& errors, inp_ScopedRange& range)
{
  if (data.Cols(row) < 2)
  {
    return false;
  }
  cow_String const start = data.AsString(row, 0);
  cow_String const end = data.AsString(row, 1);
  cow_List<cow_String> startPieces = inp_Utils::SplitScopedSet(start);
  cow_List<cow_String> endPieces = inp_Utils::SplitScopedSet(end);
  cow_List<int> items;
  items.Append(inp_TextToInt(startPieces.Pop().CStr()));
  items.Append(inp_TextToInt(endPieces.Pop().CStr()));
  if (startPieces.Length() > 0 && endPieces.Length() > 0 &&
      !(startPieces.ConstGet(0) == endPieces.ConstGet(0)))
  {
    errors.Append(atr_Say(inp_msgGenerationInstancesDiffer, keywordName, start, end));
    return false;
  }
  if (data.Cols(row) > 2 && !data.IsNone(row, 2))
  {
    items.Append(data.AsInt(row, 2));
  }
  range.prefix = startPieces.Length() > 0 ? startPieces.ConstGet(0) + "." : cow_String();
  return ReadRange(items, keywordName, errors, range);
}

bool IsBlankRow(inp_DataArray const& data, int row)
{
  int column = 0;
  while (column < data.Cols(row) && data.IsNone(row, column))
  {
    ++column;
  }
  return column == data.Cols(row);
}

/// A field taken apart: "WHEEL-1.7" has the prefix "WHEEL-1.", and its last piece is a label.
struct ScopedLabel
{
  cow_String prefix;
  bool isLabel;

  explicit ScopedLabel(cow_String const& field)
  {
    cow_String const label = inp_Utils::SplitScopedSet(field).Last();
    prefix = cow_String(field.View().substr(0, field.View().size() - label.View().size()));
    isLabel = label.Length() <= c_longestLabel && inp_Types::IsInteger(label.View()) &&
              inp_TextToInt(label.CStr()) > 0;
  }
};

bool SayInvalid(cow_String const& field, cow_String const& keywordName,
                cow_List<atr_String>& errors)
{
  errors.Append(atr_Say(inp_msgGenerationFieldInvalid, field, keywordName));
  return false;
}

/// Reads a row as ReadScopedRow does, but with an error for each field that is not what it should be.
bool ReadCheckedRow(inp_DataArray const& data, int row, cow_String const& keywordName,
                    cow_List<atr_String>& errors, inp_ScopedRange& range)
{
  if (!data.HasValue(row, 0) || !data.HasValue(row, 1))
  {
    errors.Append(atr_Say(inp_msgGenerationItemsMissing, keywordName));
    return false;
  }
  cow_String const startField = data.AsString(row, 0);
  cow_String const endField = data.AsString(row, 1);
  ScopedLabel const start(startField);
  ScopedLabel const end(endField);
  if (!start.isLabel || !end.isLabel)
  {
    return SayInvalid(start.isLabel ? endField : startField, keywordName, errors);
  }
  if (data.HasValue(row, 2) && data.Type(row, 2) != inp_Types::inp_INTEGER)
  {
    return SayInvalid(data.AsString(row, 2), keywordName, errors);
  }
  if (start.prefix.Length() > 0 && end.prefix.Length() > 0 && !(start.prefix == end.prefix))
  {
    errors.Append(atr_Say(inp_msgGenerationInstancesDiffer, keywordName, startField, endField));
    return false;
  }
  bool const isRange = ReadScopedRow(data, row, keywordName, errors, range);
  range.prefix = start.prefix;
  return isRange;
}

void AppendNumbers(cow_List<int> const& row, cow_String const& keywordName,
                   cow_List<atr_String>& errors, std::int64_t& left, cow_List<int>& ids)
{
  inp_ScopedRange range;
  if (!ReadRange(row, keywordName, errors, range) || !TakeRoom(range, left, keywordName, errors))
  {
    return;
  }
  for (std::int64_t place = 0; place < range.Count(); ++place)
  {
    ids.Append(range.Number(place));
  }
}

/// The scoped numbers of all rows, row by row; the numbers of a row in ascending order, or in the order of
/// its steps.
cow_List<cow_String> GenerateScoped(inp_DataArray const& data, cow_String const& keywordName,
                                    cow_List<atr_String>& errors, bool isAscending)
{
  cow_List<cow_String> names;
  std::int64_t left = c_mostNames;
  for (int row = 0; row < data.Rows(); ++row)
  {
    inp_ScopedRange range;
    if (!ReadScopedRow(data, row, keywordName, errors, range) ||
        !TakeRoom(range, left, keywordName, errors))
    {
      continue;
    }
    if (isAscending)
    {
      range = range.Ascending();
    }
    for (std::int64_t place = 0; place < range.Count(); ++place)
    {
      names.Append(range.prefix + cow_String(range.Number(place)));
    }
  }
  return names;
}

} // namespace

inpM_OmiSet inp_Utils::GenerateSetRow(cow_List<int> const& row, cow_String const& keywordName,
                                      cow_List<atr_String>& errors)
{
  inp_ScopedRange range;
  inpM_OmiSet set;
  if (ReadRange(row, keywordName, errors, range))
  {
    set.Insert(range.start, range.end, range.step);
  }
  return set;
}

inpM_OmiSet inp_Utils::GenerateSetIds(inp_DataArray const& data, cow_String const& keywordName,
                                      cow_List<atr_String>& errors)
{
  inpM_OmiSet set;
  for (int row = 0; row < data.Rows(); ++row)
  {
    set += GenerateSetRow(IntegersOfRow(data, row), keywordName, errors);
  }
  return set;
}

cow_List<cow_String> inp_Utils::GenerateScopedIds(inp_DataArray const& data,
                                                  cow_String const& keywordName,
                                                  cow_List<atr_String>& errors)
{
  return GenerateScoped(data, keywordName, errors, true);
}

cow_List<int> inp_Utils::GenerateUnsortedSetRow(cow_List<int> const& row,
                                                cow_String const& keywordName,
                                                cow_List<atr_String>& errors)
{
  cow_List<int> ids;
  std::int64_t left = c_mostNumbers;
  AppendNumbers(row, keywordName, errors, left, ids);
  return ids;
}

cow_List<int> inp_Utils::GenerateUnsortedSetIds(inp_DataArray const& data,
                                                cow_String const& keywordName,
                                                cow_List<atr_String>& errors)
{
  cow_List<int> ids;
  std::int64_t left = c_mostNumbers;
  for (int row = 0; row < data.Rows(); ++row)
  {
    AppendNumbers(IntegersOfRow(data, row), keywordName, errors, left, ids);
  }
  return ids;
}

cow_List<cow_String> inp_Utils::GenerateUnsortedScopedIds(inp_DataArray const& data,
                                                          cow_String const& keywordName,
                                                          cow_List<atr_String>& errors)
{
  return GenerateScoped(data, keywordName, errors, false);
}

std::vector<inp_ScopedRange> inp_Utils::ReadScopedRanges(inp_DataArray const& data,
                                                         cow_String const& keywordName,
                                                         cow_List<atr_String>& errors)
{
  std::vector<inp_ScopedRange> ranges;
  for (int row = 0; row < data.Rows(); ++row)
  {
    inp_ScopedRange range;
    if (!IsBlankRow(data, row) && ReadCheckedRow(data, row, keywordName, errors, range))
    {
      ranges.push_back(range.Ascending());
    }
  }
  return ranges;
}

atr_String inp_Utils::RangeTooLarge(inp_ScopedRange const& range, cow_String const& keywordName)
{
  return atr_Say(inp_msgGenerationTooLarge, range.prefix + cow_String(range.start),
                 range.prefix + cow_String(range.end), cow_String(range.step), keywordName);
}
