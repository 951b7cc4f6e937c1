#pragma once
#include "OdString.h"
#include <cstdint>
#include <span>
#include <vector>

namespace res {

/// An item of a menu as its resource describes it.
struct MenuTemplateItem {
  /// 0 for popups and separators.
  unsigned id = 0;
  OdString text;
  bool grayed = false;
  bool checked = false;
  /// What a popup opens.
  std::vector<MenuTemplateItem> items;
};

/// The module's menu of that number, whose items are popups; there is at least one. A number that has no menu
/// throws Error, which names it.
std::vector<MenuTemplateItem> loadMenu(unsigned number);

/// Reads the binary form of a MENU statement; damage, and a menu without popups, throws Error. `number` names
/// the menu in messages.
std::vector<MenuTemplateItem> parseMenu(std::span<const std::uint8_t> bytes, unsigned number);

} // namespace res
