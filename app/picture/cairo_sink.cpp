#include "cairo_sink.h"
#include <algorithm>
#include <cmath>

namespace picture {

namespace {

constexpr double kReach = 100000; // surface units beyond the surface
constexpr double kFull = 255;

/// The part of a polygon on the inner side of one side of a box; `axis` is 0 for x and 1 for y.
Path cutSide(const Path& polygon, int axis, double limit, bool keepBelow) {
  const auto value = [axis](const Point& point) { return axis == 0 ? point.x : point.y; };
  const auto isInside = [&](const Point& point) {
    return keepBelow ? value(point) <= limit : value(point) >= limit;
  };
  Path kept;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point& from = polygon[i];
    const Point& to = polygon[(i + 1) % polygon.size()];
    if (isInside(from)) kept.push_back(from);
    if (isInside(from) != isInside(to)) {
      const double part = (limit - value(from)) / (value(to) - value(from));
      kept.push_back(from + (to - from) * part);
    }
  }
  return kept;
}

Path cutPolygon(const Box& box, Path polygon) {
  polygon = cutSide(polygon, 0, box.high.x, true);
  polygon = cutSide(polygon, 0, box.low.x, false);
  polygon = cutSide(polygon, 1, box.high.y, true);
  return cutSide(polygon, 1, box.low.y, false);
}

bool holds(const Box& box, const Path& path) {
  return std::all_of(path.begin(), path.end(), [&box](const Point& point) {
    return point.x >= box.low.x && point.x <= box.high.x && point.y >= box.low.y && point.y <= box.high.y;
  });
}

/// Lines and letters that were chosen for a dark screen must not vanish on paper.
Color inkOf(Color color) {
  constexpr OdUInt8 kWhite = 255;
  if (color.red == kWhite && color.green == kWhite && color.blue == kWhite)
    color.red = color.green = color.blue = 0;
  return color;
}

double lengthOf(const Path& path) {
  double length = 0;
  for (std::size_t i = 1; i < path.size(); ++i) length += path[i].distanceTo(path[i - 1]);
  return length;
}

} // namespace

CairoSink::CairoSink(cairo_surface_t* surface, const Placement& placement, Fonts& fonts)
    : m_cairo(cairo_create(surface)), m_placement(placement),
      m_fonts(fonts), m_surface{{0, 0}, {placement.width, placement.height}},
      m_reach(m_surface.grown(kReach)) {
  setColor(kPaper);
  cairo_paint(m_cairo);
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_set_font_options(m_cairo, options);
  cairo_font_options_destroy(options);
}

CairoSink::~CairoSink() { cairo_destroy(m_cairo); }

const char* CairoSink::error() const {
  const cairo_status_t status = cairo_status(m_cairo);
  return status == CAIRO_STATUS_SUCCESS ? nullptr : cairo_status_to_string(status);
}

Point CairoSink::place(const Point& point) const {
  return {(point.x - m_placement.low.x) * m_placement.scale,
          m_placement.height - (point.y - m_placement.low.y) * m_placement.scale};
}

void CairoSink::setColor(const Color& color) {
  cairo_set_source_rgba(m_cairo, color.red / kFull, color.green / kFull, color.blue / kFull,
                        color.alpha / kFull);
}

bool CairoSink::canSee(const Path& placed, double margin) const {
  Box box;
  for (const Point& point : placed) box.add(point);
  return box.touches(m_surface.grown(margin));
}

void CairoSink::traceLine(const Path& path) {
  if (holds(m_reach, path)) {
    for (const Point& point : path) cairo_line_to(m_cairo, point.x, point.y);
    return;
  }
  for (std::size_t i = 1; i < path.size(); ++i) {
    Point from = path[i - 1];
    Point to = path[i];
    if (!cutSegment(m_reach, from, to)) continue;
    cairo_move_to(m_cairo, from.x, from.y);
    cairo_line_to(m_cairo, to.x, to.y);
  }
}

/// Dashes where they can be told apart. Both ends of a line get a part of a dash, as large on one as on the
/// other.
void CairoSink::setDashes(const Pen& pen, const Path& path, double width) {
  double period = 0;
  std::vector<double> dashes;
  for (const double dash : pen.dashes) {
    dashes.push_back(dash * m_placement.scale);
    period += dashes.back();
  }
  constexpr double kShortest = 3; // of the line's width
  constexpr double kMostDashes = 5000;
  const double length = lengthOf(path);
  if (!(period > kShortest * width) || !(length > period) || length / period > kMostDashes || path.size() < 2)
    return;
  for (std::size_t i = 0; i < dashes.size(); i += 2) dashes[i] = std::max(dashes[i], width); // dots
  const double first = dashes.front();
  const double excess = std::ceil((length - first) / period) * period + first - length;
  cairo_set_dash(m_cairo, dashes.data(), static_cast<int>(dashes.size()),
                 excess / 2 < first ? excess / 2 : 0);
}

void CairoSink::stroke(const Pen& pen, const Path& path) {
  Path placed;
  placed.reserve(path.size());
  for (const Point& point : path) placed.push_back(place(point));
  const double wanted = pen.width > 0 ? pen.width * m_placement.scale : pen.weight * m_placement.millimetre;
  const double width = std::clamp(wanted, m_placement.thinnest, kReach);
  if (!canSee(placed, width)) return;
  setColor(inkOf(pen.color));
  cairo_set_line_width(m_cairo, width);
  const bool isWide = pen.width > 0;
  cairo_set_line_join(m_cairo, isWide ? CAIRO_LINE_JOIN_MITER : CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(m_cairo, isWide || !pen.dashes.empty() ? CAIRO_LINE_CAP_BUTT : CAIRO_LINE_CAP_ROUND);
  if (placed.size() == 1) {
    cairo_set_line_cap(m_cairo, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_width(m_cairo, std::max(width, 2 * m_placement.thinnest));
    placed.push_back(placed.front());
  }
  setDashes(pen, placed, width);
  cairo_new_path(m_cairo);
  traceLine(placed);
  const Point& first = placed.front();
  if (path.size() > 2 && first.distanceTo(placed.back()) == 0 && holds(m_reach, placed))
    cairo_close_path(m_cairo);
  cairo_stroke(m_cairo);
  cairo_set_dash(m_cairo, nullptr, 0, 0);
}

bool CairoSink::tracePolygon(const std::vector<Path>& loops) {
  cairo_new_path(m_cairo);
  bool isSeen = false;
  for (const Path& loop : loops) {
    Path placed;
    for (const Point& point : loop) placed.push_back(place(point));
    if (!holds(m_reach, placed)) placed = cutPolygon(m_reach, std::move(placed));
    for (const Point& point : placed) cairo_line_to(m_cairo, point.x, point.y);
    cairo_close_path(m_cairo);
    isSeen = isSeen || canSee(placed, 1);
  }
  return isSeen;
}

void CairoSink::fill(const Color& color, const std::vector<Path>& loops, FillRule rule) {
  if (!tracePolygon(loops)) return;
  setColor(color);
  cairo_set_fill_rule(m_cairo,
                      rule == FillRule::evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
  cairo_fill(m_cairo);
}

void CairoSink::shade(const Shading& shading, const std::vector<Path>& loops) {
  if (!tracePolygon(loops)) return;
  const Point start = place(shading.start);
  const Point end = place(shading.start + shading.way);
  const double length = start.distanceTo(end);
  cairo_pattern_t* pattern = shading.isRadial
                                 ? cairo_pattern_create_radial(start.x, start.y, 0, start.x, start.y, length)
                                 : cairo_pattern_create_linear(start.x, start.y, end.x, end.y);
  const auto addStop = [pattern](double at, const Color& color) {
    cairo_pattern_add_color_stop_rgba(pattern, at, color.red / kFull, color.green / kFull, color.blue / kFull,
                                      color.alpha / kFull);
  };
  addStop(0, shading.from);
  addStop(1, shading.to);
  cairo_pattern_set_extend(pattern, shading.isMirrored ? CAIRO_EXTEND_REFLECT : CAIRO_EXTEND_PAD);
  cairo_set_source(m_cairo, pattern);
  cairo_pattern_destroy(pattern);
  cairo_set_fill_rule(m_cairo, CAIRO_FILL_RULE_EVEN_ODD);
  cairo_fill(m_cairo);
}

void CairoSink::text(const TextRun& run) {
  const Point origin = place(run.origin);
  const OdGeVector2d along(run.along.x * m_placement.scale, -run.along.y * m_placement.scale);
  const OdGeVector2d up(run.up.x * m_placement.scale, -run.up.y * m_placement.scale);
  constexpr double kSmallest = 0.2; // surface units; nothing of such letters can be seen
  constexpr double kLargest = 20000;
  const double area = std::fabs(along.crossProduct(up));
  if (!(area > kSmallest * kSmallest) || along.length() > kLargest || up.length() > kLargest) return;
  const OdGeVector2d end = along * run.width;
  if (!canSee({origin - up, origin + up * 2, origin + end - up, origin + end + up * 2}, 1)) return;
  setColor(inkOf(run.color));
  double width = 0;
  for (Fonts::Glyphs& glyphs : m_fonts.shape(run.text, run.font, width)) {
    for (cairo_glyph_t& glyph : glyphs.glyphs) {
      const Point at = origin + along * glyph.x;
      glyph.x = at.x;
      glyph.y = at.y;
    }
    cairo_set_font_face(m_cairo, glyphs.face);
    const OdGeVector2d letter = along * (glyphs.size * glyphs.stretch);
    const cairo_matrix_t matrix{letter.x, letter.y, -up.x * glyphs.size, -up.y * glyphs.size, 0, 0};
    cairo_set_font_matrix(m_cairo, &matrix);
    cairo_show_glyphs(m_cairo, glyphs.glyphs.data(), static_cast<int>(glyphs.glyphs.size()));
  }
}

void CairoSink::pushClip(const Path& polygon) {
  cairo_save(m_cairo);
  tracePolygon({polygon});
  cairo_clip(m_cairo);
}

void CairoSink::popClip() { cairo_restore(m_cairo); }

} // namespace picture
