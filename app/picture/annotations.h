#pragma once
// Leaders and tolerances: shapes that take their looks from styles, and may show blocks.
#include "brush.h"
#include <functional>

namespace picture {

/// Draws the contents of a block, in the coordinates that contain the entity.
using DrawBlock = std::function<void(OdDbObjectId block, const OdGeMatrix3d& placed)>;

struct Arrow {
  OdDbObjectId block; ///< whose tip lies at the origin and points along the X axis; null: a filled triangle
  double size = 0;
};
/// The head of an arrow with its tip at a point of a line that leaves in the direction `way`.
void drawArrow(const Arrow& arrow, const OdGePoint3d& tip, const OdGeVector3d& way,
               const OdGeVector3d& normal, const Brush& brush, const DrawBlock& drawBlock);

void drawLeader(const OdDbEntity& leader, const Brush& brush, const DrawBlock& drawBlock);
/// A leader that has its text or block with it.
void drawMultileader(const OdDbEntity& leader, const Brush& brush, const DrawBlock& drawBlock);
/// A frame of cells with the signs of a tolerance.
void drawTolerance(const OdDbEntity& tolerance, const Brush& brush);

} // namespace picture
