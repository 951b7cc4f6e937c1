#include "DbRay.h"
#include "DbXline.h"
#include "Ge/GeLinearEnt3d.h"
#include <cmath>

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbEndlessLine, OdDbCurve)
ODRX_CONS_DEFINE_MEMBERS(OdDbRay, OdDbEndlessLine, "RAY")
ODRX_CONS_DEFINE_MEMBERS(OdDbXline, OdDbEndlessLine, "XLINE")

namespace {
enum Code { kBase = 10, kDirection = 11 };
constexpr OdDbField kFields[] = {
    {kBase, OdDbFieldKind::kPoint3d, true},
    {kDirection, OdDbFieldKind::kDirection, true, 1},
};
const OdDbSubclass kRaySection{"AcDbRay", kFields};
const OdDbSubclass kXlineSection{"AcDbXline", kFields};
} // namespace

OdDbSchema OdDbRay::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kRaySection};
  return sections;
}
OdDbSchema OdDbXline::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kXlineSection};
  return sections;
}
const OdDbSubclass& OdDbRay::section() const { return kRaySection; }
const OdDbSubclass& OdDbXline::section() const { return kXlineSection; }

OdGePoint3d OdDbEndlessLine::basePoint() const { return point(section(), kBase); }
void OdDbEndlessLine::setBasePoint(const OdGePoint3d& point) { setPoint(section(), kBase, point); }
OdGeVector3d OdDbEndlessLine::unitDir() const { return vector(section(), kDirection).normal(); }
void OdDbEndlessLine::setUnitDir(const OdGeVector3d& direction) {
  setVector(section(), kDirection, OdGeVector3d(direction).normalize());
}

OdResult OdDbEndlessLine::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  const OdGeVector3d way = matrix * unitDir();
  if (way.isZeroLength(0)) return eDegenerateGeometry;
  setVector(section(), kDirection, way.normal(0));
  setBasePoint(matrix * basePoint());
  return eOk;
}

OdResult OdDbEndlessLine::getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const {
  if (!std::isfinite(distance)) return eInvalidInput;
  const OdGeVector3d left = OdGeVector3d::kZAxis.crossProduct(unitDir());
  if (left.isZeroLength()) return eDegenerateGeometry;
  const OdSmartPtr<OdDbEndlessLine> line = clone();
  line->setBasePoint(basePoint() + left.normal() * distance);
  addOffset(line, curves);
  return eOk;
}

std::unique_ptr<OdGeCurve3d> OdDbRay::makeGeCurve() const {
  return std::make_unique<OdGeLinearEnt3d>(basePoint(), unitDir(), 0, OdGeLinearEnt3d::kEndless);
}
std::unique_ptr<OdGeCurve3d> OdDbXline::makeGeCurve() const {
  return std::make_unique<OdGeLinearEnt3d>(basePoint(), unitDir(), -OdGeLinearEnt3d::kEndless,
                                           OdGeLinearEnt3d::kEndless);
}
