#include "byte_reader.h"
#include "error.h"
#include <algorithm>

namespace res {
namespace {

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

std::wstring widen(std::u16string_view units) {
  std::wstring text;
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t c = units[i];
    if (sizeof(wchar_t) > 2 && isHighSurrogate(units[i]) && i + 1 < units.size() &&
        isLowSurrogate(units[i + 1]))
      c = 0x10000 + ((c - 0xD800) << 10) + (units[++i] - 0xDC00u);
    text += static_cast<wchar_t>(c);
  }
  return text;
}

} // namespace

std::span<const std::uint8_t> ByteReader::bytes(std::size_t count) {
  if (count > m_bytes.size() - m_position)
    throw Error(m_what + " is damaged: it ends at byte " + std::to_string(m_bytes.size()) + ", where " +
                std::to_string(count) + " more are expected from byte " + std::to_string(m_position));
  const auto result = m_bytes.subspan(m_position, count);
  m_position += count;
  return result;
}

std::uint16_t ByteReader::u16() {
  const auto b = bytes(2);
  return static_cast<std::uint16_t>(b[0] | b[1] << 8);
}

std::uint32_t ByteReader::u32() {
  const std::uint32_t low = u16();
  return low | static_cast<std::uint32_t>(u16()) << 16;
}

void ByteReader::align4() { m_position = std::min(m_bytes.size(), (m_position + 3) / 4 * 4); }

OdString ByteReader::text(std::size_t count) {
  const auto raw = bytes(count * 2);
  std::u16string units;
  for (std::size_t i = 0; i < raw.size(); i += 2) units += static_cast<char16_t>(raw[i] | raw[i + 1] << 8);
  return OdString(widen(units));
}

OdString ByteReader::zeroEndedText() {
  std::u16string units;
  while (const char16_t unit = u16()) units += unit;
  return OdString(widen(units));
}

} // namespace res
