#include "inp_ElementFamily.h"

#include <string_view>

namespace
{

constexpr int c_mostNodesOfBrick = 27;
constexpr int c_mostNodesOfWedge = 18;
constexpr int c_bottomOfPipe = 2;
constexpr int c_bottomOfQuadraticGasket = 9;

bool IsQuadraticGasket(std::string_view type) { return type == "GK3D18" || type == "GK3D18N"; }

bool IsPipePore(std::string_view type)
{
  for (std::string_view const stem : {"FP2D2", "FP3D2", "FPC2D2", "FPC3D2"})
  {
    if (type.starts_with(stem))
    {
      std::string_view const end = type.substr(stem.size());
      return end == "T" || end == "AT";
    }
  }
  return false;
}

void SetLayers(inp_ElementFamily& family, int bottomNodes, int layers)
{
  family.bottomNodes = bottomNodes;
  family.layers = layers;
}

/// A cohesive element has a top face above the bottom; one with pressure nodes a layer of these between.
void SetCohesiveLayers(inp_ElementFamily& family, std::string_view type)
{
  bool const hasPressureLayer = type.size() == 7 && type[6] == 'P';
  SetLayers(family, family.minNodes / (hasPressureLayer ? 3 : 2), hasPressureLayer ? 2 : 1);
}

/// A gasket has as many nodes on top as below, unless SOLID ELEMENT NUMBERING gives it those of a solid.
void SetGasket(inp_ElementFamily& family, std::string_view type, bool hasOffset,
               bool hasSolidNumbering)
{
  bool const isQuadratic = IsQuadraticGasket(type);
  if (hasOffset)
  {
    SetLayers(family, isQuadratic ? c_bottomOfQuadraticGasket : family.minNodes / 2, 1);
  }
  if (hasSolidNumbering && isQuadratic)
  {
    family.maxNodes = c_mostNodesOfBrick;
  }
  else if (hasSolidNumbering && (type == "GK3D12M" || type == "GK3D12MN"))
  {
    family.maxNodes = c_mostNodesOfWedge;
  }
}

inp_ElementFamily::kindEnm KindOf(std::string_view type)
{
  if (type.size() > 4 && type.substr(1, 3) == "AXA")
  {
    return inp_ElementFamily::c_asymmetric;
  }
  if (type.starts_with("C3D27") || type.starts_with("C3D15V"))
  {
    return inp_ElementFamily::c_midface;
  }
  if (type.starts_with("CONN"))
  {
    return inp_ElementFamily::c_connector;
  }
  if (type.starts_with("GK"))
  {
    return inp_ElementFamily::c_gasket;
  }
  if (type.starts_with("COH") || type.starts_with("COD"))
  {
    return inp_ElementFamily::c_cohesive;
  }
  return IsPipePore(type) ? inp_ElementFamily::c_pipePore : inp_ElementFamily::c_other;
}

} // namespace

inp_ElementFamily inp_FamilyOf(inp_ElementInfo const& type, bool hasOffset, bool hasSolidNumbering)
{
  inp_ElementFamily family;
  family.kind = KindOf(type.name);
  family.minNodes = type.minNodes;
  family.maxNodes = type.maxNodes;
  switch (family.kind)
  {
  case inp_ElementFamily::c_asymmetric:
    SetLayers(family, type.minNodes, type.maxNodes / type.minNodes - 1);
    break;
  case inp_ElementFamily::c_gasket:
    SetGasket(family, type.name, hasOffset, hasSolidNumbering);
    break;
  case inp_ElementFamily::c_cohesive:
    if (hasOffset)
    {
      SetCohesiveLayers(family, type.name);
    }
    break;
  case inp_ElementFamily::c_pipePore:
    SetLayers(family, c_bottomOfPipe, type.maxNodes / c_bottomOfPipe - 1);
    break;
  default:
    break;
  }
  return family;
}

bool inp_IsGasketWithMidsideNodes(cow_String const& type) { return IsQuadraticGasket(type.View()); }
