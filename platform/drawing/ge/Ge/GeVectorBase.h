#pragma once
#include "GeGbl.h"
#include "OdError.h"
#include <cmath>

/// What vectors of two and of three dimensions have in common. A vector whose length is within
/// tol.equalVector() counts as zero; it has no direction, so it is parallel or perpendicular to nothing.
template <class Vector>
class OdGeVectorBase {
public:
  double lengthSqrd() const { return self().dotProduct(self()); }

  /// Divides by the length and returns what the length was; a zero vector is left as it is and 0 returned.
  double normalizeGetLength(const OdGeTol& tol = OdGeContext::gTol) {
    const double length = self().length();
    if (!(length > tol.equalVector()) || !std::isfinite(length)) return 0;
    self() /= length;
    return length;
  }
  /// Divides by the length; throws OdError(eDegenerateGeometry) for a zero vector.
  Vector& normalize(const OdGeTol& tol = OdGeContext::gTol) {
    if (normalizeGetLength(tol) == 0) throw OdError(eDegenerateGeometry);
    return self();
  }
  /// The unit vector of the same direction; a zero vector is returned as it is.
  Vector normal(const OdGeTol& tol = OdGeContext::gTol) const {
    Vector result = self();
    result.normalizeGetLength(tol);
    return result;
  }

  bool isZeroLength(const OdGeTol& tol = OdGeContext::gTol) const {
    return self().length() <= tol.equalVector();
  }
  bool isUnitLength(const OdGeTol& tol = OdGeContext::gTol) const {
    return std::fabs(self().length() - 1) <= tol.equalVector();
  }
  bool isEqualTo(const Vector& other, const OdGeTol& tol = OdGeContext::gTol) const {
    return (self() - other).length() <= tol.equalVector();
  }
  bool isCodirectionalTo(const Vector& other, const OdGeTol& tol = OdGeContext::gTol) const {
    return haveDirections(other, tol) && normal(tol).isEqualTo(other.normal(tol), tol);
  }
  bool isParallelTo(const Vector& other, const OdGeTol& tol = OdGeContext::gTol) const {
    return isCodirectionalTo(other, tol) || isCodirectionalTo(-other, tol);
  }
  bool isPerpendicularTo(const Vector& other, const OdGeTol& tol = OdGeContext::gTol) const {
    return haveDirections(other, tol) &&
           std::fabs(normal(tol).dotProduct(other.normal(tol))) <= tol.equalVector();
  }

  Vector& negate() { return self() *= -1; }

  friend Vector operator+(Vector a, const Vector& b) { return a += b; }
  friend Vector operator-(Vector a, const Vector& b) { return a -= b; }
  friend Vector operator-(Vector v) { return v *= -1; }
  friend Vector operator*(Vector v, double factor) { return v *= factor; }
  friend Vector operator*(double factor, Vector v) { return v *= factor; }
  /// Throws OdError(eDegenerateGeometry) for a divisor of 0.
  friend Vector operator/(Vector v, double divisor) { return v /= divisor; }
  /// Equality within OdGeContext::gTol.
  friend bool operator==(const Vector& a, const Vector& b) { return a.isEqualTo(b); }

protected:
  static void requireNonZero(double divisor) {
    if (divisor == 0) throw OdError(eDegenerateGeometry);
  }

private:
  bool haveDirections(const Vector& other, const OdGeTol& tol) const {
    return !isZeroLength(tol) && !other.isZeroLength(tol);
  }
  Vector& self() { return static_cast<Vector&>(*this); }
  const Vector& self() const { return static_cast<const Vector&>(*this); }
};
