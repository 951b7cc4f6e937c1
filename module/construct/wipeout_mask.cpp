#include "wipeout_mask.h"
#include "DbWipeout.h"
#include "frame/input.h"
#include "res/strings.h"
#include "target_space.h"
#include <cmath>

namespace construct {

namespace {

constexpr int kYesKeyword = kHostEdFirstKeyword;

bool isPolygon(const OdDbPolyline& polyline) {
  constexpr double kFlat = 1e-10;
  const unsigned int count = polyline.numVerts();
  for (unsigned int i = 0; i < count; ++i)
    if (!(std::fabs(polyline.getBulgeAt(i)) <= kFlat)) return false;
  return polyline.isClosed() && count > 0;
}

/// The vertices, and the first one again.
OdGePoint3dArray cornersOf(const OdDbPolyline& polyline) {
  const unsigned int count = polyline.numVerts();
  OdGePoint3dArray corners;
  for (unsigned int i = 0; i <= count; ++i) {
    OdGePoint3d corner;
    polyline.getPointAt(i % count, corner);
    corners.append(corner);
  }
  return corners;
}

OdDbWipeoutPtr wipeoutOf(const OdGePoint3dArray& corners, OdDbDatabase& database) {
  OdDbWipeoutPtr wipeout = OdDbWipeout::createObject();
  wipeout->setDatabaseDefaults(&database);
  if (const OdResult set = wipeout->setBoundary(corners); set != eOk) throw OdError(set);
  wipeout->setDisplayOpt(OdDbRasterImage::kShow, true);
  wipeout->setDisplayOpt(OdDbRasterImage::kShowUnAligned, true);
  wipeout->setDisplayOpt(OdDbRasterImage::kClip, true);
  wipeout->setDisplayOpt(OdDbRasterImage::kTransparent, false);
  return wipeout;
}

} // namespace

bool makeWipeout(HostEdInput& input, OdDbDatabase& database, OdDbObjectId owner,
                 const OdDbPolylinePtr& polyline) {
  if (!isPolygon(*polyline)) {
    frame::printMessage(input, IDS_POLYLINE_NOT_USABLE);
    return false;
  }
  const OdGePoint3dArray corners = cornersOf(*polyline);
  bool erases = false;
  if (polyline->isDBRO()) {
    constexpr int kFlags = 4;
    const int code = input.GetStringOrKeyword(res::loadString(IDS_ERASE_POLYLINE),
                                              res::loadString(IDS_KEYS_YES_NO), kFlags, nullptr, nullptr);
    if (code == kHostEdCancel) return false;
    erases = code == kYesKeyword;
  }
  // Made before the polyline goes: one without area makes none.
  const OdDbWipeoutPtr wipeout = wipeoutOf(corners, database);
  if (erases) {
    polyline->upgradeOpen();
    polyline->erase();
  }
  return !append(owner, wipeout).isNull();
}

} // namespace construct
