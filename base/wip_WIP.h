#pragma once

#include "VRXBasStringMode.h"
#include "atr_String.h"
#include "cow_List.h"

#include <vector>

/// How bad an error is, by who sends it.
enum wip_errorLevelEnm
{
  wip_readerFatal = 0, ///< the reader could not make out the deck
  wip_error = 1,       ///< a fault in the deck
  wip_passFatal = 2    ///< a fault in the deck that later passes cannot work with
};

/// One message as it reaches a reporter.
struct wip_Message
{
  bool isWarning;
  wip_errorLevelEnm level; ///< wip_error for a warning
  atr_String text;
};

/// The operations through which messages are sent, one by one or as lists in order.
class wip_WIPBase
{
public:
  virtual ~wip_WIPBase() = default;

  virtual void Error(atr_String const& text, wip_errorLevelEnm level,
                     VRXBasStringMode mode = VRXBasStringMode()) = 0;
  virtual void ErrorList(cow_List<atr_String> const& texts, wip_errorLevelEnm level,
                         VRXBasStringMode mode = VRXBasStringMode()) = 0;
  virtual void Warning(atr_String const& text, VRXBasStringMode mode = VRXBasStringMode()) = 0;
  virtual void WarningList(cow_List<atr_String> const& texts,
                           VRXBasStringMode mode = VRXBasStringMode()) = 0;
};

/// Receives what the process's sink gets. Derive, override Message, and register with wip_WIP.
///
/// A reporter may override the four operations instead, where a list is to be treated as one. What
/// a program shows of its progress comes through the other operations, which by default do nothing.
class wip_WipReporter : public wip_WIPBase
{
public:
  virtual void Message(wip_Message const& message);

  void Error(atr_String const& text, wip_errorLevelEnm level,
             VRXBasStringMode mode = VRXBasStringMode()) override;
  void ErrorList(cow_List<atr_String> const& texts, wip_errorLevelEnm level,
                 VRXBasStringMode mode = VRXBasStringMode()) override;
  void Warning(atr_String const& text, VRXBasStringMode mode = VRXBasStringMode()) override;
  void WarningList(cow_List<atr_String> const& texts,
                   VRXBasStringMode mode = VRXBasStringMode()) override;

  virtual void CommandDone();
  virtual void Display(atr_String const& text);
  virtual void Landmark(atr_String const& text);
  virtual void Milestone(atr_String const& text);
  virtual void Milestone(atr_String const& text, int done, int total);
  virtual void Milestone(atr_String const& text, double fraction);
  virtual void Print(atr_String const& text);
  virtual void Verbose(int level, atr_String const& text);
  /// Nonzero when the user asked the program to stop.
  virtual int Interrupted();
  /// Raises when the user asked the program to stop.
  virtual void InterruptedThrow();
};

/// The process's message sink, reached as omi_Singleton<wip_WIP>::Instance().
///
/// Hands each message, in the order of sending, to every registered reporter in the order of
/// registration, and counts. Without a reporter it keeps silent. What a reporter raises reaches the
/// sender, and later reporters miss that message. To be used by one thread at a time.
class wip_WIP : public wip_WIPBase
{
public:
  void Error(atr_String const& text, wip_errorLevelEnm level,
             VRXBasStringMode mode = VRXBasStringMode()) override;
  void ErrorList(cow_List<atr_String> const& texts, wip_errorLevelEnm level,
                 VRXBasStringMode mode = VRXBasStringMode()) override;
  void Warning(atr_String const& text, VRXBasStringMode mode = VRXBasStringMode()) override;
  void WarningList(cow_List<atr_String> const& texts,
                   VRXBasStringMode mode = VRXBasStringMode()) override;

  /// The reporter is not owned; it must be removed before it goes. A second time has no effect.
  void AddReporter(wip_WipReporter& reporter);
  void RemoveReporter(wip_WipReporter& reporter);

  int WarningCount() const noexcept { return m_warnings; }
  int ErrorCount(wip_errorLevelEnm level) const noexcept { return m_errors[level]; }
  /// Errors of all levels.
  int ErrorCount() const noexcept;
  void ResetCounts() noexcept;

private:
  template <class Send>
  void ToReporters(Send const& send);

  std::vector<wip_WipReporter*> m_reporters;
  int m_warnings = 0;
  int m_errors[3] = {0, 0, 0};
};
