#include "xline_pick.h"
#include "DbDatabase.h"
#include "DbLine.h"
#include "DbPolyline.h"
#include "DbRay.h"
#include "DbXline.h"
#include "Ge/GePlane.h"
#include "HostUtils.h"
#include "xline_run.h"
#include <algorithm>
#include <cmath>

namespace construct {
namespace {

/// The number of the segment that was picked, or nothing where the polyline is no curve.
std::optional<unsigned> segmentAt(const OdDbDatabase& database, const OdDbPolyline& polyline,
                                  const OdGePoint3d& picked) {
  const unsigned vertices = polyline.numVerts();
  if (vertices < 2 || polyline.normal().isZeroLength()) return std::nullopt;
  // The user looks along the Z axis, and the polyline may lie deeper, or in another plane.
  OdGePoint3d vertex;
  polyline.getPointAt(0, vertex);
  OdGePoint3d seen = picked;
  OdGePlane(vertex, polyline.normal()).intersectWithLine(picked, get_UCSZDIR(&database), seen);
  OdGePoint3d nearest;
  double param = 0;
  if (polyline.getClosestPointTo(seen, nearest) != eOk || polyline.getParamAtPoint(nearest, param) != eOk)
    return std::nullopt;
  const unsigned last = vertices - (polyline.isClosed() ? 1 : 2);
  return std::min(static_cast<unsigned>(param), last);
}

std::optional<Line> polylineSegment(const OdDbDatabase& database, const OdDbPolyline& polyline,
                                    const OdGePoint3d& picked) {
  constexpr double kStraight = 1e-10; // the greatest bulge of a straight segment
  const std::optional<unsigned> segment = segmentAt(database, polyline, picked);
  if (!segment || std::fabs(polyline.getBulgeAt(*segment)) > kStraight) return std::nullopt;
  OdGePoint3d start;
  OdGePoint3d end;
  polyline.getPointAt(*segment, start);
  polyline.getPointAt((*segment + 1) % polyline.numVerts(), end);
  return lineAlong(start, end - start);
}

} // namespace

std::optional<Line> lineObject(const OdDbDatabase& database, OdDbObjectId id, const OdGePoint3d& picked) {
  const OdDbObjectPtr object = id.openObject();
  if (const OdDbXlinePtr xline = OdDbXline::cast(object); !xline.isNull())
    return lineAlong(xline->basePoint(), xline->unitDir());
  if (const OdDbRayPtr ray = OdDbRay::cast(object); !ray.isNull())
    return lineAlong(ray->basePoint(), ray->unitDir());
  if (const OdDbLinePtr line = OdDbLine::cast(object); !line.isNull())
    return lineAlong(line->startPoint(), line->endPoint() - line->startPoint());
  if (const OdDbPolylinePtr polyline = OdDbPolyline::cast(object); !polyline.isNull())
    return polylineSegment(database, *polyline, picked);
  return std::nullopt;
}

int pickLine(const XlineRun& run, const std::function<bool(const Line&)>& use) {
  for (;;) {
    OdDbObjectId id;
    OdGePoint3d picked;
    const int code =
        run.input().SelectEntity(res::loadString(IDS_SELECT_LINE_OBJECT), kOneObjectFlags, id, &picked);
    if (code != kHostEdValue) return code;
    const std::optional<Line> line = lineObject(run.database(), id, picked);
    if (line && use(*line)) return code;
    frame::printMessage(run.input(), IDS_NO_USABLE_OBJECT);
  }
}

std::optional<OdGeVector3d> pickDirection(const XlineRun& run) {
  std::optional<OdGeVector3d> direction;
  pickLine(run, [&](const Line& line) {
    direction = inUcsPlane(run.database(), line.direction);
    return direction.has_value();
  });
  return direction;
}

} // namespace construct
