#pragma once
#include "DbBlockReference.h"
#include "DbDatabase.h"
#include "PlanProbe.h"
#include <unordered_map>
#include <vector>

namespace host {

/// How far an object reaches, in the coordinates of what contains it.
struct Reach {
  OdGeExtents3d box;                ///< of what has an end; empty where there is no such thing
  bool isEndless = false;           ///< a ray or construction line is part of it
  std::vector<OdGePoint3d> origins; ///< where the endless lines begin

  void add(const Reach& other);
  Reach placed(const OdGeMatrix3d& matrix) const;
};

/// What can be seen of the objects of a drawing: by layers, visibility, and what is in blocks. Answers are
/// kept, so the drawing must not change while this lives.
class VisibleObjects {
public:
  enum class Layer { shown, off, frozen };

  explicit VisibleObjects(const OdDbDatabase& database);

  bool hasFrozenLayers() const;
  Layer layerOf(const OdDbEntity& entity) { return layer(entity.layerId()).state; }
  bool isShown(const OdDbEntity& entity) {
    return layerOf(entity) == Layer::shown && entity.visibility() != OdDb::kInvisible;
  }
  /// Of what can be seen of an object that is shown.
  Reach reachOf(const OdDbEntity& entity);
  /// Gives what can be seen of an object that is shown to a probe, as far as that wants to know.
  void show(const OdDbEntity& entity, PlanProbe& probe, const OdGeMatrix3d& toPlan);

private:
  struct LayerFacts {
    Layer state = Layer::shown;
    bool isZero = false; ///< the layer whose members in blocks take the layer of the reference
  };
  const LayerFacts& layer(OdDbObjectId id);
  bool isShownInBlock(const OdDbEntity& entity);
  bool isShownAttribute(const OdDbEntity& entity);
  /// The block that is the picture of a dimension; null for other entities.
  OdDbObjectId ownBlock(const OdDbEntity& entity) const;
  const Reach& reachOfBlock(OdDbObjectId block);
  Reach reachOfReference(const OdDbBlockReference& reference);
  void showBlock(OdDbObjectId block, PlanProbe& probe, const OdGeMatrix3d& toPlan);
  void showReference(const OdDbBlockReference& reference, PlanProbe& probe, const OdGeMatrix3d& toPlan);
  void showPart(const OdDbEntity& entity, PlanProbe& probe, const OdGeMatrix3d& toPlan);

  const OdDbDatabase& m_database;
  const int m_attributeMode;
  std::unordered_map<OdDbObjectId, LayerFacts> m_layers;
  std::unordered_map<OdDbObjectId, Reach> m_blocks;
  std::vector<OdDbObjectId> m_openBlocks; ///< the walk is inside of these
  long m_visits = 0;                      ///< of the object that is shown
};

} // namespace host
