#include "inp_CoordMap.h"

#include "VRXBasException.h"
#include "aio_ostream.h"
#include "gsl_Point.h"

inp_CoordMap::inp_CoordMap() : nodes(new inp_MapInt2Coord) {}

bool inp_CoordMap::Insert(int label, inp_Coord const& coord)
{
  return nodes.Get()->Insert(LocalID(label), coord);
}

void inp_CoordMap::Insert(cow_String const& instanceName, inp_CoordMap const& coords)
{
  instances.Insert(instanceName, Handle(new inp_CoordMap(coords)));
}

inp_Coord inp_CoordMap::Positioned(inp_Coord const& stored) const
{
  inp_Coord coord = stored;
  gsl_Point position(coord.x, coord.y, coord.z);
  transformation.Transform(position);
  coord.x = position.X();
  coord.y = position.Y();
  coord.z = position.Z();
  coord.NormalizePlusRotate(transformation);
  return coord;
}

inp_Coord inp_CoordMap::ConstGet(int label) const
{
  inp_Coord const& stored = nodes->ConstGet(LocalID(label));
  return transformation.IsIdentity() ? stored : Positioned(stored);
}

inp_Coord inp_CoordMap::ConstGet(int label, inp_Coord const& fallback) const
{
  inp_Coord const* const stored = nodes->ConstFind(LocalID(label));
  if (stored == nullptr)
  {
    return fallback;
  }
  return transformation.IsIdentity() ? *stored : Positioned(*stored);
}

// A node that was inserted after the renumbering has no new number and keeps its label.
inp_MapInt2Coord inp_CoordMap::ConstGet() const
{
  if (transformation.IsIdentity() && localIds.IsEmpty())
  {
    return *nodes;
  }
  cow_IntTableInt const labels = Invert(localIds);
  inp_MapInt2Coord positioned;
  for (inp_MapInt2CoordSIT it(*nodes); !it.IsDone(); it.Next())
  {
    int label = it.CurrentKey();
    labels.ConstGetValue(label, label);
    inp_Coord coord = it.CurrentValue();
    if (transformation.IsIdentity())
    {
      coord.NormalizePlusRotate(transformation);
    }
    else
    {
      coord = Positioned(coord);
    }
    positioned.Insert(label, coord);
  }
  return positioned;
}

inp_CoordMap const& inp_CoordMap::ConstGet(cow_String const& instanceName) const
{
  Handle const* const child = instances.ConstFind(instanceName);
  VRXBasAssert(child != nullptr, "IsMember(instanceName)");
  return **child;
}

inp_CoordMap& inp_CoordMap::Get(cow_String const& instanceName)
{
  VRXBasAssert(IsMember(instanceName), "IsMember(instanceName)");
  return *instances.Find(instanceName)->Get();
}

bool inp_CoordMap::Remove(int label)
{
  return IsMember(label) && nodes.Get()->Remove(LocalID(label));
}

int inp_CoordMap::Count() const
{
  int count = nodes->Size();
  cow_BtreeIterator<cow_String, Handle> it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    count += it.CurrentValue()->Count();
  }
  return count;
}

cow_List<cow_String> inp_CoordMap::Instances() const
{
  cow_List<cow_String> names;
  cow_BtreeIterator<cow_String, Handle> it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    names.Append(it.CurrentKey());
  }
  return names;
}

void inp_CoordMap::ChangeInstanceName(cow_String const& from, cow_String const& to)
{
  if (from == to || !IsMember(from))
  {
    return;
  }
  cow_Btree<cow_String, Handle> renamed;
  renamed.InsertUnlessMember(to, *instances.ConstFind(from));
  cow_BtreeIterator<cow_String, Handle> it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    if (it.CurrentKey() != from)
    {
      renamed.InsertUnlessMember(it.CurrentKey(), it.CurrentValue());
    }
  }
  instances = renamed;
}

// The names are listed first, here and below: an iterator shares the children as long as it lives, and so
// each one that is written to would be copied.
void inp_CoordMap::Transform(gsl_Matrix const& matrix)
{
  transformation.Concatenate(matrix);
  for (cow_String const& name : Instances())
  {
    Get(name).Transform(matrix);
  }
}

// The way back of the id map, from new numbers to user labels, is the table by which nodes are read.
template <class Numbering>
inpM_IdMap inp_CoordMap::RenumberOwn(Numbering const& numberOf)
{
  inpM_IdMap ids;
  for (inp_MapInt2CoordSIT it(*nodes); !it.IsDone(); it.Next())
  {
    ids.Insert(it.CurrentKey(), numberOf(it.CurrentKey()));
  }
  localIds = ids.ConstGetToUser();
  return ids;
}

inpM_IdMap inp_CoordMap::OwnIds() const
{
  inpM_IdMap ids;
  for (inp_MapInt2CoordSIT it(*nodes); !it.IsDone(); it.Next())
  {
    ids.Insert(it.CurrentKey(), it.CurrentKey());
  }
  return ids;
}

inpM_IdMap inp_CoordMap::Renumber(int first, bool keepIds)
{
  int next = first;
  inpM_IdMap ids = keepIds ? OwnIds() : RenumberOwn([&](int) { return next++; });
  for (cow_String const& name : Instances())
  {
    inpM_IdMap const below = Get(name).Renumber(next, keepIds);
    next += below.NumberIds();
    ids.Insert(name, below);
  }
  ids.ComputeRemapUserIdRange();
  return ids;
}

inpM_IdMap inp_CoordMap::Renumber(int& next, bool keepIds, omi_IntTable<int> const& assigned)
{
  auto const numberOf = [&](int label)
  {
    int number = 0;
    return assigned.ConstGetValue(label, number) ? number : next++;
  };
  inpM_IdMap ids = keepIds ? OwnIds() : RenumberOwn(numberOf);
  ids.ComputeRemapUserIdRange();
  return ids;
}

void inp_CoordMap::Print(aio_ostream& stream) const
{
  for (inp_MapInt2CoordSIT it(*nodes); !it.IsDone(); it.Next())
  {
    stream << it.CurrentKey() << '\n';
  }
  cow_BtreeIterator<cow_String, Handle> child(instances);
  for (child.First(); !child.IsDone(); child.Next())
  {
    stream << child.CurrentKey().View() << '\n';
    child.CurrentValue()->Print(stream);
  }
}
