#include "inp_MeshMessages.h"
#include "inp_NodeVisitor.h"
#include "inp_RowFields.h"

#include <cmath>
#include <numbers>

namespace
{

constexpr double c_radiansOfDegree = std::numbers::pi / 180.0;

enum mappingEnm
{
  c_translation,
  c_rotation,
  c_scale,
  c_rectangular,
  c_cylindrical,
  c_spherical,
  c_toroidal,
  c_diamond
};

struct MappingName
{
  char const* name;
  mappingEnm type;
};

constexpr MappingName c_mappings[] = {
  {"TRANSLATION", c_translation}, {"ROTATION", c_rotation},       {"SCALE", c_scale},
  {"RECTANGULAR", c_rectangular}, {"CYLINDRICAL", c_cylindrical}, {"SPHERICAL", c_spherical},
  {"TOROIDAL", c_toroidal},       {"DIAMOND", c_diamond}};

bool FindMapping(cow_String const& name, mappingEnm& type)
{
  for (MappingName const& row : c_mappings)
  {
    if (name == row.name)
    {
      type = row.type;
      return true;
    }
  }
  return false;
}

/// A factor of a scale; one of 0 or a missing one leaves the length as it is.
double FactorField(inp_NumberFields& fields, int row, int column)
{
  double const factor = fields.Real(row, column);
  return factor != 0.0 ? factor : 1.0;
}

} // namespace

/// How *NMAP moves a node.
struct inp_NodeVisitor::Mapping
{
  mappingEnm type = c_translation;
  gsl_Point a, b, c, d;
  double scale[3] = {1.0, 1.0, 1.0};
  gsl_Matrix motion; ///< what follows the conversion of the coordinates
  double torusRadius = 0.0;
  double diamondAxes[3][3] = {}; ///< in columns

  inp_Coord Move(inp_Coord coord) const
  {
    if (type == c_scale)
    {
      return {a.X() + (coord.x - a.X()) * scale[0], a.Y() + (coord.y - a.Y()) * scale[1],
              a.Z() + (coord.z - a.Z()) * scale[2]};
    }
    coord.x *= scale[0];
    coord.y *= scale[1];
    coord.z *= scale[2];
    Convert(coord);
    gsl_Point place(coord.x, coord.y, coord.z);
    motion.Transform(place);
    inp_Coord moved(place.X(), place.Y(), place.Z());
    gsl_Vector normal(coord.nx, coord.ny, coord.nz);
    if (normal.Normalize())
    {
      motion.Transform(normal);
      moved.AttachNormalComponents(normal.X(), normal.Y(), normal.Z());
    }
    return moved;
  }

  /// Takes the coordinates for those of the mapping's system and makes them rectangular.
  void Convert(inp_Coord& coord) const
  {
    bool const hasNormal = gsl_Vector(coord.nx, coord.ny, coord.nz).Normalize();
    if (type == c_cylindrical)
    {
      if (hasNormal)
      {
        inp_Coord::DifferentialCylindricalConversion(coord.x, coord.y, coord.nx, coord.ny);
      }
      inp_Coord::CylindricalConversion(coord.x, coord.y);
    }
    else if (type == c_spherical)
    {
      if (hasNormal)
      {
        inp_Coord::DifferentialSphericalConversion(coord.x, coord.y, coord.z, coord.nx, coord.ny,
                                                   coord.nz);
      }
      inp_Coord::SphericalConversion(coord.x, coord.y, coord.z);
    }
    else if (type == c_toroidal)
    {
      double const around = coord.y * c_radiansOfDegree;
      double const along = coord.z * c_radiansOfDegree;
      double const radius = torusRadius - coord.x * std::cos(around);
      coord.z = coord.x * std::sin(around);
      coord.x = radius * std::cos(along);
      coord.y = radius * std::sin(along);
    }
    else if (type == c_diamond)
    {
      gsl_Vector const place =
        MatrixVectorMultiply3x3(diamondAxes, gsl_Vector(coord.x, coord.y, coord.z));
      coord.x = place.X();
      coord.y = place.Y();
      coord.z = place.Z();
    }
  }
};

// *NMAP rows: TRANSLATION xA, .. zB / factor. ROTATION xA, .. zB / xC, yC, zC / angle.
// SCALE xA, yA, zA / sx, sy, sz. Others xA, .. zB / xC, .. zD / sx, sy, sz.
// With DEFINITION=NODES the first three give points as nodes.
void inp_NodeVisitor::ReadMapping(inp_Keyword const& keyword, cow_String const& type,
                                  Mapping& mapping)
{
  FindMapping(type, mapping.type);
  bool const mayNameNodes =
    mapping.type == c_translation || mapping.type == c_rotation || mapping.type == c_scale;
  bool const namesNodes = mayNameNodes && keyword.GetParameterAsString("definition", "") == "NODES";
  inp_NumberFields fields(keyword);
  auto const point = [&](int row, int index)
  {
    return namesNodes ? ReadNodeFromKeywordData(keyword, MeshScope(), row, index)
                      : fields.Point(row, 3 * index);
  };
  mapping.a = point(0, 0);
  mapping.b = point(0, 1);
  mapping.c = point(1, 0);
  mapping.d = point(1, 1);
  int const scaleRow = mapping.type == c_scale ? 1 : 2;
  bool const hasScale = mapping.type != c_translation && mapping.type != c_rotation;
  for (int i = 0; hasScale && i < 3; ++i)
  {
    mapping.scale[i] = FactorField(fields, scaleRow, i);
  }
  gsl_Vector way(mapping.a, mapping.b);
  switch (mapping.type)
  {
  case c_translation:
    if (way.Normalize())
    {
      way.Scale(FactorField(fields, 1, 0));
    }
    mapping.motion.SetTranslation(way);
    break;
  case c_rotation:
    if (!way.Normalize())
    {
      Say(inp_msgPointBAtPointA, keyword);
    }
    mapping.motion =
      gsl_Matrix::AxisRotation(mapping.a, way, fields.Real(2, 0) * c_radiansOfDegree);
    break;
  case c_scale:
    break;
  default:
    mapping.motion.SetTranslation(gsl_Vector(mapping.a));
    SetMappingAxes(keyword, mapping);
  }
  m_errorList.Concatenate(fields.Errors());
}

/// Turns the local system of a mapping the way its points say. Axes that they do not define are
/// reported and left at zero.
void inp_NodeVisitor::SetMappingAxes(inp_Keyword const& keyword, Mapping& mapping)
{
  auto const normalized = [&](gsl_Vector vector, auto const& message)
  {
    if (!vector.Normalize())
    {
      Say(message, keyword);
    }
    return vector;
  };
  gsl_Vector const ab(mapping.a, mapping.b);
  gsl_Vector const ac(mapping.a, mapping.c);
  if (mapping.type == c_cylindrical || mapping.type == c_spherical)
  {
    gsl_Vector const z = normalized(ab, inp_msgMapZAxisUndefined);
    gsl_Vector const x = normalized(ac, inp_msgMapXAxisUndefined);
    gsl_Vector const y = normalized(z.CrossProduct(x), inp_msgMapAxesParallel);
    mapping.motion.SetRotationVectors(y.CrossProduct(z), y, z);
  }
  else if (mapping.type == c_diamond)
  {
    gsl_Vector const axes[3] = {
      normalized(ab, inp_msgPointBAtPointA), normalized(ac, inp_msgPointCAtPointA),
      normalized(gsl_Vector(mapping.a, mapping.d), inp_msgPointDAtPointA)};
    for (int i = 0; i < 3; ++i)
    {
      mapping.diamondAxes[0][i] = axes[i].X();
      mapping.diamondAxes[1][i] = axes[i].Y();
      mapping.diamondAxes[2][i] = axes[i].Z();
    }
  }
  else if (keyword.data.Rows() > 0 && keyword.data.Cols(0) >= 4)
  {
    mapping.torusRadius = ab.ComputeMagnitude();
    gsl_Vector const x = normalized(ab, inp_msgXAxisUndefined);
    if (keyword.data.HasValue(1, 0))
    {
      gsl_Vector const inPlane = normalized(ac, inp_msgYAxisUndefined);
      gsl_Vector const z = normalized(x.CrossProduct(inPlane), inp_msgXAndYAxesParallel);
      mapping.motion.SetRotationVectors(x, z.CrossProduct(x), z);
    }
    else
    {
      gsl_Vector const z(0.0, 0.0, 1.0);
      gsl_Vector const y = normalized(z.CrossProduct(x), inp_msgXAndZAxesParallel);
      mapping.motion.SetRotationVectors(y.CrossProduct(z), y, z);
    }
  }
}

void inp_NodeVisitor::VisitNmap(inp_Keyword& keyword)
{
  if (!instanceTransform.IsIdentity())
  {
    Say(inp_msgMapOfPositionedInstance, keyword);
    return;
  }
  cow_String const name = keyword.NameIn("nset");
  if (name.Empty() || !keyword.HasParameter("type"))
  {
    Say(inp_msgMapParametersMissing, keyword);
    return;
  }
  cow_String const type = keyword.GetParameterAsString("type", "");
  if (type == "BLENDED")
  {
    if (reportBlended)
    {
      Say(inp_msgMapBlended, keyword);
    }
    return;
  }
  inpM_BaseSet const* const set = sets.ConstFindNestedSet(SetScope(), name);
  if (set == nullptr)
  {
    Say(inp_msgNodeSetMissing, keyword, name);
    return;
  }
  mappingEnm known = c_translation;
  inp_CoordMap* const map = TargetMap(keyword);
  if (!computeGeometry || map == nullptr || !FindMapping(type, known))
  {
    return;
  }
  Mapping mapping;
  ReadMapping(keyword, type, mapping);
  for (int const id : set->ConstGetIds())
  {
    if (map->IsMember(id) && !Store(keyword, *map, id, mapping.Move(map->ConstGet(id))))
    {
      return;
    }
  }
}
