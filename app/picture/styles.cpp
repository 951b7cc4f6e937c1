#include "styles.h"
#include "DbLayerTableRecord.h"
#include "DbLinetypeTableRecord.h"
#include "palette.h"
#include <cmath>

namespace picture {

namespace {

bool isName(const OdString& text, const OdChar* name) { return text.iCompare(name) == 0; }

Linetype readDashes(const OdDbLinetypeTableRecord& record) {
  Linetype dashes;
  double length = 0;
  for (int i = 0; i < record.numDashes(); ++i) {
    const double dash = record.dashLengthAt(i);
    if (!std::isfinite(dash)) return {};
    length += std::fabs(dash);
    dashes.push_back(dash);
  }
  return length > 0 ? dashes : Linetype();
}

} // namespace

double headerReal(const OdDbDatabase& database, const OdChar* name, double fallback) {
  const OdResBufPtr value = database.getSysVar(name);
  const double real = value.isNull() ? fallback : value->getDouble();
  return std::isfinite(real) ? real : fallback;
}

int headerInteger(const OdDbDatabase& database, const OdChar* name, int fallback) {
  const OdResBufPtr value = database.getSysVar(name);
  return value.isNull() ? fallback : value->getInt32();
}

Styles::Styles(OdDbDatabase& database) {
  const double scale = headerReal(database, L"$LTSCALE", 1);
  if (scale > 0) m_linetypeScale = scale;
}

Inherited Styles::outermost() const {
  Inherited top;
  top.style.color = paletteColor(7);
  top.style.linetypeScale = m_linetypeScale;
  top.style.weight = m_defaultWeight;
  return top;
}

double Styles::weightOf(OdDb::LineWeight weight) const {
  constexpr double kHundredth = 0.01;
  return weight < 0 ? m_defaultWeight : static_cast<int>(weight) * kHundredth;
}

const Linetype* Styles::linetype(OdDbObjectId id) {
  if (id.isNull()) return nullptr;
  const auto [entry, isNew] = m_linetypes.try_emplace(id);
  if (isNew) {
    const auto record = OdDbLinetypeTableRecord::cast(id.openObject());
    if (!record.isNull()) entry->second = readDashes(*record);
  }
  return &entry->second;
}

const Layer& Styles::readLayer(const OdString& name, OdDbObjectId id) {
  Layer layer;
  layer.id = id;
  layer.isZero = name == L"0" || name.isEmpty();
  layer.color = paletteColor(7);
  layer.weight = m_defaultWeight;
  // Never plotted, whatever the drawing says.
  layer.isPlottable = !isName(name, L"DEFPOINTS");
  if (const auto record = OdDbLayerTableRecord::cast(id.openObject()); !record.isNull()) {
    layer.color = colorOf(record->color());
    layer.linetype = linetype(record->linetypeObjectId());
    layer.weight = weightOf(record->lineWeight());
    layer.isOff = record->isOff();
    layer.isFrozen = record->isFrozen();
    layer.isPlottable = layer.isPlottable && record->isPlottable();
  }
  return m_layers.emplace(name, layer).first->second;
}

const Layer& Styles::layerOf(const OdDbEntity& entity, const Inherited& inherited) {
  const OdString name = entity.layer();
  const auto known = m_layers.find(name);
  const Layer& layer = known != m_layers.end() ? known->second : readLayer(name, entity.layerId());
  return layer.isZero && inherited.layer ? *inherited.layer : layer;
}

Style Styles::resolve(const OdDbEntity& entity, const Layer& layer, const Inherited& inherited) {
  Style style;
  const OdCmColor color = entity.color();
  style.color = color.isByLayer() ? layer.color : color.isByBlock() ? inherited.style.color : colorOf(color);
  if (entity.transparency().method() == OdCmTransparency::kByAlpha)
    style.color.alpha = entity.transparency().alpha();

  const OdString name = entity.linetype();
  if (name.isEmpty() || isName(name, L"BYLAYER"))
    style.linetype = layer.linetype;
  else
    style.linetype = isName(name, L"BYBLOCK") ? inherited.style.linetype : linetype(entity.linetypeId());
  const double scale = entity.linetypeScale();
  style.linetypeScale = m_linetypeScale * (scale > 0 && std::isfinite(scale) ? scale : 1);

  const OdDb::LineWeight weight = entity.lineWeight();
  if (weight == OdDb::kLnWtByLayer)
    style.weight = layer.weight;
  else
    style.weight = weight == OdDb::kLnWtByBlock ? inherited.style.weight : weightOf(weight);
  return style;
}

} // namespace picture
