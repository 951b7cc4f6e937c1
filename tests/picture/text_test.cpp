#include "picture/fonts.h"
#include "picture/mtext_format.h"
#include "picture/text.h"
#include "recording_sink.h"
#include <gmock/gmock.h>

namespace {

using picture::TextSpan;
using test::drawing;
using test::Drawn;

/// Spans as "height:text" with marks for what is set: u underlined, o overlined, k struck, b bold, i italic,
/// # a colour; "top/below" for stacks; P and N for the ends of paragraphs and columns, T for a tabulator.
std::string shown(const std::vector<TextSpan>& spans) {
  std::string text;
  for (const TextSpan& span : spans) {
    if (!text.empty()) text += ' ';
    const picture::TextFormat& format = span.format;
    const std::pair<bool, char> marks[] = {{format.underlined, 'u'},  {format.overlined, 'o'},
                                           {format.struck, 'k'},      {format.font.bold, 'b'},
                                           {format.font.italic, 'i'}, {format.color.has_value(), '#'}};
    switch (span.kind) {
    case TextSpan::Kind::paragraph: text += 'P'; continue;
    case TextSpan::Kind::column: text += 'N'; continue;
    case TextSpan::Kind::tab: text += 'T'; continue;
    default: break;
    }
    std::ostringstream height;
    height << format.height;
    text += height.str();
    for (const auto& [set, mark] : marks)
      if (set) text += mark;
    text += ":" + span.text.toUtf8();
    if (span.kind == TextSpan::Kind::stack) text += "/" + span.below.toUtf8();
  }
  return text;
}

TEST(TextFormats, AreDecoded) {
  const std::pair<const OdChar*, const char*> lines[] = {
      {L"plain", "1:plain"},
      {L"one\\Ptwo\\Nthree\tfour", "1:one P 1:two N 1:three T 1:four"},
      {L"{\\H2;big} {\\H0.5x;half}", "2:big 1:  0.5:half"},
      {L"{\\H3;a{\\H2x;b}c}d", "3:a 6:b 3:c 1:d"},
      {L"\\Lunder\\l \\Oover\\o \\Kout\\k", "1u:under 1:  1o:over 1:  1k:out"},
      {L"\\fArial|b1|i0|c0|p34;bold {\\fTimes|b0|i1;slanted}", "1b:bold  1i:slanted"},
      {L"\\C1;red\\C256;none", "1#:red 1:none"},
      {L"\\S1/2; and \\S+0.1^ -0.2;", "1:1/2 1: and  1:+0.1/-0.2"},
      {L"a\\~b \\\\ \\{x\\}", "1:a\u00A0b \\ {x}"},
      {L"45%%d \u2030 %%p1 %%c5 100%%% 7%%x", "1:45\u00B0 \u2030 \u00B11 \u23005 100% 7%%x"},
      {L"\\pxqc,i3;middle \\A1;\\T2;\\W0.8;\\Q15;end", "1:middle  1:end"},
      // Damage: codes without end, braces without partner.
      {L"}a{b", "1:a 1:b"},
      {L"x\\H", "1:x"},
      {L"x\\S1/2", "1:x 1:1/2"},
      {L"x\\", "1:x\\"},
  };
  for (const auto& [contents, expected] : lines)
    EXPECT_EQ(shown(picture::decodeMText(contents, {})), expected) << expected;
  const std::pair<const OdChar*, const char*> single[] = {
      {L"%%u12%%u %%o3%%d%%o", "1:/ 1u:12 1:  1o:3\u00B0 1:"},
      {L"%%065%%%", "1:A%"},
      {L"50% {\\P}", "1:50% {\\P}"}};
  EXPECT_EQ(shown(picture::decodeLine(single[0].first, {})), "1: 1u:12 1:  1o:3\u00B0 1:");
  for (const auto& [contents, expected] : {single[1], single[2]})
    EXPECT_EQ(shown(picture::decodeLine(contents, {})), expected);
}

TEST(Text, IsPlacedByItsAlignment) {
  const std::string text = "0 TEXT\n8 0\n10 1\n20 1\n40 2\n1 abcd\n";
  const struct {
    std::string groups;
    const char* part;
  } cases[] = {
      {text, "text 1,1 abcd"},
      {text + "11 10\n21 10\n72 1\n", "text 6,10 abcd"},
      {text + "11 10\n21 10\n72 2\n73 3\n", "text 2,8 abcd"},
      {text + "11 10\n21 10\n72 4\n", "text 6,9 abcd"},
      {text + "50 90\n11 10\n21 10\n72 1\n73 2\n", "text 11,6 abcd"},
      {text + "71 2\n11 10\n21 10\n72 2\n", "text 18,10 abcd"},
      {text + "11 1\n21 9\n72 5\n", "text 1,1 abcd"},
  };
  for (const auto& [groups, part] : cases)
    EXPECT_THAT(Drawn(drawing(groups)).parts, testing::ElementsAre(part)) << groups;
}

/// The directions of the letters: width factor, slant, fit, mirrors.
TEST(Text, LettersFollowTheirStyle) {
  const std::string text = "0 TEXT\n8 0\n10 0\n20 0\n40 2\n1 abcd\n";
  const struct {
    std::string groups;
    OdGeVector2d along, up;
  } cases[] = {
      {text, {2, 0}, {0, 2}},
      {text + "41 0.5\n50 90\n", {0, 1}, {-2, 0}},
      {text + "51 45\n", {2, 0}, {2, 2}},
      {text + "71 2\n", {-2, 0}, {0, 2}},
      {text + "71 4\n", {2, 0}, {0, -2}},
      {text + "11 4\n21 0\n72 5\n", {1, 0}, {0, 2}},
      {text + "11 0\n21 4\n72 3\n", {0, 1}, {-1, 0}},
      {text + "210 0\n220 0\n230 -1\n", {-2, 0}, {0, 2}},
  };
  for (const auto& [groups, along, up] : cases) {
    const Drawn drawn(drawing(groups));
    ASSERT_EQ(drawn.runs.size(), 1u) << groups;
    EXPECT_NEAR((drawn.runs[0].along - along).length(), 0, 1e-9) << groups;
    EXPECT_NEAR((drawn.runs[0].up - up).length(), 0, 1e-9) << groups;
  }
}

TEST(MText, BreaksAndPlacesLines) {
  const std::string text = "0 MTEXT\n100 AcDbEntity\n8 0\n100 AcDbMText\n10 0\n20 0\n40 3\n";
  const struct {
    std::string groups;
    std::vector<std::string> parts;
  } cases[] = {
      {text + "71 1\n1 ab\\Pc\n", {"text 0,-3 ab", "text 0,-8 c"}},
      {text + "71 5\n1 ab\\Pcdef\n", {"text -3,1 ab", "text -6,-4 cdef"}},
      {text + "71 9\n1 ab\\P\\Pcdef\n", {"text -6,10 ab", "text -12,0 cdef"}},
      {text + "71 1\n44 2\n1 ab\\Pc\n", {"text 0,-3 ab", "text 0,-13 c"}},
      {text + "71 1\n41 16\n1 ab cd ef longest x\n",
       {"text 0,-3 ab cd ", "text 0,-8 ef ", "text 0,-13 longest ", "text 0,-18 x"}},
      {text + "71 1\n41 30\n1 \\pqr;ab\\P\\pqc;cd\n", {"text 24,-3 ab", "text 12,-8 cd"}},
      {text + "71 1\n11 0\n21 1\n1 ab\\Pc\n", {"text 3,0 ab", "text 8,0 c"}},
      {text + "71 1\n1 {\\C1;a}b\n", {"text(255 0 0) 0,-3 a", "text 3,-3 b"}},
      {text + "71 1\n1 \\S1/2;\n", {"text 0,-3 1", "text 0,-7.2 2", "line 0,-3.6 3,-3.6"}},
      {text + "71 1\n1 \\S1#2;\n", {"text 0,-3 1", "text 3,-7.2 2", "line 1.8,-6 4.2,-1.2"}},
      {text + "71 1\n90 16\n45 2\n1 ab\n", {"line -3,3 9,3 9,-6 -3,-6 -3,3", "text 0,-3 ab"}},
      // Letters of line fonts stand below each other, in the middle of their column.
      {text + "71 1\n72 3\n7 UPRIGHT\n1 ab\\Pc\n", {"text 0,-3 a", "text 0,-6.75 b", "text 5,-3 c"}},
      {text + "71 1\n72 3\n7 Standard\n1 ab\n", {"text 0,-3 ab"}},
      // Two columns of two lines, and one that the text begins itself.
      {text +
           "71 1\n41 20\n1 a\\Pb\\Pc\\Nd\n101 Embedded Object\n71 2\n72 3\n44 20\n45 5\n46 8\n46 0\n46 0\n",
       {"text 0,-3 a", "text 0,-8 b", "text 25,-3 c", "text 50,-3 d"}},
      {text + "71 1\n90 1\n63 1\n45 1\n1 ab\n", {"area(255 0 0) 0,0 6,0 6,-3 0,-3", "text 0,-3 ab"}},
  };
  for (const auto& [groups, parts] : cases) EXPECT_EQ(Drawn(drawing(groups)).parts, parts) << groups;
}

TEST(Text, VerticalStylesStackTheLetters) {
  EXPECT_THAT(Drawn(drawing("0 TEXT\n8 0\n10 0\n20 0\n40 2\n50 270\n7 UPRIGHT\n1 ab\n")).parts,
              testing::ElementsAre("text -1,-2 a", "text -1,-4.5 b"));
}

/// Whatever the machine has for it: the text is as wide as in the font that the drawing names.
TEST(Fonts, KeepTheWidthsOfTheOriginal) {
  picture::Fonts fonts;
  const double capital = 716; // thousandths of the size
  const struct {
    const OdChar* name;
    const char* text;
    double width;
  } cases[] = {
      {L"arial.ttf", "MESH", (833 + 667 + 667 + 722) / capital},
      {L"arial.ttf", "i i ", (2 * 222 + 2 * 278) / capital},
      {L"simplex.shx", "left align", 139.0 / 21},
      {L"txt", "X", 20.0 / 21},
  };
  for (const auto& [name, text, width] : cases)
    EXPECT_NEAR(fonts.measure(text, picture::fontOfFile(name)), width, 1e-9) << text;
  EXPECT_EQ(picture::fontOfFile(L"consola.ttf").family, "monospace");
  // Letters without a known width keep the proportion of the others.
  const picture::Font arial = picture::fontNamed(L"Arial");
  EXPECT_LT(fonts.measure("\u00FC", arial), fonts.measure("\u00FC", picture::Font()));
}

} // namespace
