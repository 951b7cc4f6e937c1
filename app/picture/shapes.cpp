// Entities drawn from their groups, whether the library has a class for them or not.
#include "DbPoint.h"
#include "DbWipeout.h"
#include "DbWipeoutVariables.h"
#include "Ge/GeEllipArc3d.h"
#include "curves.h"
#include "drawer.h"
#include "palette.h"
#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

namespace picture {

namespace {

constexpr double kDegree = OdaPI / 180;

void drawLine(const Fields& line, const Brush& brush) { brush.stroke({line.point(10), line.point(11)}); }

/// What a shape looks like stands in a file of its own, so a cross of its size marks the place.
void drawShapeMark(const Fields& shape, const Brush& brush) {
  const OdGePoint3d at = shape.point(10);
  const double turn = shape.real(50) * kDegree;
  const OdGeVector3d along = OdGeVector3d(std::cos(turn), std::sin(turn), 0) * (shape.real(40, 1) / 2);
  const OdGeVector3d across(-along.y, along.x, 0);
  brush.strokeContinuous({at - along - across, at + along + across});
  brush.strokeContinuous({at - along + across, at + along - across});
}

void drawCircle(const Fields& circle, const Brush& brush) {
  const double radius = circle.real(40);
  Points points;
  addArc(points, circle.point(10), radius, 0, Oda2PI, brush.segments(radius, Oda2PI));
  brush.inPlane(circle.normal()).stroke(points);
}

void drawArc(const Fields& arc, const Brush& brush) {
  const double radius = arc.real(40);
  const double start = arc.real(50) * kDegree;
  const double sweep = OdGeEllipArc3d::sweep(start, arc.real(51) * kDegree);
  Points points;
  addArc(points, arc.point(10), radius, start, sweep, brush.segments(radius, sweep));
  brush.inPlane(arc.normal()).stroke(points);
}

void drawEllipse(const Fields& ellipse, const Brush& brush) {
  const OdGeVector3d major = ellipse.point(11).asVector();
  OdGeVector3d normal = ellipse.normal();
  normal.normalize();
  const OdGeVector3d minor = normal.crossProduct(major) * ellipse.real(40, 1);
  const double start = ellipse.real(41);
  const double sweep = OdGeEllipArc3d::sweep(start, ellipse.real(42, Oda2PI));
  Points points;
  addEllipse(points, ellipse.point(10), major, minor, start, sweep, brush.segments(major.length(), sweep));
  brush.stroke(points);
}

void drawSpline(const Fields& fields, const Brush& brush) {
  constexpr int kClosed = 1;
  const Points controls = fields.points(10);
  Points points;
  if (controls.empty())
    addSpline(points,
              *OdGeNurbCurve3d::through(fields.points(11), (fields.integer(70) & kClosed) != 0,
                                        fields.point(12).asVector(), fields.point(13).asVector()),
              brush);
  else
    addSpline(points, {fields.integer(71, 3), fields.reals(40), controls, fields.reals(41)}, brush);
  brush.stroke(points);
}

void drawFace(const Fields& face, const Brush& brush) {
  const Points corners = {face.point(10), face.point(11), face.point(12),
                          face.has(13) ? face.point(13) : face.point(12)};
  const int hidden = face.integer(70);
  for (std::size_t i = 0; i < corners.size(); ++i)
    if (!(hidden >> i & 1)) brush.stroke({corners[i], corners[(i + 1) % corners.size()]});
}

void drawSolid(const Fields& solid, const Brush& brush) {
  // The third and fourth corner are stored crosswise.
  const OdGePoint3d third = solid.point(12);
  brush.inPlane(solid.normal())
      .fill({{solid.point(10), solid.point(11), solid.has(13) ? solid.point(13) : third, third}},
            FillRule::winding);
}

/// Lines without end, cut at the frame of the picture. While that is not known, their base point stands for
/// them.
void drawEndless(const Fields& line, const Brush& brush, bool bothWays) {
  const OdGePoint3d base = line.point(10);
  const OdGeVector3d direction = line.point(11).asVector();
  Box frame = brush.view().frame;
  if (frame.isEmpty()) {
    brush.stroke({base});
    return;
  }
  frame = frame.grown(frame.width() + frame.height());
  const Point from = brush.map(base);
  const OdGeVector2d way = brush.map(direction);
  if (!(way.length() > 0) || !isDrawable(from) || !isDrawable(way.length())) return;
  const double reach = (frame.width() + frame.height() + from.distanceTo(frame.center())) / way.length();
  Point start = bothWays ? from - way * reach : from;
  Point end = from + way * reach;
  const OdGeVector2d whole = end - start;
  const Point first = start;
  if (!cutSegment(frame, start, end)) return;
  const double length = whole.length() / way.length();
  const double low = start.distanceTo(first) / whole.length() * length - (bothWays ? reach : 0);
  const double high = end.distanceTo(first) / whole.length() * length - (bothWays ? reach : 0);
  brush.stroke({base + direction * low, base + direction * high});
}
void drawRay(const Fields& line, const Brush& brush) { drawEndless(line, brush, false); }
void drawXline(const Fields& line, const Brush& brush) { drawEndless(line, brush, true); }

/// The edge of a raster image or mask.
Points outlineOf(const OdDbEntity& entity) {
  OdGePoint3dArray outline;
  OdDbRasterImage::cast(&entity)->outline(outline);
  return {outline.begin(), outline.end()};
}

void drawImage(const OdDbEntity& entity, const Brush& brush) { brush.strokeContinuous(outlineOf(entity)); }

void drawWipeout(const OdDbEntity& entity, OdDbDatabase& database, const Brush& brush) {
  Points outline = outlineOf(entity);
  const auto settings = OdDbWipeoutVariables::openWipeoutVariables(&database);
  const bool hasFrame =
      !settings.isNull() && (brush.view().isPlotted ? settings->plotsFrame() : settings->showFrame());
  const Points edge = outline;
  outline.pop_back();
  if (OdDbRasterImage::cast(&entity)->isSetDisplayOpt(OdDbRasterImage::kShow))
    brush.withColor(kPaper).fill({outline});
  if (hasFrame) brush.strokeContinuous(edge);
}

/// The edges of the faces of a mesh, each once.
void drawMesh(const Fields& mesh, const Brush& brush) {
  constexpr int kFaces = 93;
  constexpr int kEdges = 94;
  constexpr int kNumber = 90;
  const Points points = mesh.points(10);
  std::set<std::pair<int, int>> edges;
  const OdDbGroup* end = mesh.find(kEdges, mesh.begin());
  std::vector<int> numbers;
  for (const OdDbGroup* at = mesh.find(kFaces, mesh.begin()); at < end; ++at)
    if (at->code == kNumber) numbers.push_back(integerOf(*at));
  // Each face: how many corners it has, and their numbers.
  for (std::size_t face = 0; face < numbers.size();) {
    const auto count = static_cast<std::size_t>(std::max(0, numbers[face++]));
    if (count > numbers.size() - face) break;
    for (std::size_t i = 0; i < count; ++i)
      edges.insert(std::minmax({numbers[face + i], numbers[face + (i + 1) % count]}));
    face += count;
  }
  const auto isPoint = [&](int number) {
    return number >= 0 && static_cast<std::size_t>(number) < points.size();
  };
  for (const auto& [from, to] : edges)
    if (isPoint(from) && isPoint(to))
      brush.stroke({points[static_cast<std::size_t>(from)], points[static_cast<std::size_t>(to)]});
}

/// Colours of the lines of a style of parallel lines; none: the entity's.
std::vector<std::optional<Color>> elementColors(const OdDbEntity& mline, const OdDbDatabase& database) {
  constexpr int kStyle = 340;
  constexpr int kOffset = 49; // begins an element
  constexpr int kColor = 62;
  std::vector<std::optional<Color>> colors;
  const Fields fields(mline);
  const OdDbGroup* reference = fields.find(kStyle, fields.begin());
  const OdDbObjectPtr style =
      reference == fields.end() ? OdDbObjectPtr() : database.getOdDbObjectId(reference->handle).openObject();
  if (style.isNull()) return colors;
  for (const OdDbGroup& group : Fields(*style)) {
    if (group.code == kOffset) colors.emplace_back();
    const int color = group.code == kColor ? integerOf(group) : 0;
    if (!colors.empty() && color > 0 && color < 256) colors.back() = paletteColor(color);
  }
  return colors;
}

void drawMline(const OdDbEntity& entity, OdDbDatabase& database, const Brush& brush) {
  constexpr int kClosed = 2;
  const Fields mline(entity);
  std::vector<Points> lines;
  OdGePoint3d vertex;
  OdGeVector3d miter;
  std::size_t element = 0;
  bool isFirst = false; // of the parameters of an element, which is its distance
  for (const OdDbGroup* group = mline.begin(); group != mline.end(); ++group) {
    if (group->code == 11) {
      vertex = mline.pointAt(group);
      element = 0;
    } else if (group->code == 13) {
      miter = mline.pointAt(group).asVector();
    } else if (group->code == 74) {
      isFirst = true;
    } else if (group->code == 41 && isFirst) {
      isFirst = false;
      if (element >= lines.size()) lines.resize(element + 1);
      lines[element++].push_back(vertex + miter * group->real);
    }
  }
  const std::vector<std::optional<Color>> colors = elementColors(entity, database);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const Color color = i < colors.size() ? colors[i].value_or(brush.style().color) : brush.style().color;
    brush.withColor(color).stroke(lines[i], (mline.integer(71) & kClosed) != 0);
  }
}

using DrawFields = void (*)(const Fields&, const Brush&);
struct Kind {
  const char* name;
  DrawFields draw;
};

/// A dot, or the sign that the drawing has for points.
void drawPoint(const OdDbEntity& entity, OdDbDatabase& database, const Brush& brush) {
  constexpr int kCircle = 32;
  constexpr int kSquare = 64;
  const OdDbPointPtr point = OdDbPoint::cast(&entity);
  const int mode = database.getPDMODE();
  double size = database.getPDSIZE();
  constexpr double kUsual = 5; // per cent of the picture's height
  if (size <= 0)
    size = brush.view().frame.isEmpty()
               ? 0
               : (size < 0 ? -size : kUsual) / 100 * brush.view().frame.height() / brush.scale();
  const double half = size / 2;
  // Signs follow the coordinate system that the point was made in.
  const OdGeVector3d normal = point->normal().isZeroLength() ? OdGeVector3d::kZAxis : point->normal();
  const Brush turned = brush.placed(OdGeMatrix3d::translation(point->position().asVector()) *
                                    OdGeMatrix3d::planeToWorld(normal) *
                                    OdGeMatrix3d::rotation(point->ecsRotation(), OdGeVector3d::kZAxis));
  const auto line = [&](double x1, double y1, double x2, double y2) {
    turned.strokeContinuous({{x1 * half, y1 * half, 0}, {x2 * half, y2 * half, 0}});
  };
  switch (mode & 7) {
  case 0: turned.strokeContinuous({{0, 0, 0}}); break;
  case 2:
    line(-2, 0, 2, 0);
    line(0, -2, 0, 2);
    break;
  case 3:
    line(-2, -2, 2, 2);
    line(-2, 2, 2, -2);
    break;
  case 4: line(0, 0, 0, 1); break;
  default: break;
  }
  if ((mode & kCircle) && half > 0) {
    Points points;
    addArc(points, {}, half, 0, Oda2PI, turned.segments(half, Oda2PI));
    turned.strokeContinuous(points);
  }
  if (mode & kSquare) {
    line(-1, -1, 1, -1);
    line(1, -1, 1, 1);
    line(1, 1, -1, 1);
    line(-1, 1, -1, -1);
  }
}

} // namespace

bool drawShape(const std::string& kind, const OdDbEntity& entity, OdDbDatabase& database,
               const Brush& brush) {
  static constexpr Kind kKinds[] = {
      {"LINE", drawLine},       {"3DLINE", drawLine}, // lines in space were a kind of their own before R11
      {"CIRCLE", drawCircle},   {"ARC", drawArc},      {"ELLIPSE", drawEllipse},
      {"SPLINE", drawSpline},   {"HELIX", drawSpline}, {"LWPOLYLINE", drawLwPolyline},
      {"SHAPE", drawShapeMark}, {"SOLID", drawSolid},  {"TRACE", drawSolid},
      {"3DFACE", drawFace},     {"RAY", drawRay},      {"XLINE", drawXline},
      {"MESH", drawMesh},       {"HATCH", drawHatch},
  };
  using DrawEntity = void (*)(const OdDbEntity&, const Brush&);
  static constexpr std::pair<const char*, DrawEntity> kWhole[] = {{"POLYLINE", drawOldPolyline},
                                                                  {"IMAGE", drawImage}};
  // Settings or styles of the drawing have a say in the look of these.
  using DrawInDrawing = void (*)(const OdDbEntity&, OdDbDatabase&, const Brush&);
  static constexpr std::pair<const char*, DrawInDrawing> kOfDrawing[] = {
      {"POINT", drawPoint}, {"WIPEOUT", drawWipeout}, {"MLINE", drawMline}};
  for (const Kind& known : kKinds) {
    if (kind != known.name) continue;
    known.draw(Fields(entity), brush);
    return true;
  }
  for (const auto& [name, draw] : kWhole) {
    if (kind != name) continue;
    draw(entity, brush);
    return true;
  }
  for (const auto& [name, draw] : kOfDrawing) {
    if (kind != name) continue;
    draw(entity, database, brush);
    return true;
  }
  return false;
}

} // namespace picture
