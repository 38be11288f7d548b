#include "wip_WIP.h"

#include <algorithm>

void wip_WipReporter::Message(wip_Message const&) {}

void wip_WipReporter::Error(atr_String const& text, wip_errorLevelEnm level, VRXBasStringMode)
{
  Message({false, level, text});
}

void wip_WipReporter::ErrorList(cow_List<atr_String> const& texts, wip_errorLevelEnm level,
                                VRXBasStringMode mode)
{
  for (int i = 0; i < texts.Length(); ++i)
    Error(texts.ConstGet(i), level, mode);
}

void wip_WipReporter::Warning(atr_String const& text, VRXBasStringMode)
{
  Message({true, wip_error, text});
}

void wip_WipReporter::WarningList(cow_List<atr_String> const& texts, VRXBasStringMode mode)
{
  for (int i = 0; i < texts.Length(); ++i)
    Warning(texts.ConstGet(i), mode);
}

void wip_WipReporter::CommandDone() {}
void wip_WipReporter::Display(atr_String const&) {}
void wip_WipReporter::Landmark(atr_String const&) {}
void wip_WipReporter::Milestone(atr_String const&) {}
void wip_WipReporter::Milestone(atr_String const&, int, int) {}
void wip_WipReporter::Milestone(atr_String const&, double) {}
void wip_WipReporter::Print(atr_String const&) {}
void wip_WipReporter::Verbose(int, atr_String const&) {}
int wip_WipReporter::Interrupted() { return 0; }
void wip_WipReporter::InterruptedThrow() {}

template <class Send>
void wip_WIP::ToReporters(Send const& send)
{
  // A reporter may remove itself, or add another, while it is served.
  std::vector<wip_WipReporter*> const reporters = m_reporters;
  for (wip_WipReporter* reporter : reporters)
    if (std::find(m_reporters.begin(), m_reporters.end(), reporter) != m_reporters.end())
      send(*reporter);
}

void wip_WIP::Error(atr_String const& text, wip_errorLevelEnm level, VRXBasStringMode mode)
{
  ++m_errors[level];
  ToReporters([&](wip_WipReporter& reporter) { reporter.Error(text, level, mode); });
}

void wip_WIP::ErrorList(cow_List<atr_String> const& texts, wip_errorLevelEnm level,
                        VRXBasStringMode mode)
{
  m_errors[level] += texts.Length();
  ToReporters([&](wip_WipReporter& reporter) { reporter.ErrorList(texts, level, mode); });
}

void wip_WIP::Warning(atr_String const& text, VRXBasStringMode mode)
{
  ++m_warnings;
  ToReporters([&](wip_WipReporter& reporter) { reporter.Warning(text, mode); });
}

void wip_WIP::WarningList(cow_List<atr_String> const& texts, VRXBasStringMode mode)
{
  m_warnings += texts.Length();
  ToReporters([&](wip_WipReporter& reporter) { reporter.WarningList(texts, mode); });
}

void wip_WIP::AddReporter(wip_WipReporter& reporter)
{
  if (std::find(m_reporters.begin(), m_reporters.end(), &reporter) == m_reporters.end())
    m_reporters.push_back(&reporter);
}

void wip_WIP::RemoveReporter(wip_WipReporter& reporter) { std::erase(m_reporters, &reporter); }

int wip_WIP::ErrorCount() const noexcept
{
  return m_errors[wip_readerFatal] + m_errors[wip_error] + m_errors[wip_passFatal];
}

void wip_WIP::ResetCounts() noexcept
{
  m_warnings = 0;
  std::fill(std::begin(m_errors), std::end(m_errors), 0);
}
