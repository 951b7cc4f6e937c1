#pragma once
#include "OdPlatform.h"

/// How far an entity lets shine through what lies behind it: by layer, by block, or a value of its own.
class OdCmTransparency {
public:
  enum Method { kByLayer = 0, kByBlock = 1, kByAlpha = 2 };

  constexpr OdCmTransparency() = default;
  /// 255 is opaque, 0 invisible.
  static constexpr OdCmTransparency fromAlpha(OdUInt8 alpha) { return OdCmTransparency(kByAlpha, alpha); }
  /// From and to the form that drawing files store: the method in the highest byte, alpha in the lowest.
  static constexpr OdCmTransparency fromStored(OdUInt32 value) {
    const OdUInt32 method = value >> 24;
    if (method == kByAlpha) return fromAlpha(static_cast<OdUInt8>(value & 0xFF));
    return OdCmTransparency(method == kByBlock ? kByBlock : kByLayer, 255);
  }
  constexpr OdUInt32 stored() const {
    return static_cast<OdUInt32>(m_method) << 24 | (m_method == kByAlpha ? m_alpha : 0u);
  }

  constexpr Method method() const { return m_method; }
  /// Meaningful for kByAlpha only.
  constexpr OdUInt8 alpha() const { return m_alpha; }
  friend bool operator==(const OdCmTransparency&, const OdCmTransparency&) = default;

private:
  constexpr OdCmTransparency(Method method, OdUInt8 alpha) : m_method(method), m_alpha(alpha) {}
  Method m_method = kByLayer;
  OdUInt8 m_alpha = 255;
};
