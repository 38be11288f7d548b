// The stage that numbers a model.

#include "inp_InputFile.h"
#include "inp_StageTimer.h"

namespace
{

inpM_IdMap NumbersFrom(int& next, inp_MapInt2Element const& elements)
{
  inpM_IdMap ids;
  inp_MapInt2ElementSIT element(elements);
  for (element.First(); !element.IsDone(); element.Next())
  {
    ids.Insert(element.CurrentKey(), next++);
  }
  return ids;
}

/// As the map's own Renumber gives, which would move the elements.
inpM_IdMap NumbersOf(inpM_InstanceMap<inp_MapInt2Element> const& elements)
{
  int next = 1;
  inpM_IdMap ids = elements.HasValue() ? NumbersFrom(next, elements.ConstGet()) : inpM_IdMap();
  for (cow_String const& instance : elements.Instances())
  {
    ids.Insert(instance, NumbersFrom(next, elements.ConstGet(instance)));
  }
  ids.ComputeRemapUserIdRange();
  return ids;
}

} // namespace

void inp_InputFile::NumberModel()
{
  inp_StageTimer const timer("Number model");
  inp_CoordMap numbered = assemblyCoordMap; // so that the map itself keeps the user's labels
  nodeIdMap = numbered.Renumber(1, false);
  elementIdMap = NumbersOf(assemblyElementMap);
}
