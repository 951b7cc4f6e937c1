#include "VisibleObjects.h"
#include "DbAttributeDefinition.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbEntityFields.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbRay.h"
#include "DbResBuf.h"
#include "Figure.h"
#include <algorithm>
#include <cmath>

namespace host {

namespace {

/// References within references can multiply without bound; behind so many parts, objects count by their
/// boxes.
constexpr long kMostVisits = 500'000;
constexpr std::size_t kDeepest = 100;

enum AttributeMode { kNone = 0, kAsStored = 1, kAll = 2 };

int attributeModeOf(const OdDbDatabase& database) {
  const OdResBufPtr mode = database.getSysVar(L"$ATTMODE");
  return mode.isNull() ? static_cast<int>(kAsStored) : mode->getInt16();
}

/// The directions and distances in which a reference repeats its block.
struct Cells {
  explicit Cells(const OdDbBlockReference& reference)
      : rows(std::max(1, reference.numRows())), columns(std::max(1, reference.numColumns())) {
    const OdGeVector3d normal = reference.normal();
    const OdGeMatrix3d turned =
        OdGeMatrix3d::planeToWorld(normal.isZeroLength() ? OdGeVector3d::kZAxis : normal) *
        OdGeMatrix3d::rotation(reference.rotation(), OdGeVector3d::kZAxis);
    along = turned * OdGeVector3d(reference.columnSpacing(), 0, 0);
    across = turned * OdGeVector3d(0, reference.rowSpacing(), 0);
  }
  int rows;
  int columns;
  OdGeVector3d along;
  OdGeVector3d across;
};

PlanBox planOf(const Reach& reach, const OdGeMatrix3d& toPlan) { return PlanBox::of(reach.box, toPlan); }

} // namespace

void Reach::add(const Reach& other) {
  if (other.box.isValidExtents()) box.addExt(other.box);
  isEndless = isEndless || other.isEndless;
  origins.insert(origins.end(), other.origins.begin(), other.origins.end());
}

Reach Reach::placed(const OdGeMatrix3d& matrix) const {
  Reach result = *this;
  result.box.transformBy(matrix);
  for (OdGePoint3d& origin : result.origins) origin = matrix * origin;
  return result;
}

VisibleObjects::VisibleObjects(const OdDbDatabase& database)
    : m_database(database), m_attributeMode(attributeModeOf(database)) {}

// --- who is shown ---

bool VisibleObjects::hasFrozenLayers() const {
  const OdDbLayerTablePtr layers = OdDbLayerTable::cast(m_database.getLayerTableId().openObject());
  if (layers.isNull()) return false;
  for (const OdDbSymbolTableIteratorPtr it = layers->newIterator(); !it->done(); it->step()) {
    const OdDbLayerTableRecordPtr record = OdDbLayerTableRecord::cast(it->getRecord());
    if (!record.isNull() && record->isFrozen()) return true;
  }
  return false;
}

const VisibleObjects::LayerFacts& VisibleObjects::layer(OdDbObjectId id) {
  const auto [known, isNew] = m_layers.try_emplace(id);
  if (!isNew) return known->second;
  const OdDbLayerTableRecordPtr record = OdDbLayerTableRecord::cast(id.openObject());
  if (record.isNull()) return known->second;
  known->second.isZero = record->getName() == L"0";
  if (record->isFrozen())
    known->second.state = Layer::frozen;
  else if (record->isOff())
    known->second.state = Layer::off;
  return known->second;
}

bool VisibleObjects::isShownAttribute(const OdDbEntity& entity) {
  const auto attribute = OdDbAttributeText::cast(&entity);
  return m_attributeMode == kAll ||
         (m_attributeMode != kNone && !attribute.isNull() && !attribute->isInvisible());
}

bool VisibleObjects::isShownInBlock(const OdDbEntity& entity) {
  if (entity.visibility() == OdDb::kInvisible) return false;
  const LayerFacts& facts = layer(entity.layerId());
  if (!facts.isZero && facts.state != Layer::shown) return false;
  const auto definition = OdDbAttributeDefinition::cast(&entity);
  return definition.isNull() || (definition->isConstant() && isShownAttribute(entity));
}

OdDbObjectId VisibleObjects::ownBlock(const OdDbEntity& entity) const {
  constexpr int kBlockName = 2;
  if (entity.dxfName().find("DIMENSION") == std::string::npos) return {};
  const OdDbBlockTablePtr blocks = OdDbBlockTable::cast(m_database.getBlockTableId().openObject());
  return blocks.isNull() ? OdDbObjectId() : blocks->getAt(OdDbEntityFields(entity).text(kBlockName));
}

// --- how far it reaches ---

Reach VisibleObjects::reachOf(const OdDbEntity& entity) {
  if (const auto reference = OdDbBlockReference::cast(&entity); !reference.isNull())
    return reachOfReference(*reference);
  if (const OdDbObjectId block = ownBlock(entity); !block.isNull()) return reachOfBlock(block);
  Reach reach;
  if (const auto line = OdDbEndlessLine::cast(&entity); !line.isNull()) {
    reach.isEndless = true;
    reach.origins.push_back(line->basePoint());
  } else if (entity.getGeomExtents(reach.box) != eOk) {
    reach.box = Figure(entity).extents();
  }
  return reach;
}

const Reach& VisibleObjects::reachOfBlock(OdDbObjectId block) {
  const auto [known, isNew] = m_blocks.try_emplace(block);
  Reach& kept = known->second;
  const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::cast(block.openObject());
  // A block that contains itself adds nothing.
  if (!isNew || record.isNull() || m_openBlocks.size() >= kDeepest) return kept;
  m_openBlocks.push_back(block);
  Reach whole;
  for (OdDbObjectIteratorPtr it = record->newIterator(); !it->done(); it->step())
    if (const OdDbEntityPtr entity = it->entity(); !entity.isNull() && isShownInBlock(*entity))
      whole.add(reachOf(*entity));
  m_openBlocks.pop_back();
  // One place is enough to tell how large the drawing is.
  if (whole.origins.size() > 1) whole.origins.resize(1);
  return kept = whole;
}

Reach VisibleObjects::reachOfReference(const OdDbBlockReference& reference) {
  Reach reach = reachOfBlock(reference.blockTableRecord()).placed(reference.blockTransform());
  for (OdDbObjectIteratorPtr it = reference.attributeIterator(); !it->done(); it->step())
    if (const OdDbEntityPtr entity = it->entity();
        !entity.isNull() && isShownInBlock(*entity) && isShownAttribute(*entity))
      reach.add(reachOf(*entity));
  const Cells cells(reference);
  reach.box.expandBy(cells.along * (cells.columns - 1)).expandBy(cells.across * (cells.rows - 1));
  return reach;
}

// --- what it looks like ---

void VisibleObjects::show(const OdDbEntity& entity, PlanProbe& probe, const OdGeMatrix3d& toPlan) {
  m_visits = 0;
  showPart(entity, probe, toPlan);
}

void VisibleObjects::showPart(const OdDbEntity& entity, PlanProbe& probe, const OdGeMatrix3d& toPlan) {
  if (probe.isDecided()) return;
  const Reach reach = reachOf(entity);
  if (!reach.isEndless && !probe.needsParts(planOf(reach, toPlan))) return;
  if (++m_visits > kMostVisits)
    Figure::ofBox(reach.box).show(probe, toPlan);
  else if (const auto reference = OdDbBlockReference::cast(&entity); !reference.isNull())
    showReference(*reference, probe, toPlan);
  else if (const OdDbObjectId block = ownBlock(entity); !block.isNull())
    showBlock(block, probe, toPlan);
  else
    Figure(entity).show(probe, toPlan);
}

void VisibleObjects::showBlock(OdDbObjectId block, PlanProbe& probe, const OdGeMatrix3d& toPlan) {
  const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::cast(block.openObject());
  if (record.isNull() || m_openBlocks.size() >= kDeepest ||
      std::ranges::find(m_openBlocks, block) != m_openBlocks.end())
    return;
  m_openBlocks.push_back(block);
  for (OdDbObjectIteratorPtr it = record->newIterator(); !it->done() && !probe.isDecided(); it->step())
    if (const OdDbEntityPtr entity = it->entity(); !entity.isNull() && isShownInBlock(*entity))
      showPart(*entity, probe, toPlan);
  m_openBlocks.pop_back();
}

void VisibleObjects::showReference(const OdDbBlockReference& reference, PlanProbe& probe,
                                   const OdGeMatrix3d& toPlan) {
  const OdDbObjectId block = reference.blockTableRecord();
  const Reach& reach = reachOfBlock(block);
  const OdGeMatrix3d transform = reference.blockTransform();
  const Cells cells(reference);
  for (int row = 0; row < cells.rows; ++row) {
    for (int column = 0; column < cells.columns && !probe.isDecided(); ++column) {
      if (++m_visits > kMostVisits) return Figure::ofBox(reachOf(reference).box).show(probe, toPlan);
      const OdGeMatrix3d placed =
          toPlan * OdGeMatrix3d::translation(cells.along * column + cells.across * row);
      const OdGeMatrix3d inside = placed * transform;
      if (reach.isEndless || probe.needsParts(planOf(reach, inside))) showBlock(block, probe, inside);
      for (OdDbObjectIteratorPtr it = reference.attributeIterator(); !it->done(); it->step())
        if (const OdDbEntityPtr entity = it->entity();
            !entity.isNull() && isShownInBlock(*entity) && isShownAttribute(*entity))
          showPart(*entity, probe, placed);
    }
  }
}

} // namespace host
