#include "DbDatabase.h"
#include "HostUtils.h"
#include "NumberFormat.h"
#include "NumberScanner.h"
#include <cmath>

namespace host {

namespace {

constexpr double kGradiansPerTurn = 400;
constexpr double kTurn = Oda2PI;

double toRadians(double value, int units) {
  switch (units) {
  case kHostGradians: return value * (kTurn / kGradiansPerTurn);
  case kHostRadians: return value;
  default: return OdaToRadian(value);
  }
}

/// Minutes and seconds behind degrees: "30'15\"".
bool scanMinutes(NumberScanner& in, double& degrees) {
  double part = 0;
  if (!in.number(part)) return true;
  if (in.take('"')) {
    degrees += part / 3600;
    return true;
  }
  if (!in.take('\'')) return false;
  degrees += part / 60;
  if (!in.number(part)) return true;
  degrees += part / 3600;
  return in.take('"');
}

bool scanPlain(NumberScanner& in, int units, double& radians) {
  double value = 0;
  if (!in.number(value)) return false;
  if (in.take('g')) return radians = toRadians(value, kHostGradians), true;
  if (in.take('r')) return radians = toRadians(value, kHostRadians), true;
  if (in.take('d')) {
    if (!scanMinutes(in, value)) return false;
    units = kHostDegrees;
  }
  radians = toRadians(value, units);
  return true;
}

/// "N", "E", "N45d30'E": from north or south towards east or west.
bool scanBearing(NumberScanner& in, double& radians) {
  if (in.take('e')) return radians = 0, true;
  if (in.take('w')) return radians = OdaPI, true;
  const bool north = in.take('n');
  if (!north && !in.take('s')) return false;
  const double start = north ? OdaPI2 : -OdaPI2;
  double turn = 0;
  if (in.atEnd()) return radians = start, true;
  if (!scanPlain(in, kHostDegrees, turn) || turn > OdaPI2) return false;
  const bool east = in.take('e');
  if (!east && !in.take('w')) return false;
  radians = start + (north == east ? -turn : turn);
  return true;
}

/// Degrees, then as many of minutes, seconds and decimals of seconds as the precision asks for.
std::string degreesMinutesSeconds(double degrees, int precision) {
  if (precision == 0) return fixed(degrees, 0) + "d";
  if (precision <= 2) {
    const double minutes = std::round(degrees * 60);
    return fixed(std::floor(minutes / 60), 0) + "d" + fixed(std::fmod(minutes, 60), 0) + "'";
  }
  const int decimals = precision <= 4 ? 0 : precision - 4;
  const double scale = std::pow(10.0, decimals);
  const double seconds = std::round(degrees * 3600 * scale) / scale;
  return fixed(std::floor(seconds / 3600), 0) + "d" + fixed(std::fmod(std::floor(seconds / 60), 60), 0) +
         "'" + fixed(std::fmod(seconds, 60), decimals) + "\"";
}

std::string bearing(double degrees, int precision) {
  const double fromEast = degrees;
  const bool north = fromEast <= 180;
  const bool east = fromEast <= 90 || fromEast >= 270;
  if (fromEast == 0) return "E";
  if (fromEast == 90) return "N";
  if (fromEast == 180) return "W";
  if (fromEast == 270) return "S";
  const double turn = std::fabs((north ? 90 : 270) - fromEast);
  return (north ? "N " : "S ") + degreesMinutesSeconds(turn, precision) + (east ? " E" : " W");
}

std::string angle(double radians, int units, int precision) {
  switch (units) {
  case kHostDms: return degreesMinutesSeconds(OdaToDegree(radians), precision);
  case kHostGradians: return fixed(radians * (kGradiansPerTurn / kTurn), precision) + "g";
  case kHostRadians: return fixed(radians, precision) + "r";
  case kHostSurveyor: return bearing(OdaToDegree(radians), precision);
  default: return fixed(OdaToDegree(radians), precision);
  }
}

/// The angle from 0 to a full turn; rounding errors just below a full turn count as 0.
double withinTurn(double radians) {
  constexpr double kRounding = 1e-10;
  double rest = std::fmod(radians, kTurn);
  if (rest < 0) rest += kTurn;
  return kTurn - rest < kRounding ? 0 : rest;
}

} // namespace

} // namespace host

bool hostdbAngToF(const OdChar* text, int units, double& radians) {
  host::NumberScanner in(text);
  double value = 0;
  if (!host::scanBearing(in, value)) {
    in.moveTo(0);
    const double sign = in.sign();
    if (!host::scanPlain(in, units, value)) return false;
    value *= sign;
  }
  if (!in.atEnd()) return false;
  radians = value;
  return true;
}

OdString hostdbAngToS(double radians, int units, int precision, const OdDbDatabase* database) {
  if (units < 0) units = database->getAUNITS();
  if (precision < 0) precision = database->getAUPREC();
  const double turned = radians - database->getANGBASE();
  const double counted = host::withinTurn(database->getANGDIR() ? -turned : turned);
  return OdString(host::angle(counted, units, host::usable(precision)).c_str());
}
