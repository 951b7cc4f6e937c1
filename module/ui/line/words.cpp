#include "words.h"

namespace ui::line {

OdString trimmed(const OdString& text) { return OdString(text).trimLeft().trimRight(); }

Words splitFirst(const OdString& line) {
  const OdString text = trimmed(line);
  const std::size_t blank = text.str().find_first_of(L" \t");
  if (blank == std::wstring::npos) return {text, {}};
  return {text.left(static_cast<int>(blank)), trimmed(text.mid(static_cast<int>(blank) + 1))};
}

OdString unquoted(const OdString& text) {
  const int length = text.getLength();
  const bool isQuoted = length >= 2 && text[0] == L'"' && text[length - 1] == L'"';
  return isQuoted ? text.mid(1, length - 2) : text;
}

} // namespace ui::line
