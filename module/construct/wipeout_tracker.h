#pragma once
#include "DbPolyline.h"
#include "HostEdDrawing.h"
#include "HostEdInputTracker.h"

/// Previews the boundary of the command Wipeout, whose last vertex follows the cursor, while its next point
/// is being asked for. Holds a reference to the polyline.
class WipeoutBoundsTracker final : public HostEdPointTracker {
public:
  explicit WipeoutBoundsTracker(OdDbPolylinePtr bounds) : m_bounds(std::move(bounds)) {}

  bool Filter(const HostEdInputMessage& message, const OdGePoint3d& cursor) override;
  int Draw(HostEdDrawing* drawing) override;
  void DrawSecondPass(HostEdSecondPass* pass) override;

private:
  OdDbPolylinePtr m_bounds;
};
