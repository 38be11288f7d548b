#include "utl_CommandLine.h"

#include "omi_Singleton.h"

utl_CommandLine& utl_CommandLine::Instance() { return omi_Singleton<utl_CommandLine>::Instance(); }

void utl_CommandLine::SetOption(char const* name, cow_String const& value)
{
  m_options.insert_or_assign(name, std::string(value.View()));
}

bool utl_CommandLine::HasOption(char const* name) const
{
  return m_options.find(std::string_view(name)) != m_options.end();
}

cow_String utl_CommandLine::Option(char const* name) const
{
  auto const found = m_options.find(std::string_view(name));
  return found == m_options.end() ? cow_String() : cow_String(std::string_view(found->second));
}

void utl_CommandLine::Clear() { m_options.clear(); }
