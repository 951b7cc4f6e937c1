#pragma once
#include "GePoint3d.h"
#include "GeScale3d.h"

class OdGePlane;

/// An affine transformation: columns 0 to 2 are the images of the axes, column 3 that of the origin, and the
/// last row is 0 0 0 1. (a * b) applies b first. Angles are radians, counterclockwise about the axis.
class OdGeMatrix3d {
public:
  double entry[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

  static const OdGeMatrix3d kIdentity;

  constexpr OdGeMatrix3d() = default;
  double* operator[](int row) { return entry[row]; }
  const double* operator[](int row) const { return entry[row]; }
  double& operator()(int row, int column) { return entry[row][column]; }
  double operator()(int row, int column) const { return entry[row][column]; }

  static OdGeMatrix3d translation(const OdGeVector3d& offset);
  /// Throws OdError(eDegenerateGeometry) for a zero axis.
  static OdGeMatrix3d rotation(double angle, const OdGeVector3d& axis,
                               const OdGePoint3d& center = OdGePoint3d::kOrigin);
  static OdGeMatrix3d scaling(const OdGeScale3d& factors, const OdGePoint3d& center = OdGePoint3d::kOrigin);
  static OdGeMatrix3d scaling(double factor, const OdGePoint3d& center = OdGePoint3d::kOrigin);
  static OdGeMatrix3d mirroring(const OdGePlane& plane);
  static OdGeMatrix3d mirroring(const OdGePoint3d& center);
  /// From the coordinates of a plane through the origin to those of the world, with the axes that the
  /// arbitrary axis rule of drawing files gives to the normal. Throws OdError(eDegenerateGeometry) for a zero
  /// normal.
  static OdGeMatrix3d planeToWorld(const OdGeVector3d& normal);
  static OdGeMatrix3d planeToWorld(const OdGePlane& plane);
  static OdGeMatrix3d worldToPlane(const OdGeVector3d& normal);
  static OdGeMatrix3d worldToPlane(const OdGePlane& plane);
  /// The transformation that carries one coordinate system onto another. Throws OdError(eNonInvertibleMatrix)
  /// when the axes of the first lie in one plane.
  static OdGeMatrix3d alignCoordSys(const OdGePoint3d& fromOrigin, const OdGeVector3d& fromXAxis,
                                    const OdGeVector3d& fromYAxis, const OdGeVector3d& fromZAxis,
                                    const OdGePoint3d& toOrigin, const OdGeVector3d& toXAxis,
                                    const OdGeVector3d& toYAxis, const OdGeVector3d& toZAxis);

  OdGeMatrix3d& setToIdentity() { return *this = kIdentity; }
  OdGeMatrix3d& setToTranslation(const OdGeVector3d& offset) { return *this = translation(offset); }
  OdGeMatrix3d& setToRotation(double angle, const OdGeVector3d& axis,
                              const OdGePoint3d& center = OdGePoint3d::kOrigin) {
    return *this = rotation(angle, axis, center);
  }
  OdGeMatrix3d& setToScaling(const OdGeScale3d& factors, const OdGePoint3d& center = OdGePoint3d::kOrigin) {
    return *this = scaling(factors, center);
  }
  OdGeMatrix3d& setToScaling(double factor, const OdGePoint3d& center = OdGePoint3d::kOrigin) {
    return *this = scaling(factor, center);
  }
  OdGeMatrix3d& setToPlaneToWorld(const OdGeVector3d& normal) { return *this = planeToWorld(normal); }
  OdGeMatrix3d& setToWorldToPlane(const OdGeVector3d& normal) { return *this = worldToPlane(normal); }
  OdGeMatrix3d& setCoordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis,
                               const OdGeVector3d& yAxis, const OdGeVector3d& zAxis);
  void getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis,
                      OdGeVector3d& zAxis) const;
  OdGeVector3d getCsXAxis() const { return {entry[0][0], entry[1][0], entry[2][0]}; }
  OdGeVector3d getCsYAxis() const { return {entry[0][1], entry[1][1], entry[2][1]}; }
  OdGeVector3d getCsZAxis() const { return {entry[0][2], entry[1][2], entry[2][2]}; }
  OdGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
  OdGeMatrix3d& setTranslation(const OdGeVector3d& offset);

  /// The volume of the image of the unit cube; negative when the matrix mirrors.
  double det() const;
  /// True when the images of the axes lie in one plane, whatever their lengths.
  bool isSingular(const OdGeTol& tol = OdGeContext::gTol) const;
  /// Throws OdError(eNonInvertibleMatrix) for a singular matrix.
  OdGeMatrix3d inverse(const OdGeTol& tol = OdGeContext::gTol) const;
  OdGeMatrix3d& invert(const OdGeTol& tol = OdGeContext::gTol) { return *this = inverse(tol); }
  /// All four rows and columns are exchanged; meant for matrices without translation, as for normals, which
  /// the transpose of the inverse carries along.
  OdGeMatrix3d transpose() const;
  OdGeMatrix3d& transposeIt() { return *this = transpose(); }

  /// The length of the longest image of an axis.
  double scale() const;
  /// True when the images of the axes are perpendicular to each other.
  bool isScaledOrtho(const OdGeTol& tol = OdGeContext::gTol) const;
  /// True when they are of equal length too: circles stay circles. The tolerance is relative to the length.
  bool isUniScaledOrtho(const OdGeTol& tol = OdGeContext::gTol) const;
  /// Compares the images of the axes by equalVector and that of the origin by equalPoint.
  bool isEqualTo(const OdGeMatrix3d& other, const OdGeTol& tol = OdGeContext::gTol) const;

  /// this = left * this.
  OdGeMatrix3d& preMultBy(const OdGeMatrix3d& left) { return *this = left * *this; }
  /// this = this * right.
  OdGeMatrix3d& postMultBy(const OdGeMatrix3d& right) { return *this = *this * right; }
  OdGeMatrix3d& operator*=(const OdGeMatrix3d& right) { return postMultBy(right); }
  friend OdGeMatrix3d operator*(const OdGeMatrix3d& left, const OdGeMatrix3d& right) {
    return product(left, right);
  }
  friend OdGePoint3d operator*(const OdGeMatrix3d& matrix, OdGePoint3d point) {
    return point.transformBy(matrix);
  }
  friend OdGeVector3d operator*(const OdGeMatrix3d& matrix, OdGeVector3d vector) {
    return vector.transformBy(matrix);
  }
  /// Equality within OdGeContext::gTol.
  friend bool operator==(const OdGeMatrix3d& a, const OdGeMatrix3d& b) { return a.isEqualTo(b); }

private:
  static OdGeMatrix3d product(const OdGeMatrix3d& left, const OdGeMatrix3d& right);
  static OdGeMatrix3d about(const OdGePoint3d& center, OdGeMatrix3d linear);
};

inline constexpr OdGeMatrix3d OdGeMatrix3d::kIdentity{};
