#include "sys/codepage.h"
#include "sys/page_converter.h"
#include "sys/surrogates.h"
#include <algorithm>
#include <map>
#include <memory>

namespace sys {

namespace {

/// Names without a number in them, upper case and without punctuation.
struct NamedPage {
  std::string_view name;
  int number;
};
constexpr NamedPage kNamedPages[] = {
    {"", 1252},        {"ASCII", 1252},   {"USASCII", 1252}, {"UNDEFINED", 1252}, {"UTF8", CodePage::kUtf8},
    {"GB2312", 936},   {"GBK", 936},      {"KCS5601", 949},  {"KSC5601", 949},    {"BIG5", 950},
    {"SHIFTJIS", 932}, {"SJIS", 932},     {"JOHAB", 1361},   {"MACROMAN", 10000}, {"MACINTOSH", 10000},
    {"KOI8R", 20866},  {"LATIN1", 28591},
};

/// What stands before the number in other names: "ANSI_1252", "dos850", "8859_1".
struct NumberedFamily {
  std::string_view prefix;
  int offset;
};
constexpr NumberedFamily kFamilies[] = {
    {"ANSI", 0},
    {"DOS", 0},
    {"CP", 0},
    {"OEM", 0},
    {"IBM", 0},
    {"WINDOWS", 0},
    {"ISO8859", kIsoPages},
    {"8859", kIsoPages},
};

std::string plainName(std::string_view name) {
  std::string plain;
  for (const char c : name) {
    if (c >= 'a' && c <= 'z') plain += static_cast<char>(c - 'a' + 'A');
    if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) plain += c;
  }
  return plain;
}

int digits(std::string_view text) {
  constexpr std::size_t kMostDigits = 5;
  if (text.empty() || text.size() > kMostDigits) return 0;
  int value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return 0;
    value = value * 10 + (c - '0');
  }
  return value;
}

} // namespace

int CodePage::number(std::string_view name) {
  const std::string plain = plainName(name);
  for (const NamedPage& page : kNamedPages)
    if (plain == page.name) return page.number;
  for (const NumberedFamily& family : kFamilies)
    if (plain.compare(0, family.prefix.size(), family.prefix) == 0)
      if (const int value = digits(std::string_view(plain).substr(family.prefix.size())))
        return value + family.offset;
  return digits(plain);
}

std::string CodePage::headerName(int number) {
  constexpr int kMacintosh = 10000;
  constexpr int kFirstAnsi = 1250, kLastAnsi = 1258;
  constexpr int kEastern[] = {874, 932, 936, 949, 950};
  if (number == kUtf8) return "UTF-8";
  if (number == kMacintosh) return "mac-roman";
  if (number == 1361) return "johab";
  if (number == 20866) return "KOI8-R";
  if (number > kIsoPages && number <= kLastIsoPage) return "iso8859-" + std::to_string(number - kIsoPages);
  const bool isAnsi = (number >= kFirstAnsi && number <= kLastAnsi) ||
                      std::find(std::begin(kEastern), std::end(kEastern), number) != std::end(kEastern);
  return (isAnsi ? "ANSI_" : "dos") + std::to_string(number);
}

const CodePage* CodePage::numbered(int number) {
  static std::map<int, std::unique_ptr<const CodePage>> pages;
  const auto known = pages.find(number);
  if (known != pages.end()) return known->second.get();
  std::unique_ptr<const CodePage> page;
  if (number > 0 && number != kUtf8)
    if (const auto converter = PageConverter::open(number)) page.reset(new CodePage(*converter));
  return pages.emplace(number, std::move(page)).first->second.get();
}

CodePage::CodePage(PageConverter& converter) {
  readTables(converter);
  const auto note = [this](char16_t character, std::uint32_t bytes) {
    if (character != kNothing && character != kLeadByte)
      m_fromText.push_back(std::uint32_t{character} << 16 | bytes);
  };
  for (std::uint32_t byte = 0; byte < 256; ++byte) note(m_single[byte], byte);
  for (std::uint32_t pair = 0; pair < m_double.size(); ++pair) note(m_double[pair], 0x8000 + pair);
  std::sort(m_fromText.begin(), m_fromText.end());
}

void CodePage::readTables(PageConverter& converter) {
  for (std::size_t byte = 0; byte < 256; ++byte) {
    char bytes[2] = {static_cast<char>(byte), 0};
    char32_t character = 0;
    m_single[byte] = kNothing;
    const PageConverter::Outcome outcome = converter.convert({bytes, 1}, character);
    if (outcome == PageConverter::Outcome::kCharacter && character < kNothing && !isSurrogate(character))
      m_single[byte] = static_cast<char16_t>(character);
    // In these pages a byte below 128 is always a character of its own, of ASCII where it matters to a file.
    if (byte < 128) m_single[byte] = static_cast<char16_t>(byte);
    if (outcome != PageConverter::Outcome::kIncomplete || byte < 128) continue;
    m_single[byte] = kLeadByte;
    m_double.resize(128 * 256, kNothing);
    for (std::size_t trail = 0; trail < 256; ++trail) {
      bytes[1] = static_cast<char>(trail);
      if (converter.convert({bytes, 2}, character) == PageConverter::Outcome::kCharacter &&
          character < kNothing)
        m_double[(byte - 128) * 256 + trail] = static_cast<char16_t>(character);
    }
  }
}

std::size_t CodePage::decodeOne(std::string_view bytes, std::wstring& text) const {
  const auto first = static_cast<unsigned char>(bytes[0]);
  const char16_t single = m_single[first];
  if (single == kLeadByte && bytes.size() > 1) {
    const char16_t pair = m_double[(first - 128u) * 256u + static_cast<unsigned char>(bytes[1])];
    if (pair != kNothing) {
      text += static_cast<wchar_t>(pair);
      return 2;
    }
  }
  const bool known = single != kLeadByte && single != kNothing;
  text += static_cast<wchar_t>(known ? single : kForeignByte + first);
  return 1;
}

bool CodePage::defines(std::string_view bytes) const {
  while (!bytes.empty()) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    const char16_t single = m_single[first];
    std::size_t length = 1;
    if (single == kNothing) return false;
    if (single == kLeadByte) {
      length = 2;
      if (bytes.size() < length ||
          m_double[(first - 128u) * 256u + static_cast<unsigned char>(bytes[1])] == kNothing)
        return false;
    }
    bytes.remove_prefix(length);
  }
  return true;
}

void CodePage::decode(std::string_view bytes, std::wstring& text) const {
  text.reserve(text.size() + bytes.size());
  while (!bytes.empty()) bytes.remove_prefix(decodeOne(bytes, text));
}

bool CodePage::encode(char32_t character, std::string& bytes) const {
  if (character > 0xFFFF) return false;
  const std::uint32_t wanted = static_cast<std::uint32_t>(character) << 16;
  const auto found = std::lower_bound(m_fromText.begin(), m_fromText.end(), wanted);
  if (found == m_fromText.end() || *found >> 16 != character) return false;
  const std::uint32_t code = *found & 0xFFFF;
  if (code > 0xFF) bytes += static_cast<char>(code >> 8);
  bytes += static_cast<char>(code);
  return true;
}

// --- UTF-8 ---

namespace {

/// Length of the well-formed sequence at the start of the bytes, with its code point; 0 when it is malformed.
std::size_t utf8Sequence(std::string_view bytes, char32_t& codePoint) {
  const auto first = static_cast<unsigned char>(bytes[0]);
  const std::size_t length = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
  if (length == 0 || length > bytes.size()) return 0;
  constexpr unsigned char kFirstBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  codePoint = first & kFirstBits[length];
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(bytes[i]);
    if ((next & 0xC0) != 0x80) return 0;
    codePoint = codePoint << 6 | (next & 0x3F);
  }
  const bool overlong = (length == 3 && codePoint < 0x800) || (length == 4 && codePoint < 0x10000);
  return overlong || isSurrogate(codePoint) || codePoint > 0x10FFFF ? 0 : length;
}

} // namespace

void decodeUtf8(std::string_view bytes, std::wstring& text) {
  text.reserve(text.size() + bytes.size());
  while (!bytes.empty()) {
    char32_t codePoint = 0;
    const std::size_t length = utf8Sequence(bytes, codePoint);
    if (length == 0) codePoint = kForeignByte + static_cast<unsigned char>(bytes[0]);
    appendWide(text, codePoint);
    bytes.remove_prefix(length == 0 ? 1 : length);
  }
}

bool isUtf8(std::string_view bytes) {
  char32_t codePoint = 0;
  while (!bytes.empty()) {
    const std::size_t length = utf8Sequence(bytes, codePoint);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

void encodeUtf8(char32_t codePoint, std::string& bytes) {
  const auto put = [&bytes](char32_t value) { bytes += static_cast<char>(value); };
  if (codePoint < 0x80) {
    put(codePoint);
  } else if (isForeignByte(codePoint)) {
    put(codePoint - kForeignByte);
  } else if (codePoint < 0x800) {
    put(0xC0 | codePoint >> 6);
    put(0x80 | (codePoint & 0x3F));
  } else if (codePoint < 0x10000) {
    put(0xE0 | codePoint >> 12);
    put(0x80 | (codePoint >> 6 & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  } else {
    put(0xF0 | codePoint >> 18);
    put(0x80 | (codePoint >> 12 & 0x3F));
    put(0x80 | (codePoint >> 6 & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  }
}

} // namespace sys
