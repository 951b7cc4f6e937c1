#pragma once
#include "OdString.h"
#include <cstdint>
#include <span>
#include <string>

namespace res {

/// Reads little-endian values forward through compiled resources; throws Error where the bytes end too soon.
class ByteReader {
public:
  /// `what` names the bytes in messages.
  ByteReader(std::span<const std::uint8_t> bytes, std::string what)
      : m_bytes(bytes), m_what(std::move(what)) {}

  std::uint16_t u16();
  std::uint32_t u32();
  int i16() { return static_cast<std::int16_t>(u16()); }
  std::span<const std::uint8_t> bytes(std::size_t count);
  void skip(std::size_t count) { bytes(count); }
  /// Skips to the next multiple of four from the start; the last value may lack its padding.
  void align4();
  /// `count` UTF-16 units.
  OdString text(std::size_t count);
  /// UTF-16 up to and including a zero unit.
  OdString zeroEndedText();
  bool atEnd() const { return m_position == m_bytes.size(); }
  std::size_t position() const { return m_position; }

private:
  std::span<const std::uint8_t> m_bytes;
  std::string m_what;
  std::size_t m_position = 0;
};

} // namespace res
