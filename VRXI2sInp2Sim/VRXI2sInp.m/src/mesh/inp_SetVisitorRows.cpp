#include "VRXBasException.h"
#include "inpM_LabelRange.h"
#include "inp_GeneratedNames.h"
#include "inp_MeshMessages.h"
#include "inp_RawDataArrayImpl.h"
#include "inp_SetVisitorFaults.h"

#include <cstring>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace
{

char const* SkipBlanks(char const* text)
{
  while (*text == ' ' || *text == '\t' || *text == '\r')
  {
    ++text;
  }
  return text;
}

/// Reads digits up to the end of a cell or the blanks there; false for any other text.
bool ReadDigits(char const* text, int& id)
{
  int digits = 0;
  for (id = 0; *text >= '0' && *text <= '9' && digits <= inpM_longestLabel; ++text, ++digits)
  {
    id = digits < inpM_longestLabel ? 10 * id + (*text - '0') : id;
  }
  return *SkipBlanks(text) == '\0' && digits > 0 && digits <= inpM_longestLabel;
}

bool ReadPlainId(char const* cell, int& id) { return ReadDigits(SkipBlanks(cell), id); }

/// Calls onCell(row, column, text) for all cells; the text is null in data that are not kept as text.
template <class OnCell>
void ForEachCell(inp_DataArray const& data, OnCell const& onCell)
{
  auto const* const raw = dynamic_cast<inp_RawDataArrayImpl const*>(&data.Impl());
  for (int row = 0; row < data.Rows(); ++row)
  {
    int const columns = data.Cols(row);
    char const* text = raw != nullptr ? raw->RowText(row) : nullptr;
    for (int column = 0; column < columns; ++column)
    {
      char const* const cell = text;
      text += text != nullptr ? std::strlen(text) + 1 : 0;
      onCell(row, column, cell);
    }
  }
}

} // namespace

inpM_SetHandle inp_SetVisitor::ReadIdsAndSetNames(inp_Keyword const& keyword, bool internal,
                                                  bool includeAll)
{
  return ReadPart(keyword, internal, false, includeAll);
}

inpM_SetHandle inp_SetVisitor::ReadUnsortedIdsAndSetNames(inp_Keyword const& keyword, bool internal,
                                                          bool includeAll)
{
  return ReadPart(keyword, internal, true, includeAll);
}

inpM_SetHandle inp_SetVisitor::ReadAssemblyIdsAndSetNames(inpM_SetMap const& setMap,
                                                          inp_Keyword const& keyword, bool internal)
{
  return ReadAssembly(setMap, keyword, internal, false);
}

inpM_SetHandle inp_SetVisitor::ReadUnsortedAssemblyIdsAndSetNames(inpM_SetMap const& setMap,
                                                                  inp_Keyword const& keyword,
                                                                  bool internal)
{
  return ReadAssembly(setMap, keyword, internal, true);
}

template <class Reader>
inpM_SetHandle inp_SetVisitor::ReadRows(Reader& reader, inp_Keyword const& keyword,
                                        inpM_SetHandle const& set)
{
  ForEachCell(keyword.data,
              [&](int row, int column, char const* cell) { reader.ReadCell(row, column, cell); });
  reader.Finish();
  SayFaults(keyword, reader.faults);
  return set;
}

/// Reads the fields of one set of a part or an instance: ids, and names of sets of the scope.
class inp_SetVisitor::PartReader
{
public:
  /// With `includeAll` sets are searched in the whole model.
  PartReader(inp_SetVisitor const& visitor, inp_DataArray const& data, inpM_BaseSet& set,
             bool includeAll)
    : m_visitor(visitor),
      m_data(data),
      m_set(set),
      m_includeAll(includeAll),
      m_bytes(visitor.m_bytesHeld)
  {
  }

  void ReadCell(int row, int column, char const* cell)
  {
    int id = 0;
    if (cell != nullptr && ReadPlainId(cell, id))
    {
      m_ids.Append(id);
    }
    else
    {
      ReadField(row, column);
    }
  }

  void Finish()
  {
    m_set.Add(m_ids);
    m_ids.Clear();
  }

  Faults faults;

private:
  void ReadField(int row, int column)
  {
    inp_Types::typeEnm const type = m_data.Type(row, column);
    if (type == inp_Types::inp_INTEGER && m_data.AsInt(row, column) <= inpM_largestLabel)
    {
      m_ids.Append(m_data.AsInt(row, column));
    }
    else if (type == inp_Types::inp_STRING)
    {
      AddSet(m_data.AsString(row, column));
    }
    else if (type != inp_Types::inp_NONE)
    {
      faults.invalid.Append(m_data.AsString(row, column));
    }
  }

  /// A sorted set takes the members of another once, an unsorted one as often as it is named.
  void AddSet(cow_String const& name)
  {
    auto const [entry, isNew] = m_named.try_emplace(name, nullptr);
    if (isNew)
    {
      entry->second = Find(name);
      if (entry->second == nullptr)
      {
        faults.missing.Append(name);
      }
    }
    if (entry->second == nullptr || !(isNew || m_set.IsUnsorted()))
    {
      return;
    }
    if (!m_visitor.TakeRoom(*entry->second, m_set.IsUnsorted(), m_bytes))
    {
      faults.tooLarge.Append(name);
      entry->second = nullptr;
      return;
    }
    Finish();
    m_set.Add(*entry->second);
  }

  inpM_BaseSet const* Find(cow_String const& name) const
  {
    inpM_SetMap const& known = m_visitor.sets;
    cow_String scope = m_visitor.SetScope();
    bool const isSearched = !m_includeAll || known.SearchAssemblyAndInstancesForSet(name, scope);
    return isSearched ? known.ConstFindNestedSet(scope, name) : nullptr;
  }

  inp_SetVisitor const& m_visitor;
  inp_DataArray const& m_data;
  inpM_BaseSet& m_set;
  bool m_includeAll;
  std::size_t m_bytes; ///< held, with what an unsorted set gains
  cow_List<int> m_ids; ///< not in the set yet
  std::unordered_map<cow_String, inpM_BaseSet const*> m_named; ///< null: cannot be added
};

inpM_SetHandle inp_SetVisitor::ReadPart(inp_Keyword const& keyword, bool internal, bool unsorted,
                                        bool includeAll)
{
  VRXBasAssert(SetScope().Length() > 0, "currentName.Length() > 0");
  inpM_SetHandle set = CreateSet(internal, unsorted);
  PartReader reader(*this, keyword.data, *set.Get(), includeAll);
  return ReadRows(reader, keyword, set);
}

/// Reads the fields of one set in assembly scope.
class inp_SetVisitor::AssemblyReader
{
public:
  AssemblyReader(inp_SetVisitor const& visitor, inpM_SetMap const& setMap,
                 inp_DataArray const& data, inpM_BaseSet& set)
    : m_visitor(visitor), m_setMap(setMap), m_data(data), m_set(set), m_bytes(visitor.m_bytesHeld)
  {
  }

  void ReadCell(int row, int column, char const* cell)
  {
    int id = 0;
    if (cell != nullptr && ReadPlainId(cell, id))
    {
      m_ownIds.Append(id);
    }
    else if (cell == nullptr || !ReadIdOfSameInstance(cell))
    {
      ReadField(row, column);
    }
  }

  void Finish()
  {
    m_set.Add(m_ownIds);
    m_ownIds.Clear();
    AddInstanceIds();
  }

  Faults faults;

private:
  /// Rows name one instance many times over, and what stands before the id is then the same text.
  bool ReadIdOfSameInstance(char const* cell)
  {
    int id = 0;
    cell = SkipBlanks(cell);
    if (m_prefix.empty() || std::strncmp(cell, m_prefix.c_str(), m_prefix.size()) != 0 ||
        !ReadDigits(cell + m_prefix.size(), id))
    {
      return false;
    }
    m_instanceIds.Append(id);
    return true;
  }

  void ReadField(int row, int column)
  {
    if (m_data.IsNone(row, column))
    {
      return;
    }
    cow_String const text = m_data.AsString(row, column);
    inp_ScopedField const field(text, m_visitor.m_assemblyName);
    bool const isAdded = field.fits && (field.instanceName.Empty() ? AddOwn(row, column, field.last)
                                                                   : AddScoped(field));
    if (!isAdded)
    {
      faults.missing.Append(text);
    }
    else if (field.instanceName.Length() > 0)
    {
      KeepPrefix(m_data.AsStringVerbatim(row, column), field);
    }
  }

  bool AddOwn(int row, int column, cow_String const& text)
  {
    inp_Types::typeEnm const type = m_data.Type(row, column);
    if (type == inp_Types::inp_INTEGER)
    {
      m_ownIds.Append(m_data.AsInt(row, column));
      return true;
    }
    return type == inp_Types::inp_STRING && AddSetOfAssembly(text);
  }

  bool AddSetOfAssembly(cow_String const& name)
  {
    if (IsAddedAlready(name))
    {
      return true;
    }
    inpM_BaseSet const* const own = m_setMap.ConstGetMap().ConstFind(name);
    if (own == nullptr)
    {
      return AddSetOfInstance(inp_generatedInstance, name);
    }
    if (HasRoomFor(*own, name))
    {
      Finish();
      m_set.Add(*own);
    }
    return true;
  }

  bool AddScoped(inp_ScopedField const& field)
  {
    if (inp_Types::IsSetName(field.last.View()))
    {
      return IsAddedAlready(field.instanceName + "." + field.last) ||
             AddSetOfInstance(field.instanceName, field.last);
    }
    int id = 0;
    if (!field.GetId(id) || !m_visitor.IsValidInstanceName(field.instanceName))
    {
      return false;
    }
    UseInstance(field.instanceName);
    m_instanceIds.Append(id);
    return true;
  }

  bool AddSetOfInstance(cow_String const& instanceName, cow_String const& name)
  {
    inpM_BaseSet const* const nested = m_setMap.ConstFindNestedSet(instanceName, name);
    if (nested == nullptr)
    {
      return false;
    }
    if (!HasRoomFor(*nested, instanceName + "." + name))
    {
      return true;
    }
    Finish();
    if (m_set.IsUnsorted())
    {
      m_set.Add(instanceName, nested->ConstGetIds());
    }
    else
    {
      m_set.Add(instanceName, nested->ConstGetOwnIds());
    }
    return true;
  }

  /// A sorted set needs the members of another once only, and a name that is missing is told once.
  bool IsAddedAlready(cow_String const& name)
  {
    return !m_set.IsUnsorted() && !m_added.insert(name).second;
  }

  bool HasRoomFor(inpM_BaseSet const& added, cow_String const& name)
  {
    if (m_visitor.TakeRoom(added, m_set.IsUnsorted(), m_bytes))
    {
      return true;
    }
    if (m_refused.insert(name).second)
    {
      faults.tooLarge.Append(name);
    }
    return false;
  }

  void UseInstance(cow_String const& instanceName)
  {
    if (!(instanceName == m_instanceName))
    {
      AddInstanceIds();
      m_instanceName = instanceName;
    }
  }

  void KeepPrefix(cow_String const& text, inp_ScopedField const& field)
  {
    int id = 0;
    int const period = text.RFind('.');
    if (period < text.Length() && field.GetId(id))
    {
      m_prefix = text.View().substr(0, static_cast<std::size_t>(period) + 1);
    }
  }

  void AddInstanceIds()
  {
    m_set.Add(m_instanceName, m_instanceIds);
    m_instanceIds.Clear();
  }

  inp_SetVisitor const& m_visitor;
  inpM_SetMap const& m_setMap;
  inp_DataArray const& m_data;
  inpM_BaseSet& m_set;
  cow_List<int> m_ownIds;
  cow_List<int> m_instanceIds; ///< of m_instanceName, not in the set yet
  cow_String m_instanceName;
  std::string m_prefix; ///< how a field with an id of m_instanceName begins; empty before the first
  std::unordered_set<cow_String> m_added;
  std::unordered_set<cow_String> m_refused;
  std::size_t m_bytes; ///< held, with what an unsorted set gains
};

inpM_SetHandle inp_SetVisitor::ReadAssembly(inpM_SetMap const& setMap, inp_Keyword const& keyword,
                                            bool internal, bool unsorted)
{
  VRXBasAssert(SetScope().Length() == 0, "currentName.Length() == 0");
  inpM_SetHandle set = CreateSet(internal, unsorted);
  AssemblyReader reader(*this, setMap, keyword.data, *set.Get());
  return ReadRows(reader, keyword, set);
}
