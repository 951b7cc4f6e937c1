#include "DbPolyline.h"
#include "DbArc.h"
#include "DbLine.h"
#include "DbOcs.h"
#include "Ge/GePolylineCurve3d.h"
#include "Ge/GePolylineOffset.h"
#include <algorithm>
#include <cmath>

ODRX_CONS_DEFINE_MEMBERS(OdDbPolyline, OdDbCurve, "LWPOLYLINE")

namespace {

enum Code {
  kCount = 90,
  kFlags = 70,
  kConstantWidth = 43,
  kElevation = 38,
  kThickness = 39,
  kNormal = 210,
  // of each vertex
  kX = 10,
  kY = 20,
  kStartWidth = 40,
  kEndWidth = 41,
  kBulge = 42,
  kIdentifier = 91,
};
enum FlagBit { kClosed = 1, kPlinegen = 128 };

constexpr OdDbField kFields[] = {
    {kCount, OdDbFieldKind::kInt32, true},  {kFlags, OdDbFieldKind::kInt16, true},
    {kConstantWidth, OdDbFieldKind::kReal}, {kElevation, OdDbFieldKind::kReal},
    {kThickness, OdDbFieldKind::kReal},     {kNormal, OdDbFieldKind::kVector3d, false, 1},
};
const OdDbSubclass kSection{"AcDbPolyline", kFields};

bool isVertexCode(int code) {
  return code == kX || code == kY || (code >= kStartWidth && code <= kBulge) || code == kIdentifier;
}

} // namespace

OdDbSchema OdDbPolyline::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}

// --- vertices ---

int OdDbPolyline::firstVertex() const { return odDbGroups::find(groups(), kSection, kX); }

OdDbPolyline::Layout& OdDbPolyline::layout() const {
  if (m_known) return m_layout;
  const OdDbGroupList& list = groups();
  const int first = firstVertex();
  m_layout.starts.clear();
  m_layout.length = 0;
  for (int i = first; i >= 0 && i < list.size() && list[i].code < 100; ++i) {
    if (list[i].code == kX) m_layout.starts.push_back(i - first);
    if (isVertexCode(list[i].code)) m_layout.length = i + 1 - first;
  }
  m_layout.hasConstantWidth = has(kSection, kConstantWidth);
  m_layout.constantWidth = real(kSection, kConstantWidth);
  m_layout.elevation = real(kSection, kElevation);
  m_layout.thickness = real(kSection, kThickness);
  m_layout.normal = vector(kSection, kNormal);
  m_known = true;
  return m_layout;
}

unsigned int OdDbPolyline::checked(unsigned int index) const {
  if (index >= numVerts()) throw OdError_InvalidIndex();
  return index;
}

int OdDbPolyline::groupAt(unsigned int index, int code) const {
  const int first = firstVertex();
  const int last = first + (index + 1 < numVerts() ? m_layout.starts[index + 1] : m_layout.length);
  for (int i = first + m_layout.starts[index]; i < last; ++i)
    if (groups()[i].code == code) return i;
  return -1;
}

double OdDbPolyline::realAt(unsigned int index, int code, double fallback) const {
  const int at = groupAt(checked(index), code);
  return at < 0 ? fallback : groups()[at].real;
}

void OdDbPolyline::addVertexAt(unsigned int index, const OdGePoint2d& point, double bulge, double startWidth,
                               double endWidth, OdInt32 vertexIdentifier) {
  const unsigned int count = numVerts();
  if (index > count) throw OdError_InvalidIndex();
  setInteger(kSection, kCount, count + 1);
  OdDbGroup vertex[6] = {OdDbGroup::ofReal(kX, point.x), OdDbGroup::ofReal(kY, point.y)};
  int size = 2;
  if (vertexIdentifier != 0) vertex[size++] = OdDbGroup::ofInteger(kIdentifier, vertexIdentifier);
  if (startWidth >= 0 || endWidth >= 0) {
    vertex[size++] = OdDbGroup::ofReal(kStartWidth, std::max(0.0, startWidth));
    vertex[size++] = OdDbGroup::ofReal(kEndWidth, std::max(0.0, endWidth));
  }
  if (bulge != 0) vertex[size++] = OdDbGroup::ofReal(kBulge, bulge);

  OdDbGroupList& list = mutableGroups();
  const int place = index < count ? m_layout.starts[index] : m_layout.length;
  const int first = count > 0 ? firstVertex() : odDbGroups::place(list, schema(), kSection, kX);
  list.items.insert(list.items.begin() + first + place, vertex, vertex + size);
  for (unsigned int i = index; i < count; ++i) m_layout.starts[i] += size;
  m_layout.starts.insert(m_layout.starts.begin() + index, place);
  m_layout.length += size;
}

void OdDbPolyline::removeVertexAt(unsigned int index) {
  const unsigned int count = numVerts();
  checked(index);
  OdDbGroupList& list = mutableGroups();
  const int first = firstVertex();
  const int end = index + 1 < count ? m_layout.starts[index + 1] : m_layout.length;
  list.erase(first + m_layout.starts[index], first + end);
  setInteger(kSection, kCount, count - 1);
  m_known = false;
}

void OdDbPolyline::getPointAt(unsigned int index, OdGePoint2d& point) const {
  point.set(realAt(index, kX, 0), realAt(index, kY, 0));
}

void OdDbPolyline::getPointAt(unsigned int index, OdGePoint3d& point) const {
  OdGePoint2d flat;
  getPointAt(index, flat);
  point = odDbOcs::toWorld(OdGePoint3d(flat.x, flat.y, elevation()), normal());
}

void OdDbPolyline::setPointAt(unsigned int index, const OdGePoint2d& point) {
  setRealAt(index, kX, point.x, 0);
  setRealAt(index, kY, point.y, 0);
}

double OdDbPolyline::getBulgeAt(unsigned int index) const { return realAt(index, kBulge, 0); }
void OdDbPolyline::setBulgeAt(unsigned int index, double bulge) { setRealAt(index, kBulge, bulge, 0); }

void OdDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const {
  startWidth = realAt(index, kStartWidth, getConstantWidth());
  endWidth = realAt(index, kEndWidth, getConstantWidth());
}

void OdDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth) {
  const double shared = getConstantWidth();
  setRealAt(index, kStartWidth, startWidth, shared);
  setRealAt(index, kEndWidth, endWidth, shared);
  if (!layout().hasConstantWidth) return;
  removeField(kSection, kConstantWidth);
  m_known = false;
}

OdInt32 OdDbPolyline::getVertexIdentifierAt(unsigned int index) const {
  const int at = groupAt(checked(index), kIdentifier);
  return at < 0 ? 0 : static_cast<OdInt32>(groups()[at].integer);
}

void OdDbPolyline::setRealAt(unsigned int index, int code, double value, double others) {
  assertWriteEnabled();
  checked(index);
  if (groupAt(index, code) < 0) spread(code, others);
  OdDbGroupList& list = mutableGroups();
  list[groupAt(index, code)].real = value;
}

void OdDbPolyline::spread(int code, double value) {
  OdDbGroupList& list = mutableGroups();
  const int first = firstVertex();
  const unsigned int count = numVerts();
  std::vector<OdDbGroup> vertices;
  vertices.reserve(static_cast<std::size_t>(m_layout.length) + count);
  for (unsigned int i = 0; i < count; ++i) {
    const int end = i + 1 < count ? m_layout.starts[i + 1] : m_layout.length;
    const bool lacks = groupAt(i, code) < 0;
    vertices.insert(vertices.end(), list.items.begin() + first + m_layout.starts[i],
                    list.items.begin() + first + end);
    if (lacks) vertices.push_back(OdDbGroup::ofReal(code, value));
  }
  list.erase(first, first + m_layout.length);
  list.items.insert(list.items.begin() + first, vertices.begin(), vertices.end());
  m_known = false;
}

// --- the whole ---

bool OdDbPolyline::isClosed() const { return flag(kSection, kFlags, kClosed); }
void OdDbPolyline::setClosed(bool closed) { setFlag(kSection, kFlags, kClosed, closed); }
bool OdDbPolyline::hasPlinegen() const { return flag(kSection, kFlags, kPlinegen); }
void OdDbPolyline::setPlinegen(bool on) { setFlag(kSection, kFlags, kPlinegen, on); }
double OdDbPolyline::elevation() const { return layout().elevation; }
void OdDbPolyline::setElevation(double elevation) {
  setReal(kSection, kElevation, elevation);
  m_known = false;
}
double OdDbPolyline::thickness() const { return layout().thickness; }
void OdDbPolyline::setThickness(double thickness) {
  setReal(kSection, kThickness, thickness);
  m_known = false;
}
OdGeVector3d OdDbPolyline::normal() const { return layout().normal; }
void OdDbPolyline::setNormal(const OdGeVector3d& normal) {
  setVector(kSection, kNormal, OdGeVector3d(normal).normalize());
  m_known = false;
}

double OdDbPolyline::getConstantWidth() const { return layout().constantWidth; }
void OdDbPolyline::setConstantWidth(double width) {
  layout();
  OdDbGroupList& list = mutableGroups();
  const auto from = list.items.begin() + std::max(0, firstVertex());
  const auto isWidth = [](const OdDbGroup& group) {
    return group.code == kStartWidth || group.code == kEndWidth;
  };
  list.items.erase(std::remove_if(from, from + m_layout.length, isWidth), from + m_layout.length);
  setReal(kSection, kConstantWidth, width);
  m_known = false;
}

bool OdDbPolyline::hasBulges() const {
  const unsigned int count = numVerts();
  for (unsigned int i = 0; i < count; ++i)
    if (getBulgeAt(i) != 0) return true;
  return false;
}

bool OdDbPolyline::hasWidth() const {
  if (getConstantWidth() != 0) return true;
  const unsigned int count = numVerts();
  for (unsigned int i = 0; i < count; ++i)
    if (realAt(i, kStartWidth, 0) != 0 || realAt(i, kEndWidth, 0) != 0) return true;
  return false;
}

OdResult OdDbPolyline::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  const odDbOcs::Image image = odDbOcs::image(matrix, normal());
  if (!image.isSimilarity() && (hasBulges() || hasWidth())) return eCannotScaleNonUniformly;
  constexpr double kRounding = 1e-12;
  const double level = elevation();
  const double raised = (image.matrix * OdGePoint3d(0, 0, level)).z;
  const unsigned int count = numVerts();
  OdDbGroupList& list = mutableGroups();
  for (unsigned int i = 0; i < count; ++i) {
    OdGePoint2d flat;
    getPointAt(i, flat);
    const OdGePoint3d moved = image.matrix * OdGePoint3d(flat.x, flat.y, level);
    setPointAt(i, moved.convert2d());
    if (const int bulge = groupAt(i, kBulge); bulge >= 0 && image.mirrored) list[bulge].real *= -1;
    for (const int code : {kStartWidth, kEndWidth})
      if (const int width = groupAt(i, code); width >= 0) list[width].real *= image.scale();
  }
  const double wide = getConstantWidth();
  if (wide != 0) setReal(kSection, kConstantWidth, wide * image.scale());
  if (raised != level) setElevation(std::fabs(raised) < kRounding ? 0 : raised);
  if (thickness() != 0) setThickness(thickness() * image.thickness);
  if (!(image.normal == normal())) setVector(kSection, kNormal, image.normal);
  m_known = false;
  return eOk;
}

/// The line or arc that begins at a vertex.
OdDbEntityPtr OdDbPolyline::segment(unsigned int index) const {
  OdGePoint2d from;
  OdGePoint2d to;
  getPointAt(index, from);
  getPointAt((index + 1) % numVerts(), to);
  const OdGeMatrix3d plane = odDbOcs::toWorld(normal());
  const double level = elevation();
  const double bulge = getBulgeAt(index);
  const OdGeVector2d chord = to - from;
  if (bulge == 0 || chord.isZeroLength()) {
    OdDbLinePtr line = OdDbLine::createObject();
    line->setStartPoint(plane * OdGePoint3d(from.x, from.y, level));
    line->setEndPoint(plane * OdGePoint3d(to.x, to.y, level));
    line->setNormal(normal());
    line->setThickness(thickness());
    return line;
  }
  const OdGePoint2d center = from + chord * 0.5 + chord.perpVector() * ((1 - bulge * bulge) / (4 * bulge));
  const double start = (from - center).angle();
  const double end = (to - center).angle();
  OdDbArcPtr arc = OdDbArc::createObject();
  arc->setNormal(normal());
  arc->setCenter(plane * OdGePoint3d(center.x, center.y, level));
  arc->setRadius(center.distanceTo(from));
  arc->setStartAngle(bulge > 0 ? start : end);
  arc->setEndAngle(bulge > 0 ? end : start);
  arc->setThickness(thickness());
  return arc;
}

OdResult OdDbPolyline::explode(OdRxObjectPtrArray& pieces) const {
  const unsigned int count = numVerts();
  const OdDbLinePtr properties = OdDbLine::createObject(); // searched for each piece; here that is quick
  properties->setPropertiesFrom(this);
  for (unsigned int i = 0; i < count && (i + 1 < count || isClosed()); ++i) {
    const OdDbEntityPtr piece = segment(i);
    piece->setPropertiesFrom(properties);
    pieces.append(OdRxObjectPtr(piece));
  }
  return eOk;
}

OdResult OdDbPolyline::getGeomExtents(OdGeExtents3d& extents) const {
  const unsigned int count = numVerts();
  const OdGeVector3d extrusion = normal() * thickness();
  extents = OdGeExtents3d();
  for (unsigned int i = 0; i < count; ++i) {
    OdGePoint3d place;
    getPointAt(i, place);
    extents.addPoint(place).addPoint(place + extrusion);
    OdGeExtents3d arc;
    if (getBulgeAt(i) != 0 && (i + 1 < count || isClosed()) && segment(i)->getGeomExtents(arc) == eOk)
      extents.addExt(arc);
  }
  return extents.isValidExtents() ? eOk : eInvalidExtents;
}

std::unique_ptr<OdGeCurve3d> OdDbPolyline::makeGeCurve() const {
  const OdGeMatrix3d plane = odDbOcs::toWorld(normal());
  const double level = elevation();
  const unsigned int count = numVerts();
  std::vector<OdGePoint3d> places(count);
  std::vector<double> bulges(count);
  for (unsigned int i = 0; i < count; ++i) {
    places[i] = plane * OdGePoint3d(realAt(i, kX, 0), realAt(i, kY, 0), level);
    bulges[i] = getBulgeAt(i);
  }
  if (std::all_of(bulges.begin(), bulges.end(), [](double bulge) { return bulge == 0; })) bulges.clear();
  return std::make_unique<OdGePolylineCurve3d>(std::move(places), std::move(bulges), isClosed(),
                                               plane.getCsZAxis());
}

OdResult OdDbPolyline::getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const {
  OdGeFlatPolyline flat;
  flat.isClosed = isClosed();
  for (unsigned int i = 0; i < numVerts(); ++i) {
    flat.points.emplace_back(realAt(i, kX, 0), realAt(i, kY, 0));
    flat.bulges.push_back(getBulgeAt(i));
  }
  std::vector<OdGeFlatPolyline> found;
  try {
    found = odGeOffset(flat, distance);
  } catch (const OdError& error) {
    return error.code();
  }
  for (const OdGeFlatPolyline& each : found) {
    const OdDbPolylinePtr made = OdDbPolyline::createObject();
    if (elevation() != 0) made->setElevation(elevation());
    if (thickness() != 0) made->setThickness(thickness());
    if (!(normal() == OdGeVector3d::kZAxis) && !normal().isZeroLength()) made->setNormal(normal());
    if (getConstantWidth() != 0) made->setConstantWidth(getConstantWidth());
    made->setClosed(each.isClosed);
    for (unsigned int i = 0; i < each.points.size(); ++i)
      made->addVertexAt(i, each.points[i], each.bulges[i]);
    addOffset(made, curves);
  }
  return found.empty() ? eInvalidInput : eOk;
}
