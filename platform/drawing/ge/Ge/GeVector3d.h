#pragma once
#include "GeVector2d.h"

class OdGeMatrix3d;
class OdGePoint3d;

/// A direction and length in space.
class OdGeVector3d : public OdGeVectorBase<OdGeVector3d> {
public:
  double x = 0;
  double y = 0;
  double z = 0;

  static const OdGeVector3d kIdentity; ///< The zero vector.
  static const OdGeVector3d kXAxis;
  static const OdGeVector3d kYAxis;
  static const OdGeVector3d kZAxis;

  constexpr OdGeVector3d() = default;
  constexpr OdGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
  OdGeVector3d& set(double xx, double yy, double zz) { return *this = {xx, yy, zz}; }

  /// Drops z.
  constexpr OdGeVector2d convert2d() const { return {x, y}; }
  double length() const;
  double dotProduct(const OdGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
  OdGeVector3d crossProduct(const OdGeVector3d& v) const {
    return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
  }
  /// The angle between the two in [0, pi]; 0 when one is the zero vector.
  double angleTo(const OdGeVector3d& v) const;
  /// The angle from this vector to `v` in [0, 2 pi), counterclockwise as seen from the tip of `reference`.
  double angleTo(const OdGeVector3d& v, const OdGeVector3d& reference) const;
  /// A unit vector perpendicular to this one: the X axis that the arbitrary axis rule of drawing files gives
  /// to the plane with this normal. Throws OdError(eDegenerateGeometry) for the zero vector.
  OdGeVector3d perpVector() const;
  /// Turns about the axis by the right-hand rule. Throws OdError(eDegenerateGeometry) for a zero axis.
  OdGeVector3d& rotateBy(double angle, const OdGeVector3d& axis);
  /// Applies the matrix without its translation.
  OdGeVector3d& transformBy(const OdGeMatrix3d& matrix);

  OdGeVector3d& operator+=(const OdGeVector3d& v) { return set(x + v.x, y + v.y, z + v.z); }
  OdGeVector3d& operator-=(const OdGeVector3d& v) { return set(x - v.x, y - v.y, z - v.z); }
  OdGeVector3d& operator*=(double factor) { return set(x * factor, y * factor, z * factor); }
  OdGeVector3d& operator/=(double divisor) {
    requireNonZero(divisor);
    return set(x / divisor, y / divisor, z / divisor);
  }
};

inline constexpr OdGeVector3d OdGeVector3d::kIdentity{0, 0, 0};
inline constexpr OdGeVector3d OdGeVector3d::kXAxis{1, 0, 0};
inline constexpr OdGeVector3d OdGeVector3d::kYAxis{0, 1, 0};
inline constexpr OdGeVector3d OdGeVector3d::kZAxis{0, 0, 1};
