// load_and_free DECK: takes a deck to its maps, as a program does that keeps the model, and then gives
// everything back. Prints the seconds of both.

#include "inp_InputFile.h"
#include "omi_Timer.h"

#include <cstdio>
#include <memory>

int main(int argc, char** argv)
{
  if (argc != 2)
  {
    std::fprintf(stderr, "usage: load_and_free DECK\n");
    return 2;
  }
  omi_Timer load;
  auto model = std::make_unique<inp_InputFile>();
  model->Parse(argv[1]);
  model->ExpandKeywords();
  model->setModelParameters();
  model->Classify(false);
  model->CheckOutOfPlace();
  load.Stop();

  omi_Timer release;
  model.reset();
  release.Stop();
  std::printf("load %.6f s\nfree %.6f s\n", load.ElapsedSeconds(), release.ElapsedSeconds());
}
