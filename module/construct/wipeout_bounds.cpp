#include "wipeout_bounds.h"
#include "Ge/GePlane.h"
#include "frame/input.h"
#include "preview.h"
#include "res/strings.h"
#include "wipeout_tracker.h"

namespace construct {

namespace {

constexpr int kUndo = kHostEdFirstKeyword;
constexpr int kClose = kUndo + 1;

OdGePoint2d inPlane(const OdGeVector3d& normal, const OdGePoint3d& point) {
  return (OdGeMatrix3d::worldToPlane(normal) * point).convert2d();
}

OdDbPolylinePtr startBounds(const OdGePoint3d& start, const OdGeVector3d& normal) {
  OdDbPolylinePtr bounds = OdDbPolyline::createObject();
  bounds->setNormal(normal);
  bounds->setElevation(OdGePlane(OdGePoint3d(), normal).signedDistanceTo(start));
  bounds->setClosed(true);
  bounds->addVertexAt(0, inPlane(normal, start));
  return bounds;
}

/// The vertex that follows the cursor. It begins where the one before is.
void addRubberVertex(OdDbPolyline& bounds) {
  OdGePoint2d before;
  bounds.getPointAt(bounds.numVerts() - 1, before);
  bounds.addVertexAt(bounds.numVerts(), before);
}

void dropLastVertex(OdDbPolyline& bounds) { bounds.removeVertexAt(bounds.numVerts() - 1); }

int askNext(HostEdInput& input, const OdDbPolylinePtr& bounds, OdGePoint3d& point) {
  const unsigned int count = bounds->numVerts();
  OdGePoint3d base;
  bounds->getPointAt(count - 2, base);
  OdString keywords;
  if (count >= 3) keywords = res::loadString(count == 3 ? IDS_KEYS_UNDO : IDS_KEYS_UNDO_CLOSE);
  WipeoutBoundsTracker tracker(bounds);
  return input.GetPoint(&base, point, res::loadString(IDS_SPECIFY_NEXT_POINT),
                        keywords.isEmpty() ? nullptr : keywords.c_str(), kPointFlags, nullptr, &tracker);
}

/// Enter. Whether it finishes the boundary.
bool takeEnter(HostEdInput& input, OdDbPolyline& bounds) {
  const unsigned int count = bounds.numVerts();
  // With two points placed, the third stays where the cursor is.
  if (count == 3) return false;
  if (count == 2) frame::printMessage(input, IDS_POINT_OR_KEYWORD_REQUIRED);
  dropLastVertex(bounds);
  return count > 3;
}

void undo(OdDbPolyline& bounds) {
  const bool hasPlaced = bounds.numVerts() > 2; // besides the start point
  dropLastVertex(bounds);
  if (hasPlaced) dropLastVertex(bounds);
}

} // namespace

void moveLastVertex(OdDbPolyline& bounds, const OdGePoint3d& point) {
  bounds.setPointAt(bounds.numVerts() - 1, inPlane(bounds.normal(), point));
}

OdDbPolylinePtr pickBounds(HostEdInput& input, const OdGePoint3d& start, const OdGeVector3d& normal) {
  OdDbPolylinePtr bounds = startBounds(start, normal);
  for (;;) {
    addRubberVertex(*bounds);
    OdGePoint3d point;
    switch (askNext(input, bounds, point)) {
    case kHostEdCancel: return {};
    case kHostEdValue: moveLastVertex(*bounds, point); break;
    case kHostEdEmpty:
      if (takeEnter(input, *bounds)) return bounds;
      break;
    case kUndo: undo(*bounds); break;
    case kClose: dropLastVertex(*bounds); return bounds;
    default: break;
    }
  }
}

} // namespace construct
