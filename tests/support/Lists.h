#pragma once

#include "aio_ostream.h"
#include "cow_IntTableInt.h"
#include "cow_List.h"
#include "nex_Exception.h"

#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

// Containers as standard ones, and the other way round, to write down and to compare.

inline cow_List<int> ListOf(std::vector<int> const& items)
{
  cow_List<int> list;
  list.SetFromArray(items.data(), static_cast<int>(items.size()));
  return list;
}

inline std::vector<int> Items(cow_List<int> const& list) { return {list.begin(), list.end()}; }

/// What a container of ids, nodes or the like holds by key, as `value` reads it from the iterator.
template <class Iterator, class Container, class Value>
auto Contents(Container const& container, Value const& value)
{
  std::map<int, decltype(value(std::declval<Iterator&>()))> contents;
  for (Iterator it(container); !it.IsDone(); it.Next())
    contents[it.CurrentKey()] = value(it);
  return contents;
}

inline std::map<int, int> Entries(cow_IntTableInt const& table)
{
  return Contents<cow_IntTableIntIT>(table, [](auto& it) { return it.CurrentValue(); });
}

template <class Printable>
std::string Printed(Printable const& printable)
{
  std::ostringstream text;
  aio_ostream stream(text.rdbuf());
  printable.Print(stream);
  return text.str();
}

/// The words of what an action raises.
template <class Fault = nex_PrimException<atr_String>, class Action>
std::string Raised(Action const& action)
{
  try
  {
    action();
  }
  catch (Fault const& fault)
  {
    return fault.UserReport().CStr();
  }
  return "nothing";
}
