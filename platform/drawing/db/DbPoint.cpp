#include "DbPoint.h"
#include "DbOcs.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbPoint, OdDbEntity, "POINT")

namespace {
enum Code { kPosition = 10, kThickness = 39, kNormal = 210, kRotation = 50 };
constexpr OdDbField kFields[] = {
    {kPosition, OdDbFieldKind::kPoint3d, true},
    {kThickness, OdDbFieldKind::kReal},
    {kNormal, OdDbFieldKind::kVector3d, false, 1},
    {kRotation, OdDbFieldKind::kAngle},
};
const OdDbSubclass kSection{"AcDbPoint", kFields};
} // namespace

OdDbSchema OdDbPoint::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}

OdGePoint3d OdDbPoint::position() const { return point(kSection, kPosition); }
void OdDbPoint::setPosition(const OdGePoint3d& position) { setPoint(kSection, kPosition, position); }
double OdDbPoint::thickness() const { return real(kSection, kThickness); }
void OdDbPoint::setThickness(double thickness) { setReal(kSection, kThickness, thickness); }
OdGeVector3d OdDbPoint::normal() const { return vector(kSection, kNormal); }
void OdDbPoint::setNormal(const OdGeVector3d& normal) { setVector(kSection, kNormal, normal); }
double OdDbPoint::ecsRotation() const { return angle(kSection, kRotation); }
void OdDbPoint::setEcsRotation(double radians) { setAngle(kSection, kRotation, radians); }

OdResult OdDbPoint::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  const odDbOcs::Image image = odDbOcs::image(matrix, normal());
  setPosition(matrix * position());
  if (thickness() != 0) setThickness(thickness() * image.thickness);
  if (const double turned = image.turn(ecsRotation()); turned != ecsRotation()) setEcsRotation(turned);
  if (!(image.normal == normal())) setNormal(image.normal);
  return eOk;
}

OdResult OdDbPoint::getGeomExtents(OdGeExtents3d& extents) const {
  extents = OdGeExtents3d();
  extents.addPoint(position()).addPoint(position() + normal() * thickness());
  return eOk;
}
