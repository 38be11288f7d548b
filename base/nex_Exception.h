#pragma once

#include "VRXBasException.h"

#include <array>
#include <utility>

/// Base of the exceptions that carry words for a user.
class nex_Exception : public VRXBasException
{
public:
  nex_Exception* Copy() const override { return new nex_Exception(*this); }
  [[noreturn]] void Propagate() const override { throw nex_Exception(*this); }
};

/// An exception made of N values of type T, by which it is caught; its words are the values, one
/// after the other.
///
/// In use is nex_PrimException<atr_String, 1>, built from one finished message. A class derived
/// from it overrides Copy and Propagate.
template <class T = atr_String, int N = 1>
class nex_PrimException : public nex_Exception
{
public:
  template <class... Arguments>
  requires(sizeof...(Arguments) == N && (std::is_constructible_v<T, Arguments&&> && ...) &&
           (!std::is_base_of_v<VRXBasException, std::remove_cvref_t<Arguments>> &&
            ...)) explicit nex_PrimException(Arguments&&... arguments)
    : m_values{T(std::forward<Arguments>(arguments))...}
  {
  }

  T const& Value(int index = 0) const { return m_values.at(static_cast<std::size_t>(index)); }

  atr_String UserReport(VRXBasStringMode = VRXBasStringMode()) const override
  {
    atr_String report;
    for (T const& value : m_values)
      report.Append(value);
    return report;
  }
  nex_PrimException* Copy() const override { return new nex_PrimException(*this); }
  [[noreturn]] void Propagate() const override { throw nex_PrimException(*this); }

private:
  std::array<T, N> m_values;
};
