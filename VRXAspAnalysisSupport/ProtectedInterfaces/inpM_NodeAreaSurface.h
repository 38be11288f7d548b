#pragma once

#include "inpM_PartInstanceSurface.h"

/// A surface of nodes, each with the area that it stands for. A node is in it once; the area that is
/// added last stands. A copy shares and costs O(1).
class inpM_NodeAreaSurface : public inpM_PartInstanceSurface
{
public:
  inpM_NodeAreaSurface() = default;
  inpM_NodeAreaSurface(double area, cow_List<int> const& nodes) { Add(nodes, area); }
  inpM_NodeAreaSurface(inpM_NodeAreaSurface const&) = default; // shares
  inpM_NodeAreaSurface& operator=(inpM_NodeAreaSurface const&) = default;
  ~inpM_NodeAreaSurface() override;

  bool IsElementSurface() const override { return false; }
  void Add(cow_List<int> const& nodes, double area);
  void Difference(inpM_NodeAreaList const& nodes) { m_nodes.Difference(nodes); }

  void Add(inpM_PartInstanceSurface const& other) override;
  void Difference(inpM_PartInstanceSurface const& other) override;
  void Intersection(inpM_PartInstanceSurface const& other) override;
  inpM_NodeAreaSurface* Copy() const override { return new inpM_NodeAreaSurface(*this); }
  void Print(aio_ostream& stream) const override;
  void Renumber(inpM_IdMap const& idMap, bool toUser) override { m_nodes.Renumber(idMap, toUser); }
  void Cleanup(inpM_IdMap const& idMap) override;
  inpM_NodeAreaList ConstGetNodeAreaList() const override { return m_nodes; } // O(1), shares
  FaceMap ConstGetFaceIdElementIdsMap() const override { return FaceMap(); }
  bool IsEmpty() const override { return m_nodes.IsEmpty(); }
  int Count() const override { return m_nodes.Size(); }
  void DropRepeats() override {}

private:
  inpM_NodeAreaList m_nodes;
};
