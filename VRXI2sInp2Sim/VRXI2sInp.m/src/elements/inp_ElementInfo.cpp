#include "inp_ElementInfo.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace
{

constexpr inp_ElementInfo c_types[] = {
#define INP_ELEMENT_TYPE(name, fewest, most) {name, fewest, most},
#include "inp_ElementTypes.def"
};

constexpr std::size_t c_longestName = []
{
  std::size_t longest = 0;
  for (inp_ElementInfo const& type : c_types)
  {
    longest = std::max(longest, std::string_view(type.name).size());
  }
  return longest;
}();

bool IsBefore(inp_ElementInfo const* type, std::string_view name) { return type->name < name; }

/// The rows of the table, sorted by name.
auto const& Sorted()
{
  static auto const sorted = []
  {
    std::array<inp_ElementInfo const*, std::size(c_types)> types;
    std::transform(std::begin(c_types), std::end(c_types), types.begin(),
                   [](inp_ElementInfo const& type) { return &type; });
    std::sort(types.begin(), types.end(),
              [](auto const* a, auto const* b) { return IsBefore(a, b->name); });
    return types;
  }();
  return sorted;
}

} // namespace

inp_ElementInfo const* inp_ElementInfo::elementInfo(cow_String const& type)
{
  if (static_cast<std::size_t>(type.Length()) > c_longestName)
  {
    return nullptr;
  }
  cow_String name(type);
  std::string_view const upper = name.ToUpper().View();
  auto const& types = Sorted();
  auto const found = std::lower_bound(types.begin(), types.end(), upper, IsBefore);
  return found != types.end() && (*found)->name == upper ? *found : nullptr;
}

std::span<inp_ElementInfo const> inp_ElementInfo::AllTypes() { return c_types; }
