// Takes any bytes as rows of a part, and turns them into surfaces, of parts, instances and the assembly.
// A surface taken from itself must leave nothing, and with itself have itself in common.

#include "DeckWords.h"
#include "FuzzedDeck.h"
#include "aio_ostream.h"

#include <sstream>

inp_KeywordEnm const fuzzedKeywords[] = {inp_kwSurface, inp_kwSurface, inp_kwSurface,
                                         inp_kwNset,    inp_kwElset,   inp_kwUndefined};

namespace
{

constexpr char c_above[] =
  "*PART, NAME=P\n"
  "*NODE, NSET=A\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n"
  "5, 0., 0., 1.\n6, 1., 0., 1.\n7, 1., 1., 1.\n8, 0., 1., 1.\n"
  "*ELEMENT, TYPE=C3D8R, ELSET=E\n1, 1, 2, 3, 4, 5, 6, 7, 8\n"
  "*ELEMENT, TYPE=S4R, ELSET=Q\n2, 1, 2, 3, 4\n3, 5, 6, 7, 8\n"
  "*SURFACE, NAME=S\nE, S1\nQ, SPOS\n*SURFACE, NAME=T, TYPE=NODE\nA, 2.\n";

std::string Text(inpM_PartInstanceSurface const& surface)
{
  std::ostringstream text;
  aio_ostream stream(text);
  surface.Print(stream);
  return text.str();
}

void Walk(inpM_PartInstanceSurface const& surface)
{
  inpM_PartInstanceSurfaceHandle once(surface.Copy());
  once.Get()->DropRepeats();
  inpM_PartInstanceSurfaceHandle common = once;
  common.Get()->Intersection(surface);
  Require(Text(*common) == Text(*once));
  common.Get()->Difference(surface);
  Require(common->IsEmpty() && common->Count() == 0);
}

void Walk(inpM_PartInstanceSurfaceMap const& surfaces)
{
  for (inpM_PartInstanceSurfaceMapSIT surface(surfaces); !surface.IsDone(); surface.Next())
  {
    Walk(surface.CurrentValue());
  }
}

void Walk(inpM_SurfaceMap const& surfaces)
{
  for (cow_String const& level : surfaces.Instances())
  {
    Walk(surfaces.ConstGetPartInstanceSurfaceMap(level));
  }
  inpM_AssemblyInstanceSurfaceMapSIT surface(surfaces.ConstGetAssemblyInstanceSurfaceMap());
  for (surface.First(); !surface.IsDone(); surface.Next())
  {
    inpM_AssemblyInstanceSurface left = surface.CurrentValue();
    Walk(left.ConstGetInstance2PartInstanceSurfaceMap());
    left.Difference(surface.CurrentValue());
    Require(left.IsEmpty() && left.Count() == 0);
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static FuzzedDeck const deck(c_above);
  deck.Fill(data, size);
  inp_InputFile input;
  if (Organize(deck, input))
  {
    input.ExtractMaps(false);
    Walk(input.partSurfaceMap);
    Walk(input.assemblySurfaceMap);
  }
  return 0;
}
