#include "PointParser.h"
#include "DbDatabase.h"
#include "HostUtils.h"
#include <cmath>
#include <limits>
#include <vector>

namespace host {

namespace {

bool takeHead(OdString& text, OdChar sign) {
  text.trimLeft();
  if (text.isEmpty() || text[0] != sign) return false;
  text = text.mid(1);
  return true;
}

std::vector<OdString> split(const OdString& text, OdChar separator) {
  std::vector<OdString> parts;
  int start = 0;
  for (int at = text.find(separator); at >= 0; at = text.find(separator, start)) {
    parts.push_back(text.mid(start, at - start));
    start = at + 1;
  }
  parts.push_back(text.mid(start));
  return parts;
}

/// An offset as typed; `hasZ` tells whether z was.
struct Typed {
  OdGeVector3d offset;
  bool hasZ = false;
};

std::optional<Typed> readPolar(const OdString& distance, const OdString& angle, const PointFrame& frame,
                               bool world) {
  // A comma would be a decimal mark here, but separates coordinates everywhere else in points.
  if (distance.find(L',') >= 0 || angle.find(L',') >= 0) return std::nullopt;
  const std::optional<double> length = parseLength(distance);
  double typed = 0;
  if (!length || !hostdbAngToF(angle, frame.angleUnits, typed)) return std::nullopt;
  const double direction = world ? typed : frame.counted(typed);
  return Typed{{*length * std::cos(direction), *length * std::sin(direction), 0}, false};
}

std::optional<Typed> readCartesian(const OdString& text) {
  const std::vector<OdString> parts = split(text, L',');
  if (parts.size() < 2 || parts.size() > 3) return std::nullopt;
  double values[3] = {0, 0, 0};
  for (std::size_t i = 0; i < parts.size(); ++i)
    if (!hostdbDisToF(parts[i], values[i])) return std::nullopt;
  return Typed{{values[0], values[1], values[2]}, parts.size() == 3};
}

std::optional<Typed> readOffset(const OdString& text, const PointFrame& frame, bool world) {
  const int less = text.find(L'<');
  return less < 0 ? readCartesian(text) : readPolar(text.left(less), text.mid(less + 1), frame, world);
}

} // namespace

PointFrame PointFrame::of(const OdDbDatabase& database, const OdGePoint3d& lastPoint) {
  const OdResBufPtr elevation = database.getSysVar(L"$ELEVATION");
  PointFrame frame;
  frame.ucsToWorld = database.ucsToWorld();
  frame.lastPoint = lastPoint;
  frame.elevation = elevation.isNull() ? 0 : elevation->getDouble();
  frame.angleUnits = database.getAUNITS();
  frame.angleBase = database.getANGBASE();
  frame.clockwise = database.getANGDIR();
  return frame;
}

namespace {

std::optional<OdGePoint3d> pointOf(const OdString& text, const PointFrame& frame) {
  OdString rest = text;
  const bool relative = takeHead(rest, L'@');
  const bool world = takeHead(rest, L'*');
  if (relative && !world && rest.trimLeft().trimRight().isEmpty()) return frame.lastPoint;
  const std::optional<Typed> typed = readOffset(rest, frame, world);
  if (!typed) return std::nullopt;
  if (relative) return frame.lastPoint + (world ? typed->offset : frame.ucsToWorld * typed->offset);
  OdGePoint3d point = OdGePoint3d::kOrigin + typed->offset;
  if (world) return point;
  if (!typed->hasZ) point.z = frame.elevation;
  return frame.ucsToWorld * point;
}

} // namespace

std::optional<OdGePoint3d> parsePoint(const OdString& text, const PointFrame& frame) {
  const std::optional<OdGePoint3d> point = pointOf(text, frame);
  // Each part may be a number and their sum none.
  const bool isPlace = point && std::isfinite(point->x) && std::isfinite(point->y) && std::isfinite(point->z);
  return isPlace ? point : std::nullopt;
}

std::optional<double> parseAngle(const OdString& text, const PointFrame& frame) {
  double typed = 0;
  if (!hostdbAngToF(text, frame.angleUnits, typed)) return std::nullopt;
  return frame.counted(typed);
}

std::optional<double> parseLength(const OdString& text) {
  double value = 0;
  if (!hostdbDisToF(text, value)) return std::nullopt;
  return value;
}

std::optional<int> parseInteger(const OdString& text) {
  OdString rest = text;
  rest.trimLeft().trimRight();
  const bool negative = takeHead(rest, L'-');
  if (!negative) takeHead(rest, L'+');
  OdInt64 value = 0;
  for (const wchar_t c : rest.str()) {
    if (c < L'0' || c > L'9' || value > std::numeric_limits<int>::max()) return std::nullopt;
    value = value * 10 + (c - L'0');
  }
  if (negative) value = -value;
  if (rest.isEmpty() || value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
    return std::nullopt;
  return static_cast<int>(value);
}

} // namespace host
