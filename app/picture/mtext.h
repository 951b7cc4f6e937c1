#pragma once
#include "DbMText.h"
#include "brush.h"
#include <optional>

namespace picture {

/// Columns that a text of several lines is broken into.
struct TextColumns {
  double width = 0; ///< of a column
  double gutter = 0;
  /// Where columns end, 0 where only the text says so; the last one goes on. Empty: there is one column.
  std::vector<double> heights;
};

/// What there is to know about a text of several lines, wherever it is stored. Lengths are in drawing units.
struct LinesOfText {
  OdString contents; ///< with formatting codes
  OdDbObjectId style;
  OdGePoint3d location;
  OdGeVector3d direction = OdGeVector3d::kXAxis;
  OdGeVector3d normal = OdGeVector3d::kZAxis;
  double height = 1; ///< of capital letters
  double width = 0;  ///< at which lines are wrapped; 0: nowhere
  int attachment = OdDbMText::kTopLeft;
  int flow = OdDbMText::kByStyle;
  double spacing = 1;   ///< factor of the distance between lines
  bool isExact = false; ///< the distance does not grow with large letters
  std::optional<Color> background;
  double margin = 0; ///< of background and frame around the text
  bool isFramed = false;
  TextColumns columns;
};

void drawLines(const LinesOfText& text, const Brush& brush);

} // namespace picture
