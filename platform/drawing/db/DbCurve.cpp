#include "DbCurve.h"
#include "Ge/GeEllipArc3d.h"
#include "Ge/GeLinearEnt3d.h"
#include <algorithm>
#include <cmath>

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbCurve, OdDbEntity)

namespace {

constexpr double kRelative = 1e-10;

/// Moves a number that lies beyond an end by rounding only to the end. False for any other outside.
bool bringInto(double low, double high, double& number) {
  const double range = high - low;
  const double tolerance = kRelative * (std::isfinite(range) ? std::max(1.0, range) : 1);
  if (!(number >= low - tolerance && number <= high + tolerance) || !std::isfinite(number)) return false;
  number = std::clamp(number, low, high);
  return true;
}

OdResult paramAt(const OdGeCurve3d& curve, const OdGePoint3d& point, double& param) {
  for (const double coordinate : {point.x, point.y, point.z})
    if (!std::isfinite(coordinate)) return eInvalidInput;
  const double closest = curve.closestParam(point);
  const double size = 1 + std::max({std::fabs(point.x), std::fabs(point.y), std::fabs(point.z)});
  if (!(curve.evalPoint(closest).distanceTo(point) <= kRelative * size)) return eInvalidInput;
  // Where the ends meet, both are at the point; the start counts.
  const bool isAtStart = curve.isClosed() && curve.hasStart() &&
                         curve.evalPoint(curve.startParam()).distanceTo(point) <= kRelative * size;
  param = isAtStart ? curve.startParam() : closest;
  return eOk;
}

OdResult paramAt(const OdGeCurve3d& curve, double param, double& inside) {
  if (!bringInto(curve.startParam(), curve.endParam(), param)) return eInvalidInput;
  inside = param;
  return eOk;
}

OdResult paramAtDistance(const OdGeCurve3d& curve, double distance, double& param) {
  if (!curve.hasStart()) return eNotApplicable;
  if (!bringInto(0, curve.hasEnd() ? curve.length() : curve.endParam(), distance)) return eInvalidInput;
  param = curve.paramAtLength(distance);
  return eOk;
}

/// Answers with what `get` makes of the evaluation at a place, which is a parameter or a point.
template <class Place, class Result, class Get>
OdResult evaluateAt(const OdGeCurve3d& curve, const Place& place, Result& result, const Get& get) {
  double param = 0;
  const OdResult found = paramAt(curve, place, param);
  if (found == eOk) result = get(curve.evaluate(param));
  return found;
}

OdGePoint3d closestOnExtension(const OdGeCurve3d& curve, const OdGePoint3d& given) {
  if (const auto* line = dynamic_cast<const OdGeLinearEnt3d*>(&curve)) {
    const OdGeVector3d way = line->direction();
    return line->base() + way * (given - line->base()).dotProduct(way);
  }
  if (const auto* arc = dynamic_cast<const OdGeEllipArc3d*>(&curve)) {
    const OdGeEllipArc3d whole(arc->center(), arc->majorAxis(), arc->minorAxis(), arc->startParam(),
                               arc->startParam() + Oda2PI);
    return whole.evalPoint(whole.closestParam(given));
  }
  return curve.evalPoint(curve.closestParam(given));
}

const auto kPoint = [](const OdGeCurve3d::Evaluation& at) { return at.point; };
const auto kFirst = [](const OdGeCurve3d::Evaluation& at) { return at.first; };
const auto kSecond = [](const OdGeCurve3d::Evaluation& at) { return at.second; };

} // namespace

const OdDbCurve::Shape& OdDbCurve::shape() const {
  const OdUInt64 revision = geometryRevision();
  if (m_shape.isKnown && m_shape.revision == revision) return m_shape;
  m_shape = {true, revision, eOk, nullptr};
  try {
    m_shape.curve = makeGeCurve();
  } catch (const OdError& error) {
    m_shape.error = error.code();
  }
  return m_shape;
}

const OdGeCurve3d& OdDbCurve::geCurve() const {
  const Shape& known = shape();
  if (!known.curve) throw OdError(known.error);
  return *known.curve;
}

template <class Question>
OdResult OdDbCurve::ask(const Question& question) const {
  const Shape& known = shape();
  return known.curve ? question(*known.curve) : known.error;
}

bool OdDbCurve::isClosed() const {
  const Shape& known = shape();
  return known.curve && known.curve->isClosed();
}

bool OdDbCurve::isPeriodic() const {
  const Shape& known = shape();
  return known.curve && known.curve->isPeriodic();
}

OdResult OdDbCurve::getStartParam(double& param) const {
  return ask([&](const OdGeCurve3d& curve) {
    if (!curve.hasStart()) return eNotApplicable;
    param = curve.startParam();
    return eOk;
  });
}

OdResult OdDbCurve::getEndParam(double& param) const {
  return ask([&](const OdGeCurve3d& curve) {
    if (!curve.hasEnd()) return eNotApplicable;
    param = curve.endParam();
    return eOk;
  });
}

OdResult OdDbCurve::getStartPoint(OdGePoint3d& point) const {
  double param = 0;
  const OdResult found = getStartParam(param);
  return found == eOk ? getPointAtParam(param, point) : found;
}

OdResult OdDbCurve::getEndPoint(OdGePoint3d& point) const {
  double param = 0;
  const OdResult found = getEndParam(param);
  return found == eOk ? getPointAtParam(param, point) : found;
}

OdResult OdDbCurve::getPointAtParam(double param, OdGePoint3d& point) const {
  return ask([&](const OdGeCurve3d& curve) { return evaluateAt(curve, param, point, kPoint); });
}

OdResult OdDbCurve::getParamAtPoint(const OdGePoint3d& point, double& param) const {
  return ask([&](const OdGeCurve3d& curve) { return paramAt(curve, point, param); });
}

OdResult OdDbCurve::getDistAtParam(double param, double& distance) const {
  return ask([&](const OdGeCurve3d& curve) {
    if (!curve.hasStart()) return eNotApplicable;
    double inside = 0;
    const OdResult found = paramAt(curve, param, inside);
    if (found == eOk) distance = curve.lengthTo(inside);
    return found;
  });
}

OdResult OdDbCurve::getParamAtDist(double distance, double& param) const {
  return ask([&](const OdGeCurve3d& curve) { return paramAtDistance(curve, distance, param); });
}

OdResult OdDbCurve::getDistAtPoint(const OdGePoint3d& point, double& distance) const {
  double param = 0;
  const OdResult found = getParamAtPoint(point, param);
  return found == eOk ? getDistAtParam(param, distance) : found;
}

OdResult OdDbCurve::getPointAtDist(double distance, OdGePoint3d& point) const {
  double param = 0;
  const OdResult found = getParamAtDist(distance, param);
  return found == eOk ? getPointAtParam(param, point) : found;
}

OdResult OdDbCurve::getFirstDeriv(double param, OdGeVector3d& derivative) const {
  return ask([&](const OdGeCurve3d& curve) { return evaluateAt(curve, param, derivative, kFirst); });
}
OdResult OdDbCurve::getFirstDeriv(const OdGePoint3d& point, OdGeVector3d& derivative) const {
  return ask([&](const OdGeCurve3d& curve) { return evaluateAt(curve, point, derivative, kFirst); });
}
OdResult OdDbCurve::getSecondDeriv(double param, OdGeVector3d& derivative) const {
  return ask([&](const OdGeCurve3d& curve) { return evaluateAt(curve, param, derivative, kSecond); });
}
OdResult OdDbCurve::getSecondDeriv(const OdGePoint3d& point, OdGeVector3d& derivative) const {
  return ask([&](const OdGeCurve3d& curve) { return evaluateAt(curve, point, derivative, kSecond); });
}

OdResult OdDbCurve::getClosestPointTo(const OdGePoint3d& given, OdGePoint3d& point, bool extend) const {
  for (const double coordinate : {given.x, given.y, given.z})
    if (!std::isfinite(coordinate)) return eInvalidInput;
  return ask([&](const OdGeCurve3d& curve) {
    point = extend ? closestOnExtension(curve, given) : curve.evalPoint(curve.closestParam(given));
    return eOk;
  });
}

OdResult OdDbCurve::getGeomExtents(OdGeExtents3d& extents) const {
  return ask([&](const OdGeCurve3d& curve) {
    if (!curve.hasStart() || !curve.hasEnd()) return eInvalidExtents;
    extents = curve.extents();
    return eOk;
  });
}

OdResult OdDbCurve::getOffsetCurves(double, OdRxObjectPtrArray&) const { return eNotApplicable; }

void OdDbCurve::addOffset(const OdDbCurvePtr& curve, OdRxObjectPtrArray& curves) const {
  curve->setPropertiesFrom(this);
  curves.append(OdRxObjectPtr(curve));
}
