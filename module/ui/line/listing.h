#pragma once
#include "OdString.h"
#include "ui/dialog_user.h"
#include <vector>

namespace ui::line {

/// The dialog as lines to read: its title, then the controls that are shown, those side by side on one line
/// and those of a group indented under it.
std::vector<OdString> listing(const OpenDialog& dialog);

} // namespace ui::line
