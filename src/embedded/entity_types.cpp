#include "embedded/entity_types.h"

#include <algorithm>
#include <array>

namespace velmar::embedded {
namespace {

struct EntityType {
  std::string_view object_name;
  std::int32_t number;
};

constexpr std::array types{
    EntityType{"AcDbFace", 1},
    EntityType{"AcDb3dPolyline", 2},
    EntityType{"AcDb3dSolid", 3},
    EntityType{"AcDbArc", 4},
    EntityType{"AcDbAttributeDefinition", 5},
    EntityType{"AcDbAttribute", 6},
    EntityType{"AcDbBlockReference", 7},
    EntityType{"AcDbCircle", 8},
    EntityType{"AcDbAlignedDimension", 9},
    EntityType{"AcDb3PointAngularDimension", 10},
    EntityType{"AcDb2LineAngularDimension", 10},
    EntityType{"AcDbDiametricDimension", 12},
    EntityType{"AcDbOrdinateDimension", 13},
    EntityType{"AcDbRadialDimension", 14},
    EntityType{"AcDbRotatedDimension", 15},
    EntityType{"AcDbEllipse", 16},
    EntityType{"AcDbHatch", 17},
    EntityType{"AcDbLeader", 18},
    EntityType{"AcDbLine", 19},
    EntityType{"AcDbMText", 21},
    EntityType{"AcDbPoint", 22},
    EntityType{"AcDb2dPolyline", 23},
    EntityType{"AcDbPolyline", 24},
    EntityType{"AcDbPolygonMesh", 25},
    EntityType{"AcDbRasterImage", 26},
    EntityType{"AcDbRay", 27},
    EntityType{"AcDbRegion", 28},
    EntityType{"AcDbShape", 29},
    EntityType{"AcDbTrace", 34},
    EntityType{"AcDbSpline", 31},
    EntityType{"AcDbText", 32},
    EntityType{"AcDbFcf", 33},
    EntityType{"AcDbViewport", 35},
    EntityType{"AcDbXline", 36},
    EntityType{"AcDbMInsertBlock", 38},
    EntityType{"AcDbPolyFaceMesh", 39},
    EntityType{"AcDbMline", 40},
};

}  // namespace

std::int32_t entity_type(std::string_view object_name) {
  const auto found = std::ranges::find(types, object_name, &EntityType::object_name);
  return found == types.end() ? 0 : found->number;
}

}  // namespace velmar::embedded
