#pragma once
#include "DbAttributeText.h"
#include "DbBlockReference.h"
#include "DbDatabase.h"
#include "brush.h"
#include "fields.h"
#include <map>

namespace picture {

/// What a picture does not show.
struct Omissions {
  std::map<std::string, int> kinds; ///< entities that cannot be drawn, by record name
  bool isCut = false;               ///< the drawing holds more than a picture can
};

/// Walks over the entities of blocks and hands what they look like to a sink.
class Drawer {
public:
  /// References within references can multiply without bound: after `mostVisits` entities the picture is cut.
  Drawer(OdDbDatabase& database, Sink& sink, const MeasureText& measure, long mostVisits = kMostVisits)
      : m_database(database), m_sink(sink), m_measure(measure), m_styles(database),
        m_attributeMode(headerInteger(database, L"$ATTMODE", kAsStored)), m_mostVisits(mostVisits) {}

  /// Draws model space or the contents of a sheet; the window's view must live until the call returns.
  /// Viewports are passed over.
  void drawSpace(OdDbObjectId block, const View& view, const OdGeMatrix3d& toPicture);
  /// Draws entities as if they stood in the space, whether they are in a drawing or not.
  void drawLoose(const std::vector<OdDbEntityPtr>& entities, const View& view, const OdGeMatrix3d& toPicture);
  /// Has these objects stand out from now on.
  void highlight(const std::vector<OdDbObjectId>& objects) {
    m_highlighted.insert(objects.begin(), objects.end());
  }
  /// A brush for an entity of a space; null when the entity's layer or its own state hides it.
  std::unique_ptr<Brush> brushFor(const OdDbEntity& entity, const View& view, const OdGeMatrix3d& toPicture);

  OdDbDatabase& database() const { return m_database; }
  const Omissions& omissions() const { return m_omissions; }

private:
  static constexpr long kMostVisits = 5'000'000;
  enum AttributeMode { kNone = 0, kAsStored = 1, kAll = 2 };
  /// Where the walk is: the block's coordinates, and what the reference to it hands down.
  struct Scope {
    const View& view;
    OdGeMatrix3d toPicture;
    Inherited inherited;
    bool isHighlighted = false;
    bool isDimension = false; ///< the block is the picture of a dimension
  };
  void drawBlock(OdDbObjectId block, const Scope& scope);
  void drawEntity(const OdDbEntity& entity, const Scope& scope);
  /// False for kinds that cannot be drawn.
  bool drawShown(const OdDbEntity& entity, const Layer& layer, const Scope& scope);
  bool drawAnnotation(const OdDbEntity& entity, const Layer& layer, const Brush& brush, const Scope& scope);
  void drawReference(const OdDbBlockReference& reference, const Layer& layer, const Scope& scope);
  void drawAttributes(const OdDbBlockReference& reference, const Scope& scope);
  bool drawOwnBlock(const OdDbEntity& entity, const Layer& layer, const Scope& scope);
  Style styleOf(const OdDbEntity& entity, const Layer& layer, const Scope& scope);
  bool mayGoOn();
  bool showsAttribute(const OdDbAttributeText& attribute) const;
  void omit(const OdDbEntity& entity, const std::string& kind);
  static bool isHidden(const Layer& layer, const View& view);

  OdDbDatabase& m_database;
  Sink& m_sink;
  const MeasureText& m_measure;
  Styles m_styles;
  std::vector<OdDbObjectId> m_openBlocks; ///< the walk is inside of these
  std::unordered_set<OdDbObjectId> m_highlighted;
  Omissions m_omissions;
  std::unordered_set<OdDbObjectId> m_omitted; ///< each counts once, wherever it would be seen
  const int m_attributeMode;
  long m_visits = 0;
  const long m_mostVisits;
};

// --- the kinds of entities; the brush is for the coordinates that contain the entity ---

/// Draws an entity from its groups, if it has a shape that is known. False when it has not. It need not
/// belong to the drawing that it is drawn with.
bool drawShape(const std::string& kind, const OdDbEntity& entity, OdDbDatabase& database, const Brush& brush);
/// An entity of several records: an old polyline with its vertices.
void drawOldPolyline(const OdDbEntity& entity, const Brush& brush);
void drawLwPolyline(const Fields& polyline, const Brush& brush);
void drawHatch(const Fields& hatch, const Brush& brush);

} // namespace picture
