#include "curves.h"
#include "Ge/GeEllipArc3d.h"
#include <algorithm>
#include <cmath>

namespace picture {

void addArc(Points& points, const OdGePoint3d& center, double radius, double start, double sweep,
            int segments) {
  addEllipse(points, center, OdGeVector3d(radius, 0, 0), OdGeVector3d(0, radius, 0), start, sweep, segments);
}

void addEllipse(Points& points, const OdGePoint3d& center, const OdGeVector3d& major,
                const OdGeVector3d& minor, double start, double sweep, int segments) {
  const double end = start + sweep;
  const OdGeEllipArc3d arc(center, major, minor, std::min(start, end), std::max(start, end));
  for (int i = 0; i <= segments; ++i) points.push_back(arc.evalPoint(start + sweep * i / segments));
}

void addBulge(Points& points, const OdGePoint3d& from, const OdGePoint3d& to, double bulge,
              const Brush& brush) {
  const OdGeVector3d chord = to - from;
  const double length = chord.length();
  constexpr double kStraight = 1e-9;
  const double radius = length * (1 / std::fabs(bulge) + std::fabs(bulge)) / 4;
  if (std::fabs(bulge) > kStraight && radius > OdGeContext::gTol.equalPoint() && std::isfinite(radius)) {
    const double sweep = 4 * std::atan(bulge);
    // From the middle of the chord to the centre, to the left of the chord for flat counterclockwise arcs.
    const double height = (1 / bulge - bulge) / 4;
    const OdGePoint3d center = from + chord * 0.5 + OdGeVector3d(-chord.y, chord.x, 0) * height;
    const double start = std::atan2(from.y - center.y, from.x - center.x);
    if (!points.empty()) points.pop_back();
    addArc(points, center, radius, start, sweep, brush.segments(radius, sweep));
    points.back() = to;
    return;
  }
  points.push_back(to);
}

void addSpline(Points& points, const OdGeNurbCurve3d& spline, const Brush& brush) {
  // Between two knots the curve turns by no more than its control polygon there, so that circles of the size
  // of the polygon need as many points.
  for (const OdGeNurbCurve3d::Span& span : spline.spans()) {
    const int count = spline.degree() == 1 ? 1 : std::max(4, brush.segments(span.polygonLength / 2, OdaPI));
    for (int k = points.empty() ? 0 : 1; k <= count; ++k)
      points.push_back(spline.evalPoint(span.from + (span.to - span.from) * k / count));
  }
}

void addSmooth(Points& points, const Points& through, bool closed, const Brush& brush) {
  if (through.size() < 3)
    points.insert(points.end(), through.begin(), through.end());
  else
    addSpline(points, *OdGeNurbCurve3d::through(through, closed), brush);
}

} // namespace picture
