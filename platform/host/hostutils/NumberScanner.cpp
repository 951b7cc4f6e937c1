#include "NumberScanner.h"
#include <algorithm>
#include <charconv>
#include <cmath>

namespace host {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr char kUnreadable = '\x7f';
constexpr wchar_t kDegreeSign = 0xB0;

char ascii(wchar_t c) {
  if (c == kDegreeSign) return 'd';
  return c > 0 && c < 0x7f ? lower(static_cast<char>(c)) : kUnreadable;
}

} // namespace

NumberScanner::NumberScanner(std::wstring_view text) {
  for (const wchar_t c : text) m_text += ascii(c);
  if (std::count(m_text.begin(), m_text.end(), ',') == 1 && m_text.find('.') == std::string::npos)
    std::replace(m_text.begin(), m_text.end(), ',', '.');
}

void NumberScanner::skipBlanks() {
  while (m_position < m_text.size() && m_text[m_position] == ' ') ++m_position;
}

bool NumberScanner::number(double& value) {
  skipBlanks();
  const char* begin = m_text.data() + m_position;
  const char* end = m_text.data() + m_text.size();
  // The library would read a sign and the words "inf" and "nan" as well.
  const char* first = begin != end && *begin == '.' ? begin + 1 : begin;
  if (first == end || !isDigit(*first)) return false;
  double read = 0;
  const auto result = std::from_chars(begin, end, read);
  if (result.ec != std::errc() || !std::isfinite(read)) return false;
  value = read;
  m_position = static_cast<std::size_t>(result.ptr - m_text.data());
  return true;
}

bool NumberScanner::digits(double& value) {
  skipBlanks();
  std::size_t end = m_position;
  double read = 0;
  for (; end < m_text.size() && isDigit(m_text[end]); ++end) read = read * 10 + (m_text[end] - '0');
  if (end == m_position) return false;
  value = read;
  m_position = end;
  return true;
}

bool NumberScanner::take(char sign) {
  skipBlanks();
  if (m_position == m_text.size() || m_text[m_position] != lower(sign)) return false;
  ++m_position;
  return true;
}

double NumberScanner::sign() {
  if (take('-')) return -1;
  take('+');
  return 1;
}

bool NumberScanner::atEnd() {
  skipBlanks();
  return m_position == m_text.size();
}

} // namespace host
