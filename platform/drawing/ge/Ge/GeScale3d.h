#pragma once
#include "GeGbl.h"

/// Scale factors along the three axes.
class OdGeScale3d {
public:
  double sx = 1;
  double sy = 1;
  double sz = 1;

  static const OdGeScale3d kIdentity;

  constexpr OdGeScale3d() = default;
  constexpr OdGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
  constexpr OdGeScale3d(double xx, double yy, double zz) : sx(xx), sy(yy), sz(zz) {}
  OdGeScale3d& set(double xx, double yy, double zz) { return *this = {xx, yy, zz}; }

  /// The factors that undo these; throws OdError(eNonInvertibleMatrix) when one is 0.
  OdGeScale3d inverse() const;
  /// True when the factors have the same size, whatever their signs; equalVector is relative to it.
  bool isProportional(const OdGeTol& tol = OdGeContext::gTol) const;
  bool isEqualTo(const OdGeScale3d& other, const OdGeTol& tol = OdGeContext::gTol) const;

  friend OdGeScale3d operator*(const OdGeScale3d& a, const OdGeScale3d& b) {
    return {a.sx * b.sx, a.sy * b.sy, a.sz * b.sz};
  }
  /// Equality within OdGeContext::gTol.
  friend bool operator==(const OdGeScale3d& a, const OdGeScale3d& b) { return a.isEqualTo(b); }
};

inline constexpr OdGeScale3d OdGeScale3d::kIdentity{1, 1, 1};
