#include "inp_CurrentOrigin.h"

#include "cow_String.h"

namespace
{

thread_local cow_String currentFile;
thread_local int currentLine = 0;

} // namespace

void inp_CurrentOrigin::Set(cow_String const& file, int line)
{
  currentFile = file;
  currentLine = line;
}

void inp_CurrentOrigin::Clear() { Set(cow_String(), 0); }

char const* inp_CurrentOrigin::File() noexcept { return currentFile.CStr(); }

int inp_CurrentOrigin::Line() noexcept { return currentLine; }
