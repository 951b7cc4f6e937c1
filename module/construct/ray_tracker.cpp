#include "ray_tracker.h"
#include "preview.h"

bool RayTracker::Filter(const HostEdInputMessage& message, const OdGePoint3d& cursor) {
  if (message.kind != kHostEdMouseMove) return false;
  const OdGePoint3d base = m_ray->basePoint();
  if (!cursor.isEqualTo(base)) m_ray->setUnitDir(cursor - base);
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
