#include "inp_DataArray.h"
#include "inp_GenerationMessages.h"
#include "inp_Numbers.h"
#include "inp_Utils.h"

namespace
{

/// A sequence start, start + step, ..., end. Empty when the row gives none.
struct Sequence
{
  bool valid = false;
  int start = 0;
  int end = 0;
  int step = 1;
};

/// Differences are taken in 64 bits: start and end may lie further apart than an int reaches.
bool CanStep(long long difference, long long step)
{
  return difference == 0 || (difference % step == 0 && (difference > 0) == (step > 0));
}

Sequence ReadSequence(cow_List<int> const& row, cow_String const& keywordName,
                      cow_List<atr_String>& errors)
{
  Sequence sequence;
  if (row.Length() < 2)
  {
    errors.Append(atr_Say(inp_msgGenerationItemsMissing, keywordName));
    return sequence;
  }
  sequence.start = row.ConstGet(0);
  sequence.end = row.ConstGet(1);
  if (row.Length() > 2 && row.ConstGet(2) != 0)
  {
    sequence.step = row.ConstGet(2);
  }
  sequence.valid = CanStep(static_cast<long long>(sequence.end) - sequence.start, sequence.step);
  if (!sequence.valid)
  {
    errors.Append(atr_Say(inp_msgGenerationIncrement, cow_String(sequence.step),
                          cow_String(sequence.start), cow_String(sequence.end), keywordName));
  }
  return sequence;
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

/// A row of scoped numbers taken apart: the sequence, and what stands before each of its numbers.
struct ScopedRow
{
  bool valid = false;
  cow_List<int> items;
  cow_String scope;
};

ScopedRow ReadScopedRow(inp_DataArray const& data, int row, cow_String const& keywordName,
                        cow_List<atr_String>& errors)
{
  ScopedRow result;
  if (data.Cols(row) < 2)
  {
    return result;
  }
  cow_String const start = data.AsString(row, 0);
  cow_String const end = data.AsString(row, 1);
  cow_List<cow_String> startPieces = inp_Utils::SplitScopedSet(start);
  cow_List<cow_String> endPieces = inp_Utils::SplitScopedSet(end);
  result.items.Append(inp_TextToInt(startPieces.Pop().CStr()));
  result.items.Append(inp_TextToInt(endPieces.Pop().CStr()));
  if (startPieces.Length() > 0 && endPieces.Length() > 0 &&
      !(startPieces.ConstGet(0) == endPieces.ConstGet(0)))
  {
    errors.Append(atr_Say(inp_msgGenerationInstancesDiffer, keywordName, start, end));
    return result;
  }
  if (data.Cols(row) > 2 && !data.IsNone(row, 2))
  {
    result.items.Append(data.AsInt(row, 2));
  }
  if (startPieces.Length() > 0)
  {
    result.scope = startPieces.ConstGet(0) + ".";
  }
  result.valid = true;
  return result;
}

/// The scoped numbers of all rows; `generate` gives the numbers of one row, in their order.
template <class Generate>
cow_List<cow_String> GenerateScoped(inp_DataArray const& data, cow_String const& keywordName,
                                    cow_List<atr_String>& errors, Generate generate)
{
  cow_List<cow_String> names;
  for (int row = 0; row < data.Rows(); ++row)
  {
    ScopedRow const scoped = ReadScopedRow(data, row, keywordName, errors);
    if (scoped.valid)
    {
      for (int const id : generate(scoped.items))
      {
        names.Append(scoped.scope + cow_String(id));
      }
    }
  }
  return names;
}

} // namespace

inpM_OmiSet inp_Utils::GenerateSetRow(cow_List<int> const& row, cow_String const& keywordName,
                                      cow_List<atr_String>& errors)
{
  Sequence const sequence = ReadSequence(row, keywordName, errors);
  inpM_OmiSet set;
  if (sequence.valid)
  {
    set.Insert(sequence.start, sequence.end, sequence.step);
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
  return GenerateScoped(
    data, keywordName, errors,
    [&](cow_List<int> const& row)
    { return GenerateSetRow(row, keywordName, errors).ConstGetArrayCounterpart(); });
}

cow_List<int> inp_Utils::GenerateUnsortedSetRow(cow_List<int> const& row,
                                                cow_String const& keywordName,
                                                cow_List<atr_String>& errors)
{
  Sequence const sequence = ReadSequence(row, keywordName, errors);
  cow_List<int> ids;
  if (sequence.valid)
  {
    long long const count =
      (static_cast<long long>(sequence.end) - sequence.start) / sequence.step + 1;
    for (long long i = 0; i < count; ++i)
    {
      ids.Append(static_cast<int>(sequence.start + i * sequence.step));
    }
  }
  return ids;
}

cow_List<int> inp_Utils::GenerateUnsortedSetIds(inp_DataArray const& data,
                                                cow_String const& keywordName,
                                                cow_List<atr_String>& errors)
{
  cow_List<int> ids;
  for (int row = 0; row < data.Rows(); ++row)
  {
    ids.Concatenate(GenerateUnsortedSetRow(IntegersOfRow(data, row), keywordName, errors));
  }
  return ids;
}

cow_List<cow_String> inp_Utils::GenerateUnsortedScopedIds(inp_DataArray const& data,
                                                          cow_String const& keywordName,
                                                          cow_List<atr_String>& errors)
{
  return GenerateScoped(data, keywordName, errors,
                        [&](cow_List<int> const& row)
                        { return GenerateUnsortedSetRow(row, keywordName, errors); });
}
