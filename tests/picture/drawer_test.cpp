#include "DbAttributeDefinition.h"
#include "DbPoint.h"
#include "recording_sink.h"
#include <gmock/gmock.h>

namespace {

using test::block;
using test::drawing;
using test::Drawn;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kUnitLine = "0 LINE\n8 0\n10 0\n20 0\n11 1\n21 0\n";

TEST(Drawer, ShapesOfEntities) {
  const struct {
    const char* groups;
    std::vector<std::string> parts;
  } cases[] = {
      {"0 LINE\n8 0\n10 1\n20 2\n11 3\n21 4", {"line 1,2 3,4"}},
      {"0 3DLINE\n8 0\n10 1\n20 2\n30 0\n11 3\n21 4\n31 5", {"line 1,2 3,4"}},
      {"0 POINT\n8 0\n10 1\n20 2", {"line 1,2"}},
      {"0 SHAPE\n8 0\n10 1\n20 2\n40 2\n2 DIODE\n50 90", {"line 2,1 0,3", "line 0,1 2,3"}},
      {"0 SOLID\n8 0\n10 0\n20 0\n11 2\n21 0\n12 0\n22 1\n13 2\n23 1", {"area 0,0 2,0 2,1 0,1"}},
      // Seen from below: the plane's X axis runs to the left.
      {"0 SOLID\n8 0\n10 0\n20 0\n11 2\n21 0\n12 0\n22 1\n210 0\n220 0\n230 -1", {"area 0,0 -2,0 0,1 0,1"}},
      {"0 3DFACE\n8 0\n10 0\n20 0\n11 2\n21 0\n12 2\n22 1\n13 0\n23 1\n70 5",
       {"line 2,0 2,1", "line 0,1 0,0"}},
      {"0 XLINE\n8 0\n10 0\n20 5\n11 1\n21 0", {"line -500,5 500,5"}},
      {"0 RAY\n8 0\n10 3\n20 0\n11 0\n21 -2", {"line 3,0 3,-500"}},
      {"0 LWPOLYLINE\n8 0\n90 3\n70 1\n43 0.5\n10 0\n20 0\n10 2\n20 0\n10 2\n20 1", {"line 0,0 2,0 2,1 0,0"}},
      {"0 LWPOLYLINE\n8 0\n90 2\n70 0\n10 0\n20 0\n40 0\n41 2\n10 4\n20 0", {"area 0,0 4,1 4,-1 0,0"}},
      {"0 SPLINE\n8 0\n71 1\n40 0\n40 0\n40 1\n40 2\n40 2\n10 0\n20 0\n10 1\n20 1\n10 2\n20 0",
       {"line 0,0 1,1 2,0"}},
      {"0 POLYLINE\n8 0\n66 1\n70 1\n0 VERTEX\n8 0\n10 0\n20 0\n0 VERTEX\n8 0\n10 3\n20 0\n0 VERTEX\n8 0\n10 "
       "3\n20 1\n"
       "0 SEQEND\n8 0",
       {"line 0,0 3,0 3,1 0,0"}},
      {"0 WIPEOUT\n8 0\n10 1\n20 1\n11 4\n21 0\n12 0\n22 2\n13 1\n23 1\n71 2\n91 4\n14 -0.5\n24 -0.5\n14 "
       "0.5\n24 -0.5\n"
       "14 0.5\n24 0.5\n14 -0.5\n24 0.5",
       {"area(255 255 255) 1,3 5,3 5,1 1,1"}},
      // Edges that two faces share are drawn once.
      {"0 MESH\n8 0\n92 4\n10 0\n20 0\n30 0\n10 1\n20 0\n30 0\n10 1\n20 1\n30 0\n10 0\n20 1\n30 0\n"
       "93 8\n90 3\n90 0\n90 1\n90 2\n90 3\n90 0\n90 2\n90 3\n94 0",
       {"line 0,0 1,0", "line 0,0 1,1", "line 0,0 0,1", "line 1,0 1,1", "line 1,1 0,1"}},
  };
  for (const auto& [groups, parts] : cases) EXPECT_EQ(Drawn(drawing(groups)).parts, parts) << groups;
}

/// Every point of a curve lies on it, and the segments keep within the tolerance.
TEST(Drawer, CurvesKeepTheirForm) {
  const struct {
    const char* groups;
    picture::Point first, last;
  } cases[] = {
      {"0 CIRCLE\n8 0\n10 0\n20 0\n40 5", {5, 0}, {5, 0}},
      {"0 ARC\n8 0\n10 0\n20 0\n40 5\n50 270\n51 90", {0, -5}, {0, 5}},
      {"0 ELLIPSE\n8 0\n10 0\n20 0\n11 5\n21 0\n40 1\n41 0\n42 1.5707963267948966", {5, 0}, {0, 5}},
      {"0 LWPOLYLINE\n8 0\n90 2\n70 0\n10 5\n20 0\n42 1\n10 -5\n20 0", {5, 0}, {-5, 0}},
      {"0 LWPOLYLINE\n8 0\n90 2\n70 0\n10 5\n20 0\n42 0.41421356237309503\n10 0\n20 5", {5, 0}, {0, 5}},
      {"0 SPLINE\n8 0\n71 2\n40 0\n40 0\n40 0\n40 1\n40 1\n40 1\n10 5\n20 0\n10 5\n20 5\n10 0\n20 5\n"
       "41 1\n41 0.70710678118654752\n41 1",
       {5, 0},
       {0, 5}},
  };
  class Distances : public test::RecordingSink {
  public:
    void stroke(const picture::Pen&, const picture::Path& drawn) override { path = drawn; }
    picture::Path path;
  };
  for (const auto& [groups, first, last] : cases) {
    const OdDbDatabasePtr database = test::drawingFromText(drawing(groups));
    Distances sink;
    picture::View view;
    view.pixel = 0.1;
    const picture::MeasureText measure;
    picture::Drawer(*database, sink, measure).drawSpace(database->getModelSpaceId(), view, OdGeMatrix3d());
    ASSERT_GT(sink.path.size(), 4u) << groups;
    EXPECT_NEAR(sink.path.front().distanceTo(first), 0, 1e-9) << groups;
    EXPECT_NEAR(sink.path.back().distanceTo(last), 0, 1e-9) << groups;
    for (std::size_t i = 1; i < sink.path.size(); ++i) {
      const picture::Point& from = sink.path[i - 1];
      EXPECT_NEAR(from.distanceTo({0, 0}), 5, 1e-9) << groups;
      const picture::Point middle = from + (sink.path[i] - from) * 0.5;
      EXPECT_GT(middle.distanceTo({0, 0}), 5 - view.pixel / 2) << groups;
    }
  }
}

TEST(Drawer, ReferencesPlaceTheirBlocks) {
  const std::string shape = block("B", "0 LINE\n8 0\n10 1\n20 0\n11 2\n21 1\n", "10 1\n20 0\n");
  const struct {
    const char* groups;
    std::vector<std::string> parts;
  } cases[] = {
      {"0 INSERT\n8 0\n2 B\n10 10\n20 20", {"line 10,20 11,21"}},
      {"0 INSERT\n8 0\n2 B\n10 10\n20 20\n41 -2\n42 3", {"line 10,20 8,23"}},
      {"0 INSERT\n8 0\n2 B\n10 0\n20 0\n50 90", {"line 0,0 -1,1"}},
      {"0 INSERT\n8 0\n2 B\n10 1\n20 0\n210 0\n220 0\n230 -1", {"line -1,0 -2,1"}},
      // Distances of arrays turn with the reference but are not scaled.
      {"0 INSERT\n8 0\n2 B\n10 0\n20 0\n41 2\n42 2\n50 90\n70 2\n71 2\n44 5\n45 7",
       {"line 0,0 -2,2", "line 0,5 -2,7", "line -7,0 -9,2", "line -7,5 -9,7"}},
  };
  for (const auto& [groups, parts] : cases) EXPECT_EQ(Drawn(drawing(groups, shape)).parts, parts) << groups;
  const std::string nested = shape + block("OUTER", "0 INSERT\n8 0\n2 B\n10 1\n20 0\n41 2\n42 2");
  EXPECT_THAT(Drawn(drawing("0 INSERT\n8 0\n2 OUTER\n10 10\n20 0\n50 90", nested)).parts,
              ElementsAre("line 10,1 8,3"));
}

TEST(Drawer, HighlightedObjectsStandOutAndPreviewsAreDrawnOver) {
  const std::string shape = block("B", "0 LINE\n8 RED\n10 0\n20 0\n11 1\n21 1\n");
  const OdDbDatabasePtr database = test::drawingFromText(
      drawing("0 LINE\n8 0\n5 A1\n10 1\n20 2\n11 3\n21 4\n0 INSERT\n8 0\n5 A2\n2 B\n10 0\n20 0\n" + kUnitLine,
              shape));
  const auto ofHandle = [&](const wchar_t* handle) { return database->getOdDbObjectId(OdDbHandle(handle)); };
  test::RecordingSink sink;
  picture::View view;
  view.pixel = 0.01;
  view.frame = {{-100, -100}, {100, 100}};
  const picture::MeasureText measure = [](const std::string&, const picture::Font&) { return 1.0; };
  picture::Drawer drawer(*database, sink, measure);
  drawer.highlight({ofHandle(L"A1"), ofHandle(L"A2")});
  drawer.drawSpace(database->getModelSpaceId(), view, OdGeMatrix3d());
  const OdDbEntityPtr copy = ofHandle(L"A2").openObject()->clone();
  OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
  definition->setTag(L"NUMBER");
  drawer.drawLoose({copy, OdDbPoint::createObject(), definition}, view, OdGeMatrix3d());
  EXPECT_THAT(sink.parts, ElementsAre("line(0 102 255) 1,2 3,4", "line(0 102 255) 0,0 1,1", "line 0,0 1,0",
                                      "line(255 0 0) 0,0 1,1", "line 0,0", "text 0,0 NUMBER"));
  EXPECT_GE(sink.pens.at(0).weight, 3 * sink.pens.at(2).weight);
  EXPECT_THAT(drawer.omissions().kinds, IsEmpty());
}

TEST(Drawer, BlocksThatContainThemselvesEnd) {
  const std::string cycle = block("A", kUnitLine + "0 INSERT\n8 0\n2 B\n10 0\n20 1\n") +
                            block("B", kUnitLine + "0 INSERT\n8 0\n2 A\n10 0\n20 1\n");
  EXPECT_THAT(Drawn(drawing("0 INSERT\n8 0\n2 A\n10 0\n20 0", cycle)).parts,
              ElementsAre("line 0,0 1,0", "line 0,1 1,1"));
  // Ten levels of ten references each would be ten thousand million lines.
  std::string bomb = block("L0", kUnitLine);
  for (int level = 1; level <= 10; ++level) {
    std::string ten;
    for (int i = 0; i < 10; ++i) ten += "0 INSERT\n8 0\n2 L" + std::to_string(level - 1) + "\n10 0\n20 0\n";
    bomb += block("L" + std::to_string(level), ten);
  }
  const OdDbDatabasePtr database = test::drawingFromText(drawing("0 INSERT\n8 0\n2 L10\n10 0\n20 0", bomb));
  struct Ignore : test::RecordingSink {
    void stroke(const picture::Pen&, const picture::Path&) override {}
  } sink;
  const picture::View view;
  const picture::MeasureText measure;
  picture::Drawer drawer(*database, sink, measure, 100'000);
  drawer.drawSpace(database->getModelSpaceId(), view, OdGeMatrix3d());
  EXPECT_TRUE(drawer.omissions().isCut);
}

TEST(Drawer, LayersAndReferencesDecideAboutLooks) {
  const std::string blocks =
      block("ZERO", kUnitLine) +
      block("BYBLOCK", "0 LINE\n8 0\n6 BYBLOCK\n62 0\n370 -2\n10 0\n20 0\n11 1\n21 0") +
      block("OWN", "0 LINE\n8 RED\n62 5\n10 0\n20 0\n11 1\n21 0") +
      block("NEST", "0 INSERT\n8 0\n62 0\n2 BYBLOCK\n10 0\n20 0");
  const std::string at = "10 0\n20 0\n";
  const struct {
    std::string groups;
    std::vector<std::string> parts;
  } cases[] = {
      {"0 LINE\n8 RED\n10 0\n20 0\n11 1\n21 0", {"line(255 0 0) 0,0 1,0"}},
      {"0 LINE\n8 OFF\n10 0\n20 0\n11 1\n21 0", {}},
      {"0 LINE\n8 0\n60 1\n10 0\n20 0\n11 1\n21 0", {}},
      {"0 LINE\n8 0\n420 66051\n10 0\n20 0\n11 1\n21 0", {"line(1 2 3) 0,0 1,0"}},
      {"0 INSERT\n8 RED\n2 ZERO\n" + at, {"line(255 0 0) 0,0 1,0"}},
      {"0 INSERT\n8 RED\n62 3\n2 ZERO\n" + at, {"line(255 0 0) 0,0 1,0"}},
      {"0 INSERT\n8 RED\n62 3\n2 BYBLOCK\n" + at, {"line(0 255 0) 0,0 1,0"}},
      {"0 INSERT\n8 RED\n2 NEST\n" + at, {"line(255 0 0) 0,0 1,0"}},
      {"0 INSERT\n8 0\n62 3\n2 NEST\n" + at, {"line(0 255 0) 0,0 1,0"}},
      {"0 INSERT\n8 0\n62 3\n2 OWN\n" + at, {"line(0 0 255) 0,0 1,0"}},
      // A layer that is off hides its own entities; a frozen one all that the reference contains.
      {"0 INSERT\n8 OFF\n2 ZERO\n" + at, {}},
      {"0 INSERT\n8 OFF\n2 OWN\n" + at, {"line(0 0 255) 0,0 1,0"}},
      {"0 INSERT\n8 ICE\n2 OWN\n" + at, {}},
  };
  for (const auto& [groups, parts] : cases) EXPECT_EQ(Drawn(drawing(groups, blocks)).parts, parts) << groups;

  const Drawn byBlock(drawing("0 INSERT\n8 RED\n2 BYBLOCK\n41 3\n42 3\n" + at, blocks));
  ASSERT_EQ(byBlock.pens.size(), 1u);
  EXPECT_THAT(byBlock.pens[0].dashes, ElementsAre(6, 3));
  EXPECT_EQ(byBlock.pens[0].weight, 0.5);
}

TEST(Drawer, AttributesAndDefinitions) {
  const std::string definitions = "0 ATTDEF\n8 0\n10 1\n20 0\n40 2\n1 default\n3 ask\n2 TAG\n70 0\n"
                                  "0 ATTDEF\n8 0\n10 1\n20 5\n40 2\n1 fixed\n3 ask\n2 CONST\n70 2\n";
  const std::string reference =
      "0 INSERT\n8 0\n66 1\n2 B\n10 10\n20 0\n"
      "0 ATTRIB\n8 RED\n10 11\n20 0\n40 2\n1 value\n2 TAG\n70 0\n"
      "0 ATTRIB\n8 RED\n10 12\n20 0\n40 2\n1 hidden\n2 OTHER\n70 1\n0 SEQEND\n8 0\n";
  EXPECT_THAT(Drawn(drawing(reference, block("B", definitions))).parts,
              ElementsAre("text 11,5 fixed", "text(255 0 0) 11,0 value"));
  EXPECT_THAT(Drawn(drawing(definitions)).parts, ElementsAre("text 1,0 TAG", "text 1,5 fixed"));
}

TEST(Drawer, MasksAndParallelLinesFollowTheirSettings) {
  const std::string mask = "0 WIPEOUT\n8 0\n10 1\n20 1\n11 1\n21 0\n12 0\n22 1\n13 1\n23 1\n71 1\n";
  const std::string frames =
      "0 DICTIONARY\n5 C\n3 ACAD_WIPEOUT_VARS\n350 D\n0 WIPEOUTVARIABLES\n5 D\n330 C\n70 ";
  const std::string area = "area(255 255 255) 1,2 2,2 2,1 1,1";
  EXPECT_THAT(Drawn(drawing(mask, "", "", frames + "0")).parts, ElementsAre(area));
  EXPECT_THAT(Drawn(drawing(mask, "", "", frames + "1")).parts,
              ElementsAre(area, "line 1,2 2,2 2,1 1,1 1,2"));
  EXPECT_THAT(Drawn(drawing(mask, "", "", frames + "2")).parts,
              ElementsAre(area, "line 1,2 2,2 2,1 1,1 1,2"));
  // A mask that is not shown hides nothing, and those that are hide only what was drawn before.
  EXPECT_THAT(Drawn(drawing(mask + "70 6\n")).parts, IsEmpty());
  EXPECT_THAT(
      Drawn(drawing("0 LINE\n8 0\n10 0\n20 0\n11 9\n21 9\n" + mask + "0 LINE\n8 0\n10 0\n20 9\n11 9\n21 0\n"))
          .parts,
      ElementsAre("line 0,0 9,9", area, "line 0,9 9,0"));
  const std::string lines =
      "0 MLINE\n8 0\n340 E\n70 0\n71 0\n72 2\n73 2\n11 0\n21 0\n13 0\n23 1\n74 1\n41 1\n74 "
      "1\n41 0\n11 4\n21 0\n13 0\n23 1\n74 1\n41 1\n74 1\n41 0\n";
  const std::string style =
      "0 DICTIONARY\n5 C\n3 S\n350 E\n0 MLINESTYLE\n5 E\n330 C\n2 S\n62 5\n71 2\n49 1\n62 1\n49 "
      "0\n62 256\n";
  EXPECT_THAT(Drawn(drawing(lines, "", "", style)).parts,
              ElementsAre("line(255 0 0) 0,1 4,1", "line 0,0 4,0"));
}

TEST(Drawer, PointsHaveTheSignOfTheDrawing) {
  const std::string point = "0 POINT\n8 0\n10 1\n20 2\n";
  const auto parts = [&](const std::string& mode, const std::string& groups) {
    return Drawn(drawing(point + groups, "", "9 $PDMODE\n70 " + mode + "\n9 $PDSIZE\n40 2\n")).parts;
  };
  EXPECT_THAT(parts("1", ""), IsEmpty());
  EXPECT_THAT(parts("4", ""), ElementsAre("line 1,2 1,3"));
  EXPECT_THAT(parts("4", "50 90\n"), ElementsAre("line 1,2 0,2"));
  EXPECT_THAT(parts("3", ""), ElementsAre("line -1,0 3,4", "line -1,4 3,0"));
  EXPECT_THAT(parts("66", ""), ElementsAre("line -1,2 3,2", "line 1,0 1,4", "line 0,1 2,1", "line 2,1 2,3",
                                           "line 2,3 0,3", "line 0,3 0,1"));
}

TEST(Drawer, CountsWhatItCannotShow) {
  // What is seen twice is missing once.
  EXPECT_EQ(Drawn(drawing("0 INSERT\n8 0\n2 B\n10 0\n20 0\n0 INSERT\n8 0\n2 B\n10 5\n20 0",
                          block("B", "0 REGION\n8 0\n")))
                .omissions.kinds,
            (std::map<std::string, int>{{"REGION", 1}}));
  const Drawn drawn(drawing(
      "0 3DSOLID\n8 0\n0 3DSOLID\n8 0\n0 HATCH\n8 0\n2 SOLID\n70 1\n91 0\n0 INSERT\n8 0\n2 NONE\n10 0\n20 0\n"
      "0 LINE\n8 0\n10 nan\n20 0\n11 1\n21 1e300"));
  EXPECT_THAT(drawn.parts, IsEmpty());
  EXPECT_EQ(drawn.omissions.kinds,
            (std::map<std::string, int>{
                {"3DSOLID", 2}, {"HATCH", 1}, {"INSERT of a block that does not exist", 1}}));
}

// --- hatches

const std::string kSquare =
    "91 1\n92 2\n72 0\n73 1\n93 4\n10 0\n20 0\n10 4\n20 0\n10 4\n20 4\n10 0\n20 4\n97 0\n";
const std::string kSquareWithHole =
    "91 2\n92 1\n93 4\n72 1\n10 0\n20 0\n11 4\n21 0\n72 1\n10 4\n20 0\n11 4\n21 4\n"
    "72 1\n10 4\n20 4\n11 0\n21 4\n72 1\n10 0\n20 4\n11 0\n21 0\n97 0\n"
    "92 16\n93 4\n72 1\n10 1\n20 1\n11 3\n21 1\n72 1\n10 3\n20 1\n11 3\n21 3\n"
    "72 1\n10 3\n20 3\n11 1\n21 3\n72 1\n10 1\n20 3\n11 1\n21 1\n97 0\n";

std::string hatch(const std::string& boundary, const std::string& pattern) {
  const bool solid = pattern.empty();
  return "0 HATCH\n8 0\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n2 P\n70 " + std::string(solid ? "1" : "0") +
         "\n71 0\n" + boundary + "75 0\n76 1\n" + (solid ? "" : "52 0\n41 1\n77 0\n" + pattern) + "98 0\n";
}

TEST(Hatch, FillsAndClipsItsLines) {
  const struct {
    std::string groups;
    std::vector<std::string> parts;
  } cases[] = {
      {hatch(kSquare, ""), {"area 0,0 4,0 4,4 0,4 0,0"}},
      {hatch(kSquare, "78 1\n53 0\n43 0\n44 1\n45 0\n46 2\n79 0\n"), {"line 0,1 4,1", "line 0,3 4,3"}},
      {hatch(kSquare, "78 1\n53 90\n43 1\n44 0\n45 -2\n46 0\n79 0\n"), {"line 3,0 3,4", "line 1,0 1,4"}},
      {hatch(kSquareWithHole, "78 1\n53 0\n43 0\n44 2\n45 0\n46 9\n79 0\n"),
       {"line 0,2 1,2", "line 3,2 4,2"}},
      // Dashes begin at the base point and are shifted from line to line.
      {hatch(kSquare, "78 1\n53 0\n43 0.5\n44 1\n45 1\n46 2\n79 2\n49 1\n49 -2\n"),
       {"line 0.5,1 1.5,1", "line 3.5,1 4,1", "line 1.5,3 2.5,3"}},
  };
  for (const auto& [groups, parts] : cases) EXPECT_EQ(Drawn(drawing(groups)).parts, parts) << groups;
}

TEST(Hatch, GradientsRunOverTheirArea) {
  const std::string colors = "450 1\n460 0\n453 2\n463 0\n421 255\n463 1\n421 16711680\n470 ";
  const std::string square = " over 0,0 4,0 4,4 0,4 0,0";
  const std::pair<const char*, std::string> cases[] = {
      {"LINEAR", "linear(0 0 255)(255 0 0) 0,2 4,2"},
      {"INVCYLINDER", "linear(255 0 0)(0 0 255) 0,2 2,2"},
      {"SPHERICAL", "radial(255 0 0)(0 0 255) 2,2 4,2"},
  };
  for (const auto& [name, part] : cases)
    EXPECT_THAT(Drawn(drawing(hatch(kSquare, "") + colors + name)).parts, ElementsAre(part + square)) << name;
}

TEST(Hatch, AbsurdPatternsAreBounded) {
  for (const char* pattern : {"78 1\n53 0\n43 0\n44 0\n45 0\n46 1e-12\n79 2\n49 1e-12\n49 -1e-12\n",
                              "78 1\n53 0\n43 1e300\n44 0\n45 0\n46 0\n79 0\n",
                              "78 1000000\n53 0\n43 0\n44 0\n45 0\n46 1\n79 1000000\n"})
    EXPECT_LE(Drawn(drawing(hatch(kSquare, pattern))).parts.size(), 400u) << pattern;
}

} // namespace
