#pragma once
#include "DbDatabase.h"
#include "DbEntity.h"
#include "sink.h"
#include <memory>
#include <unordered_map>

namespace picture {

/// Dashes, gaps (negative) and dots (0) in drawing units; empty: continuous.
using Linetype = std::vector<double>;

struct Layer {
  OdDbObjectId id;
  Color color;
  const Linetype* linetype = nullptr;
  double weight = 0; ///< millimetres
  bool isOff = false;
  bool isFrozen = false;
  bool isPlottable = true;
  bool isZero = false; ///< the layer whose members in blocks take the layer of the reference
};

/// The look of an entity with nothing left open.
struct Style {
  Color color;
  const Linetype* linetype = nullptr;
  double linetypeScale = 1;
  double weight = 0; ///< millimetres
};

/// What a reference hands down to the entities of its block.
struct Inherited {
  const Layer* layer = nullptr; ///< stands for layer 0; null outside references
  Style style;                  ///< stands for "by block"
};

/// Looks of entities by the rules of layers and blocks. Answers stay valid as long as this lives; the drawing
/// must not change meanwhile.
class Styles {
public:
  explicit Styles(OdDbDatabase& database);

  /// The layer that decides about the entity. A layer that the drawing lacks counts as one with defaults.
  const Layer& layerOf(const OdDbEntity& entity, const Inherited& inherited);
  Style resolve(const OdDbEntity& entity, const Layer& layer, const Inherited& inherited);
  /// What entities outside references take for "by block".
  Inherited outermost() const;

private:
  const Layer& readLayer(const OdString& name, OdDbObjectId id);
  const Linetype* linetype(OdDbObjectId id);
  double weightOf(OdDb::LineWeight weight) const;

  double m_defaultWeight = 0.25;
  double m_linetypeScale = 1;
  std::unordered_map<OdString, Layer> m_layers;
  std::unordered_map<OdDbObjectId, Linetype> m_linetypes;
};

/// The value of a header variable, or the fallback where the drawing has none.
double headerReal(const OdDbDatabase& database, const OdChar* name, double fallback);
int headerInteger(const OdDbDatabase& database, const OdChar* name, int fallback);

} // namespace picture
