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

/// A factor; 0, or a field that is missing, stands for 1.
double FactorField(inp_NumberFields& fields, int row, int column)
{
  double const factor = fields.Real(row, column);
  return factor != 0.0 ? factor : 1.0;
}

} // namespace

/// How *NMAP moves a node: its coordinates are multiplied by the scale, taken for those of the mapping's
/// system and made rectangular, and then moved to where the points of the rows put that system.
struct inp_NodeVisitor::Mapping
{
  mappingEnm type = c_translation;
  gsl_Point a, b, c, d;
  double scale[3] = {1.0, 1.0, 1.0};
  gsl_Matrix motion; ///< from the mapping's system to that of the part
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
    gsl_Point point(coord.x, coord.y, coord.z);
    motion.Transform(point);
    inp_Coord moved(point.X(), point.Y(), point.Z());
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
      ConvertToroidal(coord);
    }
    else if (type == c_diamond)
    {
      ConvertDiamond(coord);
    }
  }

  /// x is the distance from the circle in the middle of the tube, y the angle about that circle, from the
  /// side of the axis, and z the angle about the axis.
  ///
  ///     axis
  ///       |                  x .
  ///       |                 . y \                 y = 0 lies towards the axis
  ///       +----------------+     tube
  ///         torusRadius
  void ConvertToroidal(inp_Coord& coord) const
  {
    double const around = coord.y * c_radiansOfDegree;
    double const along = coord.z * c_radiansOfDegree;
    double const radius = torusRadius - coord.x * std::cos(around);
    coord.z = coord.x * std::sin(around);
    coord.x = radius * std::cos(along);
    coord.y = radius * std::sin(along);
  }

  void ConvertDiamond(inp_Coord& coord) const
  {
    gsl_Vector const moved =
      MatrixVectorMultiply3x3(diamondAxes, gsl_Vector(coord.x, coord.y, coord.z));
    coord.x = moved.X();
    coord.y = moved.Y();
    coord.z = moved.Z();
  }
};

/// Reads the rows of one *NMAP. With DEFINITION=NODES the points of a translation, a rotation and a scale are
/// nodes. Axes that the points do not define are reported and left at zero.
class inp_NodeVisitor::MappingReader
{
public:
  MappingReader(inp_NodeVisitor& visitor, inp_Keyword const& keyword, mappingEnm type)
    : m_visitor(visitor), m_keyword(keyword), m_fields(keyword)
  {
    m_mapping.type = type;
  }

  Mapping const& Read()
  {
    m_mapping.a = ReadPoint(0, 0);
    m_mapping.b = ReadPoint(0, 1);
    m_mapping.c = ReadPoint(1, 0);
    m_mapping.d = ReadPoint(1, 1);
    ReadScale();
    ReadMotion();
    m_visitor.m_errorList.Concatenate(m_fields.Errors());
    return m_mapping;
  }

private:
  bool HasAxes() const { return !HasWay() && m_mapping.type != c_scale; }
  bool HasWay() const { return m_mapping.type == c_translation || m_mapping.type == c_rotation; }

  gsl_Point ReadPoint(int row, int index)
  {
    bool const isNode = !HasAxes() && m_keyword.GetParameterAsString("definition", "") == "NODES";
    return isNode ? m_visitor.ReadNodeFromKeywordData(m_keyword, m_visitor.MeshScope(), row, index)
                  : m_fields.Point(row, 3 * index);
  }

  void ReadScale()
  {
    int const row = m_mapping.type == c_scale ? 1 : 2;
    for (int i = 0; !HasWay() && i < 3; ++i)
    {
      m_mapping.scale[i] = FactorField(m_fields, row, i);
    }
  }

  void ReadMotion()
  {
    if (m_mapping.type == c_translation)
    {
      SetTranslation();
    }
    else if (m_mapping.type == c_rotation)
    {
      SetRotation();
    }
    else if (HasAxes())
    {
      m_mapping.motion.SetTranslation(gsl_Vector(m_mapping.a));
      SetAxes();
    }
  }

  void SetTranslation()
  {
    gsl_Vector way(m_mapping.a, m_mapping.b);
    if (way.Normalize())
    {
      way.Scale(FactorField(m_fields, 1, 0));
    }
    m_mapping.motion.SetTranslation(way);
  }

  void SetRotation()
  {
    gsl_Vector const axis = Normalized(gsl_Vector(m_mapping.a, m_mapping.b), inp_msgPointBAtPointA);
    m_mapping.motion =
      gsl_Matrix::AxisRotation(m_mapping.a, axis, m_fields.Real(2, 0) * c_radiansOfDegree);
  }

  void SetAxes()
  {
    gsl_Vector const ab(m_mapping.a, m_mapping.b);
    gsl_Vector const ac(m_mapping.a, m_mapping.c);
    if (m_mapping.type == c_cylindrical || m_mapping.type == c_spherical)
    {
      gsl_Vector const z = Normalized(ab, inp_msgMapZAxisUndefined);
      gsl_Vector const x = Normalized(ac, inp_msgMapXAxisUndefined);
      gsl_Vector const y = Normalized(z.CrossProduct(x), inp_msgMapAxesParallel);
      m_mapping.motion.SetRotationVectors(y.CrossProduct(z), y, z);
    }
    else if (m_mapping.type == c_diamond)
    {
      SetDiamondAxis(0, Normalized(ab, inp_msgPointBAtPointA));
      SetDiamondAxis(1, Normalized(ac, inp_msgPointCAtPointA));
      SetDiamondAxis(2, Normalized(gsl_Vector(m_mapping.a, m_mapping.d), inp_msgPointDAtPointA));
    }
    else if (m_keyword.data.Rows() > 0 && m_keyword.data.Cols(0) >= 4)
    {
      m_mapping.torusRadius = ab.ComputeMagnitude();
      SetAxesInPlane(ab, ac);
    }
  }

  void SetDiamondAxis(int column, gsl_Vector const& axis)
  {
    m_mapping.diamondAxes[0][column] = axis.X();
    m_mapping.diamondAxes[1][column] = axis.Y();
    m_mapping.diamondAxes[2][column] = axis.Z();
  }

  /// Without point C the z-axis stays.
  void SetAxesInPlane(gsl_Vector const& ab, gsl_Vector const& ac)
  {
    gsl_Vector const x = Normalized(ab, inp_msgXAxisUndefined);
    if (m_keyword.data.HasValue(1, 0))
    {
      gsl_Vector const inPlane = Normalized(ac, inp_msgYAxisUndefined);
      gsl_Vector const z = Normalized(x.CrossProduct(inPlane), inp_msgXAndYAxesParallel);
      m_mapping.motion.SetRotationVectors(x, z.CrossProduct(x), z);
    }
    else
    {
      gsl_Vector const z(0.0, 0.0, 1.0);
      gsl_Vector const y = Normalized(z.CrossProduct(x), inp_msgXAndZAxesParallel);
      m_mapping.motion.SetRotationVectors(y.CrossProduct(z), y, z);
    }
  }

  template <class Message>
  gsl_Vector Normalized(gsl_Vector vector, Message const& message)
  {
    if (!vector.Normalize())
    {
      m_visitor.Say(message, m_keyword);
    }
    return vector;
  }

  inp_NodeVisitor& m_visitor;
  inp_Keyword const& m_keyword;
  inp_NumberFields m_fields;
  Mapping m_mapping;
};

/// The set that a mapping moves; null when there is none, or when the keyword moves nothing.
inpM_BaseSet const* inp_NodeVisitor::FindSetToMap(inp_Keyword const& keyword)
{
  if (!instanceTransform.IsIdentity())
  {
    Say(inp_msgMapOfPositionedInstance, keyword);
    return nullptr;
  }
  cow_String const name = keyword.NameIn("nset");
  if (name.Empty() || !keyword.HasParameter("type"))
  {
    Say(inp_msgMapParametersMissing, keyword);
    return nullptr;
  }
  if (keyword.GetParameterAsString("type", "") == "BLENDED")
  {
    if (reportBlended)
    {
      Say(inp_msgMapBlended, keyword);
    }
    return nullptr;
  }
  inpM_BaseSet const* const set = sets.ConstFindNestedSet(SetScope(), name);
  if (set == nullptr)
  {
    Say(inp_msgNodeSetMissing, keyword, name);
  }
  return set;
}

// *NMAP rows: TRANSLATION xA, .. zB / factor. ROTATION xA, .. zB / xC, yC, zC / angle.
// SCALE xA, yA, zA / sx, sy, sz. Others xA, .. zB / xC, .. zD / sx, sy, sz.
void inp_NodeVisitor::VisitNmap(inp_Keyword& keyword)
{
  inpM_BaseSet const* const set = FindSetToMap(keyword);
  inp_CoordMap* const map = set != nullptr ? TargetMap(keyword) : nullptr;
  mappingEnm type = c_translation;
  if (!computeGeometry || map == nullptr ||
      !FindMapping(keyword.GetParameterAsString("type", ""), type))
  {
    return;
  }
  MappingReader reader(*this, keyword, type);
  Mapping const& mapping = reader.Read();
  for (int const id : set->ConstGetIds())
  {
    if (map->IsMember(id) && !Store(keyword, *map, id, mapping.Move(map->ConstGet(id))))
    {
      return;
    }
  }
}
