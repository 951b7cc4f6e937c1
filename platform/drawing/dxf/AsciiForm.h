#pragma once
// ASCII drawing files: a code on one line, its value on the next.
#include "DxfForm.h"
#include <bit>
#include <cstdint>
#include <cstring>

/// Splits a slice of a file into groups.
class AsciiScanner {
public:
  AsciiScanner(const DxfText& text, std::string_view slice)
      : m_text(text), m_at(slice.data()), m_end(slice.data() + slice.size()) {}

  const char* position() const { return m_at; }
  /// The next group; false at the end of the slice. A code that is no number, or one without a value, is an
  /// error.
  // Every group of every file passes here, and the compiler would find the function too long for that.
  [[gnu::always_inline]] bool next(DxfRawGroup& group) {
    if (m_at == m_end) return false;
    group.place = m_at;
    group.code = alignedCode();
    if (group.code < 0) group.code = code();
    if (m_at == m_end) failWithoutValue(group);
    const char* const end = lineEnd();
    const char* valueEnd = end ? end : m_end;
    group.value = std::string_view(m_at, static_cast<std::size_t>(valueEnd - m_at));
    if (!group.value.empty() && group.value.back() == '\r') group.value.remove_suffix(1);
    m_at = end ? end + 1 : m_end;
    return true;
  }

private:
  /// The next line end, or null. Most values are so short that looking at eight bytes at once finds it before
  /// a call would have begun.
  const char* lineEnd() const {
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    if constexpr (std::endian::native == std::endian::little) {
      if (m_end - m_at >= 8) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, m_at, sizeof bytes);
        bytes ^= kOnes * '\n';
        // The lowest byte that was a line end is now zero, and the only one below which nothing borrows.
        if (const std::uint64_t zeros = (bytes - kOnes) & ~bytes & (kOnes << 7))
          return m_at + std::countr_zero(zeros) / 8;
      }
    }
    return static_cast<const char*>(std::memchr(m_at, '\n', static_cast<std::size_t>(m_end - m_at)));
  }
  /// A code of one to three digits aligned to three places, as nearly all are; -1 for others. Codes change
  /// from line to line, so there is no branch on how many digits one has.
  int alignedCode() {
    constexpr std::ptrdiff_t kLongest = 5; // with the line end
    if (m_end - m_at < kLongest) return -1;
    const char* const at = m_at;
    const bool returns = at[3] == '\r';
    const auto hundreds = static_cast<unsigned char>(at[0] - '0');
    const auto tens = static_cast<unsigned char>(at[1] - '0');
    const auto ones = static_cast<unsigned char>(at[2] - '0');
    const bool three = hundreds < 10;
    const bool two = tens < 10;
    const bool aligned = (three | (at[0] == ' ')) & (two | (!three & (at[1] == ' '))) & (ones < 10);
    if (!(aligned & (at[returns ? 4 : 3] == '\n'))) return -1;
    m_at = at + (returns ? 5 : 4);
    return (three ? hundreds * 100 : 0) + (two ? tens * 10 : 0) + ones;
  }
  int code() {
    constexpr int kLargest = 32767;
    const char* at = m_at;
    while (at < m_end && (*at == ' ' || *at == '\t')) ++at;
    const bool negative = at < m_end && *at == '-';
    if (negative) ++at;
    const char* digits = at;
    int value = 0;
    while (at < m_end && *at >= '0' && *at <= '9' && value <= kLargest) value = value * 10 + (*at++ - '0');
    if (at == digits || value > kLargest) failCode();
    while (at < m_end && (*at == ' ' || *at == '\t' || *at == '\r')) ++at;
    if (at < m_end && *at != '\n') failCode();
    m_at = at < m_end ? at + 1 : at;
    return negative ? -value : value;
  }
  [[noreturn]] void failCode() const;
  [[noreturn]] void failWithoutValue(const DxfRawGroup& group) const;

  const DxfText& m_text;
  const char* m_at;
  const char* m_end;
};

/// The text without blanks around it.
inline std::string_view asciiTrimmed(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// See DxfFormParser.h.
struct AsciiForm {
  using Scanner = AsciiScanner;
  Scanner scanner(const DxfText& text, std::string_view slice) const { return {text, slice}; }
  std::string_view contents(const DxfText& text) const;
  std::string_view trimmed(std::string_view value) const { return asciiTrimmed(value); }
  /// Faster than converting.
  bool isValid(OdDbGroupKind kind, std::string_view value) const;
  /// Conversions of whole values; blanks around them are allowed. False for anything else, also for what is
  /// out of range.
  bool toReal(std::string_view value, double& result) const;
  bool toInteger(std::string_view value, OdInt64& result) const;
  bool toHandle(std::string_view value, OdUInt64& result) const;
  void append(OdDbGroupList& list, OdDbGroup& group, std::string_view value) const {
    group.text = value.data();
    group.size = static_cast<OdUInt32>(value.size());
    list.append(group);
  }
  const char* expected(OdDbGroupKind kind) const;
  const char* recordBegin(const DxfText& text, const char* raw, std::string_view name) const;
  DxfStyle style(const DxfText& text, const char* behindName) const;
};
