#include "placement.h"

ui::Placement ui::text::initialPlacement(const res::Rect& place) {
  constexpr auto across = [](int units) { return units * 3 / 2; };
  constexpr auto down = [](int units) { return units * 13 / 8; };
  const std::int32_t fields[] = {44,
                                 0,
                                 1, // length, flags, show command
                                 -1,
                                 -1,
                                 -1,
                                 -1, // minimised and maximised: nowhere
                                 across(place.x),
                                 down(place.y),
                                 across(place.x + place.width),
                                 down(place.y + place.height)};
  Placement placement{};
  std::size_t at = 0;
  for (const std::int32_t field : fields)
    for (int shift = 0; shift < 32; shift += 8)
      placement[at++] = static_cast<std::byte>(static_cast<std::uint32_t>(field) >> shift & 0xFF);
  return placement;
}
