#pragma once

#include "srv_TextOutput.h"

#include <streambuf>
#include <string>
#include <string_view>

/// Where results go: standard output, or a file that appears whole or not at all.
///
/// A file is written under a name of its own beside the one wanted, and gets that name at Finish; an
/// output that is destroyed without Finish leaves nothing behind. A name that exists and is no
/// regular file, such as a device, is written to directly.
///
/// Every operation raises drv_Failure when something cannot be written, and drv_PipeClosed when the
/// reader of a pipe has gone.
class drv_Output : public srv_TextOutput
{
public:
  /// Standard output for an empty path.
  explicit drv_Output(std::string const& path);
  ~drv_Output() override;

  void Finish();

private:
  void OpenBeside();
  void WriteOut() override;
  [[noreturn]] void Fail(int error) const;

  std::string m_path; ///< as given, for messages
  std::string m_target;
  std::string m_temporary; ///< empty unless there is an unfinished file
  int m_descriptor = -1;
};

/// Lets the standard streams write to an output; the output's exceptions pass through a stream whose
/// exceptions are on.
class drv_OutputStreambuf : public std::streambuf
{
public:
  explicit drv_OutputStreambuf(drv_Output& output) : m_output(output) {}

protected:
  std::streamsize xsputn(char const* text, std::streamsize count) override;
  int_type overflow(int_type character) override;

private:
  drv_Output& m_output;
};
