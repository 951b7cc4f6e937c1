// Damaged files: each error says where, what was expected and what was met.
#include "DxfReader.h"
#include "dxf_text.h"
#include "support/drawings.h"
#include <gmock/gmock.h>

namespace {

using namespace std::string_literals;

std::string errorOf(const std::string& text, const OdDbDxfReadOptions& options = {}) {
  const OdDbDatabasePtr database = OdDbDatabase::createObject();
  try {
    odDbReadBytes(*database, text, nullptr, L"test.dxf", options);
  } catch (const OdError& error) {
    return error.what();
  }
  return "(none)";
}

struct Case {
  std::string text;
  const char* error;
};

TEST(DamageTest, StructureErrorsNameLineAndReason) {
  const std::string start = dxf("0 SECTION|2 ENTITIES");
  const std::string blocks = dxf("0 SECTION|2 BLOCKS");
  const std::string tables = dxf("0 SECTION|2 TABLES");
  const Case cases[] = {
      {"", "test.dxf: the file is empty"},
      {"AC1032\0\0\0\0\0\0"s + std::string(20, '\0'),
       "test.dxf: this is a DWG drawing; only DXF is supported"},
      {"0\rSECTION\r", "test.dxf: the lines end in carriage returns only, which is not supported"},
      {"\x89PNG\r\n\x1A\n", "test.dxf: line 1: expected a group code, met \"?PNG\""},
      {"  0\n", "test.dxf: line 1: the file ends behind group code 0, before its value"},
      {"  0\nSECTION\n", "test.dxf: line 1: a section has no name (group 2)"},
      {dxf("0 SECTION|9 $X|2 |0 EOF"), "test.dxf: line 1: a section has no name (group 2)"},
      {dxf("1 x|0 EOF"), "test.dxf: line 1: expected the beginning of a section (group 0), met group 1"},
      {dxf("0 LINE|0 EOF"), "test.dxf: line 1: expected the beginning of a section or EOF, met \"LINE\""},
      {blocks + dxf("0 BLOCK|2 |0 ENDBLK"),
       "test.dxf: line 5: a block without a block record (group 330) has an empty name (group 2)"},
      {start, "test.dxf: line 5: the file ends inside section ENTITIES, before ENDSEC"},
      {start + dxf("0 ENDSEC"), "test.dxf: line 7: the file ends without EOF"},
      {start + dxf("0 EOF"), "test.dxf: line 5: section ENTITIES is not closed: expected ENDSEC, met EOF"},
      {start + dxf("0 SECTION|2 OBJECTS"),
       "test.dxf: line 5: section ENTITIES is not closed: expected ENDSEC, met SECTION"},
      {start + dxf("0 ENDSEC") + start + dxf("0 ENDSEC|0 EOF"),
       "test.dxf: line 7: a second section ENTITIES"},
      {start + dxf("0 ENDSEC") + tables, "test.dxf: line 7: section TABLES stands behind section ENTITIES"},
      {start + "LINE\n", "test.dxf: line 5: expected a group code, met \"LINE\""},
      {start + "12x\n1\n", "test.dxf: line 5: expected a group code, met \"12x\""},
      {start + "99999\n1\n", "test.dxf: line 5: expected a group code, met \"99999\""},
      {start + dxf("0 LINE|10"), "test.dxf: line 7: group 10: expected a number, met \"\""},
      {start + dxf("0 LINE|10 1.0.0"), "test.dxf: line 7: group 10: expected a number, met \"1.0.0\""},
      {start + dxf("0 LINE|40 1e999"), "test.dxf: line 7: group 40: expected a number, met \"1e999\""},
      {start + dxf("0 LINE|62 1.5"), "test.dxf: line 7: group 62: expected a whole number, met \"1.5\""},
      {start + dxf("0 LINE|5 12G"),
       "test.dxf: line 7: group 5: expected a handle (hexadecimal), met \"12G\""},
      {start + dxf("0 LINE|330 11112222333344445"),
       "test.dxf: line 7: group 330: expected a handle (hexadecimal), met \"11112222333344445\""},
      {start + dxf("0 LINE|5 FFFFFFFFFFFFFFFF"),
       "test.dxf: line 5: the handle FFFFFFFFFFFFFFFF leaves no room for new ones"},
      {start + dxf("0 LINE|5 2A|0 CIRCLE|5 2A|0 ENDSEC"),
       "test.dxf: line 9: the handle 2A of CIRCLE is already used by LINE in line 7"},
      {start + dxf("0 LINE|5 2A|330 99|0 ENDSEC"),
       "test.dxf: line 5: the owner 99 of LINE is no block record"},
      {start + dxf("0 |5 2A|0 ENDSEC"), "test.dxf: line 5: a record of section ENTITIES has no name"},
      {start + dxf("0 ENDTAB|0 ENDSEC"), "test.dxf: line 5: ENDTAB has no place here"},
      {dxf("0 SECTION|2 OBJECTS|0 BLOCK|5 2A|0 ENDSEC"), "test.dxf: line 5: BLOCK has no place here"},
      {start + dxf("0 ATTRIB|5 2A|0 ENDSEC"), "test.dxf: line 5: ATTRIB does not follow an INSERT"},
      {start + dxf("0 INSERT|5 2A|0 VERTEX|0 ENDSEC"), "test.dxf: line 9: VERTEX does not follow a POLYLINE"},
      {start + dxf("0 LINE|5 2A|0 SEQEND|0 ENDSEC"), "test.dxf: line 9: SEQEND does not follow a POLYLINE"},
      {blocks + dxf("0 LINE|0 ENDSEC"), "test.dxf: line 5: expected a BLOCK or ENDSEC, met \"LINE\""},
      {blocks + dxf("0 BLOCK|2 A|0 ENDSEC"),
       "test.dxf: line 9: block \"A\" is not closed: expected ENDBLK, met ENDSEC"},
      {blocks + dxf("0 BLOCK|2 A|0 BLOCK|2 B"),
       "test.dxf: line 9: block \"A\" is not closed: expected ENDBLK, met BLOCK"},
      {blocks + dxf("0 BLOCK|2 A|0 ENDBLK|0 BLOCK|2 a|0 ENDBLK"),
       "test.dxf: line 11: block \"a\" is defined twice"},
      {blocks + dxf("0 BLOCK|8 0|0 ENDBLK"),
       "test.dxf: line 5: a block has neither a block record (group 330) nor a name (group 2)"},
      {blocks + dxf("0 BLOCK|2 A|0 LINE|5 2A|330 99|0 ENDBLK"),
       "test.dxf: line 9: the owner 99 of LINE is not the block that contains it"},
      {tables + dxf("0 LAYER|0 ENDSEC"), "test.dxf: line 5: expected a TABLE or ENDSEC, met \"LAYER\""},
      {tables + dxf("0 TABLE|2 LAYER|0 LAYER|0 ENDSEC"),
       "test.dxf: line 11: table LAYER is not closed: expected ENDTAB, met ENDSEC"},
      {tables + dxf("0 TABLE|5 1|0 ENDTAB"), "test.dxf: line 5: a table has no name (group 2)"},
      {tables + dxf("0 TABLE|2 LAYER|0 ENDTAB|0 TABLE|2 LAYER"), "test.dxf: line 11: a second table LAYER"},
      {dxf("0 SECTION|2 OBJECTS|0 XRECORD|5 50|330 C|0 ENDSEC|0 EOF"),
       "test.dxf: line 7: the owner C of XRECORD 50 does not exist"},
      {dxf("0 SECTION|2 HEADER|9 $ACADVER|1 AC9999|0 ENDSEC"),
       "test.dxf: line 8: the drawing is of release \"AC9999\", which is not known"},
      {dxf("0 SECTION|2 HEADER|9 $X|40 x|0 ENDSEC"),
       "test.dxf: line 7: group 40: expected a number, met \"x\""},
      {dxf("0 SECTION|2 HEADER|0 LINE|0 ENDSEC"),
       "test.dxf: line 5: section HEADER holds variables only: expected ENDSEC, met \"LINE\""},
  };
  for (const Case& c : cases) EXPECT_EQ(errorOf(c.text), c.error) << c.text;
}

TEST(DamageTest, BinaryErrorsNameTheByte) {
  using namespace std::string_literals;
  const std::string mark("AnyCAD! Binary DXF\r\n\x1A\0", 22);
  const std::string section = mark + "\0\0SECTION\0\2\0ENTITIES\0"s;
  const Case cases[] = {
      {mark, "test.dxf: byte 22: the file ends without EOF"},
      {mark + "\0\0SECTION"s, "test.dxf: byte 22: the text of group 0 has no end"},
      {section + "\0\0LINE\0\x0A\0\1\2\3"s, "test.dxf: byte 50: the file ends within a group"},
      {section + "\0\0LINE\0\x50\0"s, "test.dxf: byte 50: expected a group code, met 80"},
      {section + "\0\0LINE\0\x05\0xyz\0"s,
       "test.dxf: byte 50: group 5: expected a handle (hexadecimal), met \"xyz\""},
      {section + "\0\0LINE\0\x36\1\xFF"
                 "12"s,
       "test.dxf: byte 50: the file ends within a group"},
  };
  for (const Case& c : cases) EXPECT_EQ(errorOf(c.text), c.error) << testing::PrintToString(c.text);
}

TEST(DamageTest, EveryTruncationIsAnError) {
  for (const std::string& text : {smallDrawing(), toBinary(smallDrawing()), toBinary(smallDrawing(), true)}) {
    const std::size_t end = text.find("EOF");
    for (std::size_t length = 0; length < end; ++length)
      EXPECT_NE(errorOf(text.substr(0, length)), "(none)") << length;
  }
}

TEST(DamageTest, ReadingCanBeCancelledAndTellsHowFarItIs) {
  std::vector<double> parts;
  OdDbDxfReadOptions options;
  options.progress = [&parts](double part) {
    parts.push_back(part);
    return part < 0.5;
  };
  EXPECT_EQ(errorOf(smallDrawing(), options), "test.dxf: reading was cancelled");
  ASSERT_GT(parts.size(), 10u);
  EXPECT_LT(parts.front(), 0.01);
  EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
  EXPECT_LT(parts.back(), 0.6);
}

TEST(DamageTest, EncodingCanBeGiven) {
  OdDbDxfReadOptions options;
  options.encoding = L"ANSI_1251";
  const OdDbDatabasePtr database = OdDbDatabase::createObject();
  const std::string text = entities("0 TEXT|5 45|330 1F|1 \xE9");
  odDbReadBytes(*database, text, nullptr, L"test.dxf", options);
  EXPECT_THAT(describe(database->store().find(0x45)), testing::HasSubstr("'\u0439'"));
  options.encoding = L"martian";
  EXPECT_EQ(errorOf(text, options), "The encoding \"martian\" is not known.");
}

} // namespace
