#include "sys/narrow.h"
#include "sys/codepage.h"
#include "sys/surrogates.h"
#include "sys/windows/system.h"

namespace sys {

bool encodeNarrow(char32_t character, std::string& bytes) {
  if (character < 0x80) {
    bytes += static_cast<char>(character);
    return true;
  }
  if (GetACP() == CP_UTF8) {
    encodeUtf8(character, bytes);
    return true;
  }
  std::wstring units;
  appendWide(units, character);
  char encoded[8];
  BOOL isMissing = FALSE;
  const int count =
      WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, units.data(), static_cast<int>(units.size()), encoded,
                          sizeof encoded, nullptr, &isMissing);
  if (count <= 0 || isMissing) return false;
  bytes.append(encoded, static_cast<std::size_t>(count));
  return true;
}

std::wstring fromNarrow(std::string_view bytes) {
  std::wstring text;
  if (GetACP() == CP_UTF8) {
    decodeUtf8(bytes, text);
    return text;
  }
  // A byte makes one unit at most.
  text.resize(bytes.size());
  const int count = MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                                        static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(count));
  return text;
}

} // namespace sys
