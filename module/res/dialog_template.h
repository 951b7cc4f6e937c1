#pragma once
#include "OdString.h"
#include <cstdint>
#include <span>
#include <vector>

namespace res {

/// A place in dialog units: a quarter of the font's mean width across, an eighth of its height down.
struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

struct Font {
  OdString face;
  int points = 0;
  int weight = 0;
  bool italic = false;
};

struct ControlTemplate {
  unsigned id = 0;
  std::uint32_t style = 0;
  std::uint32_t extendedStyle = 0;
  Rect rect;
  /// "Button", "Edit", "Static", "ListBox", "ScrollBar", "ComboBox", or the name of another class.
  OdString windowClass;
  /// Empty for a control that shows a picture.
  OdString text;
};

/// A dialog as its resource describes it; the controls in tab order.
struct DialogTemplate {
  OdString caption;
  std::uint32_t style = 0;
  std::uint32_t extendedStyle = 0;
  Rect rect;
  Font font;
  std::vector<ControlTemplate> controls;
};

/// The compiled template of the module's dialog of that number (IDD_...). A number that has no dialog throws
/// Error, which names it.
std::span<const std::uint8_t> dialogBytes(unsigned number);

/// The same, read.
DialogTemplate loadDialog(unsigned number);

/// Reads either binary form of a template, the classic and the extended; damage throws Error. `number` names
/// the dialog in messages.
DialogTemplate parseDialog(std::span<const std::uint8_t> bytes, unsigned number);

} // namespace res
