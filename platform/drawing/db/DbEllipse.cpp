#include "DbEllipse.h"
#include "Ge/GeEllipArc3d.h"
#include <cmath>

ODRX_CONS_DEFINE_MEMBERS(OdDbEllipse, OdDbCurve, "ELLIPSE")

namespace {
enum Code { kCenter = 10, kMajor = 11, kNormal = 210, kRatio = 40, kStart = 41, kEnd = 42 };
constexpr OdDbField kFields[] = {
    {kCenter, OdDbFieldKind::kPoint3d, true},     {kMajor, OdDbFieldKind::kDirection, true, 1},
    {kNormal, OdDbFieldKind::kVector3d, true, 1}, {kRatio, OdDbFieldKind::kReal, true, 1},
    {kStart, OdDbFieldKind::kReal, true},         {kEnd, OdDbFieldKind::kReal, true, Oda2PI},
};
const OdDbSubclass kSection{"AcDbEllipse", kFields};
} // namespace

OdDbSchema OdDbEllipse::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}

void OdDbEllipse::set(const OdGePoint3d& center, const OdGeVector3d& normal, const OdGeVector3d& majorAxis,
                      double radiusRatio, double startAngle, double endAngle) {
  assertWriteEnabled();
  if (normal.isZeroLength() || majorAxis.isZeroLength()) throw OdError(eDegenerateGeometry);
  if (!(radiusRatio > 0 && radiusRatio <= 1) || !normal.isPerpendicularTo(majorAxis, 1e-8))
    throw OdError(eInvalidInput);
  setPoint(kSection, kCenter, center);
  setVector(kSection, kNormal, normal.normal());
  setVector(kSection, kMajor, majorAxis);
  setReal(kSection, kRatio, radiusRatio);
  setStartAngle(startAngle);
  setEndAngle(endAngle);
}

OdGePoint3d OdDbEllipse::center() const { return point(kSection, kCenter); }
void OdDbEllipse::setCenter(const OdGePoint3d& center) { setPoint(kSection, kCenter, center); }
OdGeVector3d OdDbEllipse::normal() const { return vector(kSection, kNormal).normal(); }
OdGeVector3d OdDbEllipse::majorAxis() const { return vector(kSection, kMajor); }
OdGeVector3d OdDbEllipse::minorAxis() const { return normal().crossProduct(majorAxis()) * radiusRatio(); }
double OdDbEllipse::radiusRatio() const { return real(kSection, kRatio); }
double OdDbEllipse::startParam() const { return real(kSection, kStart); }
double OdDbEllipse::endParam() const { return real(kSection, kEnd); }
void OdDbEllipse::setStartAngle(double radians) { setReal(kSection, kStart, paramAtAngle(radians)); }
void OdDbEllipse::setEndAngle(double radians) { setReal(kSection, kEnd, paramAtAngle(radians)); }

double OdDbEllipse::angleAtParam(double param) const {
  const double quarters = std::round(param / OdaPI2) * OdaPI2; // which both have in common
  const double turns = std::round(param / Oda2PI) * Oda2PI;
  if (param == quarters) return param;
  return turns + std::atan2(radiusRatio() * std::sin(param - turns), std::cos(param - turns));
}

double OdDbEllipse::paramAtAngle(double angle) const {
  const double quarters = std::round(angle / OdaPI2) * OdaPI2;
  const double turns = std::round(angle / Oda2PI) * Oda2PI;
  if (angle == quarters) return angle;
  return turns + std::atan2(std::sin(angle - turns) / radiusRatio(), std::cos(angle - turns));
}

OdResult OdDbEllipse::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  // The images of the axes are conjugate half diameters. The longest half diameter, at t, is the new axis.
  const OdGeVector3d u = matrix * majorAxis();
  const OdGeVector3d v = matrix * minorAxis();
  const double sum = u.lengthSqrd() + v.lengthSqrd();
  double slant = 2 * u.dotProduct(v);
  double excess = u.lengthSqrd() - v.lengthSqrd();
  constexpr double kRounding = 1e-14;
  if (std::fabs(slant) <= kRounding * sum) slant = 0;
  if (std::fabs(excess) <= kRounding * sum) excess = 0;
  const double t = slant == 0 && excess >= 0 ? 0 : std::atan2(slant, excess) / 2;
  const OdGeVector3d major = u * std::cos(t) + v * std::sin(t);
  const OdGeVector3d minor = v * std::cos(t) - u * std::sin(t);
  const OdGeVector3d up = major.crossProduct(minor);
  if (up.isZeroLength(0)) return eDegenerateGeometry;
  setPoint(kSection, kCenter, matrix * center());
  setVector(kSection, kMajor, major);
  setVector(kSection, kNormal, up.normal(0));
  setReal(kSection, kRatio, minor.length() / major.length());
  const bool isWhole = OdGeEllipArc3d::sweep(startParam(), endParam()) == Oda2PI;
  if (t != 0 && !isWhole) {
    double shift = -t;
    if (startParam() + shift < 0) shift += Oda2PI;
    const double end = endParam() + shift;
    setReal(kSection, kStart, startParam() + shift);
    setReal(kSection, kEnd, end);
  }
  return eOk;
}

OdResult OdDbEllipse::getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const {
  if (!std::isfinite(distance)) return eInvalidInput;
  const double radius = majorAxis().length();
  constexpr double kRounding = 1e-12;
  if (std::fabs(radiusRatio() - 1) > kRounding) return eNotApplicable;
  if (!(radius + distance > OdGeContext::gTol.equalPoint())) return eInvalidInput;
  const OdDbEllipsePtr ellipse = clone();
  ellipse->setVector(kSection, kMajor, majorAxis() * ((radius + distance) / radius));
  addOffset(ellipse, curves);
  return eOk;
}

std::unique_ptr<OdGeCurve3d> OdDbEllipse::makeGeCurve() const {
  const double start = startParam();
  const double end = endParam();
  if (!std::isfinite(start) || !std::isfinite(end) || !(radiusRatio() > 0)) throw OdError(eInvalidInput);
  return std::make_unique<OdGeEllipArc3d>(center(), majorAxis(), minorAxis(), start,
                                          start + OdGeEllipArc3d::sweep(start, end));
}
