#include "sys/narrow.h"
#include "sys/codepage.h"

namespace sys {

bool encodeNarrow(char32_t character, std::string& bytes) {
  encodeUtf8(character, bytes);
  return true;
}

std::wstring fromNarrow(std::string_view bytes) {
  std::wstring text;
  decodeUtf8(bytes, text);
  return text;
}

} // namespace sys
