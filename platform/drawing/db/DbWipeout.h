#pragma once
#include "DbRasterImage.h"

/// A polygon that masks what was drawn before it: a raster image of one pixel without a picture, clipped to
/// the polygon. Unless kShow is set nothing is masked, unless kClip is, the whole rectangle.
class OdDbWipeout : public OdDbRasterImage {
  ODRX_DECLARE_MEMBERS(OdDbWipeout);

public:
  /// The polygon in world coordinates, which may end with its first point repeated; it is stored so. Points
  /// off the plane of the polygon are projected. Returns eInvalidInput for coordinates that are not finite,
  /// eDegenerateGeometry for a polygon without area, and then changes nothing.
  OdResult setBoundary(const OdGePoint3dArray& points);
  /// What is masked, with the first point repeated at the end.
  void boundary(OdGePoint3dArray& points) const { outline(points); }

  OdDbSchema schema() const override;

protected:
  const OdDbSubclass& section() const override;
};
using OdDbWipeoutPtr = OdSmartPtr<OdDbWipeout>;
