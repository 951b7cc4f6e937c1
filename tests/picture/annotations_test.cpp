// Leaders, tolerances, and the attributes of blocks that are drawn as parts of something else.
#include "DbSymbolTable.h"
#include "recording_sink.h"
#include <gmock/gmock.h>

namespace {

using test::block;
using test::drawing;
using test::Drawn;

TEST(Leader, TakesItsHeadFromItsStyle) {
  const std::string leader = "0 LEADER\n100 AcDbEntity\n8 0\n100 AcDbLeader\n3 DIM\n";
  const std::string points = "10 0\n20 0\n10 10\n20 0\n10 10\n20 5\n";
  const struct {
    std::string groups;
    std::vector<std::string> parts;
  } cases[] = {
      {leader + "71 1\n" + points, {"area 0,0 2,0.33 2,-0.33", "line 0,0 10,0 10,5"}},
      {leader + "71 0\n" + points, {"line 0,0 10,0 10,5"}},
      // A size of the entity's own; a head as long as the line is left out.
      {leader + "71 1\n" + points +
           "1001 ACAD\n1000 DSTYLE\n1002 {\n1070 41\n1040 1.5\n1070 176\n1070 1\n1002 }\n",
       {"area(255 0 0) 0,0 3,0.5 3,-0.5", "line(255 0 0) 0,0 10,0 10,5"}},
      {leader + "71 1\n10 0\n20 0\n10 3\n20 0\n", {"line 0,0 3,0"}},
  };
  for (const auto& [groups, parts] : cases) EXPECT_EQ(Drawn(drawing(groups)).parts, parts) << groups;
}

TEST(Leader, OfSeveralLinesShowsTextAndBlock) {
  const std::string begin =
      "0 MULTILEADER\n100 AcDbEntity\n8 0\n100 AcDbMLeader\n270 2\n300 CONTEXT_DATA{\n40 1\n10 8\n20 "
      "6\n41 2\n140 3\n145 1\n";
  const std::string text = "290 1\n304 ab\n11 0\n21 0\n31 1\n12 9\n22 7\n13 1\n23 0\n43 0\n45 1\n170 1\n";
  const std::string leader =
      "302 LEADER{\n290 1\n291 1\n10 6\n20 6\n11 1\n21 0\n90 0\n40 2\n304 LEADER_LINE{\n10 -6\n"
      "20 6\n91 0\n305 }\n271 0\n303 }\n301 }\n";
  const std::string end = "170 1\n91 -1056964608\n290 1\n291 1\n172 2\n";
  const std::string arrow = "area -6,6 -3,6.5 -3,5.5";
  const struct {
    std::string groups;
    std::vector<std::string> parts;
  } cases[] = {
      {begin + text + "90 -1073741824\n171 1\n" + leader + end,
       {arrow, "line -6,6 6,6", "line 6,6 8,6", "text 9,5 ab"}},
      // Right aligned in red, framed; blue lines without landing.
      {begin + text + "90 -1023410175\n171 3\n" + leader +
           "170 1\n91 -1040187137\n290 1\n291 0\n292 1\n172 2\n",
       {"area(0 0 255) -6,6 -3,6.5 -3,5.5", "line(0 0 255) -6,6 6,6", "line(255 0 0) 4,8 10,8 10,4 4,4 4,8",
        "text(255 0 0) 5,5 ab"}},
      {begin + "290 0\n" + leader + "170 0\n172 0\n", {}},
  };
  for (const auto& [groups, parts] : cases) EXPECT_EQ(Drawn(drawing(groups)).parts, parts) << groups;
}

TEST(Leader, PlacesBlocks) {
  // A line from the tip of an arrow backwards, and a definition that takes a value.
  const std::string arrow =
      block("B", "0 LINE\n8 0\n10 0\n20 0\n11 -1\n21 0.5\n0 ATTDEF\n5 F1\n8 0\n10 1\n20 0\n40 "
                 "2\n1 default\n3 ask\n2 TAG\n70 0\n");
  const OdDbDatabasePtr database = test::drawingFromText(drawing("", arrow));
  const auto blocks = database->getBlockTableId().openObject();
  const std::string handle = OdDbSymbolTable::cast(blocks)->getAt(L"B").getHandle().ascii().toUtf8();
  const struct {
    std::string groups;
    std::vector<std::string> parts;
  } cases[] = {
      {"0 LEADER\n100 AcDbEntity\n8 0\n100 AcDbLeader\n3 DIM\n71 1\n10 0\n20 0\n10 0\n20 10\n"
       "1001 ACAD\n1000 DSTYLE\n1002 {\n1070 341\n1005 " +
           handle + "\n1002 }\n",
       {"line 0,0 1,2", "line 0,0 0,10"}},
      {"0 MULTILEADER\n100 AcDbEntity\n8 0\n100 AcDbMLeader\n300 CONTEXT_DATA{\n290 0\n296 1\n341 " + handle +
           "\n14 0\n24 0\n34 1\n15 10\n25 20\n16 2\n26 2\n36 2\n46 1.5707963267948966\n301 }\n170 1\n330 "
           "F1\n177 "
           "1\n44 0\n302 value\n",
       {"line 10,20 9,18", "text 10,22 value"}},
  };
  for (const auto& [groups, parts] : cases) EXPECT_EQ(Drawn(drawing(groups, arrow)).parts, parts) << groups;
}

TEST(Tolerance, IsAFrameOfCells) {
  const std::string tolerance = "0 TOLERANCE\n100 AcDbEntity\n8 0\n100 AcDbFcf\n3 DIM\n10 0\n20 0\n";
  EXPECT_EQ(Drawn(drawing(tolerance + "1 {\\Fgdt;j}%%v{\\Fgdt;n}5%%v%%v^JA\n")).parts,
            (std::vector<std::string>{"line 0,1 2,1 2,-1 0,-1 0,1", "text(255 0 0) 0.5,-0.5 \u2295",
                                      "line 2,1 5,1 5,-1 2,-1 2,1", "text(255 0 0) 2.5,-0.5 \u2300",
                                      "text(255 0 0) 3.5,-0.5 5", "line 0,-1 2,-1 2,-3 0,-3 0,-1",
                                      "text(255 0 0) 0.5,-2.5 A"}));
}

TEST(Dimension, ShowsItsBlockWithoutThePointsItMeasures) {
  const std::string picture =
      block("*D1", "0 LINE\n8 0\n10 0\n20 0\n11 4\n21 0\n0 POINT\n8 DEFPOINTS\n10 0\n20 9\n");
  EXPECT_EQ(
      Drawn(drawing("0 DIMENSION\n100 AcDbEntity\n8 0\n100 AcDbDimension\n2 *D1\n10 0\n20 0\n70 0", picture))
          .parts,
      std::vector<std::string>{"line 0,0 4,0"});
}

TEST(Attributes, FollowTheModeOfTheDrawing) {
  const std::string definition =
      block("B", "0 ATTDEF\n8 0\n10 1\n20 5\n40 2\n1 fixed\n3 ask\n2 CONST\n70 3\n");
  const std::string reference = "0 INSERT\n8 0\n66 1\n2 B\n10 0\n20 0\n"
                                "0 ATTRIB\n8 0\n10 1\n20 0\n40 2\n1 shown\n2 TAG\n70 0\n"
                                "0 ATTRIB\n8 0\n10 2\n20 0\n40 2\n1 hidden\n2 OTHER\n70 1\n0 SEQEND\n8 0\n";
  const struct {
    const char* mode;
    std::vector<std::string> parts;
  } cases[] = {
      {"0", {}}, {"1", {"text 1,0 shown"}}, {"2", {"text 1,5 fixed", "text 1,0 shown", "text 2,0 hidden"}}};
  for (const auto& [mode, parts] : cases)
    EXPECT_EQ(Drawn(drawing(reference, definition, std::string("9 $ATTMODE\n70 ") + mode)).parts, parts)
        << mode;
}

} // namespace
