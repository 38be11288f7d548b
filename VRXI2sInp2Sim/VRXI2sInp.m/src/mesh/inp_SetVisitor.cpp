#include "inp_SetVisitor.h"

#include "inp_MeshMessages.h"
#include "inp_Numbers.h"
#include "inp_RawDataArrayImpl.h"
#include "inp_SetVisitorFaults.h"
#include "pnt_debugPrint.h"
#include "typ_DebugFlags.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace
{

constexpr int c_longestSetName = 80;
constexpr int c_longestField = 255;
constexpr int c_debugFlag = 30;
constexpr int c_debugLevel = 2;
constexpr std::size_t c_smallBytes = std::size_t{1} << 16;

cow_List<cow_String> Ascending(cow_List<cow_String> names)
{
  names.Sort();
  return names;
}

bool IsIn(cow_List<cow_String> const& ascending, cow_String const& name)
{
  int low = 0;
  int high = ascending.Length();
  while (low < high)
  {
    int const middle = low + (high - low) / 2;
    if (ascending.ConstGet(middle) < name)
    {
      low = middle + 1;
    }
    else
    {
      high = middle;
    }
  }
  return low < ascending.Length() && ascending.ConstGet(low) == name;
}

bool MayBeginSetName(char c)
{
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '"' || c == '_';
}

} // namespace

void inp_SetVisitor::setInstanceNames(cow_List<cow_String> const& names)
{
  instanceNames = Ascending(names);
}

void inp_SetVisitor::setImportedInstances(cow_List<cow_String> const& names)
{
  importedInstances = Ascending(names);
}

bool inp_SetVisitor::IsInstance(cow_String const& name) const { return IsIn(instanceNames, name); }

bool inp_SetVisitor::IsImportedInstance(cow_String const& name) const
{
  return IsIn(importedInstances, name);
}

cow_String inp_SetVisitor::SetKeywordName() const
{
  cow_String const name = KeywordName();
  return name == "*NODE" ? cow_String("*NSET") : name == "*ELEMENT" ? cow_String("*ELSET") : name;
}

bool inp_SetVisitor::CheckSetName(inp_Keyword const& keyword, cow_String const& name)
{
  if (!MayBeginSetName(name[0]))
  {
    Say(inp_msgSetNameInvalid, keyword, name);
    return false;
  }
  if (name.Length() > c_longestSetName)
  {
    Say(inp_msgSetNameTooLong, keyword, name);
    return false;
  }
  return MayChangeSet(keyword, name);
}

void inp_SetVisitor::MergeSet(inpM_SetMap& setMap, inp_Keyword const& keyword,
                              cow_String const& name, inpM_SetHandle const& set)
{
  if (CheckSetName(keyword, name))
  {
    PrintAdding(setMap, name);
    setMap.AddToNestedSet(SetScope(), name, *set);
  }
}

void inp_SetVisitor::ReplaceSet(inpM_SetMap& setMap, inp_Keyword const& keyword,
                                cow_String const& name, inpM_SetHandle const& set)
{
  if (CheckSetName(keyword, name))
  {
    PrintAdding(setMap, name);
    setMap.InsertNestedSet(SetScope(), name, set);
  }
}

void inp_SetVisitor::PrintAdding(inpM_SetMap const& setMap, cow_String const& name) const
{
  if (typ_DebugFlags::GetDebugFlags(c_debugFlag) < c_debugLevel)
  {
    return;
  }
  cow_String const& scope = SetScope();
  bool const isNew = !setMap.HasNestedSet(scope, name);
  char const* const place = scope.Empty() ? isNew ? " in assembly" : " to existing assembly set"
                            : isNew       ? " in part/instance "
                                          : " to existing set in part/instance ";
  pnt_debugPrint().StartDebug() << (isNew ? "AddSet: Adding new set " : "AddSet: Adding set ")
                                << name << place << scope << '\n';
  pnt_debugPrint().EndDebug();
}

// The old set grows within the map: a clone beside it would have to copy the members.
template <class Read>
inpM_SetHandle inp_SetVisitor::Accumulate(inpM_SetMap& setMap, cow_String const& name,
                                          bool internal, bool unsorted, Read const& read)
{
  cow_String const scope = SetScope();
  inpM_BaseSet const* const old = setMap.ConstFindNestedSet(scope, name);
  if (old == nullptr)
  {
    inpM_SetHandle const fresh = read(internal, unsorted);
    m_bytesHeld += fresh->Bytes();
    return fresh;
  }
  bool const staysUnsorted = old->IsUnsorted() && unsorted;
  if (old->IsUnsorted() && !unsorted)
  {
    setMap.InsertNestedSet(scope, name, ConvertToSorted(*old));
  }
  inpM_SetHandle const added = read(internal, staysUnsorted);
  std::size_t growth = added->Bytes();
  bool const isMeasured = growth > c_smallBytes; // which is a pass over all blocks
  std::size_t const before =
    isMeasured ? setMap.ConstGetNestedSet(scope, name).Bytes() : std::size_t{0};
  setMap.AddToNestedSet(scope, name, *added);
  inpM_BaseSet const& whole = setMap.ConstGetNestedSet(scope, name);
  if (isMeasured)
  {
    growth = std::max(whole.Bytes(), before) - before;
  }
  m_bytesHeld += growth;
  return CreateSet(whole);
}

inpM_SetHandle inp_SetVisitor::ReadIdsAndSetNamesAccumulate(inp_Keyword const& keyword,
                                                            cow_String const& name, bool internal,
                                                            bool unsorted, bool includeAll)
{
  return Accumulate(sets, name, internal, unsorted,
                    [&](bool isInternal, bool isUnsorted)
                    { return ReadPart(keyword, isInternal, isUnsorted, includeAll); });
}

inpM_SetHandle inp_SetVisitor::ReadAssemblyIdsAndSetNamesAccumulate(inpM_SetMap& setMap,
                                                                    inp_Keyword const& keyword,
                                                                    cow_String const& name,
                                                                    bool internal, bool unsorted)
{
  return Accumulate(setMap, name, internal, unsorted,
                    [&](bool isInternal, bool isUnsorted)
                    { return ReadAssembly(setMap, keyword, isInternal, isUnsorted); });
}

inpM_SetHandle inp_SetVisitor::GenerateSetAccumulate(inp_Keyword const& keyword,
                                                     cow_String const& name, bool internal,
                                                     bool unsorted)
{
  return Accumulate(sets, name, internal, unsorted,
                    [&](bool isInternal, bool isUnsorted)
                    { return GenerateSet(keyword, isInternal, isUnsorted); });
}

inpM_SetHandle inp_SetVisitor::GenerateAssemblySetAccumulate(inpM_SetMap& setMap,
                                                             inp_Keyword const& keyword,
                                                             cow_String const& name, bool internal,
                                                             bool unsorted)
{
  return Accumulate(setMap, name, internal, unsorted,
                    [&](bool isInternal, bool isUnsorted)
                    { return GenerateAssemblySet(keyword, isInternal, isUnsorted); });
}

// A field that would grow beyond what a cell holds can name nothing.
void inp_SetVisitor::ProcessInstanceParameter(inp_Keyword& keyword)
{
  cow_String const instanceName = keyword.NameIn("instance");
  if (SetScope().Length() > 0 || instanceName.Empty())
  {
    return;
  }
  int const last = keyword.HasParameter("generate") ? 2 : c_longestField;
  Faults faults;
  auto* const impl = new inp_RawDataArrayImpl;
  inp_DataArray rows(impl);
  std::string line;
  for (int row = 0; row < keyword.data.Rows(); ++row)
  {
    line.clear();
    for (int column = 0; column < keyword.data.Cols(row); ++column)
    {
      line.append(column > 0 ? "," : "");
      cow_String const field = keyword.data.AsString(row, column);
      bool const isScoped = column < last && field.Length() > 0;
      if (isScoped && instanceName.Length() + 1 + field.Length() > c_longestField)
      {
        faults.missing.Append(instanceName + "." + field);
        continue;
      }
      line.append(isScoped ? instanceName.View() : "").append(isScoped ? "." : "");
      line.append(field.View());
    }
    impl->Append(line.c_str());
  }
  keyword.data = rows;
  keyword.parameters.Remove("instance");
  SayFaults(keyword, faults);
}

void inp_SetVisitor::MakeMixtureSets(inp_Keyword const& keyword)
{
  cow_String const scope = SetScope();
  cow_List<cow_String> existing;
  for (int row = 0; scope.Length() > 0 && row < keyword.data.Rows(); ++row)
  {
    for (int column = 0; column < keyword.data.Cols(row); ++column)
    {
      if (keyword.data.Type(row, column) != inp_Types::inp_STRING)
      {
        continue;
      }
      cow_String const name = keyword.data.AsString(row, column);
      if (sets.HasNestedSet(scope, name))
      {
        existing.Append(name);
      }
      else
      {
        MergeSet(keyword, name, CreateSet(cow_List<int>(), inpM_plainSet, inpM_asGiven));
      }
    }
  }
  SayItemsBelow(inp_msgSetsExistAlready, keyword, existing);
}

void inp_SetVisitor::SayFaults(inp_Keyword const& keyword, Faults const& faults)
{
  if (faults.invalid.Length() > 0)
  {
    SayItems(inp_msgSetDataInvalid, keyword, faults.invalid);
  }
  if (faults.tooLarge.Length() > 0)
  {
    SayItems(inp_msgSetsTooLarge, keyword, faults.tooLarge);
  }
  if (faults.missing.Length() > 0)
  {
    bool const inAssembly = SetScope().Empty();
    SayItems(inAssembly ? inp_msgSetsOrIdsMissing : inp_msgSetsMissing, keyword, faults.missing);
  }
}

inpM_SetHandle ConvertToSorted(inpM_BaseSet const& set)
{
  inpM_SetHandle sorted = CreateSet(cow_List<int>(), set.SetType());
  sorted.Get()->Add(set);
  return sorted;
}
