#pragma once

/// The limit on what a few lines of a deck may ask for (nodes of a generator, bytes of a set): the amount
/// given or, in programs that fuzz, a small part of it, so that they reach the limit often and at little
/// cost.
template <class T>
constexpr T mem_Budget(T most)
{
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
  return most / 50000;
#else
  return most;
#endif
}
