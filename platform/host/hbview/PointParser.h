#pragma once
#include "Ge/GeMatrix3d.h"
#include "OdString.h"
#include <optional>

class OdDbDatabase;

namespace host {

/// What typed points and angles refer to.
struct PointFrame {
  OdGeMatrix3d ucsToWorld;
  OdGePoint3d lastPoint;  ///< world coordinates
  double elevation = 0;   ///< z of points typed without one
  int angleUnits = 0;     ///< AUNITS
  double angleBase = 0;   ///< ANGBASE, radians
  bool clockwise = false; ///< ANGDIR

  static PointFrame of(const OdDbDatabase& database, const OdGePoint3d& lastPoint);
  /// An angle as typed, in radians, counted counterclockwise from the X axis.
  double counted(double typed) const { return clockwise ? angleBase - typed : angleBase + typed; }
};

/// What parsePoint reads, for messages.
inline constexpr OdChar kPointForms[] = L"x,y[,z], @dx,dy[,dz], distance<angle or @distance<angle";

/// Reads a point in the current coordinate system, or in that of the world behind a "*": "x,y[,z]",
/// "distance<angle", either of them from the last point behind an "@" ("@" alone is the last point). Gives
/// world coordinates, or nothing.
std::optional<OdGePoint3d> parsePoint(const OdString& text, const PointFrame& frame);

/// Reads an angle as a number; radians counterclockwise from the X axis of the current coordinate system.
std::optional<double> parseAngle(const OdString& text, const PointFrame& frame);

/// Reads a length: a number of drawing units.
std::optional<double> parseLength(const OdString& text);

/// Reads a whole number of 32 bits.
std::optional<int> parseInteger(const OdString& text);

} // namespace host
