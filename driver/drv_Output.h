#pragma once

#include "drv_NewFile.h"
#include "srv_TextOutput.h"

#include <optional>
#include <streambuf>
#include <string>
#include <string_view>

/// Where results go: standard output, or a file that appears whole or not at all.
///
/// What stands in the way of the file is found when the output is made, not when it is written. A name
/// that exists and is no regular file, such as a device, is written to directly. An output that is
/// destroyed without Finish leaves nothing behind.
///
/// Every operation raises drv_Failure when something cannot be written, and drv_PipeClosed when the
/// reader of a pipe has gone.
class drv_Output : public srv_TextOutput
{
public:
  /// Standard output for an empty path.
  explicit drv_Output(std::string const& path);
  ~drv_Output() override;

  /// The regular file that is written to, or that the new one will take the place of; none when there
  /// is no such file.
  aio_FileId Target() const;
  /// Raises drv_Failure: the target is this file, which is read.
  [[noreturn]] void RefuseInput(std::string const& shownPath) const;
  void Finish();

private:
  void Open();
  void WriteOut() override;
  [[noreturn]] void Fail(int error) const;
  [[noreturn]] void Fail(std::string const& words) const;

  std::string m_path; ///< as given, for messages
  std::optional<drv_NewFile> m_file;
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
