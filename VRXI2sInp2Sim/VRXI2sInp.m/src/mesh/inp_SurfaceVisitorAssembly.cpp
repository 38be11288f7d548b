// Rows of surfaces of the assembly level.

#include "inpM_ElementFaceIdSurface.h"
#include "inp_SetVisitorFaults.h"
#include "inp_SurfaceMessages.h"
#include "inp_SurfaceVisitorParts.h"

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
  GetAreaOrFaceId(m_visitor.isNodeSurface, m_place.area, m_place.faceId, data, row, 1);
  cow_String const text = data.AsString(row, 0);
  inp_ScopedField const field(text, m_visitor.m_assemblyName);
  if (field.fits && field.instanceName.Empty())
  {
    ReadPlain(field.last);
  }
  else
  {
    ReadScoped(field, text);
  }
}

void inp_SurfaceVisitor::AssemblyRows::ReadPlain(cow_String const& name)
{
  inp_ScopedField const field(name, cow_String());
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
  else if (!IsAddedAlready(name))
  {
    AddIds();
    AddSetOfAssembly(*set);
  }
}

void inp_SurfaceVisitor::AssemblyRows::ReadScoped(inp_ScopedField const& field,
                                                  cow_String const& text)
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
  if (IsAddedAlready(text))
  {
    return;
  }
  AddIds();
  auto const [piece, isNew] = m_pieces.try_emplace({set, m_place});
  if (isNew)
  {
    inpM_AssemblyInstanceSurface made;
    std::swap(made, m_surface);
    AddMembers(instanceName, m_place, set->ConstGetIds());
    std::swap(made, m_surface);
  }
  m_surface.Add(instanceName, *piece->second);
}
