#include "text_face.h"

std::unique_ptr<ui::Face> ui::makeFace(unsigned number, std::span<const std::uint8_t> source,
                                       DialogEvents& events, DialogUser* user) {
  return std::make_unique<text::TextFace>(number, events, user, res::parseDialog(source, number));
}
