#pragma once

#include "inp_Keyword.h"

#include <string>

/// A keyword as one line to compare, parameters in the order of their names:
/// "name {comment; comment} parameter, parameter=value: cell|cell / cell".
inline std::string KeywordText(inp_Keyword const& keyword)
{
  std::string text(keyword.Name().View());
  for (int i = 0; i < keyword.comments.Length(); ++i)
    text += (i > 0 ? "; " : " {") + std::string(keyword.comments.ConstGet(i).View());
  text += keyword.comments.Length() > 0 ? "}" : "";
  char const* separator = " ";
  cow_ConstMapSortedIt<cow_String, inp_Item> parameter(keyword.parameters);
  for (parameter.First(); !parameter.IsDone(); parameter.Next(), separator = ", ")
  {
    inp_Item const& value = parameter.CurrentValue();
    text += separator + std::string(parameter.CurrentKey().View());
    if (value.Type() != inp_Types::inp_BOOLEAN)
      text += "=" + std::string(value.AsString().View());
  }
  for (int i = 0; i < keyword.data.Rows(); ++i)
    for (int j = 0; j < keyword.data.Cols(i); ++j)
      text += (j > 0   ? "|"
               : i > 0 ? " / "
                       : ": ") +
              std::string(keyword.data.AsStringVerbatim(i, j).View());
  return text;
}
