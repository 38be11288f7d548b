#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

/// Parameters whose value is the name of a file, by their full names.
inline constexpr std::string_view inp_fileParameters[] = {"input", "file", "datafile", "library"};

inline bool inp_IsFileParameter(std::string_view fullName)
{
  return std::find(std::begin(inp_fileParameters), std::end(inp_fileParameters), fullName) !=
         std::end(inp_fileParameters);
}
