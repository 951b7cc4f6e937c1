#include "DbOcs.h"
#include <cmath>

namespace odDbOcs {

OdGeMatrix3d toWorld(const OdGeVector3d& normal) {
  if (normal == OdGeVector3d::kZAxis || normal.isZeroLength()) return OdGeMatrix3d::kIdentity;
  return OdGeMatrix3d::planeToWorld(normal);
}

OdGePoint3d toWorld(const OdGePoint3d& point, const OdGeVector3d& normal) { return toWorld(normal) * point; }

OdGePoint3d fromWorld(const OdGePoint3d& point, const OdGeVector3d& normal) {
  if (normal == OdGeVector3d::kZAxis || normal.isZeroLength()) return point;
  return OdGeMatrix3d::worldToPlane(normal) * point;
}

OdGeVector3d Image::axis(double angle) const {
  return matrix * OdGeVector3d(std::cos(angle), std::sin(angle), 0);
}

bool Image::isSimilarity() const {
  constexpr double kTolerance = 1e-9; // relative; matrices made of products of others carry rounding errors
  const OdGeVector3d x = axis(0);
  const OdGeVector3d y = axis(OdaPI2);
  const double size = x.length();
  return std::fabs(y.length() - size) <= kTolerance * size &&
         std::fabs(x.dotProduct(y)) <= kTolerance * size * size;
}

double Image::turn(double angle) const { return angleOf(axis(angle)); }

double Image::scale() const { return axis(0).length(); }

Image image(const OdGeMatrix3d& matrix, const OdGeVector3d& oldNormal) {
  const OdGeMatrix3d old = toWorld(oldNormal);
  const OdGeMatrix3d both = matrix * old;
  OdGeVector3d normal = both.getCsXAxis().crossProduct(both.getCsYAxis());
  const double area = normal.length();
  constexpr double kFlat = 1e-12;
  if (!(area > kFlat * both.getCsXAxis().length() * both.getCsYAxis().length()))
    throw OdError(eNonInvertibleMatrix);
  normal *= 1 / area;
  Image result;
  result.mirrored = matrix.det() < 0 && normal.dotProduct(old.getCsZAxis()) < 0;
  if (result.mirrored) normal.negate();
  if (normal == OdGeVector3d::kZAxis) normal = OdGeVector3d::kZAxis; // rounding must not reach the file
  result.normal = normal;
  result.thickness = both.getCsZAxis().dotProduct(normal);
  result.matrix = toWorld(normal).inverse() * both;
  return result;
}

double angleOf(const OdGeVector3d& vector) {
  constexpr double kRounding = 1e-14;
  const double angle = vector.convert2d().angle();
  return angle < kRounding || Oda2PI - angle < kRounding ? 0 : angle;
}

double normalized(double angle) {
  const double rest = std::fmod(angle, Oda2PI);
  const double positive = rest < 0 ? rest + Oda2PI : rest;
  return positive < Oda2PI ? positive : 0;
}

} // namespace odDbOcs
