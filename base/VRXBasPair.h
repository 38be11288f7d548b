#pragma once

/// A plain pair.
template <class A, class B>
struct VRXBasPair
{
  A first{};
  B second{};

  friend bool operator==(VRXBasPair const& a, VRXBasPair const& b)
  {
    return a.first == b.first && a.second == b.second;
  }
};
