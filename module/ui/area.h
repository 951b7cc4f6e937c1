#pragma once
#include <cstdint>

namespace ui {

/// A place in pixels, from the upper left corner of the dialog or page.
struct Area {
  int left = 0, top = 0, right = 0, bottom = 0;

  int width() const { return right - left; }
  int height() const { return bottom - top; }
  bool operator==(const Area&) const = default;
};

/// The edges of the dialog or page that a control keeps its distance from when the size changes; with both of
/// a pair it grows and shrinks.
struct Anchor {
  bool left = true, top = true, right = false, bottom = false;
};

/// Where a control goes when its dialog grows by so many pixels.
constexpr Area anchored(Area area, const Anchor& anchor, int across, int down) {
  if (anchor.right) area.right += across;
  if (anchor.right && !anchor.left) area.left += across;
  if (anchor.bottom) area.bottom += down;
  if (anchor.bottom && !anchor.top) area.top += down;
  return area;
}

} // namespace ui
