#pragma once
#include "res/dialog_template.h"
#include "ui/dialog.h"

namespace ui::text {

/// Where a dialog stands that was never moved: shown normally, at the place of its template, in pixels of a
/// screen with 96 dots an inch.
Placement initialPlacement(const res::Rect& place);

} // namespace ui::text
