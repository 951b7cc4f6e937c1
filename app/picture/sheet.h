#pragma once
#include "DbLayout.h"
#include "drawer.h"
#include <optional>

namespace picture {

/// A sheet of paper in the units of its layout.
struct Paper {
  Box area;
  double unitsPerMillimetre = 1;
};

/// The paper of a layout; none where the drawing does not say.
std::optional<Paper> paperOf(const OdDbLayout& layout);

/// Draws the contents of a layout: what its viewports show of model space, and what lies on the sheet itself.
/// Without pixel in the view, the viewports are drawn as empty windows.
void drawSheet(Drawer& drawer, Sink& sink, OdDbObjectId block, const View& view);

} // namespace picture
