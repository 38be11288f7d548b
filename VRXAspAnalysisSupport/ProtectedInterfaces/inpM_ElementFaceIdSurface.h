#pragma once

#include "inpM_PartInstanceSurface.h"
#include "inpM_SurfaceFacet.h"

/// A surface of faces of elements: by face name, the elements in the order in which they were added.
///
///     inpM_ElementFaceIdSurface surface("S1", ids);
///     surface.Add("S2", others);
///     surface.Difference("S1", some);
///
/// An element that is added twice is in the surface twice, until DropRepeats. Adding takes time for the
/// elements added; Difference and Intersection take time for all elements of the faces concerned. A copy
/// shares and costs O(1).
class inpM_ElementFaceIdSurface : public inpM_PartInstanceSurface
{
public:
  inpM_ElementFaceIdSurface() = default;
  inpM_ElementFaceIdSurface(cow_String const& faceId, cow_List<int> const& elements);
  inpM_ElementFaceIdSurface(inpM_ElementFaceIdSurface const&) = default; // shares
  inpM_ElementFaceIdSurface& operator=(inpM_ElementFaceIdSurface const&) = default;
  ~inpM_ElementFaceIdSurface() override;

  bool IsElementSurface() const override { return true; }
  void Add(cow_String const& faceId, cow_List<int> const& elements);
  void Difference(cow_String const& faceId, cow_List<int> const& elements);

  void Add(inpM_PartInstanceSurface const& other) override;
  void Difference(inpM_PartInstanceSurface const& other) override;
  void Intersection(inpM_PartInstanceSurface const& other) override;
  inpM_ElementFaceIdSurface* Copy() const override { return new inpM_ElementFaceIdSurface(*this); }
  void Print(aio_ostream& stream) const override;
  void Renumber(inpM_IdMap const& idMap, bool toUser) override;
  void Cleanup(inpM_IdMap const& idMap) override;
  inpM_NodeAreaList ConstGetNodeAreaList() const override { return inpM_NodeAreaList(); }
  FaceMap ConstGetFaceIdElementIdsMap() const override { return m_faces; } // O(1), shares
  bool IsEmpty() const override { return m_count == 0; }
  int Count() const override { return m_count; }
  void DropRepeats() override;

private:
  template <class Change>
  void ChangeFaces(Change const& change);

  FaceMap m_faces;
  int m_count{0};
  bool m_mayRepeat{false}; ///< elements were added to a face that had some
};

/// Walks the facets of a surface by face name, ascending, and within a face in the order of its
/// elements. A surface of nodes has none.
///
///     for (inpM_SurfaceFacetIT it(surface); !it.IsDone(); it.Next())
///       Use(it.CurrentFacet());
class inpM_SurfaceFacetIT
{
public:
  /// Stands on the first facet.
  explicit inpM_SurfaceFacetIT(inpM_PartInstanceSurface const& surface);

  void Next();
  bool IsDone() const { return m_faces.IsDone(); }
  inpM_SurfaceFacet CurrentFacet() const
  {
    return {m_faces.CurrentValue().ConstGet(m_place), m_faces.CurrentKey()};
  }

private:
  cow_BtreeIterator<cow_String, cow_List<int>> m_faces;
  int m_place{0};
};
