#include "CmColor.h"

namespace {
constexpr int kByBlockIndex = 0;
constexpr int kByLayerIndex = 256;
} // namespace

OdCmColor OdCmColor::fromIndex(int index) {
  const int size = index < 0 ? -index : index;
  OdCmColor color;
  if (size == kByBlockIndex) {
    color.m_method = kByBlock;
  } else if (size < kByLayerIndex) {
    color.m_method = kByACI;
    color.m_value = static_cast<OdUInt32>(size);
  }
  return color;
}

OdCmColor OdCmColor::fromRgb(OdUInt8 red, OdUInt8 green, OdUInt8 blue) {
  OdCmColor color;
  color.m_method = kByColor;
  color.m_value = static_cast<OdUInt32>(red << 16 | green << 8 | blue);
  return color;
}

int OdCmColor::colorIndex() const {
  if (m_method == kByACI) return static_cast<int>(m_value);
  return m_method == kByBlock ? kByBlockIndex : kByLayerIndex;
}
