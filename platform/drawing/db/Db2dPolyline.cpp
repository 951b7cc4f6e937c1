#include "Db2dPolyline.h"
#include "DbOcs.h"
#include "DbPolyline.h"
#include "DbPolylineSequence.h"
#include <cmath>

ODRX_CONS_DEFINE_MEMBERS(OdDb2dVertex, OdDbEntity, "VERTEX")
ODRX_CONS_DEFINE_MEMBERS(OdDb2dPolyline, OdDbCurve, "POLYLINE")

namespace {

enum Code {
  kFollowed = 66,
  kPosition = 10,
  kThickness = 39,
  kFlags = 70,
  kStartWidth = 40,
  kEndWidth = 41,
  kBulge = 42,
  kNormal = 210,
};
enum FlagBit { kClosed = 1 };
enum VertexBit { kCurveFit = 1, kSplineFit = 8, kControl = 16 };

constexpr OdDbField kVertexFields[] = {
    {kPosition, OdDbFieldKind::kPoint3d, true}, {kStartWidth, OdDbFieldKind::kReal},
    {kEndWidth, OdDbFieldKind::kReal},          {kBulge, OdDbFieldKind::kReal},
    {kFlags, OdDbFieldKind::kInt16, true},
};
const OdDbSubclass kVertexBase{"AcDbVertex", {}};
const OdDbSubclass kVertexSection{"AcDb2dVertex", kVertexFields};

constexpr OdDbField kFields[] = {
    {kFollowed, OdDbFieldKind::kInt16, true, 1},
    {kPosition, OdDbFieldKind::kPoint3d, true},
    {kThickness, OdDbFieldKind::kReal},
    {kFlags, OdDbFieldKind::kInt16, true},
    {kStartWidth, OdDbFieldKind::kReal},
    {kEndWidth, OdDbFieldKind::kReal},
    {kNormal, OdDbFieldKind::kVector3d, false, 1},
};
const OdDbSubclass kSection{"AcDb2dPolyline", kFields};

} // namespace

// --- vertices ---

OdDbSchema OdDb2dVertex::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kVertexBase, &kVertexSection};
  return sections;
}

OdDb2dVertex::VertexType OdDb2dVertex::vertexType() const {
  if (flag(kVertexSection, kFlags, kControl)) return kSplineControlVertex;
  if (flag(kVertexSection, kFlags, kSplineFit)) return kSplineFitVertex;
  return flag(kVertexSection, kFlags, kCurveFit) ? kCurveFitVertex : kVertex;
}
OdGePoint3d OdDb2dVertex::position() const { return point(kVertexSection, kPosition); }
void OdDb2dVertex::setPosition(const OdGePoint3d& position) { setPoint(kVertexSection, kPosition, position); }
double OdDb2dVertex::bulge() const { return real(kVertexSection, kBulge); }
void OdDb2dVertex::setBulge(double bulge) { setReal(kVertexSection, kBulge, bulge); }
double OdDb2dVertex::startWidth() const { return real(kVertexSection, kStartWidth); }
void OdDb2dVertex::setStartWidth(double width) { setReal(kVertexSection, kStartWidth, width); }
double OdDb2dVertex::endWidth() const { return real(kVertexSection, kEndWidth); }
void OdDb2dVertex::setEndWidth(double width) { setReal(kVertexSection, kEndWidth, width); }

// --- the polyline ---

OdDbSchema OdDb2dPolyline::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}

bool OdDb2dPolyline::isClosed() const { return flag(kSection, kFlags, kClosed); }
void OdDb2dPolyline::setClosed(bool closed) { setFlag(kSection, kFlags, kClosed, closed); }
double OdDb2dPolyline::elevation() const { return point(kSection, kPosition).z; }
void OdDb2dPolyline::setElevation(double elevation) {
  setPoint(kSection, kPosition, OdGePoint3d(0, 0, elevation));
}
double OdDb2dPolyline::thickness() const { return real(kSection, kThickness); }
void OdDb2dPolyline::setThickness(double thickness) { setReal(kSection, kThickness, thickness); }
OdGeVector3d OdDb2dPolyline::normal() const { return vector(kSection, kNormal); }
void OdDb2dPolyline::setNormal(const OdGeVector3d& normal) {
  setVector(kSection, kNormal, OdGeVector3d(normal).normalize());
}
double OdDb2dPolyline::defaultStartWidth() const { return real(kSection, kStartWidth); }
void OdDb2dPolyline::setDefaultStartWidth(double width) { setReal(kSection, kStartWidth, width); }
double OdDb2dPolyline::defaultEndWidth() const { return real(kSection, kEndWidth); }
void OdDb2dPolyline::setDefaultEndWidth(double width) { setReal(kSection, kEndWidth, width); }

OdDbObjectId OdDb2dPolyline::appendVertex(OdDb2dVertex* vertex) {
  return odDbSequences::append(*this, vertex);
}

OdDbObjectIteratorPtr OdDb2dPolyline::vertexIterator() const {
  return OdDbObjectIterator::overList(isDBRO() ? objectId().stub()->children : nullptr, "SEQEND");
}

OdGePoint3d OdDb2dPolyline::vertexPosition(const OdDb2dVertex& vertex) const {
  const OdGePoint3d flat = vertex.position();
  return odDbOcs::toWorld(OdGePoint3d(flat.x, flat.y, elevation()), normal());
}

OdDbPolylinePtr OdDb2dPolyline::lightweight() const {
  OdDbPolylinePtr polyline = OdDbPolyline::createObject();
  polyline->setPropertiesFrom(this);
  polyline->setElevation(elevation());
  polyline->setThickness(thickness());
  if (!normal().isZeroLength()) polyline->setNormal(normal());
  polyline->setClosed(isClosed());
  for (OdDbStub* stub = odDbSequences::firstOf(*this); stub; stub = odDbSequences::nextOf(stub)) {
    const auto vertex = OdDb2dVertex::cast(OdDbObjectId(stub).openObject());
    if (!vertex.isNull() && vertex->vertexType() != OdDb2dVertex::kSplineControlVertex)
      polyline->addVertexAt(polyline->numVerts(), vertex->position().convert2d(), vertex->bulge());
  }
  return polyline;
}

std::unique_ptr<OdGeCurve3d> OdDb2dPolyline::makeGeCurve() const { return lightweight()->makeGeCurve(); }

OdUInt64 OdDb2dPolyline::geometryRevision() const { return odDbSequences::revision(*this); }

OdResult OdDb2dPolyline::explode(OdRxObjectPtrArray& pieces) const { return lightweight()->explode(pieces); }

OdResult OdDb2dPolyline::getGeomExtents(OdGeExtents3d& extents) const {
  return lightweight()->getGeomExtents(extents);
}

OdResult OdDb2dPolyline::getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const {
  return lightweight()->getOffsetCurves(distance, curves);
}

OdResult OdDb2dPolyline::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  const odDbOcs::Image image = odDbOcs::image(matrix, normal());
  std::vector<OdDb2dVertexPtr> vertices;
  bool isRigid = defaultStartWidth() != 0 || defaultEndWidth() != 0;
  for (auto each = vertexIterator(); !each->done(); each->step()) {
    const auto vertex = OdDb2dVertex::cast(each->entity(OdDb::kForWrite));
    if (vertex.isNull()) continue;
    isRigid = isRigid || vertex->bulge() != 0 || vertex->startWidth() != 0 || vertex->endWidth() != 0;
    vertices.push_back(vertex);
  }
  if (isRigid && !image.isSimilarity()) return eCannotScaleNonUniformly;
  const double level = elevation();
  for (const OdDb2dVertexPtr& vertex : vertices) {
    const OdGePoint3d flat = vertex->position();
    vertex->setPosition(image.matrix * OdGePoint3d(flat.x, flat.y, level));
    if (vertex->bulge() != 0 && image.mirrored) vertex->setBulge(-vertex->bulge());
    if (vertex->startWidth() != 0) vertex->setStartWidth(vertex->startWidth() * image.scale());
    if (vertex->endWidth() != 0) vertex->setEndWidth(vertex->endWidth() * image.scale());
  }
  if (defaultStartWidth() != 0) setDefaultStartWidth(defaultStartWidth() * image.scale());
  if (defaultEndWidth() != 0) setDefaultEndWidth(defaultEndWidth() * image.scale());
  if (const double raised = (image.matrix * OdGePoint3d(0, 0, level)).z; raised != level)
    setElevation(raised);
  if (thickness() != 0) setThickness(thickness() * image.thickness);
  if (!(image.normal == normal())) setVector(kSection, kNormal, image.normal);
  return eOk;
}
