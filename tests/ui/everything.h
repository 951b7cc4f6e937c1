#pragma once
#include "res/resource_file.h"

/// The compiled resources of everything.rc.
std::span<const std::uint8_t> everything();

/// Its dialogs: 7 and 9 have one of every control, 8 a control that no face can show; 10 and 11 are pages.
inline std::span<const std::uint8_t> everythingDialog(unsigned number) {
  return *res::findResource(everything(), res::ResourceType::dialog, number);
}

/// Its menu.
inline std::span<const std::uint8_t> everythingMenu() {
  return *res::findResource(everything(), res::ResourceType::menu, 12);
}
