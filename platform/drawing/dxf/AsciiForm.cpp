#include "AsciiForm.h"
#include <charconv>

void AsciiScanner::failCode() const {
  const auto* lineEnd =
      static_cast<const char*>(std::memchr(m_at, '\n', static_cast<std::size_t>(m_end - m_at)));
  std::string_view line(m_at, static_cast<std::size_t>((lineEnd ? lineEnd : m_end) - m_at));
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  m_text.fail(m_at, "expected a group code, met " + dxfQuoted(line));
}

void AsciiScanner::failWithoutValue(const DxfRawGroup& group) const {
  m_text.fail(group.place,
              "the file ends behind group code " + std::to_string(group.code) + ", before its value");
}

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

template <class Value, class... Format>
bool convert(std::string_view text, Value& value, Format... format) {
  text = asciiTrimmed(text);
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, format...);
  return result.ec == std::errc() && result.ptr == end;
}

/// Sign and digits that cannot overflow 64 bits.
bool isShortInteger(std::string_view text) {
  constexpr std::size_t kSafeLength = 18;
  std::size_t at = 0;
  while (at < text.size() && isBlank(text[at])) ++at;
  if (at < text.size() && text[at] == '-') ++at;
  const std::size_t first = at;
  while (at < text.size() && isDigit(text[at])) ++at;
  return at == text.size() && at > first && at - first <= kSafeLength;
}

/// Sign, digits and a point, without exponent: always in range.
bool isPlainReal(std::string_view text) {
  constexpr std::size_t kSafeLength = 100;
  std::size_t at = 0;
  while (at < text.size() && isBlank(text[at])) ++at;
  if (at < text.size() && text[at] == '-') ++at;
  const std::size_t first = at;
  while (at < text.size() && isDigit(text[at])) ++at;
  std::size_t digits = at - first;
  if (at < text.size() && text[at] == '.') {
    const std::size_t point = at++;
    while (at < text.size() && isDigit(text[at])) ++at;
    digits += at - point - 1;
  }
  return at == text.size() && digits > 0 && at <= kSafeLength;
}

/// Digits and a point, as few as a double holds without loss: then one division gives the nearest double.
/// False for other numbers, which take longer.
bool shortReal(std::string_view text, double& value) {
  constexpr double kPowers[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool negative = !text.empty() && text.front() == '-';
  if (negative) text.remove_prefix(1);
  if (text.empty() || text.size() >= std::size(kPowers)) return false;
  const char* at = text.data();
  const char* const end = at + text.size();
  OdInt64 digits = 0;
  while (at != end && isDigit(*at)) digits = digits * 10 + (*at++ - '0');
  if (at != end && *at != '.') return false;
  const char* const decimalsBegin = at == end ? at : at + 1;
  for (at = decimalsBegin; at != end && isDigit(*at); ++at) digits = digits * 10 + (*at - '0');
  if (at != end || text == ".") return false;
  const auto decimals = static_cast<std::size_t>(end - decimalsBegin);
  const double magnitude = static_cast<double>(digits) / kPowers[decimals];
  value = negative ? -magnitude : magnitude;
  return true;
}

struct HexDigits {
  unsigned char values[256];
  constexpr HexDigits() : values() {
    for (int c = 0; c < 256; ++c)
      values[c] = static_cast<unsigned char>(c >= '0' && c <= '9'   ? c - '0'
                                             : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                             : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                                                    : 0xFF);
  }
  unsigned operator[](char c) const { return values[static_cast<unsigned char>(c)]; }
};
constexpr HexDigits kHexDigits;

/// Start of the line that stands `count` lines before the line beginning at `at`.
const char* linesBefore(const char* at, int count, const char* begin) {
  while (at > begin && count-- > 0) {
    --at;
    while (at > begin && at[-1] != '\n') --at;
  }
  return at;
}

} // namespace

std::string_view AsciiForm::contents(const DxfText& text) const {
  // Some editors put a byte order mark before UTF-8.
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  return text.bytes.substr(text.bytes.substr(0, kMark.size()) == kMark ? kMark.size() : 0);
}

bool AsciiForm::toReal(std::string_view text, double& value) const {
  return shortReal(asciiTrimmed(text), value) || convert(text, value);
}

bool AsciiForm::toInteger(std::string_view text, OdInt64& value) const {
  text = asciiTrimmed(text);
  // Most are flags and counts of one digit.
  if (text.size() != 1 || !isDigit(text[0])) return convert(text, value);
  value = text[0] - '0';
  return true;
}

bool AsciiForm::toHandle(std::string_view text, OdUInt64& value) const {
  constexpr std::size_t kMostDigits = 16;
  text = asciiTrimmed(text);
  while (text.size() > kMostDigits && text.front() == '0') text.remove_prefix(1);
  if (text.empty() || text.size() > kMostDigits) return false;
  OdUInt64 handle = 0;
  unsigned all = 0;
  for (const char c : text) {
    const unsigned digit = kHexDigits[c];
    all |= digit;
    handle = handle << 4 | digit;
  }
  if (all > 15) return false;
  value = handle;
  return true;
}

bool AsciiForm::isValid(OdDbGroupKind kind, std::string_view text) const {
  switch (kind) {
  case OdDbGroupKind::kReal: {
    double value;
    return isPlainReal(text) || toReal(text, value);
  }
  case OdDbGroupKind::kInteger:
  case OdDbGroupKind::kBool: {
    OdInt64 value;
    return isShortInteger(text) || toInteger(text, value);
  }
  default: return true;
  }
}

const char* AsciiForm::expected(OdDbGroupKind kind) const {
  switch (kind) {
  case OdDbGroupKind::kReal: return "a number";
  case OdDbGroupKind::kHandle: return "a handle (hexadecimal)";
  default: return "a whole number";
  }
}

const char* AsciiForm::recordBegin(const DxfText& text, const char* raw, std::string_view /*name*/) const {
  return linesBefore(raw, 2, text.bytes.data());
}

DxfStyle AsciiForm::style(const DxfText& text, const char* behindName) const {
  DxfStyle style;
  const char* begin = linesBefore(behindName, 2, text.bytes.data());
  style.paddedCodes = *begin == ' ';
  style.lineEnd = behindName - begin >= 2 && behindName[-2] == '\r' ? "\r\n" : "\n";
  return style;
}
