#pragma once

/// The process's debug levels by number; all are 0 at first. Safe from any thread.
class typ_DebugFlags
{
public:
  static constexpr int Flags = 128;

  /// 0 for a number outside 0 .. Flags - 1.
  static int GetDebugFlags(int flag) noexcept;
  /// Without effect for such a number.
  static void SetDebugFlags(int flag, int level) noexcept;
};
