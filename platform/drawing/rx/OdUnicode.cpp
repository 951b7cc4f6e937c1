#include "OdUnicode.h"
#include <algorithm>
#include <iterator>

namespace {

/// The code points first, first + stride ... last map to themselves plus delta.
struct CaseRange {
  char32_t first;
  char32_t last;
  OdUInt8 stride;
  OdInt32 delta;
};

#include "CaseTables.inc"

template <std::size_t N>
char32_t mapped(const CaseRange (&table)[N], char32_t c, char32_t otherwise) {
  const auto* range = std::lower_bound(std::begin(table), std::end(table), c,
                                       [](const CaseRange& r, char32_t value) { return r.last < value; });
  if (range == std::end(table) || c < range->first || (c - range->first) % range->stride != 0)
    return otherwise;
  return static_cast<char32_t>(static_cast<OdInt32>(c) + range->delta);
}

} // namespace

char32_t odNextCodePoint(std::wstring_view text, std::size_t& position) {
  const auto unit = static_cast<char32_t>(text[position++]);
  if (unit < 0xD800 || unit >= 0xDC00 || position == text.size()) return unit;
  const auto low = static_cast<char32_t>(text[position]);
  if (low < 0xDC00 || low >= 0xE000) return unit;
  ++position;
  return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

void odAppendCodePoint(std::wstring& text, char32_t codePoint) {
  if (codePoint > 0x10FFFF) codePoint = kOdReplacementCharacter;
  if constexpr (sizeof(OdChar) == 2) {
    if (codePoint >= 0x10000) {
      text += static_cast<OdChar>(0xD800 + ((codePoint - 0x10000) >> 10));
      codePoint = 0xDC00 + (codePoint & 0x3FF);
    }
  }
  text += static_cast<OdChar>(codePoint);
}

char32_t odToUpper(char32_t c) {
  if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 32 : c;
  return mapped(kToUpper, c, c);
}

char32_t odToLower(char32_t c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  return mapped(kToLower, c, c);
}

char32_t odToFolded(char32_t c) {
  if (c < 0x80) return odToLower(c);
  return mapped(kToFolded, c, odToLower(c));
}
