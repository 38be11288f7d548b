// Takes any bytes as a deck down the whole road, as the program does: to keywords, to their hierarchy, to
// maps and numbers, through the rules that need them, and to what is written of them; and by the way of
// those who want the keywords beside the maps, which must give the same maps.

#include "DeckWords.h"
#include "FuzzedDeck.h"
#include "eli_eostream.h"
#include "srv_Census.h"
#include "srv_Hints.h"
#include "srv_JsonWriter.h"
#include "srv_MapOutput.h"
#include "srv_TextOutput.h"

inp_KeywordEnm const fuzzedKeywords[] = {
  inp_kwPart,        inp_kwEndPart, inp_kwAssembly, inp_kwEndAssembly, inp_kwInstance,
  inp_kwEndInstance, inp_kwNode,    inp_kwElement,  inp_kwNset,        inp_kwElset,
  inp_kwSurface,     inp_kwNgen,    inp_kwElgen,    inp_kwRigidBody,   inp_kwUndefined};

namespace
{

void WalkNodes(inp_CoordMap const& nodes)
{
  inp_MapInt2Coord const placed = nodes.ConstGet();
  int count = placed.Size();
  for (cow_String const& instance : nodes.Instances())
  {
    WalkNodes(nodes.ConstGet(instance));
    count += nodes.ConstGet(instance).Count();
  }
  Require(count == nodes.Count());
}

class TextInMemory : public srv_TextOutput
{
public:
  std::string Text() { return m_text + m_buffer; }

protected:
  void WriteOut() override
  {
    m_text += m_buffer;
    m_buffer.clear();
  }

private:
  std::string m_text;
};

std::string Maps(inp_InputFile const& input,
                 inpM_InstanceMap<inp_MapInt2Element> const& partElements)
{
  TextInMemory output;
  srv_JsonWriter json(output.Buffer(), srv_JsonWriter::compact);
  json.BeginObject();
  srv_WriteMaps(input, partElements, json, output);
  json.EndObject();
  return output.Text();
}

std::string MapsBehindAll(inp_InputFile& input)
{
  inpM_InstanceMap<inp_MapInt2Element> const partElements = input.partElementMap;
  input.NumberModel();
  input.CheckOutOfPlace();
  WalkNodes(input.partCoordMap);
  WalkNodes(input.assemblyCoordMap);
  Require(input.nodeIdMap.NumberIds() == input.assemblyCoordMap.Count());
  srv_CountMesh(input);
  return Maps(input, partElements);
}

/// The first few messages get their hints, which look at the whole vocabulary.
void Hint(cow_String const& folder)
{
  Listener::Instance().also = [folder, count = 0](atr_Origin const& origin) mutable
  {
    if (++count < 4)
    {
      srv_HintFor(origin, std::string(folder.View()));
    }
  };
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
  static FuzzedDeck const deck;
  Hint(deck.Folder());
  deck.Fill(data, size);

  inp_InputFile checked;
  if (!Expand(deck, checked))
  {
    return 0;
  }
  inp_InputFile dumped = checked;
  dumped.keywords = DeepCopy(checked.keywords);
  srv_CountKeywords(checked.keywords);
  checked.Classify(false);
  std::string const maps = MapsBehindAll(checked);

  dumped.ReorganizeKeywords(true);
  cow_List<inp_Keyword> const keywords = dumped.keywords;
  dumped.ExtractMaps(true);
  RequireEqual(MapsBehindAll(dumped), maps);
  Listing(keywords);
  return 0;
}
