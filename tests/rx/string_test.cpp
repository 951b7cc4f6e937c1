#include "OdArray.h"
#include "OdUnicode.h"
#include <gmock/gmock.h>

namespace {

template <class... Args>
std::string formatted(const OdChar* format, Args... args) {
  OdString text;
  return text.format(format, args...).toUtf8();
}

std::wstring units(std::initializer_list<char32_t> codePoints) {
  std::wstring text;
  for (const char32_t c : codePoints) odAppendCodePoint(text, c);
  return text;
}

TEST(StringFormat, WritesEveryDirectiveAsInTheCLocale) {
  const struct {
    std::string written;
    const char* expected;
  } cases[] = {
      {formatted(L"%s|%ls|%hs|%c|%%", L"\u0416", L"b", "\xE9", L'\u00DF'), "Ж|b|é|ß|%"},
      {formatted(L"%5s|%-5s|%.2s|%.*s|%*d|%-*d", L"ab", L"ab", L"abc", 1, L"xyz", 4, 7, 3, 8),
       "   ab|ab   |ab|x|   7|8  "},
      {formatted(L"%*d|", -4, 7), "7   |"},
      {formatted(L"%d %i %u %o", -1, 2, 4294967295u, 8), "-1 2 4294967295 10"},
      {formatted(L"%x %X %#x %#X %#x %08X", 0xbeef, 0xbeef, 0x1f, 0x1f, 0, 0x2A3),
       "beef BEEF 0x1f 0X1F 0 000002A3"},
      {formatted(L"%I64d %lld %I64X %I32d", INT64_MIN, INT64_MAX, UINT64_MAX, 5),
       "-9223372036854775808 9223372036854775807 FFFFFFFFFFFFFFFF 5"},
      {formatted(L"%hd %hhu %ld %zu", 65537, 257, -5L, std::size_t(9)), "1 1 -5 9"},
      {formatted(L"%+d|% d|%05d|%-5d|%.3d|%5.3d|%+05d", 5, 5, -42, 5, 7, 7, 3),
       "+5| 5|-0042|5    |007|  007|+0003"},
      {formatted(L"%f %.2f %.0f %08.3f %+.1f", 1.5, 2.675, 0.5, -3.14159, 2.0),
       "1.500000 2.67 0 -003.142 +2.0"},
      {formatted(L"%g %g %g %G %e %.3E", 0.0001, 1e-5, 123456789.0, 1e-10, 12345.678, 0.0),
       "0.0001 1e-05 1.23457e+08 1E-10 1.234568e+04 0.000E+00"},
      {formatted(L"%f %05g %.17g", HUGE_VAL, -HUGE_VAL, 0.1), "inf  -inf 0.10000000000000001"},
      {formatted(L"%s", static_cast<const OdChar*>(nullptr)), "(null)"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.written, c.expected);
  EXPECT_EQ(formatted(L"%.1f", 1e308).size(), 311u);
  OdString text(L"%d");
  EXPECT_EQ(text.format(text, 7), L"7"); // the format may be the text that it replaces
}

TEST(StringFormat, RefusesDirectivesItCannotUse) {
  for (const OdChar* format : {L"ab%", L"ab%y", L"ab%n", L"ab%99999d", L"ab%.99999f", L"ab%#g", L"ab%l"}) {
    OdString text(L"kept");
    try {
      text.format(format, 1);
      FAIL() << OdString(format).toUtf8();
    } catch (const OdError& error) {
      EXPECT_EQ(error.code(), eInvalidInput);
      EXPECT_EQ(error.what(), "The format text \"" + OdString(format).toUtf8() +
                                  "\" holds a directive that cannot be used at position 3.");
      EXPECT_EQ(text, L"kept");
    }
  }
}

TEST(StringUtf8, ReplacesEachMalformedByte) {
  const std::string bad = "\xEF\xBF\xBD";
  const struct {
    std::string bytes;
    std::string expected;
  } cases[] = {
      {"plain \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", "plain é € 😀"},
      {std::string("a\0b", 3), std::string("a\0b", 3)},
      {"\x80z", bad + "z"},                        // continuation without a lead
      {"\xE2\x82", bad + bad},                     // cut off at the end
      {"\xE2\x82z", bad + bad + "z"},              // cut off by another character
      {"\xC0\x80", bad + bad},                     // overlong
      {"\xE0\x80\xAF", bad + bad + bad},           // overlong
      {"\xED\xA0\x80", bad + bad + bad},           // surrogate
      {"\xF4\x90\x80\x80", bad + bad + bad + bad}, // beyond the last code point
      {"\xF5\xFF", bad + bad},
      {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
  };
  for (const auto& c : cases) {
    const OdString text = OdString::fromUtf8(c.bytes);
    EXPECT_EQ(text.toUtf8(), c.expected);
    EXPECT_EQ(OdString::fromUtf8(text.toUtf8()), text);
  }
}

TEST(StringUtf8, JoinsSurrogatePairsAndReplacesSingleOnes) {
  const OdChar high = static_cast<OdChar>(0xD83D);
  const OdChar low = static_cast<OdChar>(0xDE00);
  const OdString pair = OdString(high, 1) + low;
  EXPECT_EQ(pair.toUtf8(), "😀");
  EXPECT_EQ((OdString(low, 1) + high + L'x').toUtf8(), "\xEF\xBF\xBD\xEF\xBF\xBDx");
}

TEST(StringCase, FollowsTheSimpleMappingsOfUnicode) {
  const struct {
    char32_t original, upper, lower, folded;
  } cases[] = {
      {'a', 'A', 'a', 'a'},
      {'Z', 'Z', 'z', 'z'},
      {'[', '[', '[', '['},
      {0xDF, 0xDF, 0xDF, 0xDF},
      {0xE9, 0xC9, 0xE9, 0xE9},
      {0xFF, 0x178, 0xFF, 0xFF},
      {0x130, 0x130, 0x69, 0x130},
      {0x131, 0x49, 0x131, 0x131},
      {0x101, 0x100, 0x101, 0x101},
      {0x102, 0x102, 0x103, 0x103},
      {0x3A3, 0x3A3, 0x3C3, 0x3C3},
      {0x3C2, 0x3A3, 0x3C2, 0x3C3},
      {0x416, 0x416, 0x436, 0x436},
      {0xB5, 0x39C, 0xB5, 0x3BC},
      {0x17F, 0x53, 0x17F, 0x73},
      {0x1F80, 0x1F88, 0x1F80, 0x1F80},
      {0x1F88, 0x1F88, 0x1F80, 0x1F80},
      {0x1E9E, 0x1E9E, 0xDF, 0xDF},
      {0x13A0, 0x13A0, 0xAB70, 0x13A0},
      {0xAB70, 0x13A0, 0xAB70, 0x13A0},
      {0x10428, 0x10400, 0x10428, 0x10428},
      {0x4E2D, 0x4E2D, 0x4E2D, 0x4E2D},
      {0x10FFFF, 0x10FFFF, 0x10FFFF, 0x10FFFF},
  };
  for (const auto& c : cases) {
    OdString text(units({c.original}));
    EXPECT_EQ(odFoldCase(text.str()), units({c.folded})) << static_cast<OdUInt32>(c.original);
    EXPECT_EQ(OdString(text).makeUpper().str(), units({c.upper})) << static_cast<OdUInt32>(c.original);
    EXPECT_EQ(text.makeLower().str(), units({c.lower})) << static_cast<OdUInt32>(c.original);
  }
}

TEST(StringCase, ComparesNamesByTheirFoldedForm) {
  const struct {
    const OdChar *a, *b;
    int sign;
  } cases[] = {{L"Tag", L"tAG", 0},
               {L"\u00C4nderung", L"\u00E4NDERUNG", 0},
               {L"\u03A3\u03C2", L"\u03C3\u03A3", 0},
               {L"ab", L"ABC", -1},
               {L"b", L"ABC", 1},
               {L"", L"", 0},
               {L"_", L"A", -1}};
  for (const auto& c : cases) {
    EXPECT_EQ(OdString(c.a).iCompare(c.b), c.sign);
    EXPECT_EQ(OdString(c.b).iCompare(c.a), -c.sign);
  }
}

TEST(String, CutsSearchesAndReplacesWithinItsBounds) {
  const OdString text(L"abcabc");
  EXPECT_EQ(text.find(L'c', 3), 5);
  EXPECT_EQ(text.find(OdString(L"ca")), 2);
  EXPECT_EQ(text.find(L'a', 99), -1);
  EXPECT_EQ(text.find(L'a', -5), 0);
  EXPECT_EQ(text.reverseFind(L'b'), 4);
  EXPECT_EQ(text.left(2) + text.right(1) + text.mid(4), L"abcbc");
  EXPECT_EQ(text.left(-1) + text.right(99) + text.mid(99, 1) + text.mid(-2, 1), L"abcabca");
  EXPECT_THROW(text.getAt(6), OdError_InvalidIndex);
  OdString copy(text);
  EXPECT_EQ(copy.replace(L"bc", L"bcbc"), 2);
  EXPECT_EQ(copy, L"abcbcabcbc");
  EXPECT_EQ(copy.replace(L"", L"x"), 0);
  EXPECT_EQ(OdString(L" \t a b \n").trimLeft().trimRight(), L"a b");
  EXPECT_TRUE(OdString(L" \r\n").trimRight().isEmpty());
}

TEST(Array, RefusesIndicesOutsideAndKeepsItsOrder) {
  OdArray<int> items{1, 2};
  items.insertAt(0, 0).insertAt(3, 3).append(items);
  EXPECT_THAT(items, testing::ElementsAre(0, 1, 2, 3, 0, 1, 2, 3));
  items.removeAt(0).removeLast();
  EXPECT_TRUE(items.remove(2));
  EXPECT_FALSE(items.remove(9));
  EXPECT_THAT(items, testing::ElementsAre(1, 3, 0, 1, 2));
  OdArray<int>::size_type at = 0;
  EXPECT_TRUE(items.find(1, at, 1));
  EXPECT_EQ(at, 3u);
  OdArray<int> empty;
  EXPECT_THROW(empty.last(), OdError_InvalidIndex);
  EXPECT_THROW(empty.removeLast(), OdError_InvalidIndex);
  EXPECT_THROW(items.at(5), OdError_InvalidIndex);
  EXPECT_THROW(items.insertAt(6, 1), OdError_InvalidIndex);
}

} // namespace
