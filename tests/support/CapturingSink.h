#pragma once

#include "omi_Singleton.h"
#include "wip_WIP.h"

#include <string>
#include <vector>

/// Collects, while it lives, every message that the process's sink gets, whole and in order.
class CapturingSink : public wip_WipReporter
{
public:
  CapturingSink() { omi_Singleton<wip_WIP>::Instance().AddReporter(*this); }
  ~CapturingSink() override { omi_Singleton<wip_WIP>::Instance().RemoveReporter(*this); }
  CapturingSink(CapturingSink const&) = delete;
  CapturingSink& operator=(CapturingSink const&) = delete;

  void Message(wip_Message const& message) override { m_messages.push_back(message); }

  std::vector<wip_Message> const& Messages() const { return m_messages; }

  /// "warning: text", "error: text" (level 1), "fatal0: text", "fatal2: text".
  std::vector<std::string> Lines() const
  {
    std::vector<std::string> lines;
    for (wip_Message const& message : m_messages)
      lines.push_back(Severity(message) + ": " + std::string(message.text.View()));
    return lines;
  }

  void Clear() { m_messages.clear(); }

  static std::string Severity(wip_Message const& message)
  {
    if (message.isWarning)
      return "warning";
    return message.level == wip_error ? "error" : "fatal" + std::to_string(message.level);
  }

private:
  std::vector<wip_Message> m_messages;
};
