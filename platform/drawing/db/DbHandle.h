#pragma once
#include "OdString.h"
#include <compare>

/// The identity of an object within a drawing: a 64-bit number, written in hexadecimal. 0 means none.
class OdDbHandle {
public:
  constexpr OdDbHandle() = default;
  constexpr OdDbHandle(OdUInt64 value) : m_value(value) {}
  /// Reads hexadecimal text; anything else gives the null handle.
  explicit OdDbHandle(const OdChar* text);

  constexpr bool isNull() const { return m_value == 0; }
  constexpr operator OdUInt64() const { return m_value; }
  /// Upper-case hexadecimal text without leading zeros ("0" for the null handle).
  OdString ascii() const;

private:
  OdUInt64 m_value = 0;
};
