#include "inp_CurrentPlace.h"

#include "cow_String.h"

namespace
{

thread_local cow_String currentFile;
thread_local int currentLine = 0;

} // namespace

void inp_CurrentPlace::Set(cow_String const& file, int line)
{
  currentFile = file;
  currentLine = line;
}

void inp_CurrentPlace::Clear() { Set(cow_String(), 0); }

char const* inp_CurrentPlace::File() noexcept { return currentFile.CStr(); }

int inp_CurrentPlace::Line() noexcept { return currentLine; }
