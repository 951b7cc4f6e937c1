#include "brush.h"
#include <algorithm>
#include <cmath>

namespace picture {

bool isDrawable(double coordinate) {
  constexpr double kFarthest = 1e15;
  return std::fabs(coordinate) < kFarthest; // false for what is no number
}

Brush Brush::inPlane(const OdGeVector3d& normal) const {
  if (normal == OdGeVector3d::kZAxis) return *this;
  return placed(OdGeMatrix3d::planeToWorld(normal));
}

Brush Brush::placed(const OdGeMatrix3d& placement) const {
  return {m_sink, m_measure, m_view, m_matrix * placement, m_style};
}

Brush Brush::withColor(const Color& color) const {
  Brush other = *this;
  other.m_style.color = color;
  return other;
}

double Brush::scale() const {
  const OdGeVector2d x = map(OdGeVector3d::kXAxis);
  const OdGeVector2d y = map(OdGeVector3d::kYAxis);
  const double area = std::fabs(x.crossProduct(y));
  // A plane seen from its edge still has a length.
  return area > 0 ? std::sqrt(area) : std::max(x.length(), y.length());
}

int Brush::segments(double radius, double sweep) const {
  constexpr int kCoarse = 36; // a turn; holds the four points that make the extents
  constexpr int kFewest = 12;
  constexpr int kMost = 1440;
  double perTurn = kCoarse;
  if (m_view.pixel > 0) {
    const double tolerance = m_view.pixel / 8;
    const double reach =
        std::fabs(radius) * std::max(map(OdGeVector3d::kXAxis).length(), map(OdGeVector3d::kYAxis).length());
    // The height of the arc over its chord is r (1 - cos(step / 2)).
    const double step = reach > tolerance ? 2 * std::acos(1 - tolerance / reach) : OdaPI;
    perTurn = step > 0 ? std::clamp<double>(Oda2PI / step, kFewest, kMost) : kMost;
  }
  const double part = std::min(std::fabs(sweep) / Oda2PI, 1.0);
  return std::max(1, static_cast<int>(std::ceil(perTurn * part)));
}

bool Brush::visiblePart(Box& box) const {
  const OdGeVector2d x = map(OdGeVector3d::kXAxis);
  const OdGeVector2d y = map(OdGeVector3d::kYAxis);
  const double area = x.crossProduct(y);
  if (m_view.frame.isEmpty() || !(std::fabs(area) > 0) || !std::isfinite(area)) return false;
  const Point origin = map(OdGePoint3d::kOrigin);
  for (const Point& corner : m_view.frame.corners()) {
    const OdGeVector2d way = corner - origin;
    box.add(Point(way.crossProduct(y) / area, x.crossProduct(way) / area));
  }
  return true;
}

bool Brush::mapAll(const Points& points, Path& path) const {
  path.reserve(points.size() + 1);
  for (const OdGePoint3d& point : points) {
    path.push_back(map(point));
    if (!isDrawable(path.back())) return false;
  }
  return !path.empty();
}

Pen Brush::pen(double width) const {
  Pen pen;
  pen.color = m_style.color;
  pen.width = width * scale();
  pen.weight = m_style.weight;
  if (!m_style.linetype || m_style.linetype->empty()) return pen;
  const double dashScale = m_style.linetypeScale * scale() * m_view.dashScale;
  // Lines begin with a dash; gaps that follow each other, and dashes too, are one.
  for (const double dash : *m_style.linetype) {
    const bool isGap = dash < 0;
    const double length = std::fabs(dash) * dashScale;
    if (isGap == (pen.dashes.size() % 2 != 0))
      pen.dashes.push_back(length);
    else if (pen.dashes.empty())
      pen.dashes = {0, length};
    else
      pen.dashes.back() += length;
  }
  if (pen.dashes.size() % 2 != 0) pen.dashes.push_back(0);
  return pen;
}

void Brush::stroke(const Points& points, bool closed, double width) const {
  Path path;
  if (!mapAll(points, path)) return;
  if (closed && path.size() > 2) path.push_back(path.front());
  m_sink.stroke(pen(width), path);
}

void Brush::strokeContinuous(const Points& points) const {
  Path path;
  if (!mapAll(points, path)) return;
  Pen plain;
  plain.color = m_style.color;
  plain.weight = m_style.weight;
  m_sink.stroke(plain, path);
}

void Brush::fill(const std::vector<Points>& loops, FillRule rule) const {
  std::vector<Path> paths;
  if (mapLoops(loops, paths)) m_sink.fill(m_style.color, paths, rule);
}

void Brush::shade(const Shading& shading, const std::vector<Points>& loops) const {
  std::vector<Path> paths;
  Shading mapped = shading;
  mapped.start = map(OdGePoint3d(shading.start.x, shading.start.y, 0));
  mapped.way = map(OdGeVector3d(shading.way.x, shading.way.y, 0));
  if (mapLoops(loops, paths) && isDrawable(mapped.start) && isDrawable(mapped.start + mapped.way))
    m_sink.shade(mapped, paths);
}

bool Brush::mapLoops(const std::vector<Points>& loops, std::vector<Path>& paths) const {
  paths.resize(loops.size());
  for (std::size_t i = 0; i < loops.size(); ++i)
    if (!loops[i].empty() && !mapAll(loops[i], paths[i])) return false;
  return true;
}

} // namespace picture
