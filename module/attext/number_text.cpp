#include "number_text.h"
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>

namespace attext {
namespace {

constexpr int kSignificant = 5;

/// A value in scientific notation: digits d.dddd times ten to the exponent.
struct Decimal {
  std::string digits;
  int exponent;
};

/// The standard conversion rounds ties to even, so many more digits than needed are made and the first one
/// beyond decides. They are exact enough: no double lies that near to a tie without being one.
Decimal roundedDecimal(double magnitude) {
  constexpr int generous = 24;
  std::array<char, 48> buffer;
  char* const first = buffer.data();
  char* const last =
      std::to_chars(first, first + buffer.size(), magnitude, std::chars_format::scientific, generous).ptr;
  const std::string text(first, last); // d.ddd...e+dd

  int exponent = 0;
  const std::size_t sign = text.find('e') + 1;
  std::from_chars(text.data() + sign + 1, text.data() + text.size(), exponent);
  if (text[sign] == '-') exponent = -exponent;

  std::string digits = text[0] + text.substr(2, kSignificant - 1);
  if (text[kSignificant + 1] >= '5') {
    digits = std::to_string(std::stoi(digits) + 1);
    if (digits.size() > kSignificant) {
      digits.pop_back();
      ++exponent;
    }
  }
  return {digits, exponent};
}

std::string withoutTrailingZeros(std::string digits) {
  digits.erase(digits.find_last_not_of('0') + 1);
  return digits;
}

std::string fixedText(const Decimal& number) {
  const std::size_t whole = static_cast<std::size_t>(number.exponent) + 1; // none for an exponent of -1
  const std::string integer = whole == 0 ? "0" : number.digits.substr(0, whole);
  return integer + "." + withoutTrailingZeros(number.digits.substr(whole));
}

std::string exponentialText(const Decimal& number) {
  std::string exponent = std::to_string(std::abs(number.exponent));
  exponent.insert(0, 3 - std::min<std::size_t>(exponent.size(), 3), '0');
  return number.digits[0] + ("." + withoutTrailingZeros(number.digits.substr(1))) +
         (number.exponent < 0 ? "e-" : "e+") + exponent;
}

} // namespace

OdString numberText(double value) {
  if (!std::isfinite(value)) return {};
  const Decimal number = roundedDecimal(std::fabs(value));
  const bool fixed = number.exponent >= -1 && number.exponent < kSignificant;
  const std::string text = fixed ? fixedText(number) : exponentialText(number);
  return OdString(((std::signbit(value) ? "-" : "") + text).c_str());
}

} // namespace attext
