#include "DbCircle.h"
#include "DbOcs.h"
#include "Ge/GeEllipArc3d.h"
#include <cmath>

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbCircularCurve, OdDbCurve)
ODRX_CONS_DEFINE_MEMBERS(OdDbCircle, OdDbCircularCurve, "CIRCLE")

namespace {
enum Code { kThickness = 39, kCenter = 10, kRadius = 40, kNormal = 210 };
constexpr OdDbField kFields[] = {
    {kThickness, OdDbFieldKind::kReal},
    {kCenter, OdDbFieldKind::kPoint3d, true},
    {kRadius, OdDbFieldKind::kReal, true, 1},
    {kNormal, OdDbFieldKind::kVector3d, false, 1},
};
} // namespace

const OdDbSubclass OdDbCircularCurve::kSection{"AcDbCircle", kFields};

OdGePoint3d OdDbCircularCurve::center() const { return odDbOcs::toWorld(point(kSection, kCenter), normal()); }
void OdDbCircularCurve::setCenter(const OdGePoint3d& center) {
  setPoint(kSection, kCenter, odDbOcs::fromWorld(center, normal()));
}
double OdDbCircularCurve::radius() const { return real(kSection, kRadius); }
void OdDbCircularCurve::setRadius(double radius) { setReal(kSection, kRadius, radius); }
double OdDbCircularCurve::thickness() const { return real(kSection, kThickness); }
void OdDbCircularCurve::setThickness(double thickness) { setReal(kSection, kThickness, thickness); }
OdGeVector3d OdDbCircularCurve::normal() const { return vector(kSection, kNormal); }
void OdDbCircularCurve::setNormal(const OdGeVector3d& normal) {
  const OdGePoint3d place = center();
  setVector(kSection, kNormal, OdGeVector3d(normal).normalize());
  setCenter(place);
}

OdGePoint3d OdDbCircularCurve::pointAt(double angle) const {
  const OdGePoint3d middle = point(kSection, kCenter);
  const OdGeVector3d arm(radius() * std::cos(angle), radius() * std::sin(angle), 0);
  return odDbOcs::toWorld(middle + arm, normal());
}

OdResult OdDbCircularCurve::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  const odDbOcs::Image image = odDbOcs::image(matrix, normal());
  if (!image.isSimilarity()) return eCannotScaleNonUniformly;
  const OdGePoint3d place = matrix * center();
  if (!(image.normal == normal())) setVector(kSection, kNormal, image.normal);
  setCenter(place);
  setRadius(radius() * image.scale());
  if (thickness() != 0) setThickness(thickness() * image.thickness);
  turn(image);
  return eOk;
}

OdResult OdDbCircularCurve::getGeomExtents(OdGeExtents3d& extents) const {
  // Along each world axis the circle is widest where its tangent is perpendicular to the axis.
  const OdGeMatrix3d plane = odDbOcs::toWorld(normal());
  const OdGeVector3d x = plane.getCsXAxis();
  const OdGeVector3d y = plane.getCsYAxis();
  const OdGeVector3d extrusion = plane.getCsZAxis() * thickness();
  extents = OdGeExtents3d();
  for (const double peak : {std::atan2(y.x, x.x), std::atan2(y.y, x.y), std::atan2(y.z, x.z)})
    for (const double angle : {peak, peak + OdaPI})
      if (covers(angle)) extents.addPoint(pointAt(angle)).addPoint(pointAt(angle) + extrusion);
  return eOk;
}

std::unique_ptr<OdGeCurve3d> OdDbCircularCurve::makeGeCurve() const {
  const OdGeMatrix3d plane = odDbOcs::toWorld(normal());
  const auto [from, to] = range();
  return std::make_unique<OdGeEllipArc3d>(center(), plane.getCsXAxis() * radius(),
                                          plane.getCsYAxis() * radius(), from, to);
}

OdResult OdDbCircularCurve::getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const {
  if (!std::isfinite(distance)) return eInvalidInput;
  if (!(radius() > 0)) return eDegenerateGeometry;
  if (!(radius() + distance > OdGeContext::gTol.equalPoint())) return eInvalidInput;
  const OdSmartPtr<OdDbCircularCurve> curve = clone();
  curve->setRadius(radius() + distance);
  addOffset(curve, curves);
  return eOk;
}

OdDbSchema OdDbCircle::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}
