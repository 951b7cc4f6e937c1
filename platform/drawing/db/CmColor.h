#pragma once
#include "OdString.h"

/// A colour as entities carry it: by layer, by block, a palette index, or RGB.
class OdCmColor {
public:
  enum ColorMethod { kByLayer, kByBlock, kByACI, kByColor };

  constexpr OdCmColor() = default;
  /// From a stored colour index: 0 by block, 256 by layer, 1 to 255 the palette (negative: a layer that is
  /// off).
  static OdCmColor fromIndex(int index);
  static OdCmColor fromRgb(OdUInt8 red, OdUInt8 green, OdUInt8 blue);

  ColorMethod colorMethod() const { return m_method; }
  bool isByLayer() const { return m_method == kByLayer; }
  bool isByBlock() const { return m_method == kByBlock; }
  /// The stored index; for RGB colours 256.
  int colorIndex() const;
  /// 0xRRGGBB; meaningful for kByColor only.
  OdUInt32 rgb() const { return m_value; }
  friend bool operator==(const OdCmColor&, const OdCmColor&) = default;

private:
  ColorMethod m_method = kByLayer;
  OdUInt32 m_value = 0;
};
