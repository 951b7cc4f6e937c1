#include "Figure.h"
#include "DbAttributeText.h"
#include "DbCurve.h"
#include "DbEntityFields.h"
#include "DbMText.h"
#include "DbPoint.h"
#include "DbRasterImage.h"
#include "DbViewport.h"
#include "Ge/GePolylineCurve3d.h"
#include "HatchEdges.h"

namespace host {

namespace {

constexpr int kPoint = 10; // and 11 to 13 for further corners

std::vector<OdGePoint3d> cornersOf(const OdGeExtents3d& box) {
  const OdGePoint3d low = box.minPoint();
  const OdGePoint3d high = box.maxPoint();
  return {low, {high.x, low.y, low.z}, {high.x, high.y, low.z}, {low.x, high.y, low.z}};
}

} // namespace

Figure::Figure(const OdDbEntity& entity) {
  try {
    if (const auto curve = OdDbCurve::cast(&entity); !curve.isNull())
      m_edges.push_back(&curve->geCurve());
    else if (const auto point = OdDbPoint::cast(&entity); !point.isNull())
      m_points.push_back(point->position());
    else if (const auto text = OdDbText::cast(&entity); !text.isNull())
      addText(*text);
    else if (const auto lines = OdDbMText::cast(&entity); !lines.isNull())
      addText(*lines);
    else
      readUnknown(entity);
  } catch (const OdError&) {
    // What is damaged or has no extent may still have a place.
    OdGeExtents3d box;
    if (entity.getGeomExtents(box) == eOk && box.isValidExtents())
      m_points = {box.minPoint(), box.maxPoint()};
  }
}

Figure Figure::ofBox(const OdGeExtents3d& box) {
  Figure figure;
  figure.m_kind = Kind::area;
  figure.addBox(box);
  return figure;
}

void Figure::readUnknown(const OdDbEntity& entity) {
  const std::string kind = entity.dxfName();
  const OdDbEntityFields fields(entity);
  if (const auto image = OdDbRasterImage::cast(&entity); !image.isNull()) {
    OdGePoint3dArray outline;
    image->outline(outline);
    m_kind = Kind::area;
    addPolygon({outline.begin(), outline.end()});
  } else if (kind == "SOLID" || kind == "TRACE" || kind == "3DFACE") {
    const bool isSolid = kind != "3DFACE";
    const OdGePoint3d third = fields.point(kPoint + 2);
    const OdGePoint3d fourth = fields.has(kPoint + 3) ? fields.point(kPoint + 3) : third;
    if (isSolid) m_placement = OdGeMatrix3d::planeToWorld(fields.normal());
    m_kind = isSolid ? Kind::area : Kind::lines;
    // Those of solids are stored crosswise.
    addPolygon(
        {fields.point(kPoint), fields.point(kPoint + 1), isSolid ? fourth : third, isSolid ? third : fourth});
  } else if (kind == "HATCH") {
    m_kind = Kind::area;
    m_placement = OdGeMatrix3d::planeToWorld(fields.normal()) *
                  OdGeMatrix3d::translation({0, 0, fields.point(kPoint).z});
    for (std::unique_ptr<OdGeCurve3d>& edge : hatchEdges(fields)) add(std::move(edge));
  } else if (kind == "LEADER") {
    addPolygon(fields.points(kPoint), false);
  } else if (OdGeExtents3d box; entity.getGeomExtents(box) == eOk) {
    m_kind = OdDbViewport::cast(&entity).isNull() ? Kind::area : Kind::lines;
    addBox(box);
  } else {
    for (const OdGePoint3d& point : fields.points(kPoint)) box.addPoint(point);
    m_kind = Kind::area;
    addBox(box);
  }
}

template <class Text>
void Figure::addText(const Text& text) {
  const OdGeVector3d normal = text.normal().isZeroLength() ? OdGeVector3d::kZAxis : text.normal();
  m_placement =
      OdGeMatrix3d::planeToWorld(normal) * OdGeMatrix3d::rotation(text.rotation(), OdGeVector3d::kZAxis);
  const OdDbEntityPtr upright = text.clone();
  OdGeExtents3d box;
  if (upright->transformBy(m_placement.inverse()) != eOk || upright->getGeomExtents(box) != eOk)
    throw OdError(eInvalidExtents);
  m_kind = Kind::text;
  addBox(box);
}

void Figure::add(std::unique_ptr<OdGeCurve3d> edge) {
  m_edges.push_back(edge.get());
  m_own.push_back(std::move(edge));
}

void Figure::addPolygon(const Points& corners, bool isClosed) {
  try {
    add(std::make_unique<OdGePolylineCurve3d>(corners, std::vector<double>(), isClosed));
  } catch (const OdError&) {
    m_points = corners; // in one place
  }
}

void Figure::addBox(const OdGeExtents3d& box) {
  if (box.isValidExtents()) addPolygon(cornersOf(box));
}

OdGeExtents3d Figure::extents() const {
  OdGeExtents3d all;
  for (const OdGePoint3d& point : m_points) all.addPoint(m_placement * point);
  for (const OdGeCurve3d* edge : m_edges) {
    if (!edge->hasStart() || !edge->hasEnd()) return {};
    all.addExt(edge->extents().transformBy(m_placement));
  }
  return all;
}

void Figure::show(PlanProbe& probe, const OdGeMatrix3d& toPlan) const {
  const OdGeMatrix3d placed = toPlan * m_placement;
  for (const OdGePoint3d& point : m_points) probe.addPoint(point, placed);
  if (m_kind != Kind::lines)
    return probe.addArea(m_edges, placed,
                         m_kind == Kind::text ? PlanProbe::Inside::isFull : PlanProbe::Inside::isOpen);
  for (const OdGeCurve3d* edge : m_edges) probe.addCurve(*edge, placed);
}

} // namespace host
