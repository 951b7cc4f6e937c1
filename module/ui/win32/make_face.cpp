#include "ui/text/text_face.h"
#include "win32_face.h"

std::unique_ptr<ui::Face> ui::makeFace(unsigned number, std::span<const std::uint8_t> source,
                                       DialogEvents& events, DialogUser* user) {
  if (user && !user->needsWindow())
    return std::make_unique<text::TextFace>(number, events, user, res::parseDialog(source, number));
  return std::make_unique<win32::Win32Face>(number, source, events, user);
}
