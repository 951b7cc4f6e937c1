#include "wipeout_tracker.h"
#include "preview.h"
#include "wipeout_bounds.h"

bool WipeoutBoundsTracker::Filter(const HostEdInputMessage& message, const OdGePoint3d& cursor) {
  if (message.kind != kHostEdMouseMove) return false;
  construct::moveLastVertex(*m_bounds, cursor);
  return true;
}

int WipeoutBoundsTracker::Draw(HostEdDrawing* drawing) {
  construct::drawPreview(*drawing, m_bounds);
  return 1;
}

void WipeoutBoundsTracker::DrawSecondPass(HostEdSecondPass* pass) { pass->Entity(m_bounds); }
