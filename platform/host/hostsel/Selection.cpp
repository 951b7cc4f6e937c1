#include "Selection.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbViewport.h"
#include "HostUtils.h"
#include "VisibleObjects.h"
#include <algorithm>
#include <limits>

namespace host {

namespace {

using Layer = VisibleObjects::Layer;
using Question = PlanProbe::Question;

bool isSheet(OdDbObjectId id) {
  constexpr int kSheetNumber = 1;
  if (!id.objectClass()->isDerivedFrom(OdDbViewport::desc())) return false;
  const OdSmartPtr<OdDbViewport> viewport = OdDbViewport::cast(id.openObject());
  return !viewport.isNull() && viewport->number() == kSheetNumber;
}

/// The objects of the active space, as they are stored or as they are drawn; null where there is no space.
OdDbObjectIteratorPtr walk(const OdDbDatabase& database, bool asDrawn) {
  const OdSmartPtr<OdDbBlockTableRecord> space =
      OdDbBlockTableRecord::cast(getActiveBTRId(&database).openObject());
  return space.isNull() ? OdDbObjectIteratorPtr() : space->newIterator(true, true, asDrawn);
}

/// Calls `visit(entity)` for the objects of the active space that are not frozen, as they are stored or as
/// they are drawn.
template <class Visitor>
void visitSpace(const OdDbDatabase& database, VisibleObjects& objects, bool asDrawn, Visitor visit) {
  const OdDbObjectIteratorPtr it = walk(database, asDrawn);
  for (; !it.isNull() && !it->done(); it->step()) {
    const OdDbEntityPtr entity = it->entity();
    if (!entity.isNull() && !isSheet(it->objectId()) && objects.layerOf(*entity) != Layer::frozen)
      visit(*entity);
  }
}

/// Nothing where the entity is damaged.
Reach reachOf(VisibleObjects& objects, const OdDbEntity& entity) {
  try {
    return objects.reachOf(entity);
  } catch (const OdError&) {
    return {};
  }
}

PlanProbe probed(VisibleObjects& objects, const OdDbEntity& entity, const PlanBox& box, Question question,
                 const OdGeMatrix3d& toPlan) {
  PlanProbe probe(box, question);
  try {
    objects.show(entity, probe, toPlan);
  } catch (const OdError&) {
    // A damaged object counts as far as it can be read.
  }
  return probe;
}

struct Placed {
  OdDbObjectId id;
  PlanBox box;
  bool isEndless;
};

/// What can be seen of the active space, and how large it is.
struct Scene {
  Scene(const OdDbDatabase& database, VisibleObjects& objects, const OdGeMatrix3d& toPlan) {
    visitSpace(database, objects, true, [&](const OdDbEntity& entity) {
      if (!objects.isShown(entity)) return;
      const Reach reach = reachOf(objects, entity).placed(toPlan);
      const PlanBox box = PlanBox::of(reach.box, OdGeMatrix3d());
      if (box.isEmpty() && !reach.isEndless) return;
      placed.push_back({entity.objectId(), box, reach.isEndless});
      whole.add(box);
      for (const OdGePoint3d& origin : reach.origins) origins.add(origin.convert2d());
    });
  }
  std::vector<Placed> placed; ///< in the order of drawing
  PlanBox whole;              ///< of what has an end
  PlanBox origins;            ///< of the lines without end
};

double sizeOf(const PlanBox& box) { return box.isEmpty() ? 0 : std::max(box.width(), box.height()); }

/// Half the width of the pick box: there is no screen to take it from, so it goes by the size of what is
/// drawn. Where that has none, the way from there to the point that was picked has to do.
double aperture(const Scene& scene, const OdGePoint2d& at) {
  constexpr double kShareOfDrawing = 1.0 / 400;
  if (const double size = sizeOf(scene.whole); size > 0) return size * kShareOfDrawing;
  PlanBox all = scene.whole;
  all.add(scene.origins);
  all.add(at);
  return sizeOf(all) * kShareOfDrawing;
}

} // namespace

OdDbObjectIdArray selectAll(const OdDbDatabase& database) {
  VisibleObjects objects(database);
  OdDbObjectIdArray ids;
  if (objects.hasFrozenLayers()) {
    visitSpace(database, objects, false, [&](const OdDbEntity& entity) { ids.append(entity.objectId()); });
    return ids;
  }
  // Then no object has to be opened, which makes the difference in large drawings.
  const OdDbObjectIteratorPtr it = walk(database, false);
  for (; !it.isNull() && !it->done(); it->step())
    if (!isSheet(it->objectId())) ids.append(it->objectId());
  return ids;
}

OdDbObjectIdArray selectWindow(const OdDbDatabase& database, const OdGePoint3d& corner,
                               const OdGePoint3d& opposite, bool crossing) {
  const OdGeMatrix3d toPlan = database.ucsToWorld().inverse();
  PlanBox window;
  window.add((toPlan * corner).convert2d());
  window.add((toPlan * opposite).convert2d());
  VisibleObjects objects(database);
  OdDbObjectIdArray ids;
  visitSpace(database, objects, false, [&](const OdDbEntity& entity) {
    if (!objects.isShown(entity)) return;
    const PlanProbe probe =
        probed(objects, entity, window, crossing ? Question::isTouched : Question::isInside, toPlan);
    if (crossing ? probe.isTouched() : probe.isInside()) ids.append(entity.objectId());
  });
  return ids;
}

OdDbObjectId pickAt(const OdDbDatabase& database, const OdGePoint3d& point) {
  const OdGeMatrix3d toPlan = database.ucsToWorld().inverse();
  const OdGePoint2d at = (toPlan * point).convert2d();
  VisibleObjects objects(database);
  const Scene scene(database, objects, toPlan);
  const double reach = aperture(scene, at);
  PlanBox pickBox;
  pickBox.add(at);
  pickBox = pickBox.grown(reach);
  OdDbObjectId found;
  double least = std::numeric_limits<double>::infinity();
  constexpr double kEqual = 1e-6; // of the pick box: what is drawn in one place
  for (auto object = scene.placed.rbegin(); object != scene.placed.rend(); ++object) {
    if (!object->isEndless && !pickBox.grown(reach * kEqual).touches(object->box)) continue;
    const OdDbEntityPtr entity = OdDbEntity::cast(object->id.openObject());
    const double distance = probed(objects, *entity, pickBox, Question::howNear, toPlan).distance();
    if (!(distance + reach * kEqual < least)) continue;
    found = object->id;
    least = distance;
  }
  return found;
}

OdDbObjectId lastObject(const OdDbDatabase& database) {
  VisibleObjects objects(database);
  OdDbObjectId last;
  visitSpace(database, objects, false, [&](const OdDbEntity& entity) { last = entity.objectId(); });
  return last;
}

Standing standingOf(const OdDbDatabase& database, OdDbObjectId id) {
  const OdDbEntityPtr entity = OdDbEntity::cast(id.openObject());
  if (entity.isNull() || entity->ownerId() != getActiveBTRId(&database) || isSheet(id))
    return Standing::elsewhere;
  return VisibleObjects(database).layerOf(*entity) == Layer::frozen ? Standing::frozen : Standing::selectable;
}

} // namespace host
