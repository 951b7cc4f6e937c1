#include "drawer.h"
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbBlockTableRecord.h"
#include "DbSymbolTable.h"
#include "annotations.h"
#include "text.h"
#include <algorithm>
#include <cmath>

namespace picture {

namespace {

constexpr std::size_t kDeepest = 100; // references within references

Style emphasized(Style style) {
  constexpr Color kHighlight{0, 102, 255};
  constexpr double kThinnest = 0.25; // millimetres
  constexpr double kTimes = 3;
  style.color = kHighlight;
  style.weight = std::max(style.weight, kThinnest) * kTimes;
  return style;
}

/// Entities that show nothing by themselves.
bool showsNothing(const std::string& kind) {
  return kind == "VIEWPORT" || kind == "SEQEND" || kind == "LIGHT";
}

} // namespace

bool Drawer::isHidden(const Layer& layer, const View& view) {
  return layer.isFrozen || view.frozen.count(layer.id) != 0;
}

bool Drawer::mayGoOn() {
  if (m_visits >= m_mostVisits) m_omissions.isCut = true;
  return ++m_visits <= m_mostVisits;
}

void Drawer::drawSpace(OdDbObjectId block, const View& view, const OdGeMatrix3d& toPicture) {
  drawBlock(block, {view, toPicture, m_styles.outermost()});
}

void Drawer::drawLoose(const std::vector<OdDbEntityPtr>& entities, const View& view,
                       const OdGeMatrix3d& toPicture) {
  for (const OdDbEntityPtr& entity : entities)
    if (mayGoOn()) drawEntity(*entity, {view, toPicture, m_styles.outermost()});
}

std::unique_ptr<Brush> Drawer::brushFor(const OdDbEntity& entity, const View& view,
                                        const OdGeMatrix3d& toPicture) {
  const Inherited top = m_styles.outermost();
  const Layer& layer = m_styles.layerOf(entity, top);
  if (isHidden(layer, view) || layer.isOff || (view.isPlotted && !layer.isPlottable)) return nullptr;
  return std::make_unique<Brush>(m_sink, m_measure, view, toPicture, m_styles.resolve(entity, layer, top));
}

void Drawer::drawBlock(OdDbObjectId block, const Scope& scope) {
  const auto record = OdDbBlockTableRecord::cast(block.openObject());
  // A block that contains itself would never end.
  if (record.isNull() || std::find(m_openBlocks.begin(), m_openBlocks.end(), block) != m_openBlocks.end())
    return;
  if (m_openBlocks.size() >= kDeepest) {
    m_omissions.isCut = true;
    return;
  }
  m_openBlocks.push_back(block);
  for (auto entities = record->newIterator(true, true, true); !entities->done() && mayGoOn();
       entities->step())
    if (const OdDbEntityPtr entity = entities->entity(); !entity.isNull()) drawEntity(*entity, scope);
  m_openBlocks.pop_back();
}

Style Drawer::styleOf(const OdDbEntity& entity, const Layer& layer, const Scope& scope) {
  const Style style = m_styles.resolve(entity, layer, scope.inherited);
  return scope.isHighlighted ? emphasized(style) : style;
}

void Drawer::drawEntity(const OdDbEntity& entity, const Scope& scope) {
  if (!scope.isHighlighted && m_highlighted.contains(entity.objectId())) {
    Scope own = scope;
    own.isHighlighted = true;
    return drawEntity(entity, own);
  }
  const std::string kind = entity.dxfName();
  if (showsNothing(kind) || entity.visibility() == OdDb::kInvisible) return;
  // Dimensions mark what they measure with points, which are no part of their picture.
  if (scope.isDimension && kind == "POINT") return;
  const Layer& layer = m_styles.layerOf(entity, scope.inherited);
  if (isHidden(layer, scope.view)) return;
  bool isDrawn = false;
  try {
    isDrawn = drawShown(entity, layer, scope);
  } catch (const OdError&) {
    // A damaged entity is missing in the picture; the others are not.
  }
  if (!isDrawn) omit(entity, kind);
}

void Drawer::omit(const OdDbEntity& entity, const std::string& kind) {
  if (m_omitted.insert(entity.objectId()).second) ++m_omissions.kinds[kind];
}

bool Drawer::showsAttribute(const OdDbAttributeText& attribute) const {
  if (attribute.visibility() == OdDb::kInvisible || m_attributeMode == kNone) return false;
  return m_attributeMode == kAll || !attribute.isInvisible();
}

bool Drawer::drawShown(const OdDbEntity& entity, const Layer& layer, const Scope& scope) {
  // What is on other layers within a block can be seen although the layer of the reference is off.
  if (const auto reference = OdDbBlockReference::cast(&entity); !reference.isNull()) {
    drawReference(*reference, layer, scope);
    return true;
  }
  if (drawOwnBlock(entity, layer, scope)) return true;
  if (layer.isOff || (scope.view.isPlotted && !layer.isPlottable)) return true;
  const Brush brush(m_sink, m_measure, scope.view, scope.toPicture, styleOf(entity, layer, scope));
  if (const auto definition = OdDbAttributeDefinition::cast(&entity); !definition.isNull()) {
    const bool isValue = definition->isConstant() && showsAttribute(*definition);
    if (m_openBlocks.size() <= 1 || isValue) drawDefinition(*definition, brush);
    return true;
  }
  if (const auto text = OdDbText::cast(&entity); !text.isNull()) {
    drawText(*text, text->textString(), brush);
    return true;
  }
  if (const auto lines = OdDbMText::cast(&entity); !lines.isNull()) {
    drawMText(*lines, brush);
    return true;
  }
  if (entity.dxfName() == "IMAGE") omit(entity, "IMAGE beyond its frame");
  if (entity.dxfName() == "SHAPE") omit(entity, "SHAPE beyond a cross");
  return drawAnnotation(entity, layer, brush, scope) ||
         drawShape(entity.dxfName(), entity, m_database, brush);
}

bool Drawer::drawAnnotation(const OdDbEntity& entity, const Layer& layer, const Brush& brush,
                            const Scope& scope) {
  const DrawBlock drawInside = [&](OdDbObjectId block, const OdGeMatrix3d& placed) {
    drawBlock(block, {scope.view, scope.toPicture * placed, {&layer, brush.style()}, scope.isHighlighted});
  };
  const std::string kind = entity.dxfName();
  if (kind == "LEADER")
    drawLeader(entity, brush, drawInside);
  else if (kind == "MULTILEADER")
    drawMultileader(entity, brush, drawInside);
  else if (kind == "TOLERANCE")
    drawTolerance(entity, brush);
  else
    return false;
  return true;
}

void Drawer::drawReference(const OdDbBlockReference& reference, const Layer& layer, const Scope& scope) {
  const OdDbObjectId block = reference.blockTableRecord();
  if (block.isNull()) {
    omit(reference, "INSERT of a block that does not exist");
    return;
  }
  const OdGeMatrix3d toContainer = reference.blockTransform();
  const Inherited inherited{&layer, styleOf(reference, layer, scope)};
  const double turn = reference.rotation();
  const OdGeVector3d normal = reference.normal();
  const OdGeMatrix3d plane = normal.isZeroLength() ? OdGeMatrix3d() : OdGeMatrix3d::planeToWorld(normal);
  for (int row = 0; row < std::max(1, reference.numRows()); ++row) {
    for (int column = 0; column < std::max(1, reference.numColumns()); ++column) {
      if (!mayGoOn()) return;
      const OdGeVector3d along =
          OdGeVector3d(std::cos(turn), std::sin(turn), 0) * (column * reference.columnSpacing());
      const OdGeVector3d across =
          OdGeVector3d(-std::sin(turn), std::cos(turn), 0) * (row * reference.rowSpacing());
      const OdGeMatrix3d placed = scope.toPicture * OdGeMatrix3d::translation(plane * (along + across));
      drawBlock(block, {scope.view, placed * toContainer, inherited, scope.isHighlighted});
      drawAttributes(reference,
                     {scope.view, placed, {scope.inherited.layer, inherited.style}, scope.isHighlighted});
    }
  }
}

void Drawer::drawAttributes(const OdDbBlockReference& reference, const Scope& scope) {
  for (auto attributes = reference.attributeIterator(); !attributes->done() && mayGoOn();
       attributes->step()) {
    const auto attribute = OdDbAttribute::cast(attributes->entity());
    if (attribute.isNull() || !showsAttribute(*attribute)) continue;
    const Layer& layer = m_styles.layerOf(*attribute, scope.inherited);
    if (isHidden(layer, scope.view) || layer.isOff || (scope.view.isPlotted && !layer.isPlottable)) continue;
    const Brush brush(m_sink, m_measure, scope.view, scope.toPicture, styleOf(*attribute, layer, scope));
    drawAttribute(*attribute, brush);
  }
}

/// Dimensions and tables carry a picture of themselves: a block.
bool Drawer::drawOwnBlock(const OdDbEntity& entity, const Layer& layer, const Scope& scope) {
  constexpr int kBlockName = 2;
  constexpr int kPosition = 10;
  constexpr int kDirection = 11;
  const std::string kind = entity.dxfName();
  const bool isTable = kind == "ACAD_TABLE";
  const bool isDimension = kind.find("DIMENSION") != std::string::npos;
  if (!isTable && !isDimension) return false;
  const Fields fields(entity);
  const auto blocks = OdDbSymbolTable::cast(m_database.getBlockTableId().openObject());
  const OdDbObjectId block = blocks.isNull() ? OdDbObjectId() : blocks->getAt(fields.text(kBlockName));
  if (block.isNull()) return false;
  OdGeMatrix3d placed = scope.toPicture;
  if (isTable) {
    const OdGeVector3d direction =
        fields.has(kDirection) ? fields.point(kDirection).asVector() : OdGeVector3d::kXAxis;
    placed = placed * OdGeMatrix3d::translation(fields.point(kPosition).asVector()) *
             OdGeMatrix3d::rotation(std::atan2(direction.y, direction.x), OdGeVector3d::kZAxis);
  }
  const Inherited inherited{&layer, styleOf(entity, layer, scope)};
  drawBlock(block, {scope.view, placed, inherited, scope.isHighlighted, isDimension});
  return true;
}

} // namespace picture
