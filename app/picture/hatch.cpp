// Hatches: their boundary, and its filling with colour or lines.
#include "Ge/GeEllipArc3d.h"
#include "curves.h"
#include "drawer.h"
#include "palette.h"
#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

namespace picture {

namespace {

constexpr double kDegree = OdaPI / 180;

/// Reads the groups of a hatch one after the other; their meaning depends on their place.
class GroupReader {
public:
  explicit GroupReader(const Fields& fields) : m_fields(fields), m_at(fields.begin()) {}

  bool atEnd() const { return m_at == m_fields.end(); }
  /// Steps behind the next group with this code, which must come before one with `stop`; false: it does not.
  bool skipTo(int code) {
    m_at = m_fields.find(code, m_at);
    return !atEnd();
  }
  /// The value of the next group if it has this code, else the fallback.
  double real(int code, double fallback = 0) { return next(code) ? m_at++->real : fallback; }
  int integer(int code, int fallback = 0) { return next(code) ? integerOf(*m_at++) : fallback; }
  OdGePoint3d point(int code) {
    const double x = real(code);
    return {x, real(code + 10), 0};
  }
  /// A count of things to read, which cannot be more than there are groups left.
  int count(int code) {
    return static_cast<int>(std::clamp<std::ptrdiff_t>(integer(code), 0, m_fields.end() - m_at));
  }
  bool next(int code) const { return !atEnd() && m_at->code == code; }

private:
  const Fields& m_fields;
  const OdDbGroup* m_at;
};

enum PathFlag { kExternal = 1, kPolyline = 2, kOutermost = 16 };
enum EdgeKind { kLine = 1, kArc = 2, kEllipse = 3, kSpline = 4 };

struct Loop {
  int flags = 0;
  Points points;
};

void readPolylinePath(GroupReader& groups, Points& points, const Brush& brush) {
  const bool hasBulges = groups.integer(72) != 0;
  const bool isClosed = groups.integer(73, 1) != 0;
  const int count = groups.count(93);
  Points vertices;
  std::vector<double> bulges;
  for (int i = 0; i < count; ++i) {
    vertices.push_back(groups.point(10));
    const double bulge = groups.real(42);
    bulges.push_back(hasBulges ? bulge : 0);
  }
  if (vertices.empty()) return;
  points.push_back(vertices.front());
  const std::size_t segments = isClosed ? vertices.size() : vertices.size() - 1;
  for (std::size_t i = 0; i < segments; ++i)
    addBulge(points, vertices[i], vertices[(i + 1) % vertices.size()], bulges[i], brush);
}

/// Angles of clockwise edges are stored negated.
void readArcEdge(GroupReader& groups, Points& points, const Brush& brush, bool isEllipse) {
  const OdGePoint3d center = groups.point(10);
  const OdGeVector3d major = isEllipse ? groups.point(11).asVector() : OdGeVector3d(groups.real(40), 0, 0);
  const double ratio = isEllipse ? groups.real(40, 1) : 1;
  const double start = groups.real(50) * kDegree;
  const double sweep = OdGeEllipArc3d::sweep(start, groups.real(51) * kDegree);
  const double sense = groups.integer(73, 1) != 0 ? 1 : -1;
  if (major.isZeroLength() || major.length() * std::fabs(ratio) <= OdGeContext::gTol.equalPoint()) return;
  const OdGeVector3d minor(-major.y * ratio, major.x * ratio, 0);
  addEllipse(points, center, major, minor, start * sense, sweep * sense,
             brush.segments(major.length(), sweep));
}

void readSplineEdge(GroupReader& groups, Points& points, const Brush& brush) {
  const int degree = groups.integer(94, 3);
  groups.integer(73);
  groups.integer(74);
  const int knotCount = groups.count(95);
  const int controlCount = groups.count(96);
  std::vector<double> knots;
  std::vector<double> weights;
  Points controls;
  knots.reserve(static_cast<std::size_t>(knotCount));
  for (int i = 0; i < knotCount; ++i) knots.push_back(groups.real(40));
  for (int i = 0; i < controlCount; ++i) {
    controls.push_back(groups.point(10));
    if (groups.next(42)) weights.push_back(groups.real(42));
  }
  while (groups.next(42)) weights.push_back(groups.real(42)); // some programs put them last
  Points fit;
  const int fits = groups.count(97);
  for (int i = 0; i < fits; ++i) fit.push_back(groups.point(11));
  Points edge;
  try {
    addSpline(edge, {degree, knots, controls, weights}, brush);
  } catch (const OdError&) { // the area is about right without the curve
    edge = fit.empty() ? controls : fit;
  }
  points.insert(points.end(), edge.begin(), edge.end());
  if (groups.next(12)) groups.point(12);
  if (groups.next(13)) groups.point(13);
}

void readEdges(GroupReader& groups, Points& points, const Brush& brush) {
  const int count = groups.count(93);
  for (int i = 0; i < count && groups.skipTo(72); ++i) {
    Points edge;
    switch (groups.integer(72)) {
    case kLine:
      edge.push_back(groups.point(10));
      edge.push_back(groups.point(11));
      break;
    case kArc: readArcEdge(groups, edge, brush, false); break;
    case kEllipse: readArcEdge(groups, edge, brush, true); break;
    case kSpline: readSplineEdge(groups, edge, brush); break;
    default: break;
    }
    // Edges follow each other but may be stored the wrong way round.
    if (!points.empty() && !edge.empty() &&
        points.back().distanceTo(edge.back()) < points.back().distanceTo(edge.front()))
      std::reverse(edge.begin(), edge.end());
    points.insert(points.end(), edge.begin(), edge.end());
  }
}

std::vector<Loop> readLoops(GroupReader& groups, const Brush& brush) {
  std::vector<Loop> loops;
  if (!groups.skipTo(91)) return loops;
  const int count = groups.count(91);
  for (int i = 0; i < count && groups.skipTo(92); ++i) {
    Loop loop;
    loop.flags = groups.integer(92);
    if (loop.flags & kPolyline)
      readPolylinePath(groups, loop.points, brush);
    else
      readEdges(groups, loop.points, brush);
    if (loop.points.size() > 2) loops.push_back(std::move(loop));
  }
  return loops;
}

/// The loops that count in the hatch's style: all (0), the outer ones and those directly inside them (1), or
/// the outer ones only (2).
std::vector<Points> loopsOfStyle(std::vector<Loop>& loops, int style) {
  const int wanted = style == 1 ? kExternal | kOutermost : style == 2 ? kExternal : 0;
  std::vector<Points> chosen;
  for (Loop& loop : loops)
    if (wanted == 0 || (loop.flags & wanted)) chosen.push_back(std::move(loop.points));
  if (chosen.empty())
    for (Loop& loop : loops) chosen.push_back(std::move(loop.points));
  return chosen;
}

/// A family of parallel lines of a pattern.
struct PatternLine {
  double angle = 0;
  OdGePoint3d base;
  OdGeVector3d offset; ///< from one line to the next
  std::vector<double> dashes;
};

std::vector<PatternLine> readPattern(GroupReader& groups) {
  std::vector<PatternLine> lines;
  if (!groups.skipTo(78)) return lines;
  const int count = groups.count(78);
  for (int i = 0; i < count && groups.skipTo(53); ++i) {
    PatternLine line;
    line.angle = groups.real(53) * kDegree;
    line.base.x = groups.real(43);
    line.base.y = groups.real(44);
    line.offset.x = groups.real(45);
    line.offset.y = groups.real(46);
    const int dashes = groups.count(79);
    for (int k = 0; k < dashes; ++k) line.dashes.push_back(groups.real(49));
    lines.push_back(std::move(line));
  }
  return lines;
}

/// Draws one family of lines inside a boundary. Works in coordinates in which the lines are horizontal and
/// the first one runs through the origin.
class PatternDrawer {
public:
  PatternDrawer(const PatternLine& line, const Brush& brush) : m_line(line), m_brush(brush) {
    const double c = std::cos(line.angle);
    const double s = std::sin(line.angle);
    m_toPlane.setCoordSystem(line.base, {c, s, 0}, {-s, c, 0}, OdGeVector3d::kZAxis);
    const OdGeVector3d offset(line.offset.x * c + line.offset.y * s, line.offset.y * c - line.offset.x * s,
                              0);
    m_shift = offset.x;
    m_distance = offset.y;
    if (m_distance < 0) {
      m_shift = -m_shift;
      m_distance = -m_distance;
    }
  }
  void draw(const std::vector<Points>& loops);

private:
  void addCrossings(OdGePoint3d from, OdGePoint3d to);
  void drawSpan(double y, double from, double to, double phase);
  double pixel() const { return m_brush.view().pixel / std::max(m_brush.scale(), 1e-300); }

  const PatternLine& m_line;
  const Brush& m_brush;
  OdGeMatrix3d m_toPlane;
  double m_shift = 0;
  double m_distance = 0;
  double m_step = 1; ///< every how many lines one is drawn
  Box m_visible;
  std::map<long, std::vector<double>> m_crossings; ///< by number of the line
};

void PatternDrawer::addCrossings(OdGePoint3d from, OdGePoint3d to) {
  if (from.y > to.y) std::swap(from, to);
  const double spacing = m_distance * m_step;
  const double low = std::ceil(std::max(from.y, m_visible.low.y) / spacing);
  const double high = std::min(to.y, m_visible.high.y) / spacing;
  if (!(std::fabs(low) < 1e15)) return;
  for (double number = low; number <= high; ++number) {
    const double y = number * spacing;
    if (y == to.y) break; // a corner belongs to the edge above it
    m_crossings[static_cast<long>(number)].push_back(from.x +
                                                     (to.x - from.x) * ((y - from.y) / (to.y - from.y)));
  }
}

void PatternDrawer::draw(const std::vector<Points>& loops) {
  if (!(m_distance > 0) || !std::isfinite(m_distance)) return;
  // Lines that would merge into an area are drawn as far apart as can be told.
  constexpr double kClosest = 2; // pixels
  m_step = std::max(1.0, std::ceil(pixel() * kClosest / m_distance));
  const OdGeMatrix3d toLines = m_toPlane.inverse();
  Box plane;
  if (!m_brush.visiblePart(plane)) return;
  for (const Point& corner : plane.corners())
    m_visible.add((toLines * OdGePoint3d(corner.x, corner.y, 0)).convert2d());
  for (const Points& loop : loops)
    for (std::size_t i = 0; i < loop.size(); ++i)
      addCrossings(toLines * loop[i], toLines * loop[(i + 1) % loop.size()]);
  for (auto& [number, crossings] : m_crossings) {
    std::sort(crossings.begin(), crossings.end());
    const double line = static_cast<double>(number) * m_step;
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
      drawSpan(line * m_distance, std::max(crossings[i], m_visible.low.x),
               std::min(crossings[i + 1], m_visible.high.x), line * m_shift);
  }
}

void PatternDrawer::drawSpan(double y, double from, double to, double phase) {
  if (!(from < to)) return;
  const auto stroke = [&](double start, double end) {
    m_brush.strokeContinuous({m_toPlane * OdGePoint3d(start, y, 0), m_toPlane * OdGePoint3d(end, y, 0)});
  };
  double period = 0;
  for (const double dash : m_line.dashes) period += std::fabs(dash);
  constexpr double kShortest = 2; // pixels
  constexpr double kMostDashes = 10000;
  if (!(period > pixel() * kShortest) || (to - from) / period > kMostDashes) return stroke(from, to);
  for (double at = phase + std::floor((from - phase) / period) * period; at < to; at += period) {
    double start = at;
    for (const double dash : m_line.dashes) {
      const double end = start + std::fabs(dash);
      if (dash >= 0 && end >= from && start <= to) stroke(std::max(start, from), std::min(end, to));
      start = end;
    }
  }
}

/// The change of colours of a gradient over the area of the loops; none for plain hatches.
std::optional<Shading> shadingOf(const Fields& hatch, const std::vector<Points>& loops) {
  constexpr int kColor = 421;
  const OdDbGroup* first = hatch.find(kColor, hatch.begin());
  if (hatch.integer(450) == 0 || first == hatch.end()) return std::nullopt;
  const OdDbGroup* second = hatch.find(kColor, first + 1);
  Shading shading;
  shading.from = fromRgb(static_cast<OdUInt32>(integerOf(*first)));
  shading.to = second == hatch.end() ? shading.from : fromRgb(static_cast<OdUInt32>(integerOf(*second)));
  OdString name = hatch.text(470);
  name.makeUpper();
  if (name.find(OdString(L"INV")) == 0) std::swap(shading.from, shading.to);
  // The extent of the area along the direction of the gradient and across it.
  const double angle = hatch.real(460);
  const OdGeVector2d along(std::cos(angle), std::sin(angle));
  const OdGeVector2d across(-along.y, along.x);
  Box extent;
  for (const Points& loop : loops)
    for (const OdGePoint3d& point : loop) {
      const OdGeVector2d place(point.x, point.y);
      extent.add(Point(place.dotProduct(along), place.dotProduct(across)));
    }
  const auto inPlane = [&](const Point& place) { return Point() + (along * place.x + across * place.y); };
  const Point middle = extent.center();
  shading.isRadial = name.find(OdString(L"SPHERICAL")) >= 0;
  shading.isMirrored = name.find(OdString(L"CYLINDER")) >= 0;
  if (shading.isRadial) { // the second colour is in the middle
    std::swap(shading.from, shading.to);
    shading.start = inPlane(middle);
    shading.way = along * (std::max(extent.width(), extent.height()) / 2);
  } else {
    shading.start = inPlane({extent.low.x, middle.y});
    shading.way = along * (shading.isMirrored ? extent.width() / 2 : extent.width());
  }
  return shading;
}

} // namespace

void drawHatch(const Fields& hatch, const Brush& worldBrush) {
  const Brush brush = worldBrush.inPlane(hatch.normal());
  const double elevation = hatch.point(10).z;
  GroupReader groups(hatch);
  std::vector<Loop> read = readLoops(groups, brush);
  if (read.empty()) throw OdError(eDegenerateGeometry);
  for (Loop& loop : read)
    for (OdGePoint3d& point : loop.points) point.z = elevation;
  const std::vector<Points> loops = loopsOfStyle(read, hatch.integer(75));
  const bool isSolid = hatch.integer(70) != 0;
  if (isSolid || brush.view().pixel == 0) {
    if (const std::optional<Shading> shading = shadingOf(hatch, loops))
      brush.shade(*shading, loops);
    else
      brush.fill(loops);
    return;
  }
  for (const PatternLine& line : readPattern(groups)) PatternDrawer(line, brush).draw(loops);
}

} // namespace picture
