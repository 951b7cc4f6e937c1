#include "placement.h"

namespace ui::text {
namespace {

constexpr std::size_t normalRectangle = 28; // its offset in the record

void put(Placement& placement, std::size_t at, int value) {
  for (int shift = 0; shift < 32; shift += 8)
    placement[at++] = static_cast<std::byte>(static_cast<std::uint32_t>(value) >> shift & 0xFF);
}

int get(const Placement& placement, std::size_t at) {
  std::uint32_t value = 0;
  for (int shift = 0; shift < 32; shift += 8)
    value |= std::to_integer<std::uint32_t>(placement[at++]) << shift;
  return static_cast<int>(value);
}

} // namespace

Area pixels(const res::Rect& place) {
  constexpr auto across = [](int units) { return units * 3 / 2; };
  constexpr auto down = [](int units) { return units * 13 / 8; };
  return {across(place.x), down(place.y), across(place.x + place.width), down(place.y + place.height)};
}

Area normalArea(const Placement& placement) {
  const auto field = [&](std::size_t index) { return get(placement, normalRectangle + 4 * index); };
  return {field(0), field(1), field(2), field(3)};
}

void setNormalArea(Placement& placement, const Area& area) {
  std::size_t at = normalRectangle;
  for (const int edge : {area.left, area.top, area.right, area.bottom}) {
    put(placement, at, edge);
    at += 4;
  }
}

Placement initialPlacement(const res::Rect& place) {
  constexpr int nowhere = -1; // the minimised and maximised positions
  Placement placement{};
  std::size_t at = 0;
  for (const int field :
       {44, 0, 1, nowhere, nowhere, nowhere, nowhere}) { // length, flags, show command first
    put(placement, at, field);
    at += 4;
  }
  setNormalArea(placement, pixels(place));
  return placement;
}

} // namespace ui::text
