#pragma once
#include "GeVectorBase.h"

/// A direction and length in the plane.
class OdGeVector2d : public OdGeVectorBase<OdGeVector2d> {
public:
  double x = 0;
  double y = 0;

  static const OdGeVector2d kIdentity; ///< The zero vector.
  static const OdGeVector2d kXAxis;
  static const OdGeVector2d kYAxis;

  constexpr OdGeVector2d() = default;
  constexpr OdGeVector2d(double xx, double yy) : x(xx), y(yy) {}
  OdGeVector2d& set(double xx, double yy) { return *this = {xx, yy}; }

  double length() const { return std::hypot(x, y); }
  double dotProduct(const OdGeVector2d& v) const { return x * v.x + y * v.y; }
  /// The signed area of the parallelogram of the two, positive when `v` lies counterclockwise.
  double crossProduct(const OdGeVector2d& v) const { return x * v.y - y * v.x; }
  /// The direction, counterclockwise from the X axis, in [0, 2 pi); 0 for the zero vector.
  double angle() const;
  /// The angle between the two in [0, pi]; 0 when one is the zero vector.
  double angleTo(const OdGeVector2d& v) const {
    return std::atan2(std::fabs(crossProduct(v)), dotProduct(v));
  }
  /// This vector turned counterclockwise by a right angle.
  OdGeVector2d perpVector() const { return {-y, x}; }
  OdGeVector2d& rotateBy(double angle);

  OdGeVector2d& operator+=(const OdGeVector2d& v) { return set(x + v.x, y + v.y); }
  OdGeVector2d& operator-=(const OdGeVector2d& v) { return set(x - v.x, y - v.y); }
  OdGeVector2d& operator*=(double factor) { return set(x * factor, y * factor); }
  OdGeVector2d& operator/=(double divisor) {
    requireNonZero(divisor);
    return set(x / divisor, y / divisor);
  }
};

inline constexpr OdGeVector2d OdGeVector2d::kIdentity{0, 0};
inline constexpr OdGeVector2d OdGeVector2d::kXAxis{1, 0};
inline constexpr OdGeVector2d OdGeVector2d::kYAxis{0, 1};
