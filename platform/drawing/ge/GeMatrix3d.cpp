#include "Ge/GeMatrix3d.h"
#include "Ge/GePlane.h"
#include <algorithm>

OdGeMatrix3d OdGeMatrix3d::product(const OdGeMatrix3d& left, const OdGeMatrix3d& right) {
  OdGeMatrix3d result;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      double sum = 0;
      for (int k = 0; k < 4; ++k) sum += left.entry[row][k] * right.entry[k][column];
      result.entry[row][column] = sum;
    }
  }
  return result;
}

/// Gives a matrix without translation the fixed point `center`.
OdGeMatrix3d OdGeMatrix3d::about(const OdGePoint3d& center, OdGeMatrix3d linear) {
  return linear.setTranslation(center.asVector() - linear * center.asVector());
}

OdGeMatrix3d OdGeMatrix3d::translation(const OdGeVector3d& offset) {
  return OdGeMatrix3d().setTranslation(offset);
}

OdGeMatrix3d OdGeMatrix3d::rotation(double angle, const OdGeVector3d& axis, const OdGePoint3d& center) {
  const OdGeVector3d n = OdGeVector3d(axis).normalize();
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const auto image = [&](const OdGeVector3d& v) {
    return v * c + n.crossProduct(v) * s + n * (n.dotProduct(v) * (1 - c));
  };
  OdGeMatrix3d turn;
  turn.setCoordSystem(OdGePoint3d::kOrigin, image(OdGeVector3d::kXAxis), image(OdGeVector3d::kYAxis),
                      image(OdGeVector3d::kZAxis));
  return about(center, turn);
}

OdGeMatrix3d OdGeMatrix3d::scaling(const OdGeScale3d& factors, const OdGePoint3d& center) {
  OdGeMatrix3d result;
  result.entry[0][0] = factors.sx;
  result.entry[1][1] = factors.sy;
  result.entry[2][2] = factors.sz;
  return about(center, result);
}

OdGeMatrix3d OdGeMatrix3d::scaling(double factor, const OdGePoint3d& center) {
  return scaling(OdGeScale3d(factor), center);
}

OdGeMatrix3d OdGeMatrix3d::mirroring(const OdGePlane& plane) {
  const OdGeVector3d& n = plane.normal();
  const auto image = [&n](const OdGeVector3d& v) { return v - n * (2 * n.dotProduct(v)); };
  OdGeMatrix3d mirror;
  mirror.setCoordSystem(OdGePoint3d::kOrigin, image(OdGeVector3d::kXAxis), image(OdGeVector3d::kYAxis),
                        image(OdGeVector3d::kZAxis));
  return about(plane.pointOnPlane(), mirror);
}

OdGeMatrix3d OdGeMatrix3d::mirroring(const OdGePoint3d& center) { return scaling(-1, center); }

OdGeMatrix3d OdGeMatrix3d::planeToWorld(const OdGeVector3d& normal) {
  return planeToWorld(OdGePlane(OdGePoint3d::kOrigin, normal));
}

OdGeMatrix3d OdGeMatrix3d::planeToWorld(const OdGePlane& plane) {
  OdGePoint3d origin;
  OdGeVector3d uAxis;
  OdGeVector3d vAxis;
  plane.getCoordSystem(origin, uAxis, vAxis);
  return OdGeMatrix3d().setCoordSystem(origin, uAxis, vAxis, plane.normal());
}

OdGeMatrix3d OdGeMatrix3d::worldToPlane(const OdGeVector3d& normal) {
  return planeToWorld(normal).transpose();
}

OdGeMatrix3d OdGeMatrix3d::worldToPlane(const OdGePlane& plane) { return planeToWorld(plane).inverse(); }

OdGeMatrix3d OdGeMatrix3d::alignCoordSys(const OdGePoint3d& fromOrigin, const OdGeVector3d& fromXAxis,
                                         const OdGeVector3d& fromYAxis, const OdGeVector3d& fromZAxis,
                                         const OdGePoint3d& toOrigin, const OdGeVector3d& toXAxis,
                                         const OdGeVector3d& toYAxis, const OdGeVector3d& toZAxis) {
  OdGeMatrix3d from;
  OdGeMatrix3d to;
  from.setCoordSystem(fromOrigin, fromXAxis, fromYAxis, fromZAxis);
  to.setCoordSystem(toOrigin, toXAxis, toYAxis, toZAxis);
  return to * from.inverse();
}

OdGeMatrix3d& OdGeMatrix3d::setCoordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis,
                                           const OdGeVector3d& yAxis, const OdGeVector3d& zAxis) {
  const double entries[4][4] = {{xAxis.x, yAxis.x, zAxis.x, origin.x},
                                {xAxis.y, yAxis.y, zAxis.y, origin.y},
                                {xAxis.z, yAxis.z, zAxis.z, origin.z},
                                {0, 0, 0, 1}};
  std::copy_n(&entries[0][0], 16, &entry[0][0]);
  return *this;
}

void OdGeMatrix3d::getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis,
                                  OdGeVector3d& zAxis) const {
  origin = OdGePoint3d::kOrigin + translation();
  xAxis = getCsXAxis();
  yAxis = getCsYAxis();
  zAxis = getCsZAxis();
}

OdGeMatrix3d& OdGeMatrix3d::setTranslation(const OdGeVector3d& offset) {
  entry[0][3] = offset.x;
  entry[1][3] = offset.y;
  entry[2][3] = offset.z;
  return *this;
}

double OdGeMatrix3d::det() const { return getCsXAxis().dotProduct(getCsYAxis().crossProduct(getCsZAxis())); }

bool OdGeMatrix3d::isSingular(const OdGeTol& tol) const {
  const double largest = getCsXAxis().length() * getCsYAxis().length() * getCsZAxis().length();
  return !(std::fabs(det()) > tol.equalVector() * largest);
}

OdGeMatrix3d OdGeMatrix3d::inverse(const OdGeTol& tol) const {
  if (isSingular(tol)) throw OdError(eNonInvertibleMatrix);
  // The rows of the inverse are perpendicular to the other two columns of the matrix.
  const OdGeVector3d x = getCsXAxis();
  const OdGeVector3d y = getCsYAxis();
  const OdGeVector3d z = getCsZAxis();
  const double volume = det();
  OdGeMatrix3d rows;
  rows.setCoordSystem(OdGePoint3d::kOrigin, y.crossProduct(z) / volume, z.crossProduct(x) / volume,
                      x.crossProduct(y) / volume);
  OdGeMatrix3d result = rows.transpose();
  return result.setTranslation(-(result * translation()));
}

OdGeMatrix3d OdGeMatrix3d::transpose() const {
  OdGeMatrix3d result;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) result.entry[row][column] = entry[column][row];
  }
  return result;
}

double OdGeMatrix3d::scale() const {
  return std::max({getCsXAxis().length(), getCsYAxis().length(), getCsZAxis().length()});
}

bool OdGeMatrix3d::isScaledOrtho(const OdGeTol& tol) const {
  const OdGeVector3d x = getCsXAxis();
  const OdGeVector3d y = getCsYAxis();
  const OdGeVector3d z = getCsZAxis();
  return x.isPerpendicularTo(y, tol) && y.isPerpendicularTo(z, tol) && z.isPerpendicularTo(x, tol);
}

bool OdGeMatrix3d::isUniScaledOrtho(const OdGeTol& tol) const {
  const OdGeScale3d lengths(getCsXAxis().length(), getCsYAxis().length(), getCsZAxis().length());
  return isScaledOrtho(tol) && lengths.isProportional(tol);
}

bool OdGeMatrix3d::isEqualTo(const OdGeMatrix3d& other, const OdGeTol& tol) const {
  return getCsXAxis().isEqualTo(other.getCsXAxis(), tol) && getCsYAxis().isEqualTo(other.getCsYAxis(), tol) &&
         getCsZAxis().isEqualTo(other.getCsZAxis(), tol) &&
         (translation() - other.translation()).length() <= tol.equalPoint();
}
