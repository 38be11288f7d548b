// What lies within a box of a piece of a surface.

#include "inpM_ElementFaceIdSurface.h"
#include "inp_CropDefinition.h"
#include "inp_SurfaceVisitor.h"
#include "shp_ShapeDictionary.h"

#include <algorithm>

namespace
{

/// The nodes of one face of elements, one type after the other: neighbours mostly are of one type.
class FaceNodes
{
public:
  explicit FaceNodes(cow_String const& faceId) : m_faceId(faceId) {}

  /// Places in the element's list of nodes; none when the type has no face of that name.
  std::span<int const> Of(inp_Element const& element)
  {
    if (!m_isRead || !(m_type == element.type()))
    {
      m_isRead = true;
      m_type = element.type();
      shp_Shape const* const shape = shp_ShapeDictionary::GetShape(m_type);
      int const index = shape != nullptr ? shape->FaceIndex(m_faceId) : -1;
      bool const isKnown = index >= 0 && index < static_cast<int>(shape->Faces().size());
      m_nodes =
        isKnown ? shape->Faces()[static_cast<std::size_t>(index)].Nodes() : std::span<int const>();
    }
    return m_nodes;
  }

private:
  cow_String m_faceId;
  bool m_isRead = false;
  cow_String m_type;
  std::span<int const> m_nodes;
};

bool IsOutside(inp_Element const& element, std::span<int const> face, inp_CropDefinition const& box,
               inp_CoordMap const& coords)
{
  auto const isInBox = [&](int place)
  {
    int const node = place < element.numNodesPerElement() ? element.topology()[place] : 0;
    return coords.IsMember(node) && box.IsInBox(coords.ConstGet(node));
  };
  return std::none_of(face.begin(), face.end(), isInBox);
}

} // namespace

void inp_SurfaceVisitor::Crop(inpM_PartInstanceSurface& piece, inp_CropDefinition const& box,
                              inp_CoordMap const& coords, inp_MapInt2Element const& elements)
{
  if (piece.IsElementSurface())
  {
    Crop(static_cast<inpM_ElementFaceIdSurface&>(piece), box, coords, elements);
  }
  else
  {
    Crop(static_cast<inpM_NodeAreaSurface&>(piece), box, coords);
  }
}

void inp_SurfaceVisitor::Crop(inpM_ElementFaceIdSurface& piece, inp_CropDefinition const& box,
                              inp_CoordMap const& coords, inp_MapInt2Element const& elements)
{
  inpM_ElementFaceIdSurface outside;
  inpM_PartInstanceSurface::FaceMap const faces = piece.ConstGetFaceIdElementIdsMap();
  cow_BtreeIterator<cow_String, cow_List<int>> it(faces);
  for (it.First(); !it.IsDone(); it.Next())
  {
    FaceNodes faceNodes(it.CurrentKey());
    cow_List<int> removed;
    for (int const id : it.CurrentValue())
    {
      inp_Element const* const element = elements.GetEltPtr(id);
      std::span<int const> const face =
        element != nullptr ? faceNodes.Of(*element) : std::span<int const>();
      if (!face.empty() && IsOutside(*element, face, box, coords))
      {
        removed.Append(id);
      }
    }
    outside.Add(it.CurrentKey(), removed);
  }
  if (!outside.IsEmpty())
  {
    piece.Difference(outside);
  }
}

void inp_SurfaceVisitor::Crop(inpM_NodeAreaSurface& piece, inp_CropDefinition const& box,
                              inp_CoordMap const& coords)
{
  inpM_NodeAreaList outside;
  for (inpM_NodeAreaListIT it(piece.ConstGetNodeAreaList()); !it.IsDone(); it.Next())
  {
    int const node = it.CurrentKey();
    if (coords.IsMember(node) && !box.IsInBox(coords.ConstGet(node)))
    {
      outside.Insert(node, it.CurrentValue());
    }
  }
  piece.Difference(outside);
}
