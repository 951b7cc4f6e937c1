#include "sheet.h"
#include "DbViewport.h"
#include <algorithm>
#include <cmath>

namespace picture {

namespace {

/// Whether the viewport is the sheet itself: number 1, or, in drawings that have lost the numbers, one that
/// shows the sheet as it is.
bool isSheet(const OdDbViewport& viewport) {
  constexpr int kSheetNumber = 1;
  constexpr double kRounding = 1e-6; // of the height
  const double height = viewport.height();
  return viewport.number() == kSheetNumber ||
         (std::fabs(viewport.viewHeight() - height) <= kRounding * height &&
          viewport.viewTarget() == OdGePoint3d::kOrigin &&
          viewport.viewCenter().distanceTo(viewport.centerPoint().convert2d()) <= kRounding * height);
}

/// From world coordinates to those of the sheet.
OdGeMatrix3d throughViewport(const OdDbViewport& viewport) {
  const OdGeVector3d direction =
      viewport.viewDirection().isZeroLength() ? OdGeVector3d::kZAxis : viewport.viewDirection();
  const OdGePoint2d middle = viewport.viewCenter();
  return OdGeMatrix3d::translation(viewport.centerPoint().asVector()) *
         OdGeMatrix3d::scaling(viewport.customScale()) *
         OdGeMatrix3d::translation({-middle.x, -middle.y, 0}) *
         OdGeMatrix3d::rotation(viewport.twistAngle(), OdGeVector3d::kZAxis) *
         OdGeMatrix3d::worldToPlane(direction) * OdGeMatrix3d::translation(-viewport.viewTarget().asVector());
}

/// Records the shape of one entity.
class OutlineSink : public Sink {
public:
  void stroke(const Pen&, const Path& path) override {
    outline.insert(outline.end(), path.begin(), path.end());
  }
  void fill(const Color&, const std::vector<Path>&, FillRule) override {}
  void text(const TextRun&) override {}
  void pushClip(const Path&) override {}
  void popClip() override {}
  Path outline;
};

/// The window in the sheet: a rectangle, or the entity that the viewport is clipped by.
class Window {
public:
  Window(const OdDbViewport& viewport, const View& view) {
    const OdGePoint3d center = viewport.centerPoint();
    const OdGeVector2d half(viewport.width() / 2, viewport.height() / 2);
    m_box = {center.convert2d() - half, center.convert2d() + half};
    m_outline = m_box.corners();
    const Fields fields(viewport);
    const OdDbGroup* clip = fields.find(kClipEntity, fields.begin());
    const OdDbObjectId id =
        clip == fields.end() ? OdDbObjectId() : viewport.database()->getOdDbObjectId(clip->handle);
    const OdDbEntityPtr entity = OdDbEntity::cast(id.openObject());
    if (entity.isNull()) return;
    OutlineSink sink;
    const MeasureText measure = [](const std::string&, const Font&) { return 0.0; };
    drawShape(entity->dxfName(), *entity, *viewport.database(),
              Brush(sink, measure, view, OdGeMatrix3d(), Style()));
    if (sink.outline.size() < 3) return;
    m_outline = sink.outline;
    m_isOwnShape = true;
  }
  const Path& outline() const { return m_outline; }
  const Box& box() const { return m_box; }
  /// Whether another entity draws the border.
  bool isOwnShape() const { return m_isOwnShape; }

private:
  static constexpr int kClipEntity = 340;
  Box m_box;
  Path m_outline;
  bool m_isOwnShape = false;
};

View viewThrough(const OdDbViewport& viewport, const View& sheet) {
  View view = sheet;
  for (const OdDbObjectId& layer : viewport.frozenLayers()) view.frozen.insert(layer);
  // Linetypes look the same on the whole sheet unless the drawing wants them to follow the scale of the
  // viewport.
  if (headerInteger(*viewport.database(), L"$PSLTSCALE", 1) != 0) view.dashScale /= viewport.customScale();
  return view;
}

void drawViewport(Drawer& drawer, Sink& sink, const OdDbViewport& viewport, const View& sheet) {
  const bool isSeen =
      viewport.customScale() > 0 && std::isfinite(viewport.customScale()) && viewport.width() > 0;
  if (isSheet(viewport) || !isSeen) return;
  const Window window(viewport, sheet);
  if (!std::all_of(window.outline().begin(), window.outline().end(),
                   [](const Point& corner) { return isDrawable(corner); }))
    return;
  if (viewport.isOn() && sheet.pixel > 0) {
    View view = viewThrough(viewport, sheet);
    view.frame = window.box();
    sink.pushClip(window.outline());
    drawer.drawSpace(viewport.database()->getModelSpaceId(), view, throughViewport(viewport));
    sink.popClip();
  }
  if (window.isOwnShape()) return;
  Points border;
  for (const Point& corner : window.outline()) border.emplace_back(corner.x, corner.y, 0);
  if (const auto brush = drawer.brushFor(viewport, sheet, OdGeMatrix3d())) brush->stroke(border, true);
}

} // namespace

namespace {

Box limitsOf(const OdDbLayout& layout) {
  const OdDbSubclass section{"AcDbLayout", {}};
  const OdDbGroupList& groups = layout.groups();
  const auto real = [&](int code) {
    const int at = odDbGroups::find(groups, section, code);
    return at >= 0 ? groups[at].real : 0;
  };
  const auto pointAfter = [&](int code) { return Point(real(code), real(code + 10)); };
  return {pointAfter(10), pointAfter(11)};
}

} // namespace

std::optional<Paper> paperOf(const OdDbLayout& layout) {
  enum Unit { kInches = 0, kMillimetres = 1 };
  constexpr double kInch = 25.4;
  // The plot settings stand before the layout's own section.
  const OdDbSubclass section{"AcDbPlotSettings", {}};
  const OdDbGroupList& groups = layout.groups();
  const auto real = [&](int code, double fallback) {
    const int at = odDbGroups::find(groups, section, code);
    return at >= 0 ? groups[at].real : fallback;
  };
  const auto integer = [&](int code) {
    const int at = odDbGroups::find(groups, section, code);
    return at >= 0 ? integerOf(groups[at]) : 0;
  };
  double width = real(44, 0);
  double height = real(45, 0);
  double left = real(40, 0);
  double bottom = real(41, 0);
  if (integer(73) % 2 != 0) { // turned by a quarter
    std::swap(width, height);
    std::swap(left, bottom);
  }
  constexpr double kSmallest = 1;
  constexpr double kLargest = 1e5;
  const auto isSize = [](double size) { return size >= kSmallest && size <= kLargest; };
  if (!isSize(width) || !isSize(height)) return std::nullopt;
  double units = integer(72) == kInches ? 1 / kInch : 1;
  const double numerator = real(142, 1);
  const double denominator = real(143, 1);
  if (numerator > 0 && denominator > 0) units *= denominator / numerator;
  Box area{{-left * units, -bottom * units}, {(width - left) * units, (height - bottom) * units}};
  // The limits tell where the paper lies too, and better, where they are as large as it.
  const Box limits = limitsOf(layout);
  constexpr double kSame = 0.01;
  if (std::fabs(limits.width() - area.width()) < kSame * area.width() &&
      std::fabs(limits.height() - area.height()) < kSame * area.height())
    area = limits;
  return Paper{area, units};
}

void drawSheet(Drawer& drawer, Sink& sink, OdDbObjectId block, const View& view) {
  for (const OdDbObjectId& id : odDbViewportsOf(block))
    if (const auto viewport = OdDbViewport::cast(id.openObject()); !viewport.isNull())
      drawViewport(drawer, sink, *viewport, view);
  drawer.drawSpace(block, view, OdGeMatrix3d());
}

} // namespace picture
