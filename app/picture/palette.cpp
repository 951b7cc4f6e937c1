#include "palette.h"
#include <cmath>

namespace picture {

namespace {

constexpr Color kNamed[] = {{0, 0, 0},   {255, 0, 0},   {255, 255, 0}, {0, 255, 0},     {0, 255, 255},
                            {0, 0, 255}, {255, 0, 255}, {0, 0, 0},     {128, 128, 128}, {192, 192, 192}};
constexpr OdUInt8 kGreys[] = {51, 80, 105, 130, 190, 255}; // 250 to 255
constexpr int kFirstHue = 10;
constexpr int kFirstGrey = 250;

/// Indexes from 10 on run through 24 hues; within a hue, five degrees of brightness, each full and half
/// saturated.
Color hueColor(int index) {
  constexpr int kBrightness[] = {255, 165, 127, 76, 38};
  const int brightness = kBrightness[index % 10 / 2];
  const int least = index % 2 == 0 ? 0 : brightness / 2;
  const int hue = index / 10 - 1;
  const double sector = hue / 4.0; // 0 to 6 around the colour circle
  const auto channel = [&](double center) {
    double distance = std::fabs(sector - center);
    if (distance > 3) distance = 6 - distance;
    const double part = distance <= 1 ? 1 : distance >= 2 ? 0 : 2 - distance;
    return static_cast<OdUInt8>(least + part * (brightness - least));
  };
  return {channel(0), channel(2), channel(4)};
}

} // namespace

Color paletteColor(int index) {
  if (index < 1 || index > 255) return kNamed[7];
  if (index < kFirstHue) return kNamed[index];
  if (index < kFirstGrey) return hueColor(index);
  const OdUInt8 grey = kGreys[index - kFirstGrey];
  return {grey, grey, grey};
}

Color fromRgb(OdUInt32 rgb) {
  return {static_cast<OdUInt8>(rgb >> 16), static_cast<OdUInt8>(rgb >> 8), static_cast<OdUInt8>(rgb)};
}

Color colorOf(const OdCmColor& color) {
  return color.colorMethod() == OdCmColor::kByColor ? fromRgb(color.rgb()) : paletteColor(color.colorIndex());
}

} // namespace picture
