#include "OdString.h"
#include "OdError.h"
#include "OdUnicode.h"
#include <algorithm>

namespace {

constexpr std::wstring_view kBlanks = L" \t\n\v\f\r";

std::size_t clamped(int value) { return static_cast<std::size_t>(std::max(value, 0)); }

int indexOrMinusOne(std::size_t position) {
  return position == std::wstring::npos ? -1 : static_cast<int>(position);
}

template <class Map>
std::wstring mapCodePoints(std::wstring_view text, Map map) {
  std::wstring result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) odAppendCodePoint(result, map(odNextCodePoint(text, i)));
  return result;
}

/// The length that the first byte of a UTF-8 sequence announces; 0 when no sequence begins with it.
std::size_t sequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC2) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  return lead < 0xF5 ? 4 : 0;
}

/// Decodes the sequence at the start of `bytes`; length 0 when it is malformed.
struct Utf8Sequence {
  char32_t codePoint = 0;
  std::size_t length = 0;

  Utf8Sequence(std::string_view bytes, OdString::Surrogates surrogates) {
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(bytes.front());
    const std::size_t announced = sequenceLength(lead);
    if (announced == 0 || announced > bytes.size()) return;
    char32_t c = announced == 1 ? lead : lead & (0x7Fu >> announced);
    for (std::size_t i = 1; i < announced; ++i) {
      const auto byte = static_cast<unsigned char>(bytes[i]);
      if ((byte & 0xC0) != 0x80) return;
      c = (c << 6) | (byte & 0x3Fu);
    }
    const bool refused = odIsSurrogate(c) && surrogates == OdString::Surrogates::kReplace;
    if (c < smallest[announced] || refused || c > 0x10FFFF) return;
    codePoint = c;
    length = announced;
  }
};

void appendUtf8(std::string& bytes, char32_t c) {
  const auto byte = [&bytes](char32_t value) { bytes += static_cast<char>(value); };
  const auto trail = [&byte, c](int shift) { byte(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) {
    byte(c);
  } else if (c < 0x800) {
    byte(0xC0 | (c >> 6));
    trail(0);
  } else if (c < 0x10000) {
    byte(0xE0 | (c >> 12));
    trail(6);
    trail(0);
  } else {
    byte(0xF0 | (c >> 18));
    trail(12);
    trail(6);
    trail(0);
  }
}

} // namespace

OdString::OdString(const char* text) {
  if (!text) return;
  const std::string_view bytes(text);
  m_text.reserve(bytes.size());
  for (const char c : bytes) m_text += static_cast<OdChar>(static_cast<unsigned char>(c));
}

OdString OdString::fromUtf8(std::string_view bytes, Surrogates surrogates) {
  std::wstring text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const Utf8Sequence sequence(bytes, surrogates);
    odAppendCodePoint(text, sequence.length ? sequence.codePoint : kOdReplacementCharacter);
    bytes.remove_prefix(std::max<std::size_t>(sequence.length, 1));
  }
  return OdString(std::move(text));
}

std::string OdString::toUtf8(Surrogates surrogates) const {
  std::string bytes;
  bytes.reserve(m_text.size());
  for (std::size_t i = 0; i < m_text.size();) {
    const char32_t c = odNextCodePoint(m_text, i);
    const bool replaced = (odIsSurrogate(c) && surrogates == Surrogates::kReplace) || c > 0x10FFFF;
    appendUtf8(bytes, replaced ? kOdReplacementCharacter : c);
  }
  return bytes;
}

OdChar OdString::getAt(int index) const {
  if (index < 0 || index >= getLength()) throw OdError_InvalidIndex();
  return m_text[static_cast<std::size_t>(index)];
}

int OdString::find(OdChar unit, int start) const {
  return indexOrMinusOne(m_text.find(unit, clamped(start)));
}

int OdString::find(const OdString& part, int start) const {
  return indexOrMinusOne(m_text.find(part.m_text, clamped(start)));
}

int OdString::reverseFind(OdChar unit) const { return indexOrMinusOne(m_text.rfind(unit)); }

OdString OdString::left(int count) const { return mid(0, count); }

OdString OdString::right(int count) const {
  const std::size_t length = std::min(clamped(count), m_text.size());
  return OdString(m_text.substr(m_text.size() - length));
}

OdString OdString::mid(int first) const { return mid(first, getLength()); }

OdString OdString::mid(int first, int count) const {
  return OdString(m_text.substr(std::min(clamped(first), m_text.size()), clamped(count)));
}

int OdString::replace(const OdString& what, const OdString& with) {
  if (what.isEmpty()) return 0;
  int count = 0;
  std::wstring result;
  std::size_t done = 0;
  for (std::size_t at = m_text.find(what.m_text); at != std::wstring::npos;
       at = m_text.find(what.m_text, done)) {
    result.append(m_text, done, at - done).append(with.m_text);
    done = at + what.m_text.size();
    ++count;
  }
  if (count > 0) m_text = result.append(m_text, done);
  return count;
}

OdString& OdString::trimLeft() {
  m_text.erase(0, m_text.find_first_not_of(kBlanks));
  return *this;
}

OdString& OdString::trimRight() {
  m_text.erase(m_text.find_last_not_of(kBlanks) + 1);
  return *this;
}

OdString& OdString::makeUpper() {
  m_text = mapCodePoints(m_text, odToUpper);
  return *this;
}

OdString& OdString::makeLower() {
  m_text = mapCodePoints(m_text, odToLower);
  return *this;
}

int OdString::iCompare(const OdString& other) const {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < m_text.size() && j < other.m_text.size()) {
    const char32_t a = odToFolded(odNextCodePoint(m_text, i));
    const char32_t b = odToFolded(odNextCodePoint(other.m_text, j));
    if (a != b) return a < b ? -1 : 1;
  }
  return static_cast<int>(i < m_text.size()) - static_cast<int>(j < other.m_text.size());
}

OdString& OdString::operator+=(const OdString& other) {
  m_text += other.m_text;
  return *this;
}

OdString& OdString::operator+=(OdChar unit) {
  m_text += unit;
  return *this;
}

std::wstring odFoldCase(std::wstring_view text) {
  // Most names are ASCII.
  std::wstring folded(text);
  bool isAscii = true;
  for (wchar_t& unit : folded) {
    isAscii = isAscii && static_cast<char32_t>(unit) < 0x80;
    if (unit >= L'A' && unit <= L'Z') unit += L'a' - L'A';
  }
  return isAscii ? folded : mapCodePoints(text, odToFolded);
}
