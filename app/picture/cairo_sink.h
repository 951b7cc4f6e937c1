#pragma once
#include "fonts.h"

namespace picture {

/// Where a picture's coordinates lie on a surface, whose origin is the upper left corner.
struct Placement {
  double scale = 1; ///< surface units per picture unit
  Point low;        ///< the picture's point at the lower left corner of the surface
  double width = 0; ///< of the surface
  double height = 0;
  double millimetre = 1; ///< of paper, in surface units
  double thinnest = 1;   ///< line that can be seen, in surface units
};

/// Draws on a cairo surface.
class CairoSink : public Sink {
public:
  /// The surface must live as long as the sink.
  CairoSink(cairo_surface_t* surface, const Placement& placement, Fonts& fonts);
  ~CairoSink() override;

  void stroke(const Pen& pen, const Path& path) override;
  void fill(const Color& color, const std::vector<Path>& loops, FillRule rule) override;
  void shade(const Shading& shading, const std::vector<Path>& loops) override;
  void text(const TextRun& run) override;
  void pushClip(const Path& polygon) override;
  void popClip() override;
  /// What went wrong; null: nothing.
  const char* error() const;

private:
  Point place(const Point& point) const;
  void setColor(const Color& color);
  bool tracePolygon(const std::vector<Path>& loops);
  void traceLine(const Path& path);
  void setDashes(const Pen& pen, const Path& path, double width);
  bool canSee(const Path& placed, double margin) const;

  cairo_t* m_cairo;
  Placement m_placement;
  Fonts& m_fonts;
  Box m_surface;
  Box m_reach; ///< cairo's numbers do not go farther
};

} // namespace picture
