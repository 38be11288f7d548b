#pragma once

#include "cow_String.h"

#include <functional>
#include <map>
#include <string>

/// The named options that the process was started with. The driver sets them before the first
/// stage; from then on they may be read from any thread.
class utl_CommandLine
{
public:
  static utl_CommandLine& Instance();

  /// Replaces an earlier value.
  void SetOption(char const* name, cow_String const& value);
  bool HasOption(char const* name) const;
  /// "" when the option is absent. The text is the caller's own and shares with no other thread.
  cow_String Option(char const* name) const;
  void Clear();

private:
  std::map<std::string, std::string, std::less<>> m_options;
};
