#pragma once
#include "GePoint2d.h"
#include "GeVector3d.h"

/// A place in space.
class OdGePoint3d {
public:
  double x = 0;
  double y = 0;
  double z = 0;

  static const OdGePoint3d kOrigin;

  constexpr OdGePoint3d() = default;
  constexpr OdGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
  OdGePoint3d& set(double xx, double yy, double zz) { return *this = {xx, yy, zz}; }

  constexpr OdGeVector3d asVector() const { return {x, y, z}; }
  /// Drops z.
  constexpr OdGePoint2d convert2d() const { return {x, y}; }
  double distanceTo(const OdGePoint3d& p) const { return (*this - p).length(); }
  double distanceSqrdTo(const OdGePoint3d& p) const { return (*this - p).lengthSqrd(); }
  bool isEqualTo(const OdGePoint3d& p, const OdGeTol& tol = OdGeContext::gTol) const {
    return distanceTo(p) <= tol.equalPoint();
  }
  OdGePoint3d& transformBy(const OdGeMatrix3d& matrix);
  /// Turns about the axis through `center` by the right-hand rule. Throws OdError(eDegenerateGeometry) for a
  /// zero axis.
  OdGePoint3d& rotateBy(double angle, const OdGeVector3d& axis, const OdGePoint3d& center = kOrigin);
  OdGePoint3d& scaleBy(double factor, const OdGePoint3d& center = kOrigin) {
    return *this = center + (*this - center) * factor;
  }

  OdGePoint3d& operator+=(const OdGeVector3d& v) { return set(x + v.x, y + v.y, z + v.z); }
  OdGePoint3d& operator-=(const OdGeVector3d& v) { return set(x - v.x, y - v.y, z - v.z); }
  friend OdGePoint3d operator+(OdGePoint3d p, const OdGeVector3d& v) { return p += v; }
  friend OdGePoint3d operator-(OdGePoint3d p, const OdGeVector3d& v) { return p -= v; }
  friend OdGeVector3d operator-(const OdGePoint3d& a, const OdGePoint3d& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
  }
  /// Equality within OdGeContext::gTol.
  friend bool operator==(const OdGePoint3d& a, const OdGePoint3d& b) { return a.isEqualTo(b); }
};

inline constexpr OdGePoint3d OdGePoint3d::kOrigin{0, 0, 0};
