// Texts that are not in the encoding that the file tells: what is noted, and reading them in another one.
#include "DbBlockTableRecord.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbText.h"
#include "DbTextStyleTable.h"
#include "DbTextStyleTableRecord.h"
#include "DxfReader.h"
#include "dxf_text.h"
#include "support/drawings.h"
#include <gmock/gmock.h>

namespace {

using test::savedBytes;
using testing::ElementsAre;
using testing::HasSubstr;

struct Read {
  OdDbDatabasePtr database = OdDbDatabase::createObject();
  std::vector<std::string> notes;
};

Read read(const std::string& text, const wchar_t* encoding = L"") {
  Read result;
  OdDbDxfReadOptions options;
  options.encoding = encoding;
  options.note = [&result](const OdString& note) { result.notes.push_back(note.toUtf8()); };
  auto bytes = std::make_shared<std::string>(text);
  const std::string_view view = *bytes;
  odDbReadBytes(*result.database, view, std::move(bytes), L"test.dxf", options);
  return result;
}

/// A drawing whose header names this release and code page ("none": neither does), with a text for each of
/// the values; their handles begin with 30. The first value stands in line 48, or 30 without a header.
std::string drawing(const char* release, const std::string& page, const std::vector<std::string>& values) {
  std::string text;
  if (page != "none")
    text = dxf(std::string("0 SECTION|2 HEADER|9 $ACADVER|1 ") + release + "|9 $DWGCODEPAGE|3 " + page +
               "|9 $HANDSEED|5 FFF|0 ENDSEC");
  text += dxf("0 SECTION|2 TABLES|0 TABLE|2 BLOCK_RECORD|5 1|0 BLOCK_RECORD|5 1F|2 *Model_Space|0 ENDTAB");
  text += dxf("0 ENDSEC|0 SECTION|2 ENTITIES");
  int handle = 0x30;
  for (const std::string& value : values) {
    text += dxf("0 TEXT|5 " + OdDbHandle(static_cast<OdUInt64>(handle++)).ascii().toUtf8());
    text += "  1\r\n" + value + "\r\n";
  }
  return text + dxf("0 ENDSEC|0 EOF");
}

OdDbTextPtr textOf(OdDbDatabase& database, int number, OdDb::OpenMode mode = OdDb::kForRead) {
  return OdDbObjectId(database.store().find(0x30 + static_cast<OdUInt64>(number))).safeOpenObject(mode);
}

TEST(EncodingTest, HeadersThatDisagreeWithTheirBytesAreNoted) {
  struct Case {
    const char* release;
    const char* page;
    std::vector<std::string> values;
    const wchar_t* encoding;
    const char* note; ///< null: none
  };
  const Case cases[] = {
      {"AC1027", "ANSI_1252", {"plain", "caf\xC3\xA9", "\xF0\x9F\x98\x80"}, L"", nullptr},
      {"AC1027", "martian", {"caf\xC3\xA9"}, L"", nullptr}, // nobody reads the name in this release
      {"AC1027",
       "ANSI_1251",
       {"plain", "\xCF\xF0", "\xE9"},
       L"",
       "2 texts (the first in line 54) hold bytes that mean nothing in UTF-8, which this release stores; "
       "--encoding ANSI_1251 reads it so"},
      {"AC1032",
       "UTF-8",
       {"\xE9"},
       L"",
       "1 text (in line 48) holds bytes that mean nothing in UTF-8, which this release stores; "
       "--encoding ANSI_1252 reads it so"},
      {"AC1032",
       "ANSI_1252",
       {"\xE9", "caf\xC3\xA9"},
       L"",
       "1 text (in line 48) holds bytes that mean nothing in UTF-8, which this release stores; they are kept "
       "as they are"},
      {"AC1015", "ANSI_1252", {"caf\xE9", "\x80\xC3\xA9"}, L"", nullptr},
      {"AC1015",
       "ANSI_1252",
       {"caf\xC3\xA9", "plain", "\xE6\x9D\xBF"},
       L"",
       "the header names the code page \"ANSI_1252\", but 2 texts beyond ASCII (the first in line 48) are "
       "all "
       "UTF-8; --encoding UTF-8 reads it so"},
      {"AC1018", "ANSI_936", {"\xC4\xAB\xB0\xE5"}, L"", nullptr},
      {"AC1018", "ANSI_936", {"\xC1\xAA\xCD\xA8"}, L"", nullptr}, // would be UTF-8 by chance
      {"AC1018",
       "ANSI_936",
       {"\xE6\x9D\xBF"},
       L"",
       "the header names the code page \"ANSI_936\", but 1 text beyond ASCII (in line 48) is UTF-8; "
       "--encoding "
       "UTF-8 reads it so"},
      {"AC1015", "martian", {"plain"}, L"", "the header names the code page \"martian\", which is not known"},
      {"AC1015",
       "martian",
       {"caf\xE9"},
       L"",
       "the header names the code page \"martian\", which is not known, so 1 text beyond ASCII (in line 48) "
       "is "
       "read as ANSI_1252; --encoding NAME reads the drawing in another"},
      {"AC1015",
       "Ascii",
       {"caf\xE9", "\xE8"},
       L"",
       "the header names the code page \"Ascii\", so 2 texts beyond ASCII (the first in line 48) are read as "
       "ANSI_1252; --encoding NAME reads the drawing in another"},
      {"", "none", {"plain"}, L"", nullptr},
      {"",
       "none",
       {"caf\xE9"},
       L"",
       "the header names no code page, so 1 text beyond ASCII (in line 30) is read as ANSI_1252; --encoding "
       "NAME reads the drawing in another"},
      {"AC1015",
       "ANSI_1251",
       {"\xCF\xF0", "\x98"},
       L"",
       "1 text (in line 54) holds bytes that mean nothing in ANSI_1251; --encoding NAME reads the drawing in "
       "another"},
      {"AC1015",
       "ANSI_932",
       {"\x94\xC2", "a\x94"},
       L"",
       "1 text (in line 54) holds bytes that mean nothing in ANSI_932; --encoding NAME reads the drawing in "
       "another"},
      // Once the user has named an encoding, only what it leaves open is worth telling.
      {"AC1015", "martian", {"\xE6\x9D\xBF"}, L"UTF-8", nullptr},
      {"AC1027", "ANSI_1252", {"\xE9"}, L"ANSI_1252", nullptr},
      {"AC1027",
       "ANSI_1252",
       {"caf\xC3\xA9"},
       L"ANSI_1252",
       "1 text beyond ASCII (in line 48) is UTF-8, but read as ANSI_1252 as was asked for"},
      {"AC1027",
       "ANSI_1252",
       {"\xE9", "\x81"},
       L"ansi_1252",
       "1 text (in line 54) holds bytes that mean nothing in ansi_1252; they are kept as they are"},
      {"AC1015",
       "ANSI_1252",
       {"\xE9"},
       L"UTF-8",
       "1 text (in line 48) holds bytes that mean nothing in UTF-8; they are kept as they are"},
  };
  for (const Case& c : cases) {
    const std::vector<std::string> notes = read(drawing(c.release, c.page, c.values), c.encoding).notes;
    EXPECT_EQ(notes, c.note ? std::vector<std::string>{c.note} : std::vector<std::string>())
        << c.release << " " << c.page << " " << c.values.front();
  }
  EXPECT_THAT(read("\xEF\xBB\xBF" + drawing("AC1015", "ANSI_1252", {"plain"})).notes, ElementsAre());
}

TEST(EncodingTest, HeadersOfBinaryDrawingsAreHeldAgainstTheirBytesToo) {
  const struct {
    const char* release;
    const char* page;
    std::vector<std::string> values;
    const char* note; ///< "#" stands for the place of the first of them; null: none
  } cases[] = {
      {"AC1015", "ANSI_1252", {"plain", "caf\xE9"}, nullptr},
      {"AC1027", "ANSI_1252", {"caf\xC3\xA9"}, nullptr},
      {"AC1015",
       "ANSI_1252",
       {"plain", "caf\xC3\xA9", "\xE6\x9D\xBF"},
       "the header names the code page \"ANSI_1252\", but 2 texts beyond ASCII (the first at byte #) are all "
       "UTF-8; only drawings in text form can be read so"},
      {"AC1027",
       "ANSI_1251",
       {"\xCF\xF0"},
       "1 text (at byte #) holds bytes that mean nothing in UTF-8, which this release stores; they are kept "
       "as "
       "they are"},
      {"AC1015",
       "ANSI_1251",
       {"\x98", "\xCF"},
       "1 text (at byte #) holds bytes that mean nothing in ANSI_1251; --encoding NAME reads the drawing in "
       "another"},
      {"AC1015", "martian", {"plain"}, "the header names the code page \"martian\", which is not known"},
  };
  for (const auto& c : cases) {
    // A number whose bytes would be texts of no encoding, and what stands behind the end, say nothing.
    std::string text = drawing(c.release, c.page, c.values);
    text.insert(text.rfind(dxf("0 ENDSEC")), dxf("10 -1.234567e300|70 -2|310 FFFEC3"));
    const std::string bytes = toBinary(text) + "\xE9\xFF";
    std::vector<std::string> expected;
    if (c.note) expected.emplace_back(c.note);
    std::size_t place = std::string::npos;
    for (const std::string& value : c.values)
      if (value != "plain") place = std::min(place, bytes.find(value) - 2);
    if (const std::size_t at = c.note ? expected[0].find('#') : std::string::npos; at != std::string::npos)
      expected[0].replace(at, 1, std::to_string(place));
    EXPECT_EQ(read(bytes).notes, expected) << c.release << " " << c.page;
  }
}

TEST(EncodingTest, WhatWasReadInAnotherEncodingIsSavedSoThatItReadsTheSame) {
  struct Case {
    const char* release;
    const char* page;
    const char* value;
    const wchar_t* encoding;
    std::wstring text;
    const char* saved;     ///< the bytes of the value in the saved file
    const char* savedPage; ///< as its header names it
  };
  const Case cases[] = {
      // Before 2007 the header is told right, and the bytes stay.
      {"AC1015", "ANSI_1252", "\xCF\xF0", L"1251", L"\u041F\u0440", "\xCF\xF0", "ANSI_1251"},
      {"AC1018", "martian", "\x81", L"dos850", L"\u00FC", "\x81", "dos850"},
      {"AC1018", "ANSI_1252", "\x83\x5C\\U+677F", L"sjis", L"\u30BD\u677F", "\x83\x5C\\U+677F", "ANSI_932"},
      {"AC1015", "ANSI_1252", "\xE4", L"ISO8859-5", L"\u0444", "\xE4", "iso8859-5"},
      {"", "none", "\xCF\xF0", L"ANSI_1251", L"\u041F\u0440", "\xCF\xF0", "ANSI_1251"},
      {"AC1015", "Ascii", "\xE9", L"ANSI_1252", L"\u00E9", "\xE9", "Ascii"}, // which means the same
      // UTF-8 is not for those releases, and nothing else for later ones.
      {"AC1015", "ANSI_1252", "^I\xC3\xA9\xE6\x9D\xBF\xF0\x9F\x98\x80\\P", L"UTF-8",
       L"\t\u00E9\u677F\U0001F600\\P", "^I\xE9\\U+677F\\U+D83D\\U+DE00\\P", "ANSI_1252"},
      {"AC1015", "ANSI_932", "\xE3\x82\xBD", L"UTF-8", L"\u30BD", "\x83\x5C", "ANSI_932"},
      {"AC1018", "martian", "\xC3\xA9", L"UTF-8", L"\u00E9", "\xE9", "martian"},
      {"AC1018", "UTF-8", "\xE9", L"ANSI_1252", L"\u00E9", "\xC3\xA9", "UTF-8"},
      {"AC1027", "ANSI_1252", "\xE9 \\U+677F", L"ANSI_1252", L"\u00E9 \u677F", "\xC3\xA9 \\U+677F",
       "ANSI_1252"},
      {"AC1032", "ANSI_1252", "\x83\x5C\xFD", L"ANSI_932", L"\u30BD\xDCFD", "\xE3\x82\xBD\xFD", "ANSI_1252"},
      {"AC1032", "ANSI_1252", "\xC3\xA9", L"UTF-8", L"\u00E9", "\xC3\xA9", "ANSI_1252"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.release) + " " + c.page + " " + OdString(c.encoding).toUtf8());
    const Read before = read(drawing(c.release, c.page, {c.value, "x"}), c.encoding);
    EXPECT_EQ(textOf(*before.database, 0)->textString().str(), c.text);
    // A changed text beside the untouched one.
    textOf(*before.database, 1, OdDb::kForWrite)->setTextString(c.text);
    const std::string saved = savedBytes(*before.database);
    EXPECT_THAT(saved, HasSubstr(dxf("0 TEXT|5 30") + "  1\r\n" + c.saved + "\r\n"));
    EXPECT_THAT(saved, HasSubstr(dxf(std::string("9 $DWGCODEPAGE|3 ") + c.savedPage)));
    const Read after = read(saved);
    EXPECT_EQ(textOf(*after.database, 0)->textString().str(), c.text);
    EXPECT_EQ(textOf(*after.database, 1)->textString().str(), c.text);
  }
}

TEST(EncodingTest, BinaryDrawingsChangeTheirCodePageButAreNotConverted) {
  const Read before = read(toBinary(drawing("AC1015", "ANSI_1252", {"\xCF\xF0", "x"})), L"1251");
  EXPECT_EQ(textOf(*before.database, 0)->textString().str(), L"\u041F\u0440");
  EXPECT_EQ(textOf(*read(savedBytes(*before.database)).database, 0)->textString().str(), L"\u041F\u0440");
  EXPECT_EQ(read(toBinary(drawing("AC1027", "ANSI_1252", {"\xC3\xA9"})), L"UTF-8").notes.size(), 0);
  EXPECT_THROW(read(toBinary(drawing("AC1027", "ANSI_1252", {"\xE9"})), L"1252"), OdError);
  EXPECT_THROW(read(toBinary(drawing("AC1015", "ANSI_1252", {"\xE9"})), L"UTF-8"), OdError);
}

TEST(EncodingTest, LinesKeepTheirNumbersWhenTextsAreConverted) {
  std::string text = drawing("AC1027", "ANSI_1252", {"\xE9"});
  text.replace(text.rfind("  0\r\nEOF"), std::string::npos, "trash\r\n");
  for (const wchar_t* encoding : {L"", L"ANSI_1252"}) {
    try {
      read(text, encoding);
      ADD_FAILURE();
    } catch (const OdError& error) {
      EXPECT_THAT(std::string(error.what()), HasSubstr("line 51: ")) << OdString(encoding).toUtf8();
    }
  }
}

TEST(EncodingTest, NamesInEscapesAreFoundAndRenamedByWhatTheyMean) {
  const Layout layout{"AC1015", "\n", true};
  const std::string text =
      dxf("0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $DWGCODEPAGE|3 ANSI_1252|9 $CLAYER|8 \\U+677ft\\U+00fcR",
          layout) +
      dxf("9 $HANDSEED|5 FFF|0 ENDSEC|0 SECTION|2 TABLES", layout) +
      dxf("0 TABLE|2 LAYER|5 2|0 LAYER|5 10|2 \\U+677FT\\U+00DCR|0 ENDTAB", layout) +
      dxf("0 TABLE|2 STYLE|5 3|0 STYLE|5 11|2 \\M+194C2s|0 ENDTAB", layout) +
      dxf("0 TABLE|2 BLOCK_RECORD|5 1|0 BLOCK_RECORD|5 1F|2 *Model_Space|0 BLOCK_RECORD|5 30|2 D\\U+0416",
          layout) +
      dxf("0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|5 31|330 30|2 D\\U+0436|0 ATTDEF|5 32", layout) +
      dxf("100 AcDbText|1 \\M+194C2|100 AcDbAttributeDefinition|3 \\U+677F?|2 \\M+194C2_\\U+00E9", layout) +
      dxf("0 ENDBLK|5 33|330 30|0 BLOCK|5 34|330 1F|2 *Model_Space|0 ENDBLK|5 35|330 1F|0 ENDSEC", layout) +
      dxf("0 SECTION|2 ENTITIES|0 INSERT|5 40|8 \\M+194C2t\xFCr|2 d\\U+0436|0 TEXT|5 41|8 0|7 \\U+677FS|1 x",
          layout) +
      dxf("0 ENDSEC|0 EOF", layout);
  const OdDbDatabasePtr database = test::drawingFromText(text);
  const auto record = [&](OdDbObjectId table, const wchar_t* name) {
    return OdDbSymbolTablePtr(table.safeOpenObject())->getAt(name).stub();
  };
  OdDbStore& store = database->store();
  EXPECT_EQ(record(database->getLayerTableId(), L"\u677Ft\u00FCR"), store.find(0x10));
  EXPECT_EQ(record(database->getTextStyleTableId(), L"\u677FS"), store.find(0x11));
  EXPECT_EQ(record(database->getBlockTableId(), L"d\u0436"), store.find(0x30));
  EXPECT_EQ(store.blockEnds[store.find(0x30)].begin, store.find(0x31));
  EXPECT_EQ(describe(store.find(0x32)), "ATTDEF: 5=32 100='AcDbText' 1='\u677F' "
                                        "100='AcDbAttributeDefinition' 3='\u677F?' 2='\u677F_\u00E9'");
  EXPECT_EQ(savedBytes(*database), text);

  const auto rename = [&](OdUInt64 handle, const wchar_t* name) {
    const OdDbSymbolTableRecordPtr open = OdDbObjectId(store.find(handle)).safeOpenObject(OdDb::kForWrite);
    open->setName(name);
  };
  rename(0x10, L"W\u00E4nde \u0436");
  rename(0x11, L"\u0416");
  rename(0x30, L"T\u00FCr \u677F");
  const std::string renamed = savedBytes(*database);
  EXPECT_THAT(renamed, HasSubstr(dxf("9 $CLAYER|8 W\xE4nde \\U+0436", layout)));
  EXPECT_THAT(renamed, HasSubstr(dxf("8 W\xE4nde \\U+0436|2 T\xFCr \\U+677F", layout)));
  const OdDbDatabasePtr after = test::drawingFromText(renamed);
  EXPECT_THAT(describe(after->store().find(0x40)), HasSubstr("8='W\u00E4nde \u0436' 2='T\u00FCr \u677F'"));
  EXPECT_THAT(describe(after->store().find(0x41)), HasSubstr("7='\u0416'"));
  EXPECT_THAT(describe(after->store().find(0x31)), HasSubstr("2='T\u00FCr \u677F'"));
}

} // namespace
