// What users may type for points, angles, lengths and whole numbers.
#include "HostUtils.h"
#include "hbview/PointParser.h"
#include <gmock/gmock.h>

namespace {

constexpr double kTolerance = 1e-9;

/// A coordinate system turned by 90 degrees about (100, 0), with the last point at (110, 20).
host::PointFrame turnedFrame() {
  host::PointFrame frame;
  frame.ucsToWorld.setCoordSystem({100, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
  frame.lastPoint = {110, 20, 0};
  frame.elevation = 7;
  return frame;
}

TEST(PointParser, ReadsEveryForm) {
  const struct {
    const wchar_t* text;
    OdGePoint3d expected;
  } cases[] = {
      {L"1,2", {98, 1, 7}},
      {L" 1 , -2.5 , 3 ", {102.5, 1, 3}},
      {L"*1,2", {1, 2, 0}},
      {L"*1,2,3", {1, 2, 3}},
      {L"@", {110, 20, 0}},
      {L"@1,2", {108, 21, 0}},
      {L"@1,2,3", {108, 21, 3}},
      {L"@*1,2", {111, 22, 0}},
      {L"@10<0", {110, 30, 0}},
      {L"@10<90", {100, 20, 0}},
      {L"5<180", {100, -5, 7}},
      {L"*5<90", {0, 5, 0}},
      {L"@2<1.5707963267949r", {108, 20, 0}},
      {L"1e1,1'-2\"", {86, 10, 7}},
      {L".5,1/4", {99.75, .5, 7}},
  };
  for (const auto& test : cases) {
    const auto point = host::parsePoint(test.text, turnedFrame());
    ASSERT_TRUE(point) << OdString(test.text).toUtf8();
    EXPECT_LT(point->distanceTo(test.expected), kTolerance) << OdString(test.text).toUtf8();
  }
}

TEST(PointParser, RefusesEverythingElse) {
  for (const wchar_t* text :
       {L"",   L"1",    L"1,",  L",2",    L"1,2,3,4", L"1;2",   L"a,b",   L"@@1,2", L"1,2*",    L"5<",
        L"<5", L"5<<5", L"5<x", L"1,nan", L"inf,1",   L"1 2,3", L"1,2<3", L"1,1/0", L"1e999,1", L"\x4e00,1"})
    EXPECT_FALSE(host::parsePoint(text, turnedFrame())) << OdString(text).toUtf8();
  host::PointFrame farAway;
  farAway.lastPoint = {1.7e308, 0, 0};
  EXPECT_FALSE(host::parsePoint(L"@1.7e308,0", farAway));
}

TEST(AngleParser, CountsFromTheBaseAngleInItsDirection) {
  host::PointFrame compass; // north is 0, clockwise
  compass.angleBase = OdaPI2;
  compass.clockwise = true;
  EXPECT_NEAR(*host::parseAngle(L"90", compass), 0, kTolerance);
  EXPECT_NEAR(*host::parseAngle(L"45", compass), OdaPI / 4, kTolerance);
  EXPECT_LT(host::parsePoint(L"10<90", compass)->distanceTo({10, 0, 0}), kTolerance);
  EXPECT_LT(host::parsePoint(L"*10<90", compass)->distanceTo({0, 10, 0}), kTolerance)
      << "the world has no base angle";
}

TEST(AngleParser, ReadsTheMarksOfAllUnits) {
  const struct {
    const wchar_t* text;
    int units;
    double degrees;
  } cases[] = {
      {L"45", kHostDegrees, 45},
      {L"45,5", kHostDegrees, 45.5},
      {L"-30", kHostDms, -30},
      {L"45d30'", kHostDegrees, 45.5},
      {L"1d2'3.6\"", kHostRadians, 1 + 2 / 60. + 3.6 / 3600},
      {L"50", kHostGradians, 45},
      {L"50g", kHostDegrees, 45},
      {L"3.14159265358979r", kHostDms, 180},
      {L"2", kHostRadians, OdaToDegree(2)},
      {L"90\xB0", kHostRadians, 90},
      {L"N", kHostSurveyor, 90},
      {L"w", kHostDegrees, 180},
      {L"S30d15'W", kHostSurveyor, 239.75 - 360},
      {L"n 45 e", kHostSurveyor, 45},
  };
  for (const auto& test : cases) {
    double radians = 0;
    ASSERT_TRUE(hostdbAngToF(test.text, test.units, radians)) << OdString(test.text).toUtf8();
    EXPECT_NEAR(std::remainder(radians - OdaToRadian(test.degrees), Oda2PI), 0, kTolerance)
        << OdString(test.text).toUtf8();
  }
  for (const wchar_t* text : {L"", L"d", L"45d30", L"N100E", L"N45", L"45x", L"1,2,3", L"--1", L"30'"}) {
    double untouched = 42;
    EXPECT_FALSE(hostdbAngToF(text, kHostDegrees, untouched)) << OdString(text).toUtf8();
    EXPECT_EQ(untouched, 42);
  }
}

TEST(LengthParser, ReadsNumbersWithBothDecimalMarksAndFeet) {
  const struct {
    const wchar_t* text;
    double expected;
  } cases[] = {
      {L"12.5", 12.5}, {L"12,5", 12.5}, {L"-1e-2", -0.01},     {L"+.5", .5},     {L"2 1/4", 2.25},
      {L"3/8", .375},  {L"6'", 72},     {L"6'-3 1/2\"", 75.5}, {L"6'3.5", 75.5}, {L"-1'-6\"", -18},
      {L"5\"", 5},     {L"1-1/2", 1.5}, {L" 7 ", 7},
  };
  for (const auto& test : cases) {
    const auto length = host::parseLength(test.text);
    ASSERT_TRUE(length) << OdString(test.text).toUtf8();
    EXPECT_NEAR(*length, test.expected, kTolerance) << OdString(test.text).toUtf8();
  }
  for (const wchar_t* text :
       {L"", L"-", L"1.000,5", L"1,2,3", L"0x10", L"nan", L"1 2", L"5\"6", L"1/0", L"'", L"1e400"})
    EXPECT_FALSE(host::parseLength(text)) << OdString(text).toUtf8();
}

TEST(IntegerParser, HasThirtyTwoBits) {
  EXPECT_EQ(host::parseInteger(L" +12 "), 12);
  EXPECT_EQ(host::parseInteger(L"2147483647"), 2147483647);
  EXPECT_EQ(host::parseInteger(L"-2147483648"), -2147483647 - 1);
  for (const wchar_t* text :
       {L"", L"-", L"2147483648", L"-2147483649", L"99999999999999999999", L"1.0", L"1,0", L"1a"})
    EXPECT_FALSE(host::parseInteger(text)) << OdString(text).toUtf8();
}

} // namespace
