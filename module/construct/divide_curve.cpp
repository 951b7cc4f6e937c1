#include "divide_curve.h"
#include "Db3dPolyline.h"
#include "DbArc.h"
#include "DbBlockReference.h"
#include "DbCircle.h"
#include "DbEllipse.h"
#include "DbLine.h"
#include "DbPoint.h"
#include "DbPolyline.h"
#include "DbSpline.h"
#include "frame/input.h"
#include "res/strings.h"
#include "target_space.h"
#include <algorithm>
#include <vector>

namespace construct {

namespace {

/// Where a curve is divided.
struct Place {
  OdGePoint3d point;
  OdGeVector3d derivative;
};

void require(OdResult result) {
  if (result != eOk) throw OdError(result);
}

bool isDivisible(const OdDbCurve& curve) {
  const OdRxClass* const divisible[] = {OdDbPolyline::desc(), OdDb3dPolyline::desc(), OdDbEllipse::desc(),
                                        OdDbCircle::desc(),   OdDbArc::desc(),        OdDbSpline::desc(),
                                        OdDbLine::desc()};
  return std::ranges::any_of(divisible, [&](const OdRxClass* type) { return curve.isKindOf(type); });
}

double distanceAt(const OdDbCurve& curve, double param) {
  double distance = 0;
  require(curve.getDistAtParam(param, distance));
  return distance;
}

/// By the parameter, which one place of a curve that meets itself does not share with another.
Place placeAt(const OdDbCurve& curve, double distance) {
  double param = 0;
  Place place;
  require(curve.getParamAtDist(distance, param));
  require(curve.getPointAtParam(param, place.point));
  require(curve.getFirstDeriv(param, place.derivative));
  return place;
}

std::vector<Place> divide(const OdDbCurve& curve, int count) {
  double start = 0;
  double end = 0;
  require(curve.getStartParam(start));
  require(curve.getEndParam(end));
  const double from = distanceAt(curve, start);
  const double step = (distanceAt(curve, end) - from) / count;
  std::vector<Place> places;
  for (int i = curve.isClosed() ? 0 : 1; i < count; ++i) places.push_back(placeAt(curve, from + i * step));
  return places;
}

OdDbEntityPtr makePoint(const Place& place, OdDbDatabase* database) {
  const OdDbPointPtr point = OdDbPoint::createObject();
  point->setPosition(place.point);
  point->setDatabaseDefaults(database);
  return point;
}

OdDbEntityPtr makeReference(const Place& place, const DivideMark& mark, OdDbDatabase* database) {
  const double rotation =
      mark.isAlong ? OdGeVector3d::kXAxis.angleTo(place.derivative, OdGeVector3d::kZAxis) : 0;
  const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setDatabaseDefaults(database);
  reference->setBlockTableRecord(mark.block);
  reference->setPosition(place.point);
  reference->setRotation(rotation);
  return reference;
}

} // namespace

CMD_RUNSTATUS divideCurve(HostEdInput& input, OdDbObjectId id, int count, const DivideMark& mark) {
  const OdDbCurvePtr curve = id.safeOpenObject();
  if (!isDivisible(*curve)) {
    frame::printMessage(input, IDS_CANNOT_DIVIDE);
    return kCmdCancelled;
  }
  const OdDbObjectId owner = curve->ownerId();
  if (mark.block == owner) throw OdError(eInvalidInput, L"A block cannot contain itself.");
  for (const Place& place : divide(*curve, count))
    append(owner, mark.block.isNull() ? makePoint(place, curve->database())
                                      : makeReference(place, mark, curve->database()));
  return kCmdCompleted;
}

} // namespace construct
