#pragma once

/// How much a deck may make of a few of its lines (nodes of a generator, bytes of a set) before it is
/// refused: the amount given, or a small part of it in programs that fuzz, which are to come to such
/// refusals often and at little cost.
template <class T>
constexpr T mem_Budget(T most)
{
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
  return most / 50000;
#else
  return most;
#endif
}
