#pragma once
#include "DbRay.h"
#include "HostEdDrawing.h"
#include "HostEdInputTracker.h"

/// Previews the ray of the command Ray while its through point is being asked for. Holds a reference to the
/// ray.
class RayTracker final : public HostEdPointTracker {
public:
  explicit RayTracker(OdDbRayPtr ray) : m_ray(std::move(ray)) {}

  /// Turns the ray towards the cursor; a cursor on its base point leaves it as it was.
  bool Filter(const HostEdInputMessage& message, const OdGePoint3d& cursor) override;
  int Draw(HostEdDrawing* drawing) override;
  void DrawSecondPass(HostEdSecondPass* pass) override;
  bool InputMode(int& mode) override;

private:
  OdDbRayPtr m_ray;
};
