#include "DbLine.h"
#include "DbOcs.h"
#include "Ge/GeLinearEnt3d.h"
#include <cmath>

ODRX_CONS_DEFINE_MEMBERS(OdDbLine, OdDbCurve, "LINE")

namespace {
enum Code { kThickness = 39, kStart = 10, kEnd = 11, kNormal = 210 };
constexpr OdDbField kFields[] = {
    {kThickness, OdDbFieldKind::kReal},
    {kStart, OdDbFieldKind::kPoint3d, true},
    {kEnd, OdDbFieldKind::kPoint3d, true},
    {kNormal, OdDbFieldKind::kVector3d, false, 1},
};
const OdDbSubclass kSection{"AcDbLine", kFields};
} // namespace

OdDbSchema OdDbLine::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}

OdGePoint3d OdDbLine::startPoint() const { return point(kSection, kStart); }
void OdDbLine::setStartPoint(const OdGePoint3d& point) { setPoint(kSection, kStart, point); }
OdGePoint3d OdDbLine::endPoint() const { return point(kSection, kEnd); }
void OdDbLine::setEndPoint(const OdGePoint3d& point) { setPoint(kSection, kEnd, point); }
double OdDbLine::thickness() const { return real(kSection, kThickness); }
void OdDbLine::setThickness(double thickness) { setReal(kSection, kThickness, thickness); }
OdGeVector3d OdDbLine::normal() const { return vector(kSection, kNormal); }
void OdDbLine::setNormal(const OdGeVector3d& normal) { setVector(kSection, kNormal, normal); }

OdResult OdDbLine::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  const OdGeVector3d extrusion = matrix * (normal() * (thickness() != 0 ? thickness() : 1));
  setStartPoint(matrix * startPoint());
  setEndPoint(matrix * endPoint());
  if (thickness() != 0) setThickness(extrusion.length());
  if (!(extrusion.normal() == normal())) setNormal(extrusion.normal());
  return eOk;
}

OdResult OdDbLine::getGeomExtents(OdGeExtents3d& extents) const {
  const OdGeVector3d extrusion = normal() * thickness();
  extents = OdGeExtents3d();
  extents.addPoint(startPoint()).addPoint(endPoint());
  extents.addPoint(startPoint() + extrusion).addPoint(endPoint() + extrusion);
  return eOk;
}

std::unique_ptr<OdGeCurve3d> OdDbLine::makeGeCurve() const {
  return std::make_unique<OdGeLinearEnt3d>(startPoint(), endPoint());
}

OdResult OdDbLine::getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const {
  if (!std::isfinite(distance)) return eInvalidInput;
  const OdGeVector3d right = (endPoint() - startPoint()).crossProduct(normal());
  if (right.isZeroLength()) return eDegenerateGeometry;
  const OdGeVector3d way = right.normal() * distance;
  const OdDbLinePtr line = clone();
  line->setStartPoint(startPoint() + way);
  line->setEndPoint(endPoint() + way);
  addOffset(line, curves);
  return eOk;
}
