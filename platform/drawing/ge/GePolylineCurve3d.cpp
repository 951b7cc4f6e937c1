#include "Ge/GePolylineCurve3d.h"
#include "CurveSolve.h"
#include "OdPlatform.h"
#include <algorithm>

namespace {

/// An arc of bulge b over a chord c has the half angle 2 atan b and the radius c (1 + b^2) / (4 b).
double arcLength(double chord, double bulge) {
  return bulge == 0 ? chord : chord * (1 + bulge * bulge) * std::atan(bulge) / bulge;
}
/// Arcs this flat differ from their chord by less than its rounding.
constexpr double kFlat = 1e-15;

} // namespace

OdGePolylineCurve3d::OdGePolylineCurve3d(std::vector<OdGePoint3d> vertices, std::vector<double> bulges,
                                         bool closed, const OdGeVector3d& normal)
    : m_bulges(std::move(bulges)), m_normal(normal), m_isClosed(closed) {
  odGeSolve::requireFinite(normal);
  m_normal.normalize();
  for (const OdGePoint3d& vertex : vertices) odGeSolve::requireFinite(vertex);
  for (double& bulge : m_bulges) {
    odGeSolve::requireFinite(bulge);
    if (std::fabs(bulge) < kFlat) bulge = 0;
  }
  if (!m_bulges.empty() && m_bulges.size() != vertices.size()) throw OdError(eInvalidInput);
  if (vertices.size() < 2) throw OdError(eDegenerateGeometry);
  if (closed) vertices.push_back(vertices.front());
  std::vector<Joint> joints;
  joints.reserve(vertices.size());
  long double length = 0; // many short segments add up
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    if (i > 0) length += arcLength(vertices[i - 1].distanceTo(vertices[i]), bulge(i - 1));
    joints.push_back({static_cast<double>(i), static_cast<double>(length), vertices[i]});
  }
  setJoints(std::move(joints));
}

OdGeCurve3d::Evaluation OdGePolylineCurve3d::evaluateArc(std::size_t piece, double part) const {
  // The chord from the start to a part of the arc: its length is 2 r sin, and it leaves the whole chord by
  // half of the rest of the angle. This holds for arcs that are nearly straight, too.
  const double b = bulge(piece);
  const double half = 2 * std::atan(b);
  const OdGeVector3d chord = joint(piece + 1).point - joint(piece).point;
  const double wholeSine = 2 * b / (1 + b * b);
  const OdGeVector3d way = turned(chord, half * (part - 1)) * (std::sin(half * part) / wholeSine);
  const OdGeVector3d first = turned(chord, half * (2 * part - 1)) * (half / wholeSine);
  return {joint(piece).point + way, first, m_normal.crossProduct(first) * (2 * half)};
}

OdGeCurve3d::Evaluation OdGePolylineCurve3d::evaluate(double param) const {
  const std::size_t piece = pieceAt(param);
  const double part = param - joint(piece).param;
  if (part == 1) { // to the bit
    Evaluation end = evaluate(std::nextafter(param, 0));
    end.point = joint(piece + 1).point;
    return end;
  }
  if (pieceLength(piece) > 0) {
    if (bulge(piece) != 0) return evaluateArc(piece, part);
    const OdGeVector3d chord = joint(piece + 1).point - joint(piece).point;
    return {joint(piece).point + chord * part, chord, {}};
  }
  // A segment without length has the direction of the next that has one, or else of the one before.
  std::size_t other = piece;
  while (other < numPieces() && !(pieceLength(other) > 0)) ++other;
  const bool isBehind = other < numPieces();
  if (!isBehind)
    for (other = piece; !(pieceLength(other) > 0);) --other;
  Evaluation result = evaluate(isBehind ? joint(other).param : std::nextafter(joint(other + 1).param, 0));
  result.point = joint(piece).point;
  return result;
}

double OdGePolylineCurve3d::lengthInPiece(std::size_t piece, double param) const {
  return pieceLength(piece) * (param - joint(piece).param);
}

double OdGePolylineCurve3d::paramInPiece(std::size_t piece, double length) const {
  const double whole = pieceLength(piece);
  return joint(piece).param + (whole > 0 ? std::min(1.0, length / whole) : 0);
}

double OdGePolylineCurve3d::partTowards(std::size_t piece, const OdGeVector3d& fromMiddle) const {
  // Seen from the middle of the arc, where the radius to it and the tangent are the axes.
  const Evaluation middle = evaluateArc(piece, 0.5);
  const OdGeVector3d tangent = middle.first.normal(0);
  const double half = 2 * std::atan(bulge(piece));
  const double radius = middle.first.length() / (2 * std::fabs(half));
  const OdGeVector3d outward = tangent.crossProduct(m_normal) * (half > 0 ? 1 : -1);
  const double angle = std::atan2(fromMiddle.dotProduct(tangent), radius + fromMiddle.dotProduct(outward));
  return 0.5 + angle / (2 * std::fabs(half));
}

double OdGePolylineCurve3d::closestInPiece(std::size_t piece, const OdGePoint3d& point) const {
  const double start = joint(piece).param;
  if (!(pieceLength(piece) > 0)) return start;
  const OdGePoint3d from = joint(piece).point;
  const OdGePoint3d to = joint(piece + 1).point;
  const OdGeVector3d chord = to - from;
  if (bulge(piece) == 0)
    return start + std::clamp((point - from).dotProduct(chord) / chord.lengthSqrd(), 0.0, 1.0);
  const double part = partTowards(piece, point - evaluateArc(piece, 0.5).point);
  if (part >= 0 && part <= 1) return start + part;
  return from.distanceSqrdTo(point) <= to.distanceSqrdTo(point) ? start : start + 1;
}

OdGeExtents3d OdGePolylineCurve3d::pieceExtents(std::size_t piece) const {
  OdGeExtents3d box;
  box.addPoint(joint(piece).point).addPoint(joint(piece + 1).point);
  if (bulge(piece) == 0 || !(pieceLength(piece) > 0)) return box;
  const OdGeVector3d first = evaluateArc(piece, 0.5).first;
  const double radius = first.length() / std::fabs(4 * std::atan(bulge(piece)));
  const OdGeVector3d toMiddle =
      first.normal(0).crossProduct(m_normal) * (bulge(piece) > 0 ? radius : -radius);
  for (const OdGeVector3d& axis : {OdGeVector3d::kXAxis, OdGeVector3d::kYAxis, OdGeVector3d::kZAxis}) {
    // As seen from the centre: the arc is widest in the direction of the axis and against it.
    const OdGeVector3d inPlane = axis - m_normal * axis.dotProduct(m_normal);
    if (inPlane.isZeroLength()) continue;
    for (const double side : {radius, -radius}) {
      const double part = partTowards(piece, inPlane.normal() * side - toMiddle);
      if (part > 0 && part < 1) box.addPoint(evaluateArc(piece, part).point);
    }
  }
  return box;
}
