#include "DbDatabase.h"
#include "HostUtils.h"
#include "NumberFormat.h"
#include "NumberScanner.h"
#include <cmath>

namespace host {

namespace {

constexpr double kInchesPerFoot = 12;

/// "1/2".
bool scanFraction(NumberScanner& in, double& value) {
  const std::size_t start = in.position();
  double numerator = 0;
  double denominator = 0;
  if (in.digits(numerator) && in.take('/') && in.digits(denominator) && denominator != 0) {
    value = numerator / denominator;
    return true;
  }
  in.moveTo(start);
  return false;
}

/// "3", "3.5", "1/2", "3 1/2" or "3-1/2".
bool scanMixed(NumberScanner& in, double& value) {
  if (scanFraction(in, value)) return true;
  if (!in.number(value)) return false;
  const std::size_t end = in.position();
  double part = 0;
  in.take('-');
  if (scanFraction(in, part))
    value += part;
  else
    in.moveTo(end);
  return true;
}

/// Inches with an optional mark, or feet with their mark and optional inches.
bool scanLength(NumberScanner& in, double& value) {
  if (!scanMixed(in, value)) return false;
  if (in.take('"')) return true;
  if (!in.take('\'')) return true;
  value *= kInchesPerFoot;
  double inches = 0;
  in.take('-');
  if (scanMixed(in, inches)) {
    value += inches;
    in.take('"');
  }
  return true;
}

/// Whole and broken part of a number of `parts`-ths, reduced: "3 1/2", "1/2", "3".
std::string mixedNumber(double parts, double perWhole, const char* separator) {
  const double whole = std::floor(parts / perWhole);
  double numerator = parts - whole * perWhole;
  double denominator = perWhole;
  while (numerator != 0 && std::fmod(numerator, 2) == 0) {
    numerator /= 2;
    denominator /= 2;
  }
  std::string text = fixed(whole, 0);
  if (numerator == 0) return text;
  const std::string fraction = fixed(numerator, 0) + "/" + fixed(denominator, 0);
  return whole == 0 ? fraction : text + separator + fraction;
}

std::string feet(double inches, double& rest) {
  const double whole = std::floor(inches / kInchesPerFoot);
  rest = inches - whole * kInchesPerFoot;
  return whole == 0 ? std::string() : fixed(whole, 0) + "'-";
}

std::string engineering(double value, int precision) {
  // Rounded before it is split, so that twelve inches never show.
  const double scale = std::pow(10.0, precision);
  double inches = 0;
  const std::string head = feet(std::round(value * scale) / scale, inches);
  return head + fixed(inches, precision) + "\"";
}

std::string architectural(double value, int precision) {
  const double perInch = std::exp2(precision);
  double inches = 0;
  const std::string head = feet(std::round(value * perInch) / perInch, inches);
  return head + mixedNumber(inches * perInch, perInch, " ") + "\"";
}

std::string fractional(double value, int precision) {
  const double perWhole = std::exp2(precision);
  return mixedNumber(std::round(value * perWhole), perWhole, " ");
}

std::string length(double value, int units, int precision) {
  switch (units) {
  case kHostScientific: return scientific(value, precision);
  case kHostEngineering: return engineering(value, precision);
  case kHostArchitectural: return architectural(value, precision);
  case kHostFractional: return fractional(value, precision);
  default: return fixed(value, precision);
  }
}

} // namespace

} // namespace host

bool hostdbDisToF(const OdChar* text, double& value) {
  host::NumberScanner in(text);
  const double sign = in.sign();
  double length = 0;
  if (!host::scanLength(in, length) || !in.atEnd()) return false;
  value = sign * length;
  return true;
}

OdString hostdbRToS(double value, int units, int precision, const OdDbDatabase* database) {
  if (units < 0) units = database->getLUNITS();
  if (precision < 0) precision = database->getLUPREC();
  return OdString(
      host::signedText(value, host::length(std::fabs(value), units, host::usable(precision))).c_str());
}
