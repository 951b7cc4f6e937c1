#pragma once
#include "xline_geometry.h"
#include <functional>

class OdDbObjectId;

namespace construct {

class XlineRun;

/// The line that an object picked at a point lies on: a construction line, a ray, a line, or the straight
/// segment of a light polyline there. Nothing for other objects, and for those without a direction.
std::optional<Line> lineObject(const OdDbDatabase& database, OdDbObjectId id, const OdGePoint3d& picked);

/// Asks for a line object until `use` can do with the line it lies on; other picks are told. The code of the
/// last answer: kHostEdValue when a line was used.
int pickLine(const XlineRun& run, const std::function<bool(const Line&)>& use);

/// Asks for a line object and gives its direction as an angle sees it (inUcsPlane); nothing when the user
/// picked none.
std::optional<OdGeVector3d> pickDirection(const XlineRun& run);

} // namespace construct
