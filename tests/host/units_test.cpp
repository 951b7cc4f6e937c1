// Lengths and angles as text.
#include "DbDatabase.h"
#include "HostUtils.h"
#include <gmock/gmock.h>

namespace {

TEST(LinearUnits, AreWrittenInEveryForm) {
  const struct {
    double value;
    int units, precision;
    const wchar_t* expected;
  } cases[] = {
      {15.5, kHostScientific, 4, L"1.5500E+01"},
      {15.5, kHostDecimal, 2, L"15.50"},
      {-0.001, kHostDecimal, 2, L"0.00"},
      {-15.5, kHostDecimal, 0, L"-16"},
      {15.5, kHostEngineering, 2, L"1'-3.50\""},
      {11.999, kHostEngineering, 1, L"1'-0.0\""},
      {75.5, kHostArchitectural, 4, L"6'-3 1/2\""},
      {0.5, kHostArchitectural, 4, L"1/2\""},
      {11.99, kHostArchitectural, 3, L"1'-0\""},
      {-15.25, kHostFractional, 2, L"-15 1/4"},
      {3, kHostFractional, 6, L"3"},
      {1e300, kHostDecimal, 8, nullptr},
  };
  const OdDbDatabasePtr drawing = OdDbDatabase::createBlank();
  for (const auto& test : cases) {
    const OdString text = hostdbRToS(test.value, test.units, test.precision, drawing);
    if (test.expected) {
      EXPECT_EQ(text.toUtf8(), OdString(test.expected).toUtf8());
    }
    double back = 0;
    EXPECT_TRUE(hostdbDisToF(text, back)) << text.toUtf8();
  }
}

TEST(AngularUnits, AreWrittenInEveryForm) {
  const struct {
    double degrees;
    int units, precision;
    const wchar_t* expected;
  } cases[] = {
      {45, kHostDegrees, 0, L"45"},         {-45, kHostDegrees, 1, L"315.0"},
      {-1e-12, kHostDegrees, 2, L"0.00"},   {45.5, kHostDms, 0, L"46d"},
      {45.5, kHostDms, 2, L"45d30'"},       {45.99999, kHostDms, 4, L"46d0'0\""},
      {1.0001, kHostDms, 6, L"1d0'0.36\""}, {45, kHostGradians, 1, L"50.0g"},
      {180, kHostRadians, 3, L"3.142r"},    {90, kHostSurveyor, 4, L"N"},
      {135, kHostSurveyor, 0, L"N 45d W"},  {300, kHostSurveyor, 2, L"S 30d0' E"},
  };
  const OdDbDatabasePtr drawing = OdDbDatabase::createBlank();
  for (const auto& test : cases)
    EXPECT_EQ(hostdbAngToS(OdaToRadian(test.degrees), test.units, test.precision, drawing).toUtf8(),
              OdString(test.expected).toUtf8());
}

} // namespace
