#include "DxfText.h"
#include "OdError.h"
#include <algorithm>

int DxfText::lineOf(const char* place) const {
  return 1 + static_cast<int>(std::count(bytes.data(), place, '\n'));
}

std::string DxfText::describe(const char* place) const {
  return isBinary ? "byte " + std::to_string(place - bytes.data()) : "line " + std::to_string(lineOf(place));
}

void DxfText::fail(const char* place, std::string_view sentence) const {
  OdString message = fileName;
  message += L": ";
  message += OdString::fromUtf8(describe(place));
  message += L": ";
  message += OdString::fromUtf8(sentence);
  throw OdError_FileException(eDxfReadError, message);
}

std::string dxfQuoted(std::string_view bytes) {
  constexpr std::size_t kMostShown = 40;
  std::string shown = "\"";
  for (const char c : bytes.substr(0, kMostShown)) shown += c >= 0x20 && c < 0x7F ? c : '?';
  return shown + (bytes.size() > kMostShown ? "...\"" : "\"");
}
