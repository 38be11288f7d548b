#include "VRXBasException.h"
#include "inpM_LabelRange.h"
#include "inp_GenerationMessages.h"
#include "inp_MeshMessages.h"
#include "inp_RowFields.h"
#include "inp_SetVisitorFaults.h"

#include <cstddef>

namespace
{

/// Puts the integers of a row in a list; false when a field is of another type.
bool ReadIntegers(inp_DataArray const& data, int row, int from, cow_List<int>& integers,
                  cow_List<cow_String>& invalid)
{
  int const before = invalid.Length();
  for (int column = from; column < data.Cols(row); ++column)
  {
    inp_Types::typeEnm const type = data.Type(row, column);
    if (type == inp_Types::inp_INTEGER)
    {
      integers.Append(data.AsInt(row, column));
    }
    else if (type != inp_Types::inp_NONE)
    {
      invalid.Append(data.AsString(row, column));
    }
  }
  return invalid.Length() == before;
}

} // namespace

inpM_SetHandle inp_SetVisitor::GenerateSet(inp_Keyword const& keyword, bool internal, bool unsorted)
{
  VRXBasAssert(SetScope().Length() > 0, "currentName.Length() > 0");
  inpM_SetHandle set = CreateSet(internal, unsorted);
  Faults faults;
  std::size_t bytes = m_bytesHeld;
  for (int row = 0; row < keyword.data.Rows(); ++row)
  {
    cow_List<int> integers;
    if (ReadIntegers(keyword.data, row, 0, integers, faults.invalid))
    {
      GenerateRow(keyword, integers, cow_String(), *set.Get(), bytes);
    }
  }
  SayFaults(keyword, faults);
  return set;
}

inpM_SetHandle inp_SetVisitor::GenerateAssemblySet(inp_Keyword const& keyword, bool internal,
                                                   bool unsorted)
{
  VRXBasAssert(SetScope().Length() == 0, "currentName.Length() == 0");
  inpM_SetHandle set = CreateSet(internal, unsorted);
  Faults faults;
  std::size_t bytes = m_bytesHeld;
  for (int row = 0; row < keyword.data.Rows(); ++row)
  {
    if (keyword.data.HasValue(row, 0) && keyword.data.HasValue(row, 1))
    {
      GenerateAssemblyRow(keyword, row, *set.Get(), bytes, faults);
    }
    else
    {
      Say(inp_msgGenerationDataMissing, keyword, SetKeywordName(), inp_RowText(keyword.data, row));
    }
  }
  SayFaults(keyword, faults);
  return set;
}

// Row: [instance.]start, [instance.]end[, step]
void inp_SetVisitor::GenerateAssemblyRow(inp_Keyword const& keyword, int row, inpM_BaseSet& set,
                                         std::size_t& bytes, Faults& faults)
{
  cow_String const startText = keyword.data.AsString(row, 0);
  cow_String const endText = keyword.data.AsString(row, 1);
  inp_ScopedField const start(startText, m_assemblyName);
  inp_ScopedField const end(endText, m_assemblyName);
  if (start.fits && end.fits && !(start.instanceName == end.instanceName))
  {
    Say(inp_msgGenerationInstancesDiffer, keyword, SetKeywordName(), startText, endText);
    return;
  }
  int ids[2] = {0, 0};
  bool const isKnown = start.instanceName.Empty() || IsValidInstanceName(start.instanceName);
  bool const hasStart = isKnown && start.fits && start.GetId(ids[0]);
  bool const hasEnd = isKnown && end.fits && end.GetId(ids[1]);
  if (!hasStart)
  {
    faults.missing.Append(startText);
  }
  if (!hasEnd)
  {
    faults.missing.Append(endText);
  }
  cow_List<int> sequence;
  sequence.SetFromArray(ids, 2);
  if (ReadIntegers(keyword.data, row, 2, sequence, faults.invalid) && hasStart && hasEnd)
  {
    GenerateRow(keyword, sequence, start.instanceName, set, bytes);
  }
}

void inp_SetVisitor::GenerateRow(inp_Keyword const& keyword, cow_List<int> const& row,
                                 cow_String const& instanceName, inpM_BaseSet& set,
                                 std::size_t& bytes)
{
  if (!CheckRange(keyword, row, set.IsUnsorted(), bytes))
  {
    return;
  }
  cow_List<atr_String> errors;
  if (set.IsUnsorted())
  {
    set.Add(instanceName, inp_Utils::GenerateUnsortedSetRow(row, SetKeywordName(), errors));
  }
  else
  {
    set.Add(instanceName, inp_Utils::GenerateSetRow(row, SetKeywordName(), errors));
  }
  for (atr_String const& error : errors)
  {
    m_errorList.Append(inp_Utils::MessageInKeyword(keyword, error));
  }
}

// An unsorted set grows by all that is added, a sorted one by what it has not yet.
bool inp_SetVisitor::TakeRoom(std::size_t added, bool unsorted, std::size_t& bytes) const
{
  if (added > mostBytes || bytes > mostBytes - added)
  {
    return false;
  }
  bytes += unsorted ? added : 0;
  return true;
}

bool inp_SetVisitor::TakeRoom(inpM_BaseSet const& added, bool unsorted, std::size_t& bytes) const
{
  return TakeRoom(unsorted ? added.CountIds() * sizeof(int) : added.Bytes(), unsorted, bytes);
}

// Rows that are too short, and steps that do not lead to the end, are the generators' to report.
bool inp_SetVisitor::CheckRange(inp_Keyword const& keyword, cow_List<int> const& row, bool unsorted,
                                std::size_t& bytes)
{
  if (row.Length() < 2)
  {
    return true;
  }
  int const start = row.ConstGet(0);
  int const end = row.ConstGet(1);
  int const step = row.Length() > 2 && row.ConstGet(2) != 0 ? row.ConstGet(2) : 1;
  if (!inpM_IsLabel(start) || !inpM_IsLabel(end))
  {
    Say(inp_msgGenerationLabelOutOfRange, keyword, cow_String(start), cow_String(end),
        SetKeywordName());
    return false;
  }
  if (!TakeRoom(inpM_BaseSet::EstimateBytes(start, end, step, unsorted), unsorted, bytes))
  {
    Say(inp_msgGenerationTooLarge, keyword, cow_String(start), cow_String(end), cow_String(step),
        SetKeywordName());
    return false;
  }
  return true;
}
