// Takes any bytes as a deck down the whole road: to keywords, to their hierarchy, to maps and numbers,
// and through the rules that need them; once as an analysis does it, and once by the way of those who
// want the keywords beside the maps. What the stages leave is walked to its end.

#include "FuzzedFiles.h"
#include "aio_ostream.h"
#include "eli_eostream.h"
#include "inp_DistributionTableDB.h"
#include "inp_InputFile.h"

#include <cstdint>
#include <sstream>

namespace
{

void WalkNodes(inp_CoordMap const& nodes)
{
  inp_MapInt2Coord const placed = nodes.ConstGet();
  inp_MapInt2CoordSIT node(placed);
  int count = 0;
  for (node.First(); !node.IsDone(); node.Next())
  {
    Require(nodes.IsMember(node.CurrentKey()));
    ++count;
  }
  for (cow_String const& instance : nodes.Instances())
  {
    WalkNodes(nodes.ConstGet(instance));
    count += nodes.ConstGet(instance).Count();
  }
  Require(count == nodes.Count());
}

void WalkElements(inp_MapInt2Element const& elements)
{
  inp_MapInt2ElementSIT element(elements);
  for (element.First(); !element.IsDone(); element.Next())
  {
    inp_Element const& record = element.CurrentValue();
    for (int i = 0; i < record.numNodesPerElement(); ++i)
    {
      Require(record.topology()[i] >= -999999999 && record.topology()[i] <= 999999999);
    }
  }
}

void Walk(inp_InputFile const& input)
{
  WalkNodes(input.partCoordMap);
  WalkNodes(input.assemblyCoordMap);
  for (cow_String const& instance : input.assemblyElementMap.Instances())
  {
    WalkElements(input.assemblyElementMap.ConstGet(instance));
  }
  Require(input.nodeIdMap.NumberIds() == input.assemblyCoordMap.Count());
  std::ostringstream text;
  eli_eostream listing(text);
  input.Print(listing);
  aio_ostream stream(text);
  input.assemblyNsetMap.Print(stream);
  input.assemblyElsetMap.Print(stream);
}

bool Begin(inp_InputFile& input, FuzzedFiles const& files)
{
  thr_ThreadSingleton<inp_DistributionTableDB>::Finalize();
  input.includePath = files.folder.Name();
  return Runs([&] { input.Parse(files.deck.Name()); }) && Runs([&] { input.ExpandKeywords(); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static FuzzedFiles const files("fuzz_maps");
  files.Fill(data, size);

  inp_InputFile input;
  if (Begin(input, files))
  {
    input.setModelParameters();
    input.Classify(false);
    input.NumberModel();
    input.CheckOutOfPlace();
    Walk(input);
  }
  inp_InputFile listed;
  if (Begin(listed, files))
  {
    listed.setModelParameters();
    listed.ReorganizeKeywords(true);
    listed.ExtractMaps(true);
    listed.CheckOutOfPlace();
  }
  return 0;
}
