#include "ray_tracker.h"
#include "direction.h"
#include "preview.h"

bool RayTracker::Filter(const HostEdInputMessage& message, const OdGePoint3d& cursor) {
  if (message.kind != kHostEdMouseMove) return false;
  if (const std::optional<OdGeVector3d> way = construct::wayTo(m_ray->basePoint(), cursor))
    m_ray->setUnitDir(*way);
  return true;
}

int RayTracker::Draw(HostEdDrawing* drawing) {
  construct::drawPreview(*drawing, m_ray);
  return 1;
}

void RayTracker::DrawSecondPass(HostEdSecondPass* pass) { pass->Entity(m_ray); }

bool RayTracker::InputMode(int& mode) {
  mode = construct::kPreviewInputMode;
  return true;
}
