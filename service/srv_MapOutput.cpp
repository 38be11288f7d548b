#include "srv_MapOutput.h"

#include "srv_JsonWriter.h"
#include "srv_TextOutput.h"

#include <array>
#include <charconv>
#include <set>
#include <string>

namespace
{

class MapDumper
{
public:
  MapDumper(srv_JsonWriter& json, srv_TextOutput& output) : m_json(json), m_output(output) {}

  void DumpNames(inpM_InstanceMap<cow_String> const& names);
  void DumpMeshes(inp_LevelMaps const& maps);
  void DumpAssembly(inp_LevelMaps const& maps);
  void DumpTransformations(inpM_InstanceMap<gsl_Matrix> const& matrices);
  void DumpIds(inpM_IdMap const& ids);

private:
  static std::set<cow_String> Levels(inp_LevelMaps const& maps);
  void DumpMesh(inp_LevelMaps const& maps, cow_String const& level);
  void DumpNodes(inp_MapInt2Coord const& nodes);
  void DumpElements(inp_MapInt2Element const& elements);
  void DumpSets(inpM_BaseSetMap const& sets);
  void DumpAssemblySets(inpM_BaseSetMap const& sets);
  void DumpSurfaces(inpM_PartInstanceSurfaceMap const& surfaces);
  void DumpSurface(inpM_PartInstanceSurface const& surface);
  void DumpAssemblySurfaces(inpM_SurfaceMap const& surfaces);
  void DumpPairs(cow_IntTableInt const& pairs);
  void DumpList(cow_List<int> const& ids);
  void DumpList(inpM_OmiSet const& ids);
  void DumpOwnIds(inpM_BaseSet const& set);
  void BeginEntry(cow_String const& name);
  void BeginEntry(int label);

  srv_JsonWriter& m_json;
  srv_TextOutput& m_output;
};

constexpr int c_indent = 5;

void MapDumper::BeginEntry(cow_String const& name)
{
  m_output.Relieve();
  m_json.Break(c_indent).Key(name.View());
}

void MapDumper::BeginEntry(int label)
{
  m_output.Relieve();
  std::array<char, 16> digits;
  char const* const end = std::to_chars(digits.data(), digits.data() + digits.size(), label).ptr;
  m_json.Break(c_indent).Key({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

void MapDumper::DumpNames(inpM_InstanceMap<cow_String> const& names)
{
  m_json.BeginObject();
  for (cow_String const& name : names.Instances())
  {
    m_json.Key(name.View()).String(names.ConstGet(name).View());
  }
  m_json.EndObject();
}

std::set<cow_String> MapDumper::Levels(inp_LevelMaps const& maps)
{
  std::set<cow_String> levels;
  for (cow_List<cow_String> const& names :
       {maps.nodes.Instances(), maps.elements.Instances(), maps.nsets.Instances(),
        maps.elsets.Instances(), maps.surfaces.Instances()})
  {
    levels.insert(names.begin(), names.end());
  }
  return levels;
}

void MapDumper::DumpMeshes(inp_LevelMaps const& maps)
{
  m_json.BeginObject();
  for (cow_String const& level : Levels(maps))
  {
    m_json.Break(3).Key(level.View());
    DumpMesh(maps, level);
  }
  m_json.EndObject();
}

void MapDumper::DumpMesh(inp_LevelMaps const& maps, cow_String const& level)
{
  m_json.BeginObject().Key("nodes");
  DumpNodes(maps.nodes.IsMember(level) ? maps.nodes.ConstGet(level).ConstGet()
                                       : inp_MapInt2Coord());
  m_json.Break(4).Key("elements");
  DumpElements(maps.elements.IsMember(level) ? maps.elements.ConstGet(level)
                                             : inp_MapInt2Element());
  m_json.Break(4).Key("nsets");
  DumpSets(maps.nsets.ConstGetNestedSetMap(level));
  m_json.Break(4).Key("elsets");
  DumpSets(maps.elsets.ConstGetNestedSetMap(level));
  m_json.Break(4).Key("surfaces");
  DumpSurfaces(maps.surfaces.ConstGetPartInstanceSurfaceMap(level));
  m_json.EndObject();
}

void MapDumper::DumpAssembly(inp_LevelMaps const& maps)
{
  m_json.BeginObject().Key("nodes");
  DumpNodes(maps.nodes.ConstGet());
  m_json.Break(4).Key("elements");
  DumpElements(maps.elements.HasValue() ? maps.elements.ConstGet() : inp_MapInt2Element());
  m_json.Break(4).Key("nsets");
  DumpAssemblySets(maps.nsets.ConstGetMap());
  m_json.Break(4).Key("elsets");
  DumpAssemblySets(maps.elsets.ConstGetMap());
  m_json.Break(4).Key("surfaces");
  DumpAssemblySurfaces(maps.surfaces);
  m_json.EndObject();
}

void MapDumper::DumpNodes(inp_MapInt2Coord const& nodes)
{
  m_json.BeginObject();
  inp_MapInt2CoordSIT node(nodes);
  for (node.First(); !node.IsDone(); node.Next())
  {
    inp_Coord const& coord = node.CurrentValue();
    BeginEntry(node.CurrentKey());
    m_json.BeginArray();
    for (double const value : {coord.x, coord.y, coord.z, coord.nx, coord.ny, coord.nz})
    {
      m_json.Number(value);
    }
    m_json.EndArray();
  }
  m_json.EndObject();
}

void MapDumper::DumpElements(inp_MapInt2Element const& elements)
{
  m_json.BeginObject();
  inp_MapInt2ElementSIT element(elements);
  for (element.First(); !element.IsDone(); element.Next())
  {
    inp_Element const& record = element.CurrentValue();
    BeginEntry(element.CurrentKey());
    m_json.BeginObject().Key("type").String(record.type().View()).Key("nodes").BeginArray();
    for (int i = 0; i < record.numNodesPerElement(); ++i)
    {
      m_json.Number(record.topology()[i]);
    }
    m_json.EndArray().EndObject();
  }
  m_json.EndObject();
}

void MapDumper::DumpList(cow_List<int> const& ids)
{
  m_json.BeginArray();
  for (int const id : ids)
  {
    m_json.Number(id);
    m_output.Relieve();
  }
  m_json.EndArray();
}

/// One by one: a few bytes of a sorted set may hold a thousand million.
void MapDumper::DumpList(inpM_OmiSet const& ids)
{
  m_json.BeginArray();
  for (inpM_OmiSetIT id(ids); !id.IsDone(); id.Next())
  {
    m_json.Number(id.CurrentItem());
    m_output.Relieve();
  }
  m_json.EndArray();
}

void MapDumper::DumpOwnIds(inpM_BaseSet const& set)
{
  if (set.IsUnsorted())
  {
    DumpList(set.ConstGetIds());
  }
  else
  {
    DumpList(set.ConstGetOwnIds());
  }
}

void MapDumper::DumpSets(inpM_BaseSetMap const& sets)
{
  m_json.BeginObject();
  for (inpM_BaseSetMapSIT set(sets); !set.IsDone(); set.Next())
  {
    BeginEntry(set.CurrentKey());
    DumpOwnIds(set.CurrentValue());
  }
  m_json.EndObject();
}

/// By instance; the assembly's own ids under the empty name.
void MapDumper::DumpAssemblySets(inpM_BaseSetMap const& sets)
{
  m_json.BeginObject();
  for (inpM_BaseSetMapSIT set(sets); !set.IsDone(); set.Next())
  {
    BeginEntry(set.CurrentKey());
    m_json.BeginObject();
    inpM_BaseSet const& members = set.CurrentValue();
    bool const hasOwn = members.IsUnsorted() ? members.ConstGetIds().Length() > 0
                                             : !members.ConstGetOwnIds().IsEmpty();
    if (hasOwn)
    {
      m_json.Key("");
      DumpOwnIds(members);
    }
    inpM_BaseSet::InstanceTree const instances = members.ConstGetInstanceTree();
    cow_BtreeIterator<cow_String, inpM_OmiSet> instance(instances);
    for (instance.First(); !instance.IsDone(); instance.Next())
    {
      m_json.Key(instance.CurrentKey().View());
      if (members.IsUnsorted())
      {
        DumpList(members.ConstGetIds(instance.CurrentKey()));
      }
      else
      {
        DumpList(instance.CurrentValue());
      }
    }
    m_json.EndObject();
  }
  m_json.EndObject();
}

void MapDumper::DumpSurfaces(inpM_PartInstanceSurfaceMap const& surfaces)
{
  m_json.BeginObject();
  for (inpM_PartInstanceSurfaceMapSIT surface(surfaces); !surface.IsDone(); surface.Next())
  {
    BeginEntry(surface.CurrentKey());
    DumpSurface(surface.CurrentValue());
  }
  m_json.EndObject();
}

void MapDumper::DumpSurface(inpM_PartInstanceSurface const& surface)
{
  m_json.BeginObject();
  if (surface.IsElementSurface())
  {
    inpM_PartInstanceSurface::FaceMap const faces = surface.ConstGetFaceIdElementIdsMap();
    cow_BtreeIterator<cow_String, cow_List<int>> face(faces);
    for (face.First(); !face.IsDone(); face.Next())
    {
      m_json.Key(face.CurrentKey().View());
      DumpList(face.CurrentValue());
    }
  }
  else
  {
    m_json.Key("nodes").BeginObject();
    inpM_NodeAreaList const areas = surface.ConstGetNodeAreaList();
    for (inpM_NodeAreaListIT node(areas); !node.IsDone(); node.Next())
    {
      BeginEntry(node.CurrentKey());
      m_json.Number(node.CurrentValue());
    }
    m_json.EndObject();
  }
  m_json.EndObject();
}

void MapDumper::DumpAssemblySurfaces(inpM_SurfaceMap const& surfaces)
{
  m_json.BeginObject();
  inpM_AssemblyInstanceSurfaceMapSIT surface(surfaces.ConstGetAssemblyInstanceSurfaceMap());
  for (surface.First(); !surface.IsDone(); surface.Next())
  {
    BeginEntry(surface.CurrentKey());
    m_json.BeginObject();
    inpM_AssemblyInstanceSurface const& whole = surface.CurrentValue();
    if (!whole.ConstGetNodeSurface().IsEmpty())
    {
      m_json.Key("");
      DumpSurface(whole.ConstGetNodeSurface());
    }
    inpM_PartInstanceSurfaceMapSIT piece(whole.ConstGetInstance2PartInstanceSurfaceMap());
    for (; !piece.IsDone(); piece.Next())
    {
      m_json.Key(piece.CurrentKey().View());
      DumpSurface(piece.CurrentValue());
    }
    m_json.EndObject();
  }
  m_json.EndObject();
}

/// Rows of 4; a point is a column, so the last column is the translation.
void MapDumper::DumpTransformations(inpM_InstanceMap<gsl_Matrix> const& matrices)
{
  m_json.BeginObject();
  for (cow_String const& name : matrices.Instances())
  {
    double rows[4][4];
    matrices.ConstGet(name).AsArray(rows);
    BeginEntry(name);
    m_json.BeginArray();
    for (auto const& row : rows)
    {
      m_json.BeginArray();
      for (double const value : row)
      {
        m_json.Number(value);
      }
      m_json.EndArray();
    }
    m_json.EndArray();
  }
  m_json.EndObject();
}

void MapDumper::DumpPairs(cow_IntTableInt const& pairs)
{
  m_json.BeginObject();
  cow_IntTableIntIT pair(pairs);
  for (pair.First(); !pair.IsDone(); pair.Next())
  {
    BeginEntry(pair.CurrentKey());
    m_json.Number(pair.CurrentValue());
  }
  m_json.EndObject();
}

void MapDumper::DumpIds(inpM_IdMap const& ids)
{
  m_json.BeginObject();
  if (ids.HasIds())
  {
    m_json.Key("");
    DumpPairs(ids.ConstGetToNew());
  }
  for (cow_String const& name : ids.Instances())
  {
    m_json.Break(3).Key(name.View());
    DumpPairs(ids.ConstGet(name).ConstGetToNew());
  }
  m_json.EndObject();
}

} // namespace

void srv_WriteMaps(inp_InputFile const& model, srv_JsonWriter& json, srv_TextOutput& output)
{
  MapDumper dumper(json, output);
  inp_LevelMaps const assembly = model.AssemblyMaps();
  json.Break(1).Key("instanceParts");
  dumper.DumpNames(model.instancePartNames);
  json.Break(1).Key("parts");
  dumper.DumpMeshes(model.PartMaps());
  json.Break(1).Key("instances");
  dumper.DumpMeshes(assembly);
  json.Break(1).Key("assembly");
  dumper.DumpAssembly(assembly);
  json.Break(1).Key("transformations");
  dumper.DumpTransformations(model.transformationMap);
  json.Break(1).Key("nodeIds");
  dumper.DumpIds(model.nodeIdMap);
  json.Break(1).Key("elementIds");
  dumper.DumpIds(model.elementIdMap);
}
