// Polylines of both kinds: vertices in one record, and a record for each vertex.
#include "DbObjectIterator.h"
#include "DbStub.h"
#include "curves.h"
#include "drawer.h"
#include <algorithm>
#include <cmath>

namespace picture {

namespace {

struct Vertex {
  OdGePoint3d point;
  double bulge = 0;
  double startWidth = 0;
  double endWidth = 0;
};

/// A segment whose width changes, as an area. Both sides are offset by half of the width at each point.
void fillTapered(const Points& points, double startWidth, double endWidth, const Brush& brush) {
  double total = 0;
  for (std::size_t i = 1; i < points.size(); ++i) total += points[i].distanceTo(points[i - 1]);
  if (!(total > 0)) return;
  Points outline;
  Points back;
  double at = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i > 0) at += points[i].distanceTo(points[i - 1]);
    OdGeVector3d way = points[std::min(i + 1, points.size() - 1)] - points[i > 0 ? i - 1 : 0];
    if (way.isZeroLength()) continue;
    way.normalize();
    const OdGeVector3d side =
        OdGeVector3d(-way.y, way.x, 0) * ((startWidth + (endWidth - startWidth) * at / total) / 2);
    outline.push_back(points[i] + side);
    back.push_back(points[i] - side);
  }
  outline.insert(outline.end(), back.rbegin(), back.rend());
  brush.fill({outline}, FillRule::winding);
}

/// A polyline of one width is one line, so that its corners close; else each segment is drawn by itself.
void drawPolyline(const std::vector<Vertex>& vertices, bool closed, const Brush& brush) {
  if (vertices.empty()) return;
  const double width = vertices.front().startWidth;
  const std::size_t count = closed && vertices.size() > 1 ? vertices.size() : vertices.size() - 1;
  const bool isEven = std::all_of(
      vertices.begin(), vertices.begin() + static_cast<std::ptrdiff_t>(std::max<std::size_t>(count, 1)),
      [width](const Vertex& vertex) { return vertex.startWidth == width && vertex.endWidth == width; });
  Points points = {vertices.front().point};
  for (std::size_t i = 0; i < count; ++i) {
    const Vertex& vertex = vertices[i];
    addBulge(points, vertex.point, vertices[(i + 1) % vertices.size()].point, vertex.bulge, brush);
    if (isEven) continue;
    if (vertex.startWidth == 0 && vertex.endWidth == 0)
      brush.stroke(points);
    else
      fillTapered(points, vertex.startWidth, vertex.endWidth, brush);
    points = {points.back()};
  }
  if (isEven) brush.stroke(points, false, width);
}

} // namespace

void drawLwPolyline(const Fields& fields, const Brush& brush) {
  constexpr int kClosed = 1;
  const double width = fields.real(43);
  const double elevation = fields.real(38);
  std::vector<Vertex> vertices;
  for (const OdDbGroup* group = fields.find(10, fields.begin()); group != fields.end(); ++group) {
    if (group->code == 10) {
      OdGePoint3d point = fields.pointAt(group);
      point.z = elevation;
      vertices.push_back({point, 0, width, width});
    }
    if (group->code == 40) vertices.back().startWidth = group->real;
    if (group->code == 41) vertices.back().endWidth = group->real;
    if (group->code == 42) vertices.back().bulge = group->real;
  }
  drawPolyline(vertices, (fields.integer(70) & kClosed) != 0, brush.inPlane(fields.normal()));
}

namespace {

// --- old polylines: a record, and one for each vertex

enum PolylineFlag {
  kClosed = 1,
  kCurveFit = 2,
  kSplineFit = 4,
  kSpatial = 8,
  kMesh = 16,
  kClosedAcross = 32,
  kFaces = 64
};
enum VertexFlag { kFrameControl = 16, kFaceRecord = 128, kFacePoint = 64 };

struct OldVertex {
  Vertex vertex;
  int flags = 0;
  int corners[4] = {};
};

std::vector<OldVertex> readVertices(const OdDbEntity& polyline) {
  const Fields header(polyline);
  const OdDbStub* stub = polyline.objectId().stub();
  std::vector<OldVertex> vertices;
  for (auto at = OdDbObjectIterator::overList(stub ? stub->children : nullptr, "SEQEND"); !at->done();
       at->step()) {
    const OdDbEntityPtr entity = at->entity();
    if (entity.isNull()) continue;
    const Fields fields(*entity);
    OldVertex read;
    read.vertex = {fields.point(10), fields.real(42), fields.real(40, header.real(40)),
                   fields.real(41, header.real(41))};
    read.flags = fields.integer(70);
    for (int i = 0; i < 4; ++i) read.corners[i] = fields.integer(71 + i);
    if (!(read.flags & kFrameControl)) vertices.push_back(read);
  }
  return vertices;
}

void drawFaces(const std::vector<OldVertex>& vertices, const Brush& brush) {
  Points points;
  for (const OldVertex& vertex : vertices)
    if (vertex.flags & kFacePoint) points.push_back(vertex.vertex.point);
  // Negative numbers begin an edge that is not seen.
  const auto place = [&](int number) -> const OdGePoint3d* {
    const auto index = static_cast<std::size_t>(std::abs(static_cast<long>(number)));
    return index >= 1 && index <= points.size() ? &points[index - 1] : nullptr;
  };
  for (const OldVertex& face : vertices) {
    if ((face.flags & (kFaceRecord | kFacePoint)) != kFaceRecord) continue;
    const int count = face.corners[3] != 0 ? 4 : 3;
    for (int i = 0; i < count; ++i) {
      const OdGePoint3d* from = place(face.corners[i]);
      const OdGePoint3d* to = place(face.corners[(i + 1) % count]);
      if (from && to && face.corners[i] > 0) brush.stroke({*from, *to});
    }
  }
}

void drawMesh(const std::vector<OldVertex>& vertices, const Fields& header, int flags, const Brush& brush) {
  const bool isSmooth = (flags & kSplineFit) != 0;
  const auto rows = static_cast<std::size_t>(std::max(0, header.integer(isSmooth ? 73 : 71)));
  const auto columns = static_cast<std::size_t>(std::max(0, header.integer(isSmooth ? 74 : 72)));
  if (columns == 0 || rows == 0 || vertices.size() / columns < rows) return;
  const auto at = [&](std::size_t row, std::size_t column) {
    return vertices[row * columns + column].vertex.point;
  };
  for (std::size_t row = 0; row < rows; ++row) {
    Points line;
    for (std::size_t column = 0; column < columns; ++column) line.push_back(at(row, column));
    brush.stroke(line, (flags & kClosedAcross) != 0);
  }
  for (std::size_t column = 0; column < columns; ++column) {
    Points line;
    for (std::size_t row = 0; row < rows; ++row) line.push_back(at(row, column));
    brush.stroke(line, (flags & kClosed) != 0);
  }
}

} // namespace

void drawOldPolyline(const OdDbEntity& entity, const Brush& brush) {
  const Fields header(entity);
  const int flags = header.integer(70);
  const std::vector<OldVertex> vertices = readVertices(entity);
  if (flags & kFaces) return drawFaces(vertices, brush);
  if (flags & kMesh) return drawMesh(vertices, header, flags, brush);
  std::vector<Vertex> plain;
  plain.reserve(vertices.size());
  for (const OldVertex& vertex : vertices) plain.push_back(vertex.vertex);
  const bool isSpatial = (flags & kSpatial) != 0;
  for (Vertex& vertex : plain) {
    if (isSpatial)
      vertex = {vertex.point};
    else
      vertex.point.z = header.point(10).z;
  }
  drawPolyline(plain, (flags & kClosed) != 0, isSpatial ? brush : brush.inPlane(header.normal()));
}

} // namespace picture
