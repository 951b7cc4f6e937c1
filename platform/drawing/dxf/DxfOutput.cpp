#include "DxfOutput.h"
#include "BinaryForm.h"
#include "DbGroup.h"
#include "OdError.h"
#include <charconv>
#include <cstring>

namespace {

/// Widths that files right-align integers to, by the size of the number that the code carries.
std::size_t widthOf(int code) {
  if (odDbGroupKind(code) == OdDbGroupKind::kBool || (code >= 280 && code <= 289)) return 6;
  const bool isLong = (code >= 90 && code <= 99) || (code >= 420 && code <= 459) || code == 1071;
  if (isLong) return 9;
  return code >= 160 && code <= 169 ? 0 : 6;
}

class AsciiOutput : public DxfOutput {
public:
  AsciiOutput(Sink sink, const DxfStyle& style) : DxfOutput(std::move(sink)), m_style(style) {}

  void text(int number, std::string_view value) override {
    code(number);
    put(value);
    put(m_style.lineEnd);
    endGroup();
  }
  void integer(int number, OdInt64 value) override;
  void real(int number, double value) override;
  void chunk(int number, std::string_view digits) override { text(number, digits); }

private:
  void code(int number);
  const DxfStyle m_style;
  std::string m_number;
};

void AsciiOutput::code(int number) {
  beginGroup();
  char digits[8];
  const char* end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  constexpr std::ptrdiff_t kWidth = 3;
  if (m_style.paddedCodes)
    for (std::ptrdiff_t length = end - digits; length < kWidth; ++length) put(' ');
  put(std::string_view(digits, static_cast<std::size_t>(end - digits)));
  put(m_style.lineEnd);
}

void AsciiOutput::integer(int number, OdInt64 value) {
  char digits[24];
  const char* end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  const auto length = static_cast<std::size_t>(end - digits);
  const std::size_t width = widthOf(number);
  m_number.assign(length < width ? width - length : 0, ' ');
  m_number.append(digits, length);
  text(number, m_number);
}

void AsciiOutput::real(int number, double value) {
  char digits[32];
  const char* end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  m_number.assign(digits, static_cast<std::size_t>(end - digits));
  // A real looks like one: other readers tell it from an integer by the point.
  if (m_number.find_first_not_of("-0123456789") == std::string::npos) m_number += ".0";
  text(number, m_number);
}

class BinaryOutput : public DxfOutput {
public:
  BinaryOutput(Sink sink, bool shortCodes) : DxfOutput(std::move(sink)), m_shortCodes(shortCodes) {}

  void text(int number, std::string_view value) override {
    code(number);
    put(value);
    put('\0');
    endGroup();
  }
  void integer(int number, OdInt64 value) override;
  void real(int number, double value) override {
    code(number);
    bytesOf(value, sizeof value);
    endGroup();
  }
  void chunk(int number, std::string_view digits) override;

private:
  void code(int number);
  /// The low bytes of a number.
  template <class Number>
  void bytesOf(Number value, std::size_t size) {
    char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    put(std::string_view(bytes, size));
  }
  const bool m_shortCodes;
};

void BinaryOutput::code(int number) {
  beginGroup();
  if (!m_shortCodes)
    bytesOf(static_cast<OdInt16>(number), 2);
  else if (number >= 0 && number < binaryCodes::kLongCodeFollows)
    put(static_cast<char>(number));
  else {
    put(static_cast<char>(binaryCodes::kLongCodeFollows));
    bytesOf(static_cast<OdInt16>(number), 2);
  }
}

void BinaryOutput::integer(int number, OdInt64 value) {
  code(number);
  switch (binaryValue(number)) {
  case BinaryValue::kInt8: bytesOf(value, 1); break;
  case BinaryValue::kInt32: bytesOf(value, 4); break;
  case BinaryValue::kInt64: bytesOf(value, 8); break;
  default: bytesOf(value, 2);
  }
  endGroup();
}

void BinaryOutput::chunk(int number, std::string_view digits) {
  constexpr std::size_t kMostBytes = 255;
  constexpr int kHexadecimal = 16;
  std::string bytes;
  for (std::size_t at = 0; at + 1 < digits.size(); at += 2) {
    OdUInt8 byte = 0;
    const char* end = digits.data() + at + 2;
    if (std::from_chars(end - 2, end, byte, kHexadecimal).ptr != end) break;
    bytes += static_cast<char>(byte);
  }
  if (2 * bytes.size() != digits.size() || bytes.size() > kMostBytes)
    throw OdError(eInvalidInput, L"Group " + OdString(std::to_wstring(number)) +
                                     L" does not hold the hexadecimal digits of up to 255 bytes.");
  code(number);
  put(static_cast<char>(bytes.size()));
  put(bytes);
  endGroup();
}

} // namespace

std::unique_ptr<DxfOutput> DxfOutput::create(Sink sink, const DxfStyle& style) {
  if (style.form == DxfStyle::Form::kAscii) return std::make_unique<AsciiOutput>(std::move(sink), style);
  return std::make_unique<BinaryOutput>(std::move(sink), style.form == DxfStyle::Form::kBinaryShortCodes);
}

void DxfOutput::handle(int code, OdUInt64 value) {
  constexpr int kHexadecimal = 16;
  char digits[16] = {};
  char* end = std::to_chars(digits, digits + sizeof digits, value, kHexadecimal).ptr;
  for (char* at = digits; at < end; ++at)
    if (*at >= 'a') *at = static_cast<char>(*at - 'a' + 'A');
  text(code, {digits, static_cast<std::size_t>(end - digits)});
}

void DxfOutput::slice(std::string_view bytes) {
  if (m_slice.data() + m_slice.size() != bytes.data()) {
    flushSlice();
    m_slice = bytes;
  } else {
    m_slice = std::string_view(m_slice.data(), m_slice.size() + bytes.size());
  }
  if (m_slice.size() >= kPiece) flushSlice();
}

void DxfOutput::flushSlice() {
  if (m_slice.size() < kPiece / 4) {
    m_buffer += m_slice;
  } else {
    flushBuffer();
    m_sink(m_slice);
  }
  // The next slice may continue this one.
  m_slice = std::string_view(m_slice.data() + m_slice.size(), 0);
}

void DxfOutput::flushBuffer() {
  if (!m_buffer.empty()) m_sink(m_buffer);
  m_buffer.clear();
}

void DxfOutput::finish() {
  flushSlice();
  flushBuffer();
}
