// Rows of surfaces of the assembly level.

#include "inpM_ElementFaceIdSurface.h"
#include "inp_SurfaceMessages.h"
#include "inp_SurfaceVisitorRows.h"

inpM_AssemblyInstanceSurface inp_SurfaceVisitor::CreateAssemblyLevelSurface(inp_Keyword& keyword)
{
  inpM_AssemblyInstanceSurface surface;
  if (keyword.HasParameter("crop"))
  {
    CropNamedSurface(keyword, surface);
    return surface;
  }
  AssemblyRows rows(*this, keyword, surface);
  for (int row = FirstSurfaceRow(keyword); row < keyword.data.Rows(); ++row)
  {
    rows.Read(row);
  }
  rows.Finish();
  SayMissingSets(keyword, rows.faults);
  return surface;
}

// *SURFACE row: [instance.]label or set[, face or area]
void inp_SurfaceVisitor::AssemblyRows::Read(int row)
{
  inp_DataArray const& data = m_keyword.data;
  if (!data.HasValue(row, 0))
  {
    return;
  }
  GetAreaOrFaceId(m_visitor.isNodeSurface, m_faceOrArea.area, m_faceOrArea.faceId, data, row, 1);
  cow_String const text = data.AsString(row, 0);
  inp_ScopedField const field(text, m_visitor.m_assemblyName);
  if (field.fits && field.instanceName.Empty())
  {
    ReadPlain(field, row);
  }
  else
  {
    ReadScoped(field, text, row);
  }
}

void inp_SurfaceVisitor::AssemblyRows::ReadPlain(inp_ScopedField const& field, int row)
{
  cow_String const& name = field.last;
  int id = 0;
  if (m_visitor.isNodeSurface && field.GetId(id) && id >= 1)
  {
    AddId(cow_String(), id);
    return;
  }
  auto const* const set = m_visitor.SetsOfKind().ConstGetMap().ConstFind(name);
  if (set == nullptr)
  {
    faults.Add(name);
  }
  else if (!m_repeats.Have(m_faceOrArea, row) && m_visitor.HasRoomFor(*set, name, faults))
  {
    AddIds();
    AddSetOfAssembly(*set);
  }
}

void inp_SurfaceVisitor::AssemblyRows::ReadScoped(inp_ScopedField const& field,
                                                  cow_String const& text, int row)
{
  cow_String const instanceName =
    field.fits ? field.instanceName : inp_Utils::SplitScopedSet(text).ConstGet(0);
  if (!field.fits || !IsInstance(instanceName))
  {
    if (m_unknownInstances.insert(instanceName).second)
    {
      m_visitor.Say(inp_msgSurfaceInstanceInvalid, m_keyword, instanceName);
    }
    return;
  }
  int id = 0;
  if (field.GetId(id) && id >= 1)
  {
    AddId(instanceName, id);
    return;
  }
  auto const* const set = m_visitor.SetsOfKind().ConstFindNestedSet(instanceName, field.last);
  if (set == nullptr)
  {
    faults.Add(text);
    return;
  }
  if (m_repeats.Have(m_faceOrArea, row))
  {
    return;
  }
  AddIds();
  inpM_PartInstanceSurfaceHandle& piece =
    m_pieces[{set, m_faceOrArea}]; // instances of a part share it
  if (piece.IsNull())
  {
    if (!m_visitor.HasRoomFor(*set, text, faults))
    {
      return;
    }
    piece = MakePiece(m_faceOrArea, set->ConstGetIds());
  }
  m_surface.Add(instanceName, *piece);
  m_growth.By(piece->Count());
}

bool inp_SurfaceVisitor::AssemblyRows::IsInstance(cow_String const& name)
{
  if (!(name == m_knownInstance) && m_visitor.instanceParts.IsMember(name))
  {
    m_knownInstance = name;
  }
  return name == m_knownInstance;
}

void inp_SurfaceVisitor::AssemblyRows::AddId(cow_String const& instanceName, int id)
{
  if (!(instanceName == m_idsInstance) || !(m_faceOrArea == m_idsFaceOrArea))
  {
    AddIds();
    m_idsInstance = instanceName;
    m_idsFaceOrArea = m_faceOrArea;
  }
  m_ids.Append(id);
}

void inp_SurfaceVisitor::AssemblyRows::AddIds()
{
  AddMembers(m_idsInstance, m_idsFaceOrArea, m_ids);
  m_ids.Clear();
}

void inp_SurfaceVisitor::AssemblyRows::AddSetOfAssembly(inpM_BaseSet const& set)
{
  AddMembers(cow_String(), m_faceOrArea, set.ConstGetIds());
  inpM_BaseSet::InstanceTree const instances = set.ConstGetInstanceTree();
  cow_BtreeIterator<cow_String, inpM_OmiSet> it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    AddMembers(it.CurrentKey(), m_faceOrArea, set.ConstGetIds(it.CurrentKey()));
  }
}

void inp_SurfaceVisitor::AssemblyRows::AddMembers(cow_String const& instanceName,
                                                  FaceOrArea const& faceOrArea,
                                                  cow_List<int> const& ids)
{
  if (ids.Empty())
  {
    return;
  }
  if (m_visitor.isNodeSurface && instanceName.Empty())
  {
    m_surface.Add(inpM_NodeAreaSurface(faceOrArea.area, ids));
  }
  else
  {
    m_surface.Add(instanceName, *MakePiece(faceOrArea, ids));
  }
  m_growth.By(ids.Length());
}

inpM_PartInstanceSurfaceHandle
inp_SurfaceVisitor::AssemblyRows::MakePiece(FaceOrArea const& faceOrArea,
                                            cow_List<int> const& ids) const
{
  inpM_PartInstanceSurfaceHandle piece;
  if (m_visitor.isNodeSurface)
  {
    piece = new inpM_NodeAreaSurface(faceOrArea.area, ids);
  }
  else
  {
    piece = new inpM_ElementFaceIdSurface(faceOrArea.faceId, ids);
  }
  return piece;
}
