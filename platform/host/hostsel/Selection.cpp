#include "Selection.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbLayerTableRecord.h"
#include "DbViewport.h"
#include "HostUtils.h"
#include <unordered_map>
#include <vector>

namespace host {

namespace {

enum class LayerState { shown, off, frozen };

class Layers {
public:
  LayerState of(OdDbObjectId layer) {
    const auto [known, isNew] = m_states.try_emplace(layer, LayerState::shown);
    if (isNew) known->second = read(layer);
    return known->second;
  }

private:
  static LayerState read(OdDbObjectId id) {
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::cast(id.openObject());
    if (layer.isNull()) return LayerState::shown;
    if (layer->isFrozen()) return LayerState::frozen;
    return layer->isOff() ? LayerState::off : LayerState::shown;
  }
  std::unordered_map<OdDbObjectId, LayerState> m_states;
};

bool isSheet(const OdDbEntity* entity) {
  constexpr int kSheetNumber = 1;
  const OdSmartPtr<OdDbViewport> viewport = OdDbViewport::cast(entity);
  return !viewport.isNull() && viewport->number() == kSheetNumber;
}

/// Calls `visit(entity, state of its layer)` for the objects of the active space that are not frozen.
template <class Visitor>
void visitSpace(const OdDbDatabase& database, Visitor visit) {
  const OdSmartPtr<OdDbBlockTableRecord> space =
      OdDbBlockTableRecord::cast(getActiveBTRId(&database).openObject());
  if (space.isNull()) return;
  Layers layers;
  for (OdDbObjectIteratorPtr it = space->newIterator(); !it->done(); it->step()) {
    const OdDbEntityPtr entity = it->entity();
    if (entity.isNull() || isSheet(entity)) continue;
    const LayerState state = layers.of(entity->layerId());
    if (state != LayerState::frozen) visit(entity, state);
  }
}

struct Placed {
  OdDbObjectId id;
  OdGeExtents3d extents; ///< in the current coordinate system
};

std::vector<Placed> placedObjects(const OdDbDatabase& database, const OdGeMatrix3d& worldToUcs) {
  std::vector<Placed> placed;
  visitSpace(database, [&](const OdDbEntityPtr& entity, LayerState state) {
    OdGeExtents3d extents;
    if (state != LayerState::shown || entity->visibility() == OdDb::kInvisible) return;
    if (entity->getGeomExtents(extents) != eOk || !extents.isValidExtents()) return;
    placed.push_back({entity->objectId(), extents.transformBy(worldToUcs)});
  });
  return placed;
}

struct Rectangle {
  double left, bottom, right, top;

  bool holds(const OdGeExtents3d& box) const {
    return box.minPoint().x >= left && box.maxPoint().x <= right && box.minPoint().y >= bottom &&
           box.maxPoint().y <= top;
  }
  bool touches(const OdGeExtents3d& box) const {
    return box.minPoint().x <= right && box.maxPoint().x >= left && box.minPoint().y <= top &&
           box.maxPoint().y >= bottom;
  }
};

double width(const OdGeExtents3d& box) { return box.maxPoint().x - box.minPoint().x; }
double height(const OdGeExtents3d& box) { return box.maxPoint().y - box.minPoint().y; }

/// Half the width of the cursor: there is no screen to take it from, so it goes by the size of what is drawn.
double aperture(const std::vector<Placed>& placed) {
  constexpr double kShareOfDrawing = 1.0 / 400;
  OdGeExtents3d all;
  for (const Placed& object : placed) all.addExt(object.extents);
  return all.isValidExtents() ? std::max(width(all), height(all)) * kShareOfDrawing : 0;
}

} // namespace

OdDbObjectIdArray selectAll(const OdDbDatabase& database) {
  OdDbObjectIdArray ids;
  visitSpace(database, [&](const OdDbEntityPtr& entity, LayerState) { ids.append(entity->objectId()); });
  return ids;
}

OdDbObjectIdArray selectWindow(const OdDbDatabase& database, const OdGePoint3d& corner,
                               const OdGePoint3d& opposite, bool crossing) {
  const OdGeMatrix3d worldToUcs = database.ucsToWorld().inverse();
  const OdGePoint3d a = worldToUcs * corner;
  const OdGePoint3d b = worldToUcs * opposite;
  const Rectangle window{std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
  OdDbObjectIdArray ids;
  for (const Placed& object : placedObjects(database, worldToUcs))
    if (crossing ? window.touches(object.extents) : window.holds(object.extents)) ids.append(object.id);
  return ids;
}

OdDbObjectId pickAt(const OdDbDatabase& database, const OdGePoint3d& point) {
  const OdGeMatrix3d worldToUcs = database.ucsToWorld().inverse();
  const OdGePoint3d at = worldToUcs * point;
  const std::vector<Placed> placed = placedObjects(database, worldToUcs);
  const double reach = aperture(placed);
  const Rectangle cursor{at.x - reach, at.y - reach, at.x + reach, at.y + reach};
  OdDbObjectId found;
  double smallest = 0;
  for (const Placed& object : placed) {
    if (!cursor.touches(object.extents)) continue;
    const double size = (width(object.extents) + reach) * (height(object.extents) + reach);
    if (!found.isNull() && size > smallest) continue;
    found = object.id;
    smallest = size;
  }
  return found;
}

OdDbObjectId lastObject(const OdDbDatabase& database) {
  OdDbObjectId last;
  visitSpace(database, [&](const OdDbEntityPtr& entity, LayerState) { last = entity->objectId(); });
  return last;
}

bool isSelectable(const OdDbDatabase& database, OdDbObjectId id) {
  const OdDbEntityPtr entity = OdDbEntity::cast(id.openObject());
  return !entity.isNull() && entity->ownerId() == getActiveBTRId(&database) && !isSheet(entity);
}

} // namespace host
