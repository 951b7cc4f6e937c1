#pragma once
#include "res/dialog_template.h"
#include "ui/area.h"
#include "ui/dialog.h"

namespace ui::text {

/// A place of a template in pixels of a screen with 96 dots an inch.
Area pixels(const res::Rect& place);

/// The normal rectangle of a placement.
Area normalArea(const Placement& placement);
void setNormalArea(Placement& placement, const Area& area);

/// Where a dialog stands that was never moved: shown normally, at the place of its template, in pixels of a
/// screen with 96 dots an inch.
Placement initialPlacement(const res::Rect& place);

} // namespace ui::text
