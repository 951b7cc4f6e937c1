#pragma once
#include "GeVector2d.h"

/// A place in the plane.
class OdGePoint2d {
public:
  double x = 0;
  double y = 0;

  static const OdGePoint2d kOrigin;

  constexpr OdGePoint2d() = default;
  constexpr OdGePoint2d(double xx, double yy) : x(xx), y(yy) {}
  OdGePoint2d& set(double xx, double yy) { return *this = {xx, yy}; }

  constexpr OdGeVector2d asVector() const { return {x, y}; }
  double distanceTo(const OdGePoint2d& p) const { return (*this - p).length(); }
  bool isEqualTo(const OdGePoint2d& p, const OdGeTol& tol = OdGeContext::gTol) const {
    return distanceTo(p) <= tol.equalPoint();
  }

  OdGePoint2d& operator+=(const OdGeVector2d& v) { return set(x + v.x, y + v.y); }
  OdGePoint2d& operator-=(const OdGeVector2d& v) { return set(x - v.x, y - v.y); }
  friend OdGePoint2d operator+(OdGePoint2d p, const OdGeVector2d& v) { return p += v; }
  friend OdGePoint2d operator-(OdGePoint2d p, const OdGeVector2d& v) { return p -= v; }
  friend OdGeVector2d operator-(const OdGePoint2d& a, const OdGePoint2d& b) { return {a.x - b.x, a.y - b.y}; }
  /// Equality within OdGeContext::gTol.
  friend bool operator==(const OdGePoint2d& a, const OdGePoint2d& b) { return a.isEqualTo(b); }
};

inline constexpr OdGePoint2d OdGePoint2d::kOrigin{0, 0};
