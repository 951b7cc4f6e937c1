#pragma once
// Planar entities keep their points in the coordinates of their own plane, with the axes that the arbitrary
// axis rule of drawing files gives to the normal. Internal to the drawing library.
#include "Ge/GeMatrix3d.h"

namespace odDbOcs {
/// The transformation from the plane's coordinates; a zero normal (damaged drawings) counts as the Z axis.
OdGeMatrix3d toWorld(const OdGeVector3d& normal);
OdGePoint3d toWorld(const OdGePoint3d& point, const OdGeVector3d& normal);
OdGePoint3d fromWorld(const OdGePoint3d& point, const OdGeVector3d& normal);

/// What becomes of a plane under a transformation.
struct Image {
  OdGeMatrix3d matrix;   ///< from the old plane's coordinates to the new plane's
  OdGeVector3d normal;   ///< of the new plane; unit length
  bool mirrored = false; ///< whether counterclockwise became clockwise
  double thickness = 1;  ///< factor of extrusions along the normal

  OdGeVector3d axis(double angle) const;
  bool isSimilarity() const;
  /// Angle in the new plane of a direction of the old one.
  double turn(double angle) const;
  /// Factor of lengths along the old plane's X axis; of all lengths when isSimilarity().
  double scale() const;
};
/// Throws OdError(eNonInvertibleMatrix) when the plane would lose its extent. The side that the new plane
/// faces: a rotation carries the normal along; after a mirroring the normal is the one nearer to the old.
Image image(const OdGeMatrix3d& matrix, const OdGeVector3d& normal);
/// Direction of a vector of the plane, in [0, 2 pi); what rounding left over near 0 is taken away.
double angleOf(const OdGeVector3d& vector);
/// The angle in [0, 2 pi).
double normalized(double angle);
} // namespace odDbOcs
