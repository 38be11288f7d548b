#pragma once

class cow_String;

/// The keyword that this thread is at work on: set by the reader at each keyword line and by a walk
/// at each keyword, so that a program can say where an internal failure struck.
class inp_CurrentOrigin
{
public:
  static void Set(cow_String const& file, int line);
  static void Clear();

  /// Closed by a NUL, never null; good until the next Set. May be read in a signal handler.
  static char const* File() noexcept;
  /// 0 when no keyword is at work.
  static int Line() noexcept;
};
