// Text of drawing files and code pages, both ways.
#include "TextCodec.h"
#include "sys/codepage.h"
#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

std::string encoded(const OdDbDxfTextCodec& codec, const OdString& text) {
  std::string bytes;
  codec.encode(text.str(), bytes);
  return bytes;
}

TEST(CodecTest, BytesAndTextOfEachEncoding) {
  struct Case {
    OdDb::DwgVersion version;
    const char* page;
    const char* bytes;
    std::wstring text;
  };
  const Case cases[] = {
      {OdDb::vAC15, "ANSI_1252", "caf\xE9 \x80", L"caf\u00E9 \u20AC"},
      {OdDb::vAC15, "ansi_1250", "\xB3\xF3", L"\u0142\u00F3"},
      {OdDb::vAC15, "ANSI_1251", "\xEF\xE0\xED", L"\u043F\u0430\u043D"},
      {OdDb::vAC15, "ANSI_1253", "\xE1", L"\u03B1"},
      {OdDb::vAC15, "ANSI_1254", "\xFD", L"\u0131"},
      {OdDb::vAC15, "ANSI_1255", "\xF9\xD1\xE9", L"\u05E9\u05C1\u05D9"}, // letters that points may follow
      {OdDb::vAC15, "ANSI_1256", "\xC7", L"\u0627"},
      {OdDb::vAC15, "ANSI_1257", "\xE0", L"\u0105"},
      {OdDb::vAC15, "ANSI_1258", "\xE2\xEC\xFD\xA9", L"\u00E2\u0301\u01B0\u00A9"}, // and accents
      {OdDb::vAC18, "dos850", "\x81", L"\u00FC"},
      {OdDb::vAC18, "DOS437", "\xE3", L"\u03C0"},
      {OdDb::vAC18, "dos852", "\x88", L"\u0142"},
      {OdDb::vAC18, "dos866", "\xAF", L"\u043F"},
      {OdDb::vAC15, "ANSI_932", "\x94\xC2\x83\x5C",
       L"\u677F\u30BD"}, // the second byte of the last is a backslash
      {OdDb::vAC15, "dos932", "\xB1", L"\uFF71"},
      {OdDb::vAC15, "gb2312", "\xB0\xE5", L"\u677F"},
      {OdDb::vAC15, "ANSI_936", "\x80", L"\u20AC"},
      {OdDb::vAC15, "kcs5601", "\xC6\xC7", L"\uD310"},
      {OdDb::vAC15, "ANSI_949", "\xC6\xC7", L"\uD310"},
      {OdDb::vAC15, "ANSI_950", "\xAA\x4F", L"\u677F"},
      {OdDb::vAC15, "big5", "\xAA\x4F", L"\u677F"},
      {OdDb::vAC15, "ksc5601", "\xC6\xC7", L"\uD310"},
      {OdDb::vAC15, "johab", "\x88\x61", L"\uAC00"},
      {OdDb::vAC15, "8859_1", "\xE9", L"\u00E9"},
      {OdDb::vAC15, "1250", "\xB3", L"\u0142"},
      {OdDb::vAC15, "UTF-8", "\xC3\xA9", L"\u00E9"},
      {OdDb::vAC15, "iso8859-5", "\xD0", L"\u0430"},
      {OdDb::vAC15, "MAC-ROMAN", "\x8E", L"\u00E9"},
      {OdDb::vAC15, "ASCII", "\xE9", L"\u00E9"},
      {OdDb::vAC15, "UNDEFINED", "\xE9", L"\u00E9"},
      {OdDb::vAC15, "", "\xE9", L"\u00E9"},
      {OdDb::vAC15, "martian", "\xE9", L"\u00E9"},
      {OdDb::vAC21, "ANSI_1252", "\xE6\x9D\xBF caf\xC3\xA9", L"\u677F caf\u00E9"},
      // Bytes that mean nothing in the encoding, and whatever comes out of them again.
      {OdDb::vAC15, "ANSI_1252", "a\x81z", L"a\xDC81z"},
      {OdDb::vAC15, "ANSI_932", "a\x94", L"a\xDC94"},
      {OdDb::vAC21, "", "a\xE9z\xC3", L"a\xDCE9z\xDCC3"},
      {OdDb::vAC21, "", "\xC0\x80", L"\xDCC0\xDC80"},
      // Escapes.
      {OdDb::vAC15, "ANSI_1252", "\\U+677F", L"\u677F"},
      {OdDb::vAC15, "ANSI_1252", "\\U+D83D\\U+DE00", L"\U0001F600"},
      {OdDb::vAC21, "", "\\U+D83D", L"\xD83D"},
      {OdDb::vAC21, "", "one^Jtwo^I^M^@^_", L"one\ntwo\t\r\0\x1F"s},
      {OdDb::vAC21, "", "^ ^ ", L"^^"},
      {OdDb::vAC21, "", "a\\U+005CU+0041", L"a\\U+0041"},
      {OdDb::vAC21, "", "\\Pline\\U+00", L"\\Pline\\U+00"},
      {OdDb::vAC21, "", "\\U+DC80", L"\\U+DC80"},
  };
  for (const Case& c : cases) {
    const auto codec = OdDbDxfTextCodec::forDrawing(c.version, c.page);
    const OdString decoded = codec->decode(c.bytes);
    EXPECT_EQ(decoded.str(), c.text) << c.page << " " << c.bytes;
    EXPECT_EQ(encoded(*codec, decoded), c.bytes) << c.page;
  }
}

TEST(CodecTest, OtherSpellingsDecodeToo) {
  struct Case {
    const char* bytes;
    const wchar_t* text;
    const char* written;
  };
  const Case cases[] = {
      {"\\U+00e9", L"\u00E9", "\xE9"}, // lower-case digits; the page has the character
      {"\\M+1B1\\M+194C2", L"\\M+1B1\u677F", "\\M+1B1\\U+677F"},
      {"\\M+5B0E5", L"\u677F", "\\U+677F"},
      {"\\M+2AA4F", L"\u677F", "\\U+677F"},
      {"\\M+3C6C7", L"\uD310", "\\U+D310"},
      {"\\M+60000\\M+1FFFF", L"\\M+60000\\M+1FFFF", "\\M+60000\\M+1FFFF"},
      {"\\S1^2;^", L"\\S1^2;^", "\\S1^ 2;^ "}, // a caret that begins no escape means itself
  };
  const auto codec = OdDbDxfTextCodec::forDrawing(OdDb::vAC15, "ANSI_1252");
  for (const Case& c : cases) {
    EXPECT_EQ(codec->decode(c.bytes), OdString(c.text)) << c.bytes;
    EXPECT_EQ(encoded(*codec, c.text), c.written) << c.bytes;
    EXPECT_EQ(codec->decode(c.written), OdString(c.text)) << c.bytes;
  }
}

TEST(CodecTest, EveryByteOfEveryPageComesBack) {
  for (const char* page :
       {"ANSI_1250", "ANSI_1251", "ANSI_1252", "ANSI_1253", "ANSI_1254", "ANSI_1255", "ANSI_1256",
        "ANSI_1257", "ANSI_1258", "ANSI_874", "dos437", "dos850", "dos852", "dos866", "8859_2"}) {
    const auto codec = OdDbDxfTextCodec::named(page);
    ASSERT_TRUE(codec) << page;
    for (int byte = 0x80; byte < 0x100; ++byte) {
      const std::string bytes(1, static_cast<char>(byte));
      EXPECT_EQ(encoded(*codec, codec->decode(bytes)), bytes) << page << " " << byte;
    }
  }
}

TEST(CodecTest, UnknownEncodingsAreTold) {
  EXPECT_FALSE(OdDbDxfTextCodec::named("martian"));
  EXPECT_FALSE(OdDbDxfTextCodec::named("ANSI_99999"));
  EXPECT_TRUE(OdDbDxfTextCodec::named("utf-8"));
}

TEST(CodePageTest, NarrowTextReplacesWhatItCannotHold) {
  EXPECT_EQ(sys::toNarrow(L"caf\u00E9 \U0001F600 \xDC80|"), "caf\xC3\xA9 \xF0\x9F\x98\x80 ?|");
}

} // namespace
