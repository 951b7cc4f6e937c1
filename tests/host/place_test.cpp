// Choosing objects by place: what can be seen of them decides.
#include "DbEntity.h"
#include "lines.h"
#include "support/drawings.h"
#include <gmock/gmock.h>
#include <sstream>

namespace {

/// "code value" lines, separated by semicolons.
std::string groups(const std::string& pairs) {
  std::istringstream in(pairs);
  std::string text;
  for (std::string pair; std::getline(in, pair, ';');) {
    const std::size_t start = pair.find_first_not_of(' ');
    const std::size_t blank = pair.find(' ', start);
    text += pair.substr(start, blank - start) + "\n" + pair.substr(blank + 1) + "\n";
  }
  return text;
}

const char kTables[] = "0 SECTION;2 HEADER;9 $ACADVER;1 AC1015;0 ENDSEC;"
                       "0 SECTION;2 TABLES;0 TABLE;2 LAYER;70 4;"
                       "0 LAYER;2 0;70 0;62 7;6 Continuous;0 LAYER;2 ICE;70 1;62 7;6 Continuous;"
                       "0 LAYER;2 OFF;70 0;62 -7;6 Continuous;0 LAYER;2 LOCKED;70 4;62 7;6 Continuous;"
                       "0 ENDTAB;0 ENDSEC;0 SECTION;2 BLOCKS;";
/// A drawing so large that the pick box reaches 0.5 to each side.
const char kFrame[] = "0 POINT;5 F1;8 0;10 -100;20 -100;0 POINT;5 F2;8 0;10 100;20 100;";

struct PlaceTest : testing::Test {
  void open(const std::string& entities, const std::string& blocks = "", const char* frame = kFrame) {
    session.setDrawing(test::drawingFromText(groups(kTables + blocks + "0 ENDSEC;0 SECTION;2 ENTITIES;" +
                                                    frame + entities + ";0 ENDSEC;0 EOF")),
                       L"plan.dxf");
  }
  /// The handles of what a line selects, but for the frame's.
  std::string select(const std::string& line) {
    lines.type({line.c_str(), ""});
    OdDbObjectIdArray ids;
    session.editor()->SelectEntities(L"Select objects", 0, nullptr, nullptr, ids);
    std::string handles;
    for (const OdDbObjectId& id : ids)
      if (const std::string handle = id.getHandle().ascii().toUtf8(); handle[0] != 'F')
        handles += (handles.empty() ? "" : " ") + handle;
    return handles;
  }
  Lines lines;
  host::HostSession session{lines};
};

std::string block(const std::string& name, const std::string& entities) {
  return "0 BLOCK;8 0;2 " + name + ";70 0;10 0;20 0;3 " + name + ";" + entities + ";0 ENDBLK;8 0;";
}

const std::string kBlocks = block("CORNER", "0 LINE;8 0;10 0;20 0;11 10;21 0;0 LINE;8 0;10 0;20 0;11 0;21 10;"
                                            "0 LINE;8 ICE;10 10;20 10;11 0;21 10;"
                                            "0 LINE;8 OFF;10 10;20 10;11 10;21 0;"
                                            "0 ATTDEF;8 0;10 5;20 5;40 2;1 DEFAULT;3 Number?;2 NUMBER;70 0") +
                            block("OUTER", "0 INSERT;8 0;2 CORNER;10 0;20 5;41 2;42 2") +
                            block("AXIS", "0 XLINE;8 0;10 0;20 0;11 1;21 0") +
                            block("*D1", "0 LINE;8 0;10 0;20 5;11 10;21 5;0 LINE;8 0;10 0;20 0;11 0;21 5");

TEST_F(PlaceTest, PicksFindWhatIsDrawnThere) {
  const struct {
    const char* entity; ///< its handle is A1
    std::vector<const char*> hits, misses;
  } cases[] = {
      {"0 LINE;5 A1;8 0;10 0;20 0;11 10;21 10", {"5,5.6", "10.4,10.4"}, {"5,6.2", "2,8", "11,11"}},
      {"0 LINE;5 A1;8 0;10 3;20 3;11 3;21 3", {"3.4,3"}, {"4,3"}},
      {"0 CIRCLE;5 A1;8 0;10 0;20 0;40 10", {"7.0711,7.0711", "-10.4,0"}, {"0,0", "9,9", "7.8,7.8"}},
      {"0 CIRCLE;5 A1;8 0;10 0;20 0;40 10;210 1;220 0;230 0", {"0,9"}, {"1,9", "0,11"}},
      {"0 ARC;5 A1;8 0;10 0;20 0;40 10;50 0;51 90", {"7.0711,7.0711"}, {"-7.0711,7.0711", "3,3", "9,9"}},
      {"0 ELLIPSE;5 A1;8 0;10 0;20 0;11 10;21 0;40 0.5;41 0;42 6.283185307",
       {"0,5.3", "6,4"},
       {"0,0", "7,5"}},
      {"0 SPLINE;5 A1;8 0;70 4;71 2;72 6;73 3;74 0;40 0;40 0;40 0;40 1;40 1;40 1;41 1;41 0.70710678;41 1;"
       "10 10;20 0;10 10;20 10;10 0;20 10",
       {"7.0711,7.0711", "10,0"},
       {"5,5", "9,9"}},
      {"0 LWPOLYLINE;5 A1;8 0;90 2;70 0;10 5;20 0;42 1;10 -5;20 0", {"0,5.2"}, {"0,0", "0,-5", "4.5,4.5"}},
      {"0 LWPOLYLINE;5 A1;8 0;90 3;70 1;10 0;20 0;10 10;20 0;10 10;20 10", {"10,5", "5,5"}, {"7,3", "2,8"}},
      {"0 POLYLINE;5 A1;8 0;66 1;70 8;0 VERTEX;5 A2;8 0;70 32;10 0;20 0;30 7;0 VERTEX;5 A3;8 0;70 32;10 "
       "10;20 10;"
       "0 SEQEND;5 A4;8 0",
       {"5,5"},
       {"8,2"}},
      {"0 RAY;5 A1;8 0;10 0;20 0;11 0.6;21 0.8", {"600,800", "-0.2,-0.2"}, {"-3,-4", "600,802"}},
      {"0 XLINE;5 A1;8 0;10 0;20 0;11 0.6;21 0.8", {"600,800", "-3,-4"}, {"3,-4"}},
      {"0 POINT;5 A1;8 0;10 1;20 1", {"1.4,0.6"}, {"1,1.6"}},
      {"0 TEXT;5 A1;8 0;10 0;20 0;40 2;1 LONG ENOUGH;50 45", {"4,5", "4,4"}, {"6,1", "1,6"}},
      {"0 MTEXT;5 A1;100 AcDbEntity;8 0;100 AcDbMText;10 0;20 0;40 2;41 0;71 7;1 LONG ENOUGH;11 "
       "0.70710678;21 0.70710678",
       {"4,5"},
       {"6,1", "1,6"}},
      {"0 ATTDEF;5 A1;8 0;10 0;20 0;40 2;1 X;3 Number?;2 NUMBER;70 0", {"1,1"}, {"1,5"}},
      {"0 SOLID;5 A1;8 0;10 0;20 0;11 10;21 0;12 0;22 10", {"2,2", "5,5"}, {"6,6"}},
      {"0 3DFACE;5 A1;8 0;10 0;20 0;11 10;21 0;12 10;22 10;13 0;23 10", {"10,5", "3,10"}, {"5,5"}},
      {"0 HATCH;5 A1;8 0;100 AcDbEntity;100 AcDbHatch;10 0;20 0;30 0;210 0;220 0;230 1;2 SOLID;70 1;71 0;91 "
       "2;"
       "92 2;72 0;73 1;93 4;10 0;20 0;10 10;20 0;10 10;20 10;10 0;20 10;97 0;"
       "92 1;93 1;72 2;10 5;20 5;40 3;50 0;51 360;73 1;97 0;75 0;76 1;98 0",
       {"1,1", "8,8.2", "5,2"},
       {"5,5", "12,5"}},
      {"0 WIPEOUT;5 A1;8 0;90 0;10 0;20 0;11 10;21 0;12 0;22 10;13 1;23 1;71 2;91 4;14 -0.5;24 -0.5;14 "
       "0.5;24 0.5;"
       "14 -0.5;24 0.5;14 -0.5;24 -0.5;70 7",
       {"2,5"},
       {"8,8"}},
      {"0 LEADER;5 A1;8 0;76 3;10 0;20 0;10 10;20 10;10 15;20 10", {"5,5", "12,10"}, {"8,2"}},
      {"0 DIMENSION;5 A1;8 0;2 *D1;10 0;20 5;11 5;21 5;13 0;23 0;14 10;24 0;70 0",
       {"5,5", "0,2"},
       {"5,2", "10,0"}},
      {"0 INSERT;5 A1;8 0;2 OUTER;10 10;20 0", {"10,15", "25,5"}, {"20,15", "10,2", "25,25", "30,20"}},
      {"0 INSERT;5 A1;8 0;2 CORNER;10 0;20 0;50 90;70 2;44 20",
       {"-5,0", "0,5", "-5,20", "0,25"},
       {"5,0", "-5,10"}},
      {"0 INSERT;5 A1;8 0;2 AXIS;10 0;20 0;50 90", {"0,500"}, {"5,0"}},
      {"0 INSERT;5 A1;8 0;66 1;2 CORNER;10 0;20 0;0 ATTRIB;5 A2;8 0;10 30;20 0;40 2;1 1.01;2 NUMBER;70 0;"
       "0 ATTRIB;5 A3;8 0;10 50;20 0;40 2;1 1.01;2 HIDDEN;70 1;0 SEQEND;5 A4;8 0",
       {"31,1", "5,0"},
       {"51,1", "6,6"}},
  };
  for (const auto& test : cases) {
    open(test.entity, kBlocks);
    for (const char* hit : test.hits) EXPECT_EQ(select(hit), "A1") << test.entity << " at " << hit;
    for (const char* miss : test.misses) EXPECT_EQ(select(miss), "") << test.entity << " at " << miss;
  }
}

TEST_F(PlaceTest, OfSeveralTheNearestThenTheTopmostIsPicked) {
  open("0 LINE;5 A1;8 0;10 0;20 0;11 10;21 0;0 LINE;5 A2;8 0;10 0;20 0.4;11 10;21 0.4;"
       "0 LINE;5 A3;8 0;10 0;20 0;11 10;21 0;0 SOLID;5 A4;8 0;10 0;20 -5;11 10;21 -5;12 0;22 5;13 10;23 5");
  EXPECT_EQ(select("5,0"), "A3") << "of equals the last one";
  EXPECT_EQ(select("5,0.3"), "A2") << "the nearest, though others are drawn later";
  EXPECT_EQ(select("5,3"), "A4");
  EXPECT_EQ(select("5,-0.3"), "A3") << "lines on an area can be had";
}

TEST_F(PlaceTest, LinesWithoutEndNeedNothingBesideThem) {
  for (const char* entity : {"0 XLINE;5 A1;8 0;10 7;20 7;11 1;21 1", "0 RAY;5 A1;8 0;10 0;20 0;11 1;21 1"}) {
    open(entity, "", "");
    EXPECT_EQ(select("7,7"), "A1");
    EXPECT_EQ(select("50,50.05"), "A1");
    EXPECT_EQ(select("50,51"), "");
  }
  open("0 POINT;5 A1;8 0;10 3;20 4", "", "");
  EXPECT_EQ(select("3,4"), "A1");
}

TEST_F(PlaceTest, WindowsHoldAndCrossingsTouchWhatIsDrawn) {
  const char kOpenSquare[] = "0 LWPOLYLINE;5 A1;8 0;90 4;70 0;10 0;20 0;10 10;20 0;10 10;20 10;10 0;20 10";
  const char kCircle[] = "0 CIRCLE;5 A1;8 0;10 0;20 0;40 10";
  const char kRay[] = "0 RAY;5 A1;8 0;10 0;20 0;11 1;21 1";
  const char kSolid[] = "0 SOLID;5 A1;8 0;10 0;20 0;11 10;21 0;12 0;22 10";
  const char kCorner[] = "0 INSERT;5 A1;8 0;2 OUTER;10 0;20 0";
  const struct {
    const char* entity;
    const char* line;
    bool isFound;
  } cases[] = {
      {kOpenSquare, "crossing -5,2 8,8", false},
      {kOpenSquare, "crossing 8,4 12,5", true},
      {kOpenSquare, "crossing 8,8 20,20", true},
      {kOpenSquare, "window 0,0 10,10", true},
      {kOpenSquare, "window 0,0 9.9,10", false},
      {kCircle, "crossing -7,-7 7,7", false},
      {kCircle, "crossing -7.1,-7.1 0,0", true},
      {kCircle, "crossing 7.1,7.1 12,12", false},
      {kCircle, "crossing 9.9999,-1 20,1", true},
      {kCircle, "crossing 10.0001,-1 20,1", false},
      {kCircle, "window -10,-10 10,10", true},
      {kCircle, "window -10,-10 10,9.999", false},
      {kRay, "crossing 1000,990 1001,1010", true},
      {kRay, "crossing -9,-9 -1,-1", false},
      {kRay, "window -1e6,-1e6 1e6,1e6", false},
      {kSolid, "crossing 1,1 2,2", true},
      {kSolid, "crossing 6,6 9,9", false},
      {kSolid, "crossing -1,-1 20,20", true},
      {kCorner, "crossing 5,10 30,30", false},
      {kCorner, "crossing 5,4 6,6", true},
      {kCorner, "window -1,4 21,26", true},
      {kCorner, "window -1,4 19,26", false},
      {"0 INSERT;5 A1;8 0;2 AXIS;10 0;20 0", "window -9,-9 9,9", false},
  };
  for (const auto& test : cases) {
    open(test.entity, kBlocks);
    EXPECT_EQ(select(test.line), test.isFound ? "A1" : "") << test.entity << " by " << test.line;
  }
}

TEST_F(PlaceTest, TiltedCoordinateSystemsAreLookedAlongTheirZAxis) {
  open("0 CIRCLE;5 A1;8 0;10 0;20 0;30 500;40 10;210 1;220 0;230 0;" // faces the eye
       "0 CIRCLE;5 A2;8 0;10 0;20 40;30 0;40 10;"                    // is seen from its edge
       "0 XLINE;5 A3;8 0;10 0;20 60;30 60;11 1;21 0;31 0;"           // is seen from its end
       "0 LINE;5 A4;8 0;10 -70;20 0;30 50;11 70;21 10;31 60;"        // comes out of the plane
       "0 TEXT;5 A5;8 0;10 0;20 -40;30 0;40 2;1 UPRIGHT;210 1;220 0;230 0");
  session.database()->setUCS({0, 0, 0}, {0, 1, 0}, {0, 0, 1}); // a view from the front: x is y, y is z
  const std::pair<const char*, const char*> cases[] = {
      {"7.0711,7.0711", "A1"},
      {"0,0", ""},
      {"35,0", "A2"},
      {"40,3", ""},
      {"60,60", "A3"},
      {"5,55", "A4"},
      {"3,-39", "A5"},
      {"window -10.1,-10.1 10.1,10.1", "A1"},
      {"window 29,-1 51,1", "A2"},
      {"crossing 29,0.5 51,1", ""},
      {"crossing 4,54 6,56", "A4"},
      {"window -1,49 11,61", "A4"},
  };
  for (const auto& [line, handle] : cases) EXPECT_EQ(select(line), handle) << line;

  // The box around a line has more room than a window that fits a turned line.
  open("0 LINE;5 A1;8 0;10 0;20 0;11 10;21 10;0 INSERT;5 A2;8 0;2 CORNER;10 50;20 0;50 45", kBlocks);
  session.database()->setUCS({0, 0, 0}, {1, 1, 0}, {-1, 1, 0});
  EXPECT_EQ(select("window -0.1,-0.1 14.2,0.1"), "A1");
  EXPECT_EQ(select("window 35,-36 46,-25"), "A2");
}

TEST_F(PlaceTest, LayersDecideWhatCanBeChosen) {
  const char kOneLine[] = "0 LINE;5 A1;10 0;20 0;11 10;21 0;8 ";
  const struct {
    std::string entity;
    std::string byPlace, byHandle;
  } cases[] = {
      {std::string(kOneLine) + "0", "A1", "A1"},
      {std::string(kOneLine) + "ICE", "", ""},
      {std::string(kOneLine) + "OFF", "", "A1"},
      {std::string(kOneLine) + "LOCKED", "A1", "A1"},
      {std::string(kOneLine) + "0;60 1", "", "A1"},
      {"0 INSERT;5 A1;8 ICE;2 CORNER;10 0;20 0", "", ""},
      {"0 INSERT;5 A1;8 0;2 CORNER;10 0;20 0", "A1", "A1"},
  };
  for (const auto& test : cases) {
    open(test.entity, kBlocks);
    for (const char* line : {"5,0", "window -1,-1 11,11", "crossing 4,-1 5,1"})
      EXPECT_EQ(select(line), test.byPlace) << test.entity << " by " << line;
    for (const char* line : {"handle A1", "all"})
      EXPECT_EQ(select(line), test.byHandle) << test.entity << " by " << line;
  }
  open(std::string(kOneLine) + "0");
  EXPECT_EQ(select("handle A1"), "A1");
  const OdDbObjectId id = session.database()->getOdDbObjectId(OdDbHandle(L"A1"));
  const OdSmartPtr<OdDbEntity> line = id.safeOpenObject(OdDb::kForWrite);
  line->setLayer(L"ICE");
  EXPECT_EQ(select("previous"), "");
  lines.printed.clear();
  EXPECT_EQ(select("handle A1"), "");
  EXPECT_EQ(lines.printed.at(0), "The object with the handle A1 is on a frozen layer.");
}

/// References that multiply, and arrays of many cells, cost no more than a drawing can.
TEST_F(PlaceTest, HugeBlocksEnd) {
  std::string blocks = block("L0", "0 LINE;8 0;10 0;20 0;11 1;21 0");
  for (int level = 1; level <= 12; ++level) {
    std::string ten;
    for (int i = 0; i < 10; ++i)
      ten += (i ? ";" : "") + ("0 INSERT;8 0;2 L" + std::to_string(level - 1)) + ";10 " + std::to_string(i) +
             ";20 0";
    blocks += block("L" + std::to_string(level), ten);
  }
  open("0 INSERT;5 A1;8 0;2 L12;10 0;20 0;0 INSERT;5 A2;8 0;2 L0;10 0;20 50;70 32767;71 32767;44 0;45 0",
       blocks);
  EXPECT_EQ(select("crossing 5,0.5 6,1"), "");
  EXPECT_EQ(select("window -1,-1 0.5,1"), "");
  EXPECT_EQ(select("0.5,50"), "A2");
}

} // namespace
