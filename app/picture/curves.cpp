#include "curves.h"
#include <algorithm>
#include <cmath>

namespace picture {

void addArc(Points& points, const OdGePoint3d& center, double radius, double start, double sweep,
            int segments) {
  addEllipse(points, center, OdGeVector3d(radius, 0, 0), OdGeVector3d(0, radius, 0), start, sweep, segments);
}

void addEllipse(Points& points, const OdGePoint3d& center, const OdGeVector3d& major,
                const OdGeVector3d& minor, double start, double sweep, int segments) {
  for (int i = 0; i <= segments; ++i) {
    const double angle = start + sweep * i / segments;
    points.push_back(center + major * std::cos(angle) + minor * std::sin(angle));
  }
}

double sweepBetween(double start, double end) {
  double sweep = std::fmod(end - start, Oda2PI);
  if (sweep < 0) sweep += Oda2PI;
  constexpr double kRounding = 1e-12;
  return sweep < kRounding ? Oda2PI : sweep;
}

void addBulge(Points& points, const OdGePoint3d& from, const OdGePoint3d& to, double bulge,
              const Brush& brush) {
  const OdGeVector3d chord = to - from;
  const double length = chord.length();
  constexpr double kStraight = 1e-9;
  if (std::fabs(bulge) > kStraight && length > 0 && std::isfinite(bulge)) {
    const double sweep = 4 * std::atan(bulge);
    // From the middle of the chord to the centre, to the left of the chord for flat counterclockwise arcs.
    const double height = (1 / bulge - bulge) / 4;
    const OdGePoint3d center = from + chord * 0.5 + OdGeVector3d(-chord.y, chord.x, 0) * height;
    const double radius = length * (1 / std::fabs(bulge) + std::fabs(bulge)) / 4;
    const double start = std::atan2(from.y - center.y, from.x - center.x);
    if (!points.empty()) points.pop_back();
    addArc(points, center, radius, start, sweep, brush.segments(radius, sweep));
    points.back() = to;
    return;
  }
  points.push_back(to);
}

bool Spline::isValid() const {
  constexpr int kHighest = 25;
  if (degree < 1 || degree > kHighest || controls.size() <= static_cast<std::size_t>(degree)) return false;
  if (knots.size() != controls.size() + static_cast<std::size_t>(degree) + 1) return false;
  return std::is_sorted(knots.begin(), knots.end()) && (weights.empty() || weights.size() == controls.size());
}

/// De Boor's algorithm, in homogeneous coordinates where there are weights.
OdGePoint3d Spline::at(double parameter) const {
  struct Weighted {
    OdGeVector3d vector;
    double weight;
  };
  const auto order = static_cast<std::size_t>(degree);
  const auto first = knots.begin() + degree;
  const auto last = knots.end() - degree - 1;
  auto above = std::upper_bound(first, last, parameter);
  const auto span = static_cast<std::size_t>(std::max<std::ptrdiff_t>(above - knots.begin() - 1, degree));
  std::vector<Weighted> net(order + 1);
  for (std::size_t i = 0; i <= order; ++i) {
    const double weight = weights.empty() ? 1 : weights[span - order + i];
    net[i] = {controls[span - order + i].asVector() * weight, weight};
  }
  for (std::size_t round = 1; round <= order; ++round) {
    for (std::size_t i = order; i >= round; --i) {
      const double low = knots[span - order + i];
      const double width = knots[i + span + 1 - round] - low;
      const double part = width > 0 ? (parameter - low) / width : 0;
      net[i] = {net[i - 1].vector * (1 - part) + net[i].vector * part,
                net[i - 1].weight * (1 - part) + net[i].weight * part};
    }
  }
  const double weight = net[order].weight == 0 ? 1 : net[order].weight;
  return OdGePoint3d::kOrigin + net[order].vector * (1 / weight);
}

void Spline::addTo(Points& points, const Brush& brush) const {
  // Between two knots the curve turns by no more than its part of the control polygon, so that circles of the
  // size of the polygon need as many points.
  for (std::size_t i = static_cast<std::size_t>(degree);
       i + 1 < knots.size() - static_cast<std::size_t>(degree); ++i) {
    const double from = knots[i];
    const double to = knots[i + 1];
    if (!(to > from)) continue;
    double length = 0;
    for (std::size_t k = i - static_cast<std::size_t>(degree); k < i; ++k)
      length += controls[k].distanceTo(controls[k + 1]);
    const int count = degree == 1 ? 1 : std::max(4, brush.segments(length / 2, OdaPI));
    for (int k = points.empty() ? 0 : 1; k <= count; ++k)
      points.push_back(at(from + (to - from) * k / count));
  }
}

void addSmooth(Points& points, const Points& through, bool closed) {
  const auto count = static_cast<std::ptrdiff_t>(through.size());
  if (count < 3) {
    points.insert(points.end(), through.begin(), through.end());
    return;
  }
  const auto point = [&](std::ptrdiff_t i) {
    return through[static_cast<std::size_t>(closed ? (i + count) % count
                                                   : std::clamp<std::ptrdiff_t>(i, 0, count - 1))];
  };
  constexpr int kSteps = 16;
  for (std::ptrdiff_t i = 0; i < (closed ? count : count - 1); ++i) {
    const OdGePoint3d a = point(i);
    const OdGePoint3d b = point(i + 1);
    // Hermite form; the tangent at a point is half of the way between its neighbours.
    const OdGeVector3d leaving = (b - point(i - 1)) * 0.5;
    const OdGeVector3d arriving = (point(i + 2) - a) * 0.5;
    for (int k = i == 0 ? 0 : 1; k <= kSteps; ++k) {
      const double t = static_cast<double>(k) / kSteps;
      const double fromB = t * t * (3 - 2 * t);
      points.push_back(a + (b - a) * fromB + leaving * (t * (1 - t) * (1 - t)) -
                       arriving * (t * t * (1 - t)));
    }
  }
}

} // namespace picture
