#pragma once
#include "brush.h"
#include "mtext_format.h"

namespace picture {

/// Draws pieces of text one behind the other on a base line.
class RunDrawer {
public:
  explicit RunDrawer(const Brush& brush);

  OdGePoint3d origin; ///< start of the next piece, in the coordinates of the brush
  OdGeVector3d along; ///< one height of capital letters along the base line
  OdGeVector3d up;    ///< the same upwards

  /// Draws the piece with its lines, and moves the origin to its end. Height and width factor of the format
  /// do not count: they are in the vectors.
  void draw(const OdString& text, const TextFormat& format);

private:
  void line(const OdGePoint3d& start, double level, const TextFormat& format) const;
  const Brush& m_brush;
};

} // namespace picture
