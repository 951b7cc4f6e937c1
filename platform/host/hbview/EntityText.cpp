#include "EntityText.h"
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbBlockReference.h"
#include "DbDatabase.h"
#include "DbLine.h"
#include "DbPolyline.h"
#include "DbXline.h"
#include "HostUtils.h"
#include <algorithm>

namespace host {

namespace {

/// A length in the drawing's units; decimals without the zeros at their end.
OdString lengthText(double length, const OdDbDatabase& database) {
  OdString text = hostdbRToS(length, -1, -1, &database);
  if (database.getLUNITS() != kHostDecimal || text.find(L'.') < 0) return text;
  while (text.right(1) == L"0") text = text.left(text.getLength() - 1);
  return text.right(1) == L"." ? text.left(text.getLength() - 1) : text;
}

class Describer {
public:
  Describer(const OdGePoint3d& cursor, const OdDbDatabase& database)
      : m_cursor(cursor), m_database(database) {}

  OdString text(const OdDbEntity& entity) const {
    OdString text;
    const bool isKnown = describes<OdDbRay>(entity, text) || describes<OdDbXline>(entity, text) ||
                         describes<OdDbLine>(entity, text) || describes<OdDbPolyline>(entity, text) ||
                         describes<OdDbAttributeDefinition>(entity, text) ||
                         describes<OdDbAttribute>(entity, text) || describes<OdDbText>(entity, text) ||
                         describes<OdDbMText>(entity, text) || describes<OdDbBlockReference>(entity, text);
    return isKnown ? text : other(entity);
  }

private:
  template <class Kind>
  bool describes(const OdDbEntity& entity, OdString& text) const {
    const auto it = Kind::cast(&entity);
    if (!it.isNull()) text = of(*it);
    return !it.isNull();
  }

  OdString of(const OdDbRay& ray) const { return L"ray from " + at(ray.basePoint()) + towards(ray); }
  OdString of(const OdDbXline& line) const {
    return L"xline through " + at(line.basePoint()) + towards(line);
  }
  OdString of(const OdDbLine& line) const {
    return L"line from " + at(line.startPoint()) + L" to " + at(line.endPoint());
  }
  OdString of(const OdDbPolyline& polyline) const {
    constexpr unsigned int kMostShown = 20;
    OdString text = polyline.isClosed() ? L"closed polyline" : L"polyline";
    const unsigned int count = polyline.numVerts();
    for (unsigned int i = 0; i < std::min(count, kMostShown); ++i) {
      OdGePoint3d vertex;
      polyline.getPointAt(i, vertex);
      text += L" " + at(vertex);
    }
    if (count <= kMostShown) return text;
    return text + OdString().format(L" and %u vertices more", count - kMostShown);
  }
  OdString of(const OdDbAttributeDefinition& definition) const {
    return L"attribute definition " + definition.tag() + L" at " + place(definition);
  }
  OdString of(const OdDbAttribute& attribute) const {
    return L"attribute " + attribute.tag() + L" at " + place(attribute);
  }
  OdString of(const OdDbText& text) const { return L"text \"" + text.textString() + L"\" at " + place(text); }
  OdString of(const OdDbMText& text) const {
    return L"text \"" + text.plainLine() + L"\" at " + at(text.location());
  }
  OdString of(const OdDbBlockReference& reference) const {
    return L"block reference " + reference.blockName() + L" at " + at(reference.position());
  }
  OdString other(const OdDbEntity& entity) const {
    OdString text = entity.isA()->name();
    OdGeExtents3d box;
    if (entity.getGeomExtents(box) != eOk || !box.isValidExtents()) return text;
    box.transformBy(m_database.ucsToWorld().inverse());
    return text + L" between " + inUcs(box.minPoint()) + L" and " + inUcs(box.maxPoint());
  }

  OdString at(const OdGePoint3d& point) const { return pointText(point, m_database); }
  OdString inUcs(const OdGePoint3d& point) const { return at(m_database.ucsToWorld() * point); }
  OdString place(const OdDbText& text) const {
    return at(text.isDefaultAlignment() ? text.position() : text.alignmentPoint());
  }
  OdString towards(const OdDbEndlessLine& line) const {
    OdGePoint3d nearest = line.basePoint();
    line.getClosestPointTo(m_cursor, nearest);
    if (nearest.isEqualTo(line.basePoint())) nearest = line.basePoint() + line.unitDir();
    return L" towards " + at(nearest);
  }

  const OdGePoint3d& m_cursor;
  const OdDbDatabase& m_database;
};

} // namespace

OdString pointText(const OdGePoint3d& point, const OdDbDatabase& database) {
  const OdGePoint3d inUcs = database.ucsToWorld().inverse() * point;
  const OdString z = lengthText(inUcs.z, database);
  const bool isFlat = z == lengthText(0, database);
  return lengthText(inUcs.x, database) + L"," + lengthText(inUcs.y, database) +
         (isFlat ? OdString() : L"," + z);
}

OdString entityText(const OdDbEntity& entity, const OdGePoint3d& cursor, const OdDbDatabase& database) {
  return Describer(cursor, database).text(entity);
}

} // namespace host
