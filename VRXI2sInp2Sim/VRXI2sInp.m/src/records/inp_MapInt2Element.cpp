#include "inp_MapInt2Element.h"

#include "inpM_OmiSet.h"
#include "inp_ParserExceptions.h"
#include "nex_Exception.h"

#include <utility>

namespace
{
using ElementMap = inpM_InstanceMap<inp_MapInt2Element>;

omi_IntTableElement const& NoElements()
{
  static omi_IntTableElement const* const none = new omi_IntTableElement; // as long as the process
  return *none;
}

void EnterAsTheyAre(inp_MapInt2Element const& elements, inpM_IdMap& ids)
{
  for (inp_MapInt2ElementIT it(elements); !it.IsDone(); it.Next())
  {
    ids.Insert(it.CurrentKey(), it.CurrentKey());
  }
}

int const mostReported = 100;

void UpdateConnectivity(inp_MapInt2Element const& elements, inpM_IdMap const& idMap,
                        inpM_OmiSet& failed)
{
  for (inp_MapInt2ElementSIT it(elements); !it.IsDone() && failed.Size() < mostReported; it.Next())
  {
    inp_Element& element = *it.CurrentValuePtr();
    try
    {
      idMap.Renumber(element.topology(), element.numNodesPerElement());
    }
    catch (nex_PrimException<atr_String> const&)
    {
      failed.Insert(it.CurrentKey());
    }
  }
}

void UpdateLevel(ElementMap const& level, inpM_IdMap const& idMap, cow_String const& instanceName)
{
  inpM_OmiSet failed;
  if (level.HasValue())
  {
    UpdateConnectivity(level.ConstGet(), idMap, failed);
  }
  if (!failed.IsEmpty() && instanceName.Length() != 0)
  {
    throw inp_ElementUndefinedNodesError(failed.ConstGetArrayCounterpart(), instanceName);
  }
  if (!failed.IsEmpty())
  {
    throw inp_ElementUndefinedNodesError(failed.ConstGetArrayCounterpart());
  }
  for (cow_String const& name : level.Instances())
  {
    UpdateLevel(level.ConstGetMap(name), idMap.ConstGet(name), name);
  }
}
} // namespace

omi_IntTableElement& inp_MapInt2Element::Table()
{
  if (!m_table)
  {
    AdoptNewTable();
  }
  return *m_table;
}

bool inp_MapInt2Element::Insert(int const& label, inp_Element const& element)
{
  if (inp_Element* const present = GetEltPtr(label))
  {
    *present = element;
    return false;
  }
  return InsertPtr(label, inp_Element::Make(element));
}

bool inp_MapInt2Element::InsertPtr(int const& label, inp_Element const* element)
{
  auto* const owned = const_cast<inp_Element*>(element);
  try
  {
    omi_IntTableElement& table = Table();
    if (!table.IsMember(label))
    {
      return table.Insert(label, owned);
    }
    inp_Element* const old = table.GetElement(label);
    if (old != owned)
    {
      table.Get(label) = owned;
      delete old;
    }
    return false;
  }
  catch (...)
  {
    delete owned;
    throw;
  }
}

bool inp_MapInt2Element::Remove(int const& label)
{
  if (!IsMember(label))
  {
    return false;
  }
  delete m_table->GetElement(label);
  return m_table->Remove(label);
}

void inp_MapInt2Element::Clear()
{
  if (m_table)
  {
    m_table->DeleteElements();
  }
}

std::size_t inp_MapInt2Element::Bytes() const
{
  if (!m_table)
  {
    return 0;
  }
  std::size_t bytes = sizeof(omi_IntTableElement) + m_table->Bytes();
  for (inp_MapInt2ElementIT it(*this); !it.IsDone(); it.Next())
  {
    bytes += it.CurrentValue().Bytes();
  }
  return bytes;
}

// The only owner of a table hands its elements over; any other copies them. A cell is emptied before its
// element is put in elsewhere, so that an element has one owner also when that raises.
template <class Numbering>
inp_MapInt2Element inp_MapInt2Element::Renumbered(Numbering const& numberOf)
{
  inp_MapInt2Element renumbered;
  bool const isSole = UseCount() == 1;
  for (omi_IntTableIterator<void*> it(*m_table); !it.IsDone(); it.Next())
  {
    int const label = it.CurrentKey();
    if (m_table->GetElement(label) == nullptr)
    {
      continue;
    }
    int const number = numberOf(label);
    if (isSole)
    {
      renumbered.InsertPtr(number,
                           static_cast<inp_Element*>(std::exchange(m_table->Get(label), nullptr)));
    }
    else
    {
      renumbered.Insert(number, *m_table->GetElement(label));
    }
  }
  if (isSole)
  {
    m_table->Clear();
  }
  return renumbered;
}

inp_MapInt2ElementIT::inp_MapInt2ElementIT(inp_MapInt2Element const& map)
  : m_share(map.m_table), m_iterator(m_share ? *m_share : NoElements())
{
  PassNull();
}

void inp_MapInt2ElementIT::First()
{
  m_iterator.First();
  PassNull();
}

void inp_MapInt2ElementIT::Next()
{
  m_iterator.Next();
  PassNull();
}

void inp_MapInt2ElementIT::PassNull()
{
  while (!m_iterator.IsDone() && m_iterator.CurrentValue() == nullptr)
  {
    m_iterator.Next();
  }
}

// Get is called before Renumbered counts the owners of the table: it separates this level from its copies.
// The names are listed first, since an iterator over the children would share them.
template <>
inpM_IdMap inpM_InstanceMap<inp_MapInt2Element>::Renumber(int first, bool keepIds)
{
  inpM_IdMap ids;
  int next = first;
  if (keepIds && HasValue())
  {
    EnterAsTheyAre(ConstGet(), ids);
  }
  else if (HasValue() && !ConstGet().IsEmpty())
  {
    Insert(Get().Renumbered(
      [&](int label)
      {
        ids.Insert(label, next);
        return next++;
      }));
  }
  for (cow_String const& name : Instances())
  {
    inpM_IdMap const below = instances->Find(name)->Renumber(next, keepIds);
    next += below.NumberIds();
    ids.Insert(name, below);
  }
  ids.ComputeRemapUserIdRange();
  return ids;
}

template <>
inpM_IdMap inpM_InstanceMap<inp_MapInt2Element>::Renumber(int& next, bool keepIds,
                                                          omi_IntTable<int> const& assigned)
{
  inpM_IdMap ids;
  if (keepIds && HasValue())
  {
    EnterAsTheyAre(ConstGet(), ids);
  }
  else if (HasValue() && !ConstGet().IsEmpty())
  {
    Insert(Get().Renumbered(
      [&](int label)
      {
        int number = next;
        assigned.ConstGetValue(label, number);
        ids.Insert(label, number);
        return number;
      }));
  }
  ids.ComputeRemapUserIdRange();
  return ids;
}

template <>
void inpM_InstanceMap<inp_MapInt2Element>::Update(inpM_IdMap const& idMap)
{
  UpdateLevel(*this, idMap, cow_String());
}
