#include "Db3dPolyline.h"
#include "DbLine.h"
#include "DbPolylineSequence.h"
#include "Ge/GePolylineCurve3d.h"

ODRX_CONS_DEFINE_MEMBERS(OdDb3dPolylineVertex, OdDbEntity, "VERTEX")
ODRX_CONS_DEFINE_MEMBERS(OdDb3dPolyline, OdDbCurve, "POLYLINE")

namespace {

enum Code { kFollowed = 66, kPosition = 10, kFlags = 70 };
enum FlagBit { kClosed = 1, kSpatial = 8, kControl = 16, kSpatialVertex = 32 };

constexpr OdDbField kVertexFields[] = {
    {kPosition, OdDbFieldKind::kPoint3d, true},
    {kFlags, OdDbFieldKind::kInt16, true, kSpatialVertex},
};
const OdDbSubclass kVertexBase{"AcDbVertex", {}};
const OdDbSubclass kVertexSection{"AcDb3dPolylineVertex", kVertexFields};

constexpr OdDbField kFields[] = {
    {kFollowed, OdDbFieldKind::kInt16, true, 1},
    {kPosition, OdDbFieldKind::kPoint3d, true},
    {kFlags, OdDbFieldKind::kInt16, true, kSpatial},
};
const OdDbSubclass kSection{"AcDb3dPolyline", kFields};

} // namespace

OdDbSchema OdDb3dPolylineVertex::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kVertexBase, &kVertexSection};
  return sections;
}
OdDbSchema OdDb3dPolyline::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}

OdGePoint3d OdDb3dPolylineVertex::position() const { return point(kVertexSection, kPosition); }
void OdDb3dPolylineVertex::setPosition(const OdGePoint3d& position) {
  setPoint(kVertexSection, kPosition, position);
}
bool OdDb3dPolylineVertex::isControl() const { return flag(kVertexSection, kFlags, kControl); }

bool OdDb3dPolyline::isClosed() const { return flag(kSection, kFlags, kClosed); }
void OdDb3dPolyline::setClosed(bool closed) { setFlag(kSection, kFlags, kClosed, closed); }

OdDbObjectId OdDb3dPolyline::appendVertex(OdDb3dPolylineVertex* vertex) {
  return odDbSequences::append(*this, vertex);
}

OdDbObjectIteratorPtr OdDb3dPolyline::vertexIterator() const {
  return OdDbObjectIterator::overList(isDBRO() ? objectId().stub()->children : nullptr, "SEQEND");
}

std::vector<OdGePoint3d> OdDb3dPolyline::positions() const {
  std::vector<OdGePoint3d> places;
  for (OdDbStub* stub = odDbSequences::firstOf(*this); stub; stub = odDbSequences::nextOf(stub)) {
    const auto vertex = OdDb3dPolylineVertex::cast(OdDbObjectId(stub).openObject());
    if (!vertex.isNull() && !vertex->isControl()) places.push_back(vertex->position());
  }
  return places;
}

std::unique_ptr<OdGeCurve3d> OdDb3dPolyline::makeGeCurve() const {
  return std::make_unique<OdGePolylineCurve3d>(positions(), std::vector<double>(), isClosed());
}

OdUInt64 OdDb3dPolyline::geometryRevision() const { return odDbSequences::revision(*this); }

OdResult OdDb3dPolyline::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  for (auto each = vertexIterator(); !each->done(); each->step()) {
    const auto vertex = OdDb3dPolylineVertex::cast(each->entity(OdDb::kForWrite));
    if (!vertex.isNull()) vertex->setPosition(matrix * vertex->position());
  }
  return eOk;
}

OdResult OdDb3dPolyline::explode(OdRxObjectPtrArray& pieces) const {
  const std::vector<OdGePoint3d> places = positions();
  for (std::size_t i = 0; i < places.size() && (i + 1 < places.size() || isClosed()); ++i) {
    const OdDbLinePtr line = OdDbLine::createObject();
    line->setStartPoint(places[i]);
    line->setEndPoint(places[(i + 1) % places.size()]);
    line->setPropertiesFrom(this);
    pieces.append(OdRxObjectPtr(line));
  }
  return eOk;
}
