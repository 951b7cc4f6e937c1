#pragma once
#include "res/resource_file.h"

/// The compiled resources of everything.rc.
std::span<const std::uint8_t> everything();

/// Its dialogs: 7 has one of every control, 8 a control that no face can show.
inline std::span<const std::uint8_t> everythingDialog(unsigned number) {
  return *res::findResource(everything(), res::ResourceType::dialog, number);
}
