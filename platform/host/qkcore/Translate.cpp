#include "QkCore.h"
#include "sys/folders.h"
#include <cstdlib>
#include <fstream>
#include <unordered_map>

namespace fs = std::filesystem;

namespace {

using Translations = std::unordered_map<OdString, OdString>;

/// $HBHOST_TRANSLATION, else translation.txt beside the program.
fs::path translationPath() {
  fs::path place = sys::environmentPath("HBHOST_TRANSLATION");
  return place.empty() ? sys::programFolder() / "translation.txt" : place;
}

/// Reads up to an equals sign or the end. A backslash takes the meaning from the sign behind it; \n is a line
/// end.
std::string readPart(const std::string& line, std::size_t& position) {
  std::string part;
  for (; position < line.size() && line[position] != '='; ++position) {
    if (line[position] != '\\' || position + 1 == line.size()) {
      part += line[position];
    } else {
      ++position;
      part += line[position] == 'n' ? '\n' : line[position];
    }
  }
  return part;
}

/// Lines of the form original=translation, in UTF-8; others are passed over.
Translations readTranslations(const fs::path& path) {
  Translations translations;
  std::ifstream file(path, std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::size_t position = 0;
    const std::string original = readPart(line, position);
    if (position == line.size() || original.empty()) continue;
    translations[OdString::fromUtf8(original)] = OdString::fromUtf8(readPart(line, ++position));
  }
  return translations;
}

} // namespace

OdString Supp_Translate(const wchar_t* text) {
  static const Translations translations = readTranslations(translationPath());
  const auto found = translations.find(OdString(text));
  return found == translations.end() ? OdString(text) : found->second;
}

OdString Supp_Translate(const char* text) { return Supp_Translate(OdString(text).c_str()); }

int Supp_Translate(void*) { return 0; }

void* Supp_GetFont() { return nullptr; }
