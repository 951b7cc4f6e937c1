#include "Ge/GeMatrix3d.h"

constinit OdGeTol OdGeContext::gTol;

namespace {

/// Brings an angle of atan2 into [0, 2 pi); the smallest negative ones would round up to 2 pi.
double fullTurn(double angle) {
  if (angle >= 0) return angle;
  const double turned = angle + Oda2PI;
  return turned < Oda2PI ? turned : 0;
}

} // namespace

double OdGeVector2d::angle() const { return fullTurn(std::atan2(y, x)); }

OdGeVector2d& OdGeVector2d::rotateBy(double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return set(x * c - y * s, x * s + y * c);
}

double OdGeVector3d::length() const {
  const double squared = lengthSqrd();
  return std::isfinite(squared) ? std::sqrt(squared) : std::hypot(x, y, z);
}

double OdGeVector3d::angleTo(const OdGeVector3d& v) const {
  return std::atan2(crossProduct(v).length(), dotProduct(v));
}

double OdGeVector3d::angleTo(const OdGeVector3d& v, const OdGeVector3d& reference) const {
  const double angle = angleTo(v);
  return crossProduct(v).dotProduct(reference) < 0 ? fullTurn(-angle) : angle;
}

OdGeVector3d OdGeVector3d::perpVector() const {
  const OdGeVector3d n = OdGeVector3d(*this).normalize();
  constexpr double nearZ = 1.0 / 64;
  const bool isNearZ = std::fabs(n.x) < nearZ && std::fabs(n.y) < nearZ;
  return (isNearZ ? kYAxis : kZAxis).crossProduct(n).normalize();
}

OdGeVector3d& OdGeVector3d::rotateBy(double angle, const OdGeVector3d& axis) {
  return transformBy(OdGeMatrix3d::rotation(angle, axis));
}

OdGeVector3d& OdGeVector3d::transformBy(const OdGeMatrix3d& m) {
  return *this = m.getCsXAxis() * x + m.getCsYAxis() * y + m.getCsZAxis() * z;
}

OdGePoint3d& OdGePoint3d::transformBy(const OdGeMatrix3d& m) {
  const OdGeVector3d image = m * asVector() + m.translation();
  return set(image.x, image.y, image.z);
}

OdGePoint3d& OdGePoint3d::rotateBy(double angle, const OdGeVector3d& axis, const OdGePoint3d& center) {
  return transformBy(OdGeMatrix3d::rotation(angle, axis, center));
}

OdGeScale3d OdGeScale3d::inverse() const {
  if (sx == 0 || sy == 0 || sz == 0) throw OdError(eNonInvertibleMatrix);
  return {1 / sx, 1 / sy, 1 / sz};
}

bool OdGeScale3d::isProportional(const OdGeTol& tol) const {
  const double size = std::fabs(sx);
  const double allowed = tol.equalVector() * size;
  return std::fabs(std::fabs(sy) - size) <= allowed && std::fabs(std::fabs(sz) - size) <= allowed;
}

bool OdGeScale3d::isEqualTo(const OdGeScale3d& other, const OdGeTol& tol) const {
  return OdGeVector3d(sx, sy, sz).isEqualTo({other.sx, other.sy, other.sz}, tol);
}
