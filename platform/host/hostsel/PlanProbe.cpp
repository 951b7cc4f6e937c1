#include "PlanProbe.h"
#include "Ge/GeEllipArc3d.h"
#include "Ge/GeLinearEnt3d.h"
#include "Ge/GeNurbCurve3d.h"
#include "Ge/GePolylineCurve3d.h"
#include <algorithm>
#include <cmath>

namespace host {

// --- rectangles ---

PlanBox PlanBox::of(OdGeExtents3d box, const OdGeMatrix3d& toPlan) {
  if (!box.isValidExtents()) return {};
  box.transformBy(toPlan);
  return {box.minPoint().x, box.minPoint().y, box.maxPoint().x, box.maxPoint().y};
}

void PlanBox::add(const OdGePoint2d& point) {
  left = std::min(left, point.x);
  bottom = std::min(bottom, point.y);
  right = std::max(right, point.x);
  top = std::max(top, point.y);
}

void PlanBox::add(const PlanBox& other) {
  if (other.isEmpty()) return;
  add(OdGePoint2d(other.left, other.bottom));
  add(OdGePoint2d(other.right, other.top));
}

bool PlanBox::holds(const OdGePoint2d& point) const {
  return point.x >= left && point.x <= right && point.y >= bottom && point.y <= top;
}

bool PlanBox::holds(const PlanBox& other) const {
  return other.left >= left && other.right <= right && other.bottom >= bottom && other.top <= top;
}

bool PlanBox::touches(const PlanBox& other) const {
  return other.left <= right && other.right >= left && other.bottom <= top && other.top >= bottom;
}

// --- what a curve looks like in the plan ---

/// A place on a curve, with the second derivative there.
struct PlanProbe::Place {
  double param;
  OdGePoint2d point;
  OdGeVector2d bend;
};

class PlanProbe::PlacedCurve {
public:
  PlacedCurve(const OdGeCurve3d& curve, const OdGeMatrix3d& toPlan) : m_curve(curve), m_toPlan(toPlan) {}

  Place at(double param) const {
    const OdGeCurve3d::Evaluation there = m_curve.evaluate(param);
    return {param, (m_toPlan * there.point).convert2d(), (m_toPlan * there.second).convert2d()};
  }
  /// Parameters between which the curve is smooth and does not turn round, from its start to its end.
  std::vector<double> stations() const {
    std::vector<double> found = {m_curve.startParam()};
    const double end = m_curve.endParam();
    const auto divide = [&found](double to, int parts) {
      const double from = found.back();
      for (int i = 1; i < parts; ++i) found.push_back(from + (to - from) * i / parts);
      found.push_back(to);
    };
    if (const auto* spline = dynamic_cast<const OdGeNurbCurve3d*>(&m_curve)) {
      for (const OdGeNurbCurve3d::Span& span : spline->spans()) divide(span.to, 2 * spline->degree());
    } else if (dynamic_cast<const OdGePolylineCurve3d*>(&m_curve)) {
      while (found.back() + 1 < end) found.push_back(found.back() + 1);
      found.push_back(end);
    } else {
      constexpr int kParts = 8;
      divide(end, kParts);
    }
    return found;
  }

private:
  const OdGeCurve3d& m_curve;
  const OdGeMatrix3d& m_toPlan;
};

// --- the probe ---

namespace {

constexpr double kRounding = 1e-11; // of coordinates, relative

double magnitude(const PlanBox& box) {
  return std::max({std::fabs(box.left), std::fabs(box.right), std::fabs(box.bottom), std::fabs(box.top)});
}

} // namespace

PlanProbe::PlanProbe(const PlanBox& box, Question question)
    : m_box(box.grown(magnitude(box) * kRounding)), m_center(box.center()), m_question(question) {
  constexpr double kExactness = 1e-6;
  m_tolerance = std::max(m_box.width(), m_box.height()) * kExactness;
}

bool PlanProbe::isDecided() const {
  return (m_question == Question::isTouched && m_isTouched) ||
         (m_question == Question::isInside && !m_isInside);
}

bool PlanProbe::needsParts(const PlanBox& box) {
  if (box.isEmpty()) return false;
  m_hasParts = true;
  if (!m_box.touches(box)) m_isInside = false;
  if (!m_box.touches(box)) return false;
  if (m_question == Question::howNear || !m_box.holds(box)) return true;
  m_isTouched = true;
  return false;
}

void PlanProbe::noteTouched(double distance) {
  m_isTouched = true;
  m_distance = std::min(m_distance, distance);
}

/// Points to the right of the middle that a line crosses make the difference between inside and outside.
void PlanProbe::countCrossing(const OdGePoint2d& from, const OdGePoint2d& to) {
  if ((from.y > m_center.y) == (to.y > m_center.y)) return;
  const double x = from.x + (to.x - from.x) * ((m_center.y - from.y) / (to.y - from.y));
  if (x > m_center.x) m_isOddCrossing = !m_isOddCrossing;
}

void PlanProbe::addPoint(const OdGePoint3d& point, const OdGeMatrix3d& toPlan) {
  const OdGePoint2d place = (toPlan * point).convert2d();
  m_hasParts = true;
  if (m_box.holds(place))
    noteTouched(place.distanceTo(m_center));
  else
    m_isInside = false;
}

void PlanProbe::addSegment(const OdGePoint2d& from, const OdGePoint2d& to) {
  countCrossing(from, to);
  if (!m_box.holds(from) || !m_box.holds(to)) m_isInside = false;
  addStraight(from, to - from, 0, 1);
}

/// The part of a straight line from `low` to `high`, in units of its way, either of which may be infinite. It
/// is cut at the sides of the rectangle. Y.-D. Liang and B. A. Barsky, A New Concept and Method for Line
/// Clipping (1984).
void PlanProbe::addStraight(const OdGePoint2d& base, const OdGeVector2d& way, double low, double high) {
  double enters = low;
  double leaves = high;
  const auto cut = [&](double step, double room) { // keeps step * t <= room
    if (step == 0) return room >= 0;
    if (step < 0)
      enters = std::max(enters, room / step);
    else
      leaves = std::min(leaves, room / step);
    return enters <= leaves;
  };
  if (!cut(-way.x, base.x - m_box.left) || !cut(way.x, m_box.right - base.x) ||
      !cut(-way.y, base.y - m_box.bottom) || !cut(way.y, m_box.top - base.y))
    return;
  const double square = way.lengthSqrd();
  const double nearest =
      square > 0 ? std::clamp((m_center - base).dotProduct(way) / square, low, high) : enters;
  noteTouched(square > 0 ? (base + way * nearest).distanceTo(m_center) : base.distanceTo(m_center));
}

void PlanProbe::addCurve(const OdGeCurve3d& curve, const OdGeMatrix3d& toPlan) {
  constexpr long kMostSteps = 1'000'000;
  m_hasParts = true;
  if (const auto* line = dynamic_cast<const OdGeLinearEnt3d*>(&curve)) {
    const OdGePoint2d base = (toPlan * line->base()).convert2d();
    const OdGeVector2d way = (toPlan * line->direction()).convert2d();
    if (line->hasStart() && line->hasEnd())
      return addSegment(base + way * line->startParam(), base + way * line->endParam());
    m_isInside = false;
    return addStraight(base, way, line->startParam(), line->endParam());
  }
  const PlacedCurve placed(curve, toPlan);
  const std::vector<double> stations = placed.stations();
  m_steps = kMostSteps;
  Place from = placed.at(stations.front());
  for (std::size_t i = 1; i < stations.size() && !isDecided(); ++i) {
    const Place to = placed.at(stations[i]);
    follow(placed, from, to, 0);
    from = to;
  }
}

/// Takes a piece for straight where it cannot matter or where it bends little enough. A piece stays within h
/// h b / 8 of its chord, where b is the largest second derivative over its length h.
void PlanProbe::follow(const PlacedCurve& curve, const Place& from, const Place& to, int depth) {
  constexpr int kDeepest = 48;
  constexpr double kSafety = 1.5; // the second derivative is known at three places only
  if (isDecided()) return;
  const double width = to.param - from.param;
  const Place middle = curve.at(from.param + width / 2);
  const double bend = std::max({from.bend.length(), middle.bend.length(), to.bend.length()});
  const double sag = width * width / 8 * bend * kSafety;
  PlanBox box;
  for (const Place* place : {&from, &middle, &to}) box.add(place->point);
  box = box.grown(sag);
  if (!m_box.touches(box)) {
    m_isInside = false;
    // The piece is wholly on one side, so its chord crosses as often, but for an even number.
    return countCrossing(from.point, to.point);
  }
  if (sag <= m_tolerance || depth >= kDeepest || --m_steps < 0) return addSegment(from.point, to.point);
  if (m_question == Question::isInside && m_box.holds(box)) return;
  follow(curve, from, middle, depth + 1);
  follow(curve, middle, to, depth + 1);
}

void PlanProbe::addArea(const std::vector<const OdGeCurve3d*>& edges, const OdGeMatrix3d& toPlan,
                        Inside inside) {
  m_isOddCrossing = false;
  for (const OdGeCurve3d* edge : edges) addCurve(*edge, toPlan);
  if (!m_isOddCrossing) return;
  noteTouched(inside == Inside::isFull ? 0 : std::max(m_box.width(), m_box.height()) / 2);
}

} // namespace host
