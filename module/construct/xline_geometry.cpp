#include "xline_geometry.h"
#include "DbDatabase.h"
#include "DbXline.h"
#include "HostUtils.h"
#include "direction.h"
#include <cmath>

namespace construct {

std::optional<Line> lineAlong(const OdGePoint3d& base, const OdGeVector3d& way) {
  OdGeVector3d direction = way;
  if (direction.normalizeGetLength() == 0) return std::nullopt;
  return Line{base, direction};
}

std::optional<OdGeVector3d> bisector(const OdGePoint3d& vertex, const OdGePoint3d& start,
                                     const OdGePoint3d& end) {
  const std::optional<OdGeVector3d> toStart = wayTo(vertex, start);
  const std::optional<OdGeVector3d> toEnd = wayTo(vertex, end);
  if (!toStart || !toEnd) return std::nullopt;
  const OdGeVector3d half = (toStart->normal() + toEnd->normal()) * 0.5;
  if (half.isZeroLength()) return std::nullopt;
  return half;
}

OdGeVector3d ucsAxis(const OdDbDatabase& database, const OdChar* variable) {
  OdGeVector3d axis;
  hostdbGetVar(&database, variable, axis);
  return axis.normalize();
}

std::optional<OdGeVector3d> inUcsPlane(const OdDbDatabase& database, const OdGeVector3d& direction) {
  const OdGeVector3d zAxis = get_UCSZDIR(&database);
  OdGeVector3d flat = direction - zAxis * direction.dotProduct(zAxis);
  if (flat.normalizeGetLength() == 0) return std::nullopt;
  return flat;
}

bool isOnLeft(const OdDbDatabase* database, const OdGePoint3d& point, const Line& line) {
  constexpr double kTolerance = 1e-10;
  const OdGeVector3d& way = line.direction;
  if (way.isZeroLength()) return true;
  const OdGeVector3d across = database ? get_UCSZDIR(database).crossProduct(way) : way.perpVector();
  if (across.isZeroLength()) return true;
  const OdGeVector3d axis = way.crossProduct(across);
  return (point - line.base).angleTo(way, axis) > OdaPI + kTolerance;
}

std::optional<Line> offsetLine(const OdDbDatabase& database, const Line& line, double distance) {
  // Offset curves of endless lines stay in the XY plane, so they are taken in the current coordinate system.
  const OdGeMatrix3d ucsToWorld = database.ucsToWorld();
  const OdDbXlinePtr copy = OdDbXline::createObject();
  copy->setBasePoint(line.base);
  copy->setUnitDir(line.direction);
  OdRxObjectPtrArray curves;
  if (copy->transformBy(ucsToWorld.inverse()) != eOk || copy->getOffsetCurves(distance, curves) != eOk)
    return std::nullopt;
  for (const OdRxObjectPtr& curve : curves) {
    const OdDbXlinePtr moved = OdDbXline::cast(curve);
    if (moved.isNull() || moved->transformBy(ucsToWorld) != eOk) continue;
    const Line result{moved->basePoint(), moved->unitDir()};
    if (std::isfinite(result.base.asVector().length())) return result;
  }
  return std::nullopt;
}

} // namespace construct
