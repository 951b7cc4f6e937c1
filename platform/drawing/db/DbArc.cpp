#include "DbArc.h"
#include "DbOcs.h"
#include "Ge/GeEllipArc3d.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbArc, OdDbCircularCurve, "ARC")

namespace {
enum Code { kStart = 50, kEnd = 51 };
constexpr OdDbField kFields[] = {
    {kStart, OdDbFieldKind::kAngle, true},
    {kEnd, OdDbFieldKind::kAngle, true, 90},
};
const OdDbSubclass kArcSection{"AcDbArc", kFields};
} // namespace

OdDbSchema OdDbArc::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection, &kArcSection};
  return sections;
}

double OdDbArc::startAngle() const { return angle(kArcSection, kStart); }
void OdDbArc::setStartAngle(double radians) { setAngle(kArcSection, kStart, radians); }
double OdDbArc::endAngle() const { return angle(kArcSection, kEnd); }
void OdDbArc::setEndAngle(double radians) { setAngle(kArcSection, kEnd, radians); }

bool OdDbArc::covers(double angle) const {
  return odDbOcs::normalized(angle - startAngle()) <= OdGeEllipArc3d::sweep(startAngle(), endAngle());
}

std::pair<double, double> OdDbArc::range() const {
  return {startAngle(), startAngle() + OdGeEllipArc3d::sweep(startAngle(), endAngle())};
}

void OdDbArc::turn(const odDbOcs::Image& image) {
  const double start = image.turn(startAngle());
  const double end = image.turn(endAngle());
  setStartAngle(image.mirrored ? end : start);
  setEndAngle(image.mirrored ? start : end);
}

OdResult OdDbArc::getGeomExtents(OdGeExtents3d& extents) const {
  OdDbCircularCurve::getGeomExtents(extents);
  const OdGeVector3d extrusion = normal() * thickness();
  for (const OdGePoint3d& end : {startPoint(), endPoint()}) extents.addPoint(end).addPoint(end + extrusion);
  return eOk;
}
