#include "ray_command.h"
#include "DbDatabase.h"
#include "direction.h"
#include "frame/input.h"
#include "preview.h"
#include "ray_tracker.h"
#include "res/strings.h"
#include "target_space.h"

namespace {

using construct::kPointFlags;
using construct::kPreviewMode;

int askPoint(HostEdInput& input, unsigned prompt, const OdGePoint3d* base, HostEdInputTracker* tracker,
             OdGePoint3d& point) {
  return input.GetPoint(base, point, res::loadString(prompt), nullptr, kPointFlags, nullptr, tracker);
}

/// Asks for the through point of one ray and draws it. The code of the answer.
int drawRay(frame::Session& session, OdDbObjectId space, const OdGePoint3d& start) {
  const OdDbRayPtr ray = OdDbRay::createObject();
  ray->setDatabaseDefaults(&session.database());
  ray->setBasePoint(start);
  RayTracker tracker(ray);
  session.input().Preview(kPreviewMode, ray);
  OdGePoint3d through;
  const int code = askPoint(session.input(), IDS_SPECIFY_THROUGH_POINT, &start, &tracker, through);
  if (code != kHostEdValue) return code;
  if (const std::optional<OdGeVector3d> way = construct::wayTo(start, through)) {
    ray->setUnitDir(*way);
    construct::append(space, ray);
  }
  return code;
}

} // namespace

CMD_RUNSTATUS CRayCmd::Run() {
  return perform([](frame::Session& session) {
    const OdDbObjectId space = construct::targetSpace(session.database());
    session.input().Preview(kPreviewMode, OdDbRay::createObject());
    OdGePoint3d start;
    int code = askPoint(session.input(), IDS_SPECIFY_START_POINT, nullptr, nullptr, start);
    while (code == kHostEdValue) code = drawRay(session, space, start);
    return frame::statusAfter(code);
  });
}
