#include "attext/dxf_filer.h"
#include <gmock/gmock.h>

namespace {

using attext::PointForm;
using attext::TqDxfFiler;

class DxfFiler : public testing::Test {
protected:
  /// The single entry that a writer has produced since the last call.
  std::string entry() {
    EXPECT_EQ(m_filer.entries().size(), m_seen + 1);
    return m_filer.entries()[m_seen++].toUtf8();
  }

private:
  std::size_t m_seen = 0;

protected:
  TqDxfFiler m_filer{OdDbObjectId()};
};

TEST_F(DxfFiler, WritesTexts) {
  m_filer.wrName(2, L"Küche");
  EXPECT_EQ(entry(), "\t2\nKüche");
  m_filer.wrString(100, L"");
  EXPECT_EQ(entry(), "\t100\n");
  m_filer.wrHandle(5, OdDbHandle(0xD9B071D01A0CB618));
  EXPECT_EQ(entry(), "\t5\nD9B071D01A0CB618");
}

TEST_F(DxfFiler, WritesIntegers) {
  m_filer.wrInt8(70, -128);
  EXPECT_EQ(entry(), "\t70\n-128");
  m_filer.wrUInt8(70, 255);
  EXPECT_EQ(entry(), "\t70\n255");
  m_filer.wrInt16(70, -32768);
  EXPECT_EQ(entry(), "\t70\n-32768");
  m_filer.wrUInt16(70, 65535);
  EXPECT_EQ(entry(), "\t70\n65535");
  m_filer.wrInt32(90, -2147483647);
  EXPECT_EQ(entry(), "\t90\n-2147483647");
  m_filer.wrUInt32(90, 4294967295u);
  EXPECT_EQ(entry(), "\t90\n-1");
  m_filer.wrInt64(160, -9007199254740993);
  EXPECT_EQ(entry(), "\t160\n-9007199254740993");
  m_filer.wrUInt64(160, 0xFFFFFFFFFFFFFFFF);
  EXPECT_EQ(entry(), "\t160\n-1");
}

TEST_F(DxfFiler, WritesTheLetterDForTheCodeOfTruthValues) {
  m_filer.wrBool(290, true);
  EXPECT_EQ(entry(), "\td\n1");
  m_filer.wrBool(290, false);
  EXPECT_EQ(entry(), "\td\n0");
}

TEST_F(DxfFiler, WritesNumbersWithFixedDecimals) {
  m_filer.wrAngle(50, 1.570796);
  EXPECT_EQ(entry(), "\t50\n1.57");
  m_filer.wrDouble(48, 1.0);
  EXPECT_EQ(entry(), "\t48\n1.0000");
  m_filer.wrDouble(48, -1234567.25);
  EXPECT_EQ(entry(), "\t48\n-1234567.2500");
}

TEST_F(DxfFiler, WritesAllCoordinatesUnderTheSameCodes) {
  m_filer.wrPoint2d(11, OdGePoint2d(1, 2.5));
  EXPECT_EQ(entry(), "\t10\n1.000000\n\t20\n2.500000");
  m_filer.wrVector2d(11, OdGeVector2d(1, 2.5));
  EXPECT_EQ(entry(), "\t10\n1.000000\n\t20\n2.500000");
  m_filer.wrPoint3d(11, OdGePoint3d(1, 2.5, -0.0000004));
  EXPECT_EQ(entry(), "\t10\n1.000000\n\t20\n2.500000\n\t30\n-0.000000");
  m_filer.wrVector3d(210, OdGeVector3d(0, 0, 1));
  EXPECT_EQ(entry(), "\t10\n0.000000\n\t20\n0.000000\n\t30\n1.000000");
  m_filer.wrScale3d(41, OdGeScale3d(1, 2, 3));
  EXPECT_EQ(entry(), "\t10\n1.000000\n\t20\n2.000000\n\t30\n3.000000");
}

TEST_F(DxfFiler, TellsOnlyTheSizeOfBinaryData) {
  const OdUInt8 bytes[] = {1, 2, 3};
  m_filer.wrBinaryChunk(310, bytes, 3);
  EXPECT_EQ(entry(), "\t310 /*wrBinaryChunk*/\n3");
}

TEST_F(DxfFiler, KeepsObjectIdsOutOfTheEntries) {
  m_filer.wrObjectId(330, OdDbObjectId());
  EXPECT_TRUE(m_filer.entries().empty());
  EXPECT_EQ(m_filer.lastObjectIdText(), L"\t330 #wrObjectId@\n0x0000000000000000");
}

TEST_F(DxfFiler, TakesRemarks) {
  m_filer.addChunkRemark(12);
  EXPECT_EQ(entry(), "wrBinaryChunk: 12");
  m_filer.addMarkerRemark(L"AcDbEntity");
  EXPECT_EQ(entry(), "wrSubclassMarker: AcDbEntity");
}

TEST_F(DxfFiler, IsAClassOfItsOwn) {
  EXPECT_EQ(m_filer.isA()->name(), L"TqDxfFiler");
  EXPECT_TRUE(m_filer.isKindOf(OdDbDxfFiler::desc()));
  EXPECT_EQ(odrxGetClassByName(L"TqDxfFiler"), TqDxfFiler::desc());
}

TEST(PointText, HasAShortForm) {
  EXPECT_EQ(attext::pointText(1, 2.345, -3, PointForm::debug), L"[1.00,2.35,-3.00]");
  EXPECT_EQ(attext::pointText(1, 2.25, PointForm::debug), L"[1.00,2.25]");
}

} // namespace
