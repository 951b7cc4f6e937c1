// Prompts and answers, in a drawing whose coordinate system is that of the world.
#include "lines.h"
#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct EditorTest : testing::Test, OpenSession {
  HostEdInput& editor = *session.editor();
  int askPoint(OdGePoint3d& point, const wchar_t* keywords = nullptr, int flags = 0) {
    return editor.GetPoint(nullptr, point, L"Specify point", keywords, flags, nullptr, nullptr);
  }
};

TEST_F(EditorTest, AnswersHaveTheirCodes) {
  const struct {
    const char* line;
    int code;
  } cases[] = {{"1,2", -1},  {"", 1},     {"  ", 1}, {"^C", -2}, {" ^c ", -2},
               {"\x03", -2}, {"Undo", 2}, {"c", 3},  {"_CL", 3}};
  for (const auto& test : cases) {
    lines.type({test.line});
    OdGePoint3d point;
    EXPECT_EQ(askPoint(point, L"Undo Close"), test.code) << test.line;
  }
  EXPECT_THAT(lines.printed, IsEmpty());
}

TEST_F(EditorTest, KeywordsAreFoundShortenedAndByTheirGlobalNames) {
  const struct {
    const wchar_t* keywords;
    const char* line;
    int code;
  } cases[] = {
      {L"Hor Ver Ang Bisect Offset", "v", 3},
      {L"Hor Ver Ang Bisect Offset", "OFFSET", 6},
      {L"ON OFF", "on", 2},
      {L"ON OFF", "of", 3},
      {L"eXit Exact", "x", 2},
      {L"eXit Exact", "exa", 3},
      {L"Undo UNDOall", "undo", 2},
      {L"Zur\x00fc"
       L"ck Ende _ Undo Close",
       "ZUR\xc3\x9c", 2},
      {L"Zurueck Ende _ Undo Close", "_u", 2},
      {L"Zurueck Ende _ Undo Close", "_Close", 3},
      {L"Undo _ Undo", "_und", 2},
  };
  for (const auto& test : cases) {
    lines.type({test.line});
    EXPECT_EQ(editor.GetStringOrKeyword(L"Option", test.keywords, 0, nullptr, nullptr), test.code)
        << test.line;
  }
  EXPECT_THAT(lines.printed, IsEmpty());
}

TEST_F(EditorTest, WrongAnswersAreToldAndAskedAgain) {
  lines.type({"here", "", "o", "1,2"});
  OdGePoint3d point;
  EXPECT_EQ(askPoint(point, L"ON OFF", kHostEdNoEmpty), kHostEdValue);
  EXPECT_THAT(
      lines.printed,
      ElementsAre(
          "\"here\" is not a point (x,y[,z], @dx,dy[,dz], distance<angle or @distance<angle), nor one "
          "of ON/OFF.",
          "Enter alone is no answer here; expected is a point (x,y[,z], @dx,dy[,dz], distance<angle or "
          "@distance<angle) or one of ON/OFF.",
          "\"o\" is ambiguous: ON, OFF."));
  EXPECT_EQ(lines.prompts.size(), 4u);
}

TEST_F(EditorTest, ScriptsAreToldTheirPlace) {
  lines.terminal = false;
  lines.type({"; a comment", "maybe", "Yes"});
  EXPECT_EQ(editor.GetStringOrKeyword(L"Erase?", L"Yes No", 0, nullptr, nullptr), 2);
  EXPECT_THAT(lines.printed, ElementsAre("test.scr:2: \"maybe\" is not one of Yes/No."));
}

TEST_F(EditorTest, EndOfInputIsEscAtATerminalAndAnErrorInAScript) {
  OdGePoint3d point;
  EXPECT_EQ(askPoint(point), kHostEdCancel);
  lines.terminal = false;
  try {
    askPoint(point, L"Undo");
    FAIL() << "the prompt was answered";
  } catch (const host::ScriptEnded& ended) {
    EXPECT_STREQ(
        ended.what(),
        "test.scr:0: the script ends at the prompt \"Specify point [Undo]:\", which needs an answer.");
  }
}

TEST_F(EditorTest, PromptsShowTheirKeywords) {
  const struct {
    const wchar_t *prompt, *keywords;
    const char* shown;
  } cases[] = {
      {L"Erase polyline? [%s] <No>", L"Yes No", "Erase polyline? [Yes/No] <No>: "},
      {L"Specify start point", L"Hor Ver", "Specify start point [Hor/Ver]: "},
      {L"Specify start point [%s] <Polyline>", L"Frames Polyline",
       "Specify start point [Frames/Polyline] <Polyline>: "},
      {L"Specify start point", L"Hor Ver Ang Bisect Offset",
       "Specify start point [Hor/Ver/Ang/Bisect/Offset]: "},
      {L"Enter number of segments", L"Block", "Enter number of segments [Block]: "},
      {L"Specify next point", L"Undo _ Undo", "Specify next point [Undo]: "},
      {L"Specify offset distance [Through] ", L"Through", "Specify offset distance [Through]: "},
      {L"Specify offset distance [5.0] ", L"Through", "Specify offset distance [5.0] [Through]: "},
      {L"Enter mode <ON>: ", L"ON OFF", "Enter mode [ON/OFF] <ON>: "},
      {L"\nSelect a block:", nullptr, "Select a block: "},
      {L"Undo?",
       L"Undo _ Zur\x00fc"
       L"ck",
       "Undo? [Undo]: "},
      {nullptr, nullptr, " "},
  };
  for (const auto& test : cases) {
    lines.type({""});
    editor.GetStringOrKeyword(test.prompt, test.keywords, 0, nullptr, nullptr);
    EXPECT_EQ(lines.prompts.back(), test.shown);
  }
}

TEST_F(EditorTest, TextKeepsItsBlanksAndTakesKeywordsInFullOnly) {
  lines.type({"  a b ", " ", "ye", "YES", ""});
  OdString text;
  for (const wchar_t* expected : {L"  a b ", L" ", L"ye"}) {
    EXPECT_EQ(editor.GetStringOrKeyword(L"Name", L"Yes", 0, &text, nullptr), kHostEdValue);
    EXPECT_EQ(text, expected);
  }
  EXPECT_EQ(editor.GetStringOrKeyword(L"Name", L"Yes", 0, &text, nullptr), 2);
  EXPECT_TRUE(editor.GetString(text));
  EXPECT_EQ(text, L"") << "Enter gives an empty text";
  EXPECT_FALSE(editor.GetString(text)) << "Esc gives none";
}

TEST_F(EditorTest, DistancesAreNumbersOrMeasured) {
  const OdGePoint3d base(1, 1, 0);
  double distance = 9;
  lines.type({"2,5", "@3,4,0", "*4,5,0", "", "0", "-1", "7"});
  EXPECT_EQ(editor.GetDistance(nullptr, distance, L"Distance", nullptr, 0, nullptr, nullptr), -1);
  EXPECT_DOUBLE_EQ(distance, 2.5) << "a comma is a decimal mark";
  EXPECT_EQ(editor.GetDistance(nullptr, distance, L"Distance", nullptr, 0, nullptr, nullptr), -1);
  EXPECT_NEAR(distance, std::sqrt(2.0), 1e-12) << "from the first point to the second";
  EXPECT_EQ(editor.GetDistance(&base, distance, L"Distance", nullptr, 12, nullptr, nullptr), 1);
  EXPECT_NEAR(distance, std::sqrt(2.0), 1e-12) << "Enter leaves the default alone";
  EXPECT_EQ(editor.GetDistance(&base, distance, L"Distance", nullptr, kHostEdNoZero | kHostEdNoNegative,
                               nullptr, nullptr),
            -1);
  EXPECT_EQ(distance, 7);
  EXPECT_THAT(lines.printed, ElementsAre("\"0\" is not a distance greater than 0.",
                                         "\"-1\" is not a distance greater than 0."));
  lines.type({"5<45", "^C"});
  EXPECT_EQ(editor.GetDistance(nullptr, distance, L"Distance", nullptr, 0, nullptr, nullptr), kHostEdCancel)
      << "Esc at the second point cancels the whole";
}

TEST_F(EditorTest, DistancesTakeKeywordsAndKeepTheirDefault) {
  const struct {
    const char* line;
    int code;
    double distance;
  } cases[] = {{"t", 2, 3}, {"Through", 2, 3}, {"_thr", 2, 3}, {"", 1, 3}, {"0", -1, 0}, {"12,5", -1, 12.5}};
  constexpr int kFlags = 12; // no negative numbers, and one of the module's own
  for (const auto& test : cases) {
    lines.type({"-1", test.line});
    double distance = 3;
    EXPECT_EQ(editor.GetDistance(nullptr, distance, L"Specify offset distance [3] ", L"Through", kFlags,
                                 nullptr, nullptr),
              test.code)
        << test.line;
    EXPECT_EQ(distance, test.distance) << test.line;
  }
  EXPECT_EQ(lines.printed.front(), "\"-1\" is not a distance of at least 0, nor one of Through.");
}

TEST_F(EditorTest, AnglesAreMeasuredInTheCurrentCoordinateSystem) {
  session.database()->setUCS({5, 0, 0}, {0, 1, 0}, {-1, 0, 0});
  const OdGePoint3d base(0, 0, 0);
  double angle = 0;
  lines.type({"*0,3,0", "30"});
  EXPECT_EQ(editor.GetAngle(&base, angle, L"Angle", nullptr, 0, nullptr, nullptr), -1);
  EXPECT_NEAR(angle, 0, 1e-12);
  EXPECT_EQ(editor.GetAngle(&base, angle, L"Angle", nullptr, 0, nullptr, nullptr), -1);
  EXPECT_NEAR(angle, OdaToRadian(30), 1e-12);
}

TEST_F(EditorTest, TheLastPointLeadsRelativePoints) {
  lines.type({"1,2", "@1,1", "@"});
  OdGePoint3d point, last;
  for (int i = 0; i < 3; ++i) EXPECT_EQ(askPoint(point), -1);
  EXPECT_EQ(point, OdGePoint3d(2, 3, 0));
  editor.LastPoint(last);
  EXPECT_EQ(last, point);
}

TEST_F(EditorTest, PrintsFormattedMessages) {
  editor.Print(L"\n%s\n", L"Gr\x00f6\x00df"
                          L"e");
  editor.Print(L"\n%d objects in extract file.\n", 3);
  EXPECT_THAT(lines.printed, ElementsAre("Gr\xc3\xb6\xc3\x9f"
                                         "e",
                                         "3 objects in extract file."));
}

} // namespace
