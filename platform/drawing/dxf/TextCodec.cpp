#include "TextCodec.h"
#include "OdUnicode.h"
#include "sys/codepage.h"
#include <algorithm>

namespace {

constexpr int kDefaultPage = 1252;

/// Whether the byte stands for itself, and no escape begins with it.
bool isPlain(char c) { return c >= 0x20 && c < 0x7F && c != '\\' && c != '^'; }

bool isPlain(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return isPlain(c); });
}

int hexDigit(wchar_t c) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (c >= L'A' && c <= L'F') return c - L'A' + 10;
  if (c >= L'a' && c <= L'f') return c - L'a' + 10;
  return -1;
}

/// Four hexadecimal digits at the start, or -1.
int fourDigits(std::wstring_view text) {
  constexpr std::size_t kDigits = 4;
  if (text.size() < kDigits) return -1;
  int value = 0;
  for (std::size_t i = 0; i < kDigits; ++i) {
    const int digit = hexDigit(text[i]);
    if (digit < 0) return -1;
    value = value << 4 | digit;
  }
  return value;
}

/// An escape at the start of a text: its length, 0 when there is none, and what it stands for.
struct Escape {
  std::size_t length = 0;
  char32_t character = 0;
};

constexpr std::size_t kUnicodeLength = 7; // \U+XXXX
constexpr std::size_t kDoubleLength = 8;  // \M+nXXXX

Escape unicodeEscape(std::wstring_view text) {
  if (text.compare(0, 3, L"\\U+") != 0) return {};
  const int value = fourDigits(text.substr(3));
  // U+DC80 to U+DCFF mean bytes that belong to no text; an escape cannot stand for one.
  if (value < 0 || sys::isForeignByte(static_cast<char32_t>(value))) return {};
  const auto unit = static_cast<char32_t>(value);
  if (unit < 0xD800 || unit > 0xDBFF) return {kUnicodeLength, unit};
  const std::wstring_view rest = text.substr(kUnicodeLength);
  const int low = rest.compare(0, 3, L"\\U+") == 0 ? fourDigits(rest.substr(3)) : -1;
  if (low < 0xDC00 || low > 0xDFFF) return {kUnicodeLength, unit};
  return {2 * kUnicodeLength, 0x10000 + ((unit - 0xD800) << 10) + (static_cast<char32_t>(low) - 0xDC00)};
}

/// \M+nXXXX: two bytes of one of the East Asian code pages.
Escape doubleByteEscape(std::wstring_view text) {
  constexpr int kPages[] = {932, 950, 949, 1361, 936};
  if (text.size() < kDoubleLength || text.compare(0, 3, L"\\M+") != 0 || text[3] < L'1' || text[3] > L'5')
    return {};
  const int value = fourDigits(text.substr(4));
  const sys::CodePage* page = sys::CodePage::numbered(kPages[text[3] - L'1']);
  if (value < 0 || !page) return {};
  const char bytes[] = {static_cast<char>(value >> 8), static_cast<char>(value)};
  std::wstring decoded;
  page->decode({bytes, 2}, decoded);
  if (decoded.size() != 1 || sys::isForeignByte(static_cast<char32_t>(decoded[0]))) return {};
  return {kDoubleLength, static_cast<char32_t>(decoded[0])};
}

Escape caretEscape(std::wstring_view text) {
  if (text.size() < 2 || text[0] != L'^') return {};
  if (text[1] == L' ') return {2, U'^'};
  if (text[1] < L'@' || text[1] > L'_') return {};
  return {2, static_cast<char32_t>(text[1]) - U'@'};
}

Escape backslashEscape(std::wstring_view text) {
  const Escape escape = unicodeEscape(text);
  return escape.length > 0 ? escape : doubleByteEscape(text);
}

std::wstring unescaped(std::wstring_view text) {
  std::wstring result;
  result.reserve(text.size());
  while (!text.empty()) {
    Escape escape;
    if (text[0] == L'^') escape = caretEscape(text);
    if (text[0] == L'\\') escape = backslashEscape(text);
    if (escape.length > 0)
      odAppendCodePoint(result, escape.character);
    else
      result += text[0];
    text.remove_prefix(std::max<std::size_t>(escape.length, 1));
  }
  return result;
}

void appendUnicodeEscape(char32_t unit, std::string& bytes) {
  bytes += "\\U+";
  for (int shift = 12; shift >= 0; shift -= 4) bytes += "0123456789ABCDEF"[unit >> shift & 15];
}

void appendEscaped(char32_t character, std::string& bytes) {
  if (character > 0xFFFF) {
    appendUnicodeEscape(0xD800 + ((character - 0x10000) >> 10), bytes);
    character = 0xDC00 + (character & 0x3FF);
  }
  appendUnicodeEscape(character, bytes);
}

} // namespace

std::shared_ptr<OdDbDxfTextCodec> OdDbDxfTextCodec::forDrawing(OdDb::DwgVersion version,
                                                               std::string_view codePage) {
  const int number = sys::CodePage::number(codePage);
  if (version >= OdDb::vAC21 || number == sys::CodePage::kUtf8)
    return std::make_shared<OdDbDxfTextCodec>(nullptr);
  const sys::CodePage* page = sys::CodePage::numbered(number);
  return std::make_shared<OdDbDxfTextCodec>(page ? page : sys::CodePage::numbered(kDefaultPage));
}

std::shared_ptr<OdDbDxfTextCodec> OdDbDxfTextCodec::named(std::string_view encoding) {
  const int number = sys::CodePage::number(encoding);
  const sys::CodePage* page = sys::CodePage::numbered(number);
  if (!page && number != sys::CodePage::kUtf8) return nullptr;
  return std::make_shared<OdDbDxfTextCodec>(page);
}

std::wstring OdDbDxfTextCodec::characters(std::string_view bytes) const {
  std::wstring text;
  if (m_page)
    m_page->decode(bytes, text);
  else
    sys::decodeUtf8(bytes, text);
  return text;
}

OdString OdDbDxfTextCodec::decode(std::string_view bytes) const {
  if (isPlain(bytes)) return OdString(std::wstring(bytes.begin(), bytes.end()));
  std::wstring text = characters(bytes);
  return text.find_first_of(L"\\^") == std::wstring::npos ? OdString(std::move(text))
                                                          : OdString(unescaped(text));
}

void OdDbDxfTextCodec::encodeCharacter(char32_t c, std::string& bytes) const {
  if (c < 0x20) {
    bytes += '^';
    bytes += static_cast<char>(c + '@');
  } else if (c == U'^') {
    bytes += "^ ";
  } else if (c < 0x80) {
    bytes += static_cast<char>(c);
  } else if (sys::isForeignByte(c)) {
    bytes += static_cast<char>(c - sys::kForeignByte);
  } else if (odIsSurrogate(c) || (m_page && !m_page->encode(c, bytes))) {
    appendEscaped(c, bytes);
  } else if (!m_page) {
    sys::encodeUtf8(c, bytes);
  }
}

void OdDbDxfTextCodec::encode(std::wstring_view text, std::string& bytes) const {
  for (std::size_t at = 0; at < text.size();) {
    // Text that happens to look like an escape must not be read as one.
    if (text[at] == L'\\' && backslashEscape(text.substr(at)).length > 0) {
      appendUnicodeEscape(U'\\', bytes);
      ++at;
    } else {
      encodeCharacter(odNextCodePoint(text, at), bytes);
    }
  }
}

void OdDbDxfTextCodec::recode(std::string_view bytes, const OdDbDxfTextCodec& from,
                              std::string& recoded) const {
  const std::wstring text = from.characters(bytes);
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = odNextCodePoint(text, at);
    if (c < 0x80)
      recoded += static_cast<char>(c);
    else
      encodeCharacter(c, recoded);
  }
}

void OdDbDxfTextCodec::encodeOwned(std::string_view utf8, std::string& bytes) const {
  if (isPlain(utf8)) {
    bytes += utf8;
    return;
  }
  encode(OdString::fromUtf8(utf8, OdString::Surrogates::kKeep).str(), bytes);
}
