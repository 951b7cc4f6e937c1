#pragma once
// Code points beyond U+FFFF in wide text, whose units have 16 bits on one system and 32 on the other.
#include <string>
#include <string_view>

namespace sys {

inline constexpr bool isSurrogate(char32_t c) { return c >= 0xD800 && c < 0xE000; }

/// Appends a code point, as two units where units have 16 bits and it needs them.
inline void appendWide(std::wstring& text, char32_t codePoint) {
  if (sizeof(wchar_t) == 2 && codePoint > 0xFFFF) {
    text += static_cast<wchar_t>(0xD800 + ((codePoint - 0x10000) >> 10));
    text += static_cast<wchar_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
  } else {
    text += static_cast<wchar_t>(codePoint);
  }
}

/// The code point at `position`, which moves past it; an unpaired surrogate is returned as it stands.
inline char32_t nextCodePoint(std::wstring_view text, std::size_t& position) {
  const auto first = static_cast<char32_t>(text[position++]);
  if (first < 0xD800 || first > 0xDBFF || position == text.size()) return first;
  const auto second = static_cast<char32_t>(text[position]);
  // Two units of 32 bits are no pair: such text does not come about, and its halves stay what they are.
  if (sizeof(wchar_t) != 2 || second < 0xDC00 || second > 0xDFFF) return first;
  ++position;
  return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

} // namespace sys
