#include "sys/narrow.h"
#include "sys/codepage.h"
#include "sys/surrogates.h"

namespace sys {

void appendNarrow(std::wstring_view text, std::string& bytes) {
  const std::size_t old = bytes.size();
  bytes.resize(old + text.size());
  // Most text is ASCII from beginning to end.
  std::size_t at = 0;
  for (; at < text.size() && static_cast<char32_t>(text[at]) < 0x80; ++at)
    bytes[old + at] = static_cast<char>(text[at]);
  bytes.resize(old + at);
  while (at < text.size()) {
    const char32_t c = nextCodePoint(text, at);
    if (isSurrogate(c) || c > 0x10FFFF || !encodeNarrow(c, bytes)) bytes += '?';
  }
}

std::string toNarrow(std::wstring_view text) {
  std::string bytes;
  appendNarrow(text, bytes);
  return bytes;
}

} // namespace sys
