#include "NumberFormat.h"
#include <algorithm>
#include <charconv>

namespace host {

namespace {

// The longest fixed text of a double: 309 digits, a point and the decimals.
constexpr std::size_t kLongest = 340;

std::string text(double value, std::chars_format format, int precision) {
  char buffer[kLongest];
  const auto result = std::to_chars(buffer, buffer + kLongest, value, format, precision);
  return {buffer, result.ptr};
}

} // namespace

std::string fixed(double value, int precision) { return text(value, std::chars_format::fixed, precision); }

std::string scientific(double value, int precision) {
  std::string result = text(value, std::chars_format::scientific, precision);
  std::replace(result.begin(), result.end(), 'e', 'E');
  return result;
}

std::string signedText(double value, const std::string& magnitude) {
  const bool zero = magnitude.find_first_of("123456789") == std::string::npos;
  return value < 0 && !zero ? "-" + magnitude : magnitude;
}

int usable(int precision) { return std::clamp(precision, 0, 8); }

} // namespace host
