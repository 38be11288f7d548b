#pragma once

#include "DeckFiles.h"
#include "Program.h"

#include <string>
#include <vector>

#ifndef INPDECK_PROGRAM
#define INPDECK_PROGRAM "inpdeck"
#endif

/// The program under test, run in a folder of the test's own.
class Inpdeck : public testing::Test
{
protected:
  ProgramRun Run(std::vector<std::string> const& arguments) const
  {
    return InFolder().Run(arguments);
  }
  Program InFolder() const { return Program(INPDECK_PROGRAM, files.Folder()); }

  std::string Read(std::string const& name) const { return TextOfFile(files.Path(name)); }

  DeckFiles files;
};
