#pragma once
#include "HostEdDrawing.h"
#include "HostEdInput.h"

class OdDbEntity;

namespace construct {

/// The mode in which previews are named to the editor (HostEdInput::Preview).
inline constexpr int kPreviewMode = 1;
/// What the trackers of rays answer when the host asks for an input mode.
inline constexpr int kPreviewInputMode = 2;
/// How points are asked for.
inline constexpr int kPointFlags = 4;
/// How a single object is asked for.
inline constexpr int kOneObjectFlags = 8192;

/// Draws the entity of a preview in the way of the host's own commands.
inline void drawPreview(HostEdDrawing& drawing, OdDbEntity* entity) {
  constexpr int kMode = 1;
  constexpr int kView = 512;
  drawing.DrawEntity(entity, kMode, kView, 0, 0);
}

} // namespace construct
