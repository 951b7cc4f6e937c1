#pragma once
#include "OdString.h"
#include <array>
#include <cstddef>
#include <optional>

namespace frame {

/// Where a dialog's window was: the Windows structure WINDOWPLACEMENT, byte for byte.
using WindowPlacement = std::array<std::byte, 44>;

/// Stores the placement of a dialog in the host's profile; `section` is its key ("Dialogs\EAttEdit"). Without
/// a profile nothing happens.
void savePlacement(const OdString& section, const WindowPlacement& placement);

/// The stored placement, or nothing: the dialog then opens at its default place. With the right Control key
/// held down that is always so, which gets a window back that was stored off the screen.
std::optional<WindowPlacement> storedPlacement(const OdString& section, bool rightControlHeld);

} // namespace frame
