#include "pnt_debugPrint.h"

#include "omi_Singleton.h"

#include <iostream>

pnt_DebugPrint& pnt_debugPrint() { return omi_Singleton<pnt_DebugPrint>::Instance(); }

pnt_DebugPrint& pnt_DebugPrint::StartDebug()
{
  ++m_depth;
  return *this;
}

pnt_DebugPrint& pnt_DebugPrint::EndDebug()
{
  if (m_depth > 0 && --m_depth == 0)
  {
    Target() << m_text << std::flush;
    m_text.clear();
  }
  return *this;
}

pnt_DebugPrint& pnt_DebugPrint::Write(std::string_view text)
{
  if (m_depth > 0)
    m_text.append(text);
  else
    Target() << text;
  return *this;
}

std::ostream& pnt_DebugPrint::Target() const noexcept
{
  return m_target != nullptr ? *m_target : std::cerr;
}

pnt_DebugPrint& pnt_DebugPrint::operator<<(int value)
{
  char buffer[atr_numberSize];
  int const length = atr_FormatNumber(value, buffer);
  return Write({buffer, static_cast<std::size_t>(length)});
}

pnt_DebugPrint& pnt_DebugPrint::operator<<(double value)
{
  char buffer[atr_numberSize];
  int const length = atr_FormatNumber(value, buffer);
  return Write({buffer, static_cast<std::size_t>(length)});
}
