#pragma once
#include "Ge/GeMatrix3d.h"
#include "sink.h"
#include "styles.h"
#include <unordered_set>

namespace picture {

using Points = std::vector<OdGePoint3d>;

/// What is common to everything that is seen through one window: the whole picture, or a viewport of a sheet.
struct View {
  /// Size of a pixel in picture units, by which curves become segments; 0 while only the extents are asked
  /// for.
  double pixel = 0;
  Box frame;                               ///< what can be seen; empty while that is not known
  std::unordered_set<OdDbObjectId> frozen; ///< layers that are frozen here only
  bool isPlotted = false;                  ///< layers that are not plotted are left out
  double dashScale = 1;                    ///< of linetypes, beside the scale of the transformation
};

/// Draws lines and areas that are given in the coordinates of one plane or block.
class Brush {
public:
  Brush(Sink& sink, const MeasureText& measure, const View& view, const OdGeMatrix3d& toPicture,
        const Style& style)
      : m_sink(sink), m_measure(measure), m_view(view), m_matrix(toPicture), m_style(style) {}

  const View& view() const { return m_view; }
  const Style& style() const { return m_style; }
  const OdGeMatrix3d& matrix() const { return m_matrix; }
  Sink& sink() const { return m_sink; }
  double measure(const std::string& text, const Font& font) const { return m_measure(text, font); }
  /// For coordinates of the plane with this normal, by the rule of drawing files.
  Brush inPlane(const OdGeVector3d& normal) const;
  /// For coordinates of something that is placed in this brush's coordinates.
  Brush placed(const OdGeMatrix3d& placement) const;
  Brush withColor(const Color& color) const;

  /// Picture units per unit of length, on average over the directions.
  double scale() const;
  Point map(const OdGePoint3d& point) const { return (m_matrix * point).convert2d(); }
  OdGeVector2d map(const OdGeVector3d& vector) const { return (m_matrix * vector).convert2d(); }
  /// How many segments show a part of a circle.
  int segments(double radius, double sweep) const;
  /// The visible part in plane coordinates; false while that is not known or the plane is seen from its edge.
  bool visiblePart(Box& box) const;

  /// Lines with the linetype and lineweight of the style. `width` is in the plane's units; 0: the lineweight.
  void stroke(const Points& points, bool closed = false, double width = 0) const;
  /// Lines without linetype.
  void strokeContinuous(const Points& points) const;
  void fill(const std::vector<Points>& loops, FillRule rule = FillRule::evenOdd) const;
  /// The shading is in the plane's coordinates.
  void shade(const Shading& shading, const std::vector<Points>& loops) const;

private:
  Pen pen(double width) const;
  /// False when a point lies nowhere that can be drawn.
  bool mapAll(const Points& points, Path& path) const;
  bool mapLoops(const std::vector<Points>& loops, std::vector<Path>& paths) const;

  Sink& m_sink;
  const MeasureText& m_measure;
  const View& m_view;
  OdGeMatrix3d m_matrix;
  Style m_style;
};

/// Whether the number can be a coordinate of a picture; nothing sensible lies farther away.
bool isDrawable(double coordinate);
inline bool isDrawable(const Point& point) { return isDrawable(point.x) && isDrawable(point.y); }

} // namespace picture
