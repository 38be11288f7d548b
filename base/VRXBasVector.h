#pragma once

#include <vector>

/// A growable array.
template <class T>
using VRXBasVector = std::vector<T>;
