// Divide: which curves, which answers, where the marks go.
#include "Db2dPolyline.h"
#include "Db3dPolyline.h"
#include "DbArc.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbEllipse.h"
#include "DbLayerTable.h"
#include "DbLine.h"
#include "DbPoint.h"
#include "DbPolyline.h"
#include "DbRay.h"
#include "DbSpline.h"
#include "DbText.h"
#include "construct/divide_curve.h"
#include "construct_session.h"
#include "hostgsmanager/Display.h"
#include <cmath>

namespace {

using host::RunResult;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNear = 1e-9;

OdDbLinePtr lineTo(const OdGePoint3d& end) {
  OdDbLinePtr line = OdDbLine::createObject();
  line->setEndPoint(end);
  return line;
}

OdDbCirclePtr circleOf(double radius) {
  OdDbCirclePtr circle = OdDbCircle::createObject();
  circle->setRadius(radius);
  return circle;
}

OdDbPolylinePtr polylineOf(std::initializer_list<OdGePoint2d> points, bool closed) {
  OdDbPolylinePtr polyline = OdDbPolyline::createObject();
  for (const OdGePoint2d& point : points) polyline->addVertexAt(polyline->numVerts(), point);
  polyline->setClosed(closed);
  return polyline;
}

OdDbSplinePtr splineOf(const OdGePoint3dArray& points, bool closed = false) {
  OdDbSplinePtr spline = OdDbSpline::createObject();
  spline->setFitData(points, closed, {}, {});
  return spline;
}

struct Divide : ConstructSession {
  OdDbObjectId addBlock(const OdString& name) {
    const OdDbBlockTablePtr blocks = database().getBlockTableId().safeOpenObject(OdDb::kForWrite);
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName(name);
    return blocks->add(block);
  }

  OdDb3dPolylinePtr drawSpatial(std::initializer_list<OdGePoint3d> points, bool closed) {
    OdDb3dPolylinePtr polyline = draw<OdDb3dPolyline>(modelSpace());
    polyline->setClosed(closed);
    for (const OdGePoint3d& point : points) {
      const auto vertex = OdDb3dPolylineVertex::createObject();
      vertex->setPosition(point);
      polyline->appendVertex(vertex);
    }
    return polyline;
  }

  std::vector<OdGePoint3d> points() {
    std::vector<OdGePoint3d> places;
    for (const auto& point : all<OdDbPoint>(modelSpace())) places.push_back(point->position());
    return places;
  }

  std::vector<OdGePoint3d> divide(const char* count) {
    std::vector<OdGePoint3d> places;
    EXPECT_EQ(run("Divide", {"last", count}, [&] { places = points(); }), RunResult::completed);
    EXPECT_THAT(lines.printed, IsEmpty());
    return places;
  }

  /// In degrees, of references of the block along the newest curve.
  std::vector<double> turnsOfBlocks(const char* count) {
    std::vector<double> turns;
    run("Divide", {"last", "Block", "Tick", "y", count}, [&] {
      for (const auto& mark : all<OdDbBlockReference>(modelSpace()))
        turns.push_back(mark->rotation() * 180 / OdaPI);
    });
    return turns;
  }
};

/// Closed curves begin at their start point, of open ones the ends stay unmarked.
TEST_F(Divide, MarksEqualLengths) {
  const OdDbArcPtr arc = OdDbArc::createObject();
  arc->setRadius(2);
  arc->setStartAngle(OdaPI);
  arc->setEndAngle(0);
  const OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
  ellipse->set({1, 0, 0}, OdGeVector3d::kZAxis, {3, 0, 0}, 0.5);
  const OdDbPolylinePtr bulged = polylineOf({{0, 0}, {2, 0}, {2, 2}}, false);
  bulged->setBulgeAt(1, 1);
  bulged->setElevation(5);
  const struct {
    const char* name;
    std::function<void()> draw;
    const char* count;
    std::vector<OdGePoint3d> expected;
  } cases[] = {
      {"line",
       [&] {
         draw(modelSpace(), lineTo({8, 4, 2}));
       },
       "2",
       {{4, 2, 1}}},
      {"circle", [&] { draw(modelSpace(), circleOf(3)); }, "2", {{3, 0, 0}, {-3, 0, 0}}},
      {"arc", [&] { draw(modelSpace(), arc); }, "2", {{0, -2, 0}}},
      {"ellipse",
       [&] { draw(modelSpace(), ellipse); },
       "4",
       {{4, 0, 0}, {1, 1.5, 0}, {-2, 0, 0}, {1, -1.5, 0}}},
      {"polyline with an arc",
       [&] { draw(modelSpace(), bulged); },
       "2",
       // Half of 2 + pi is the line and pi / 2 - 1 of the half circle about (2, 1).
       {{2 + std::sin(OdaPI2 - 1), 1 - std::cos(OdaPI2 - 1), 5}}},
      {"closed polyline",
       [&] {
         draw(modelSpace(), polylineOf({{0, 0}, {4, 0}, {4, 3}}, true));
       },
       "3",
       {{0, 0, 0}, {4, 0, 0}, {3.2, 2.4, 0}}},
      {"polyline in space",
       [&] {
         drawSpatial({{0, 0, 0}, {0, 0, 3}, {0, 3, 3}}, false);
       },
       "3",
       {{0, 0, 2}, {0, 1, 3}}},
      {"closed one",
       [&] {
         drawSpatial({{0, 0, 0}, {0, 0, 4}, {0, 3, 4}}, true);
       },
       "2",
       {{0, 0, 0}, {0, 2, 4}}},
      {"spline",
       [&] {
         draw(modelSpace(), splineOf({{0, 0, 0}, {1, 2, 0}, {2, 0, 0}}));
       },
       "2",
       {{1, 2, 0}}},
  };
  for (const auto& test : cases) {
    test.draw();
    const std::vector<OdGePoint3d> found = divide(test.count);
    ASSERT_EQ(found.size(), test.expected.size()) << test.name;
    for (std::size_t i = 0; i < found.size(); ++i)
      EXPECT_LT(found[i].distanceTo(test.expected[i]), kNear) << test.name << ", mark " << i;
  }
}

TEST_F(Divide, OtherObjectsAreRefused) {
  const auto drawOld = [&] {
    const OdDb2dPolylinePtr old = draw<OdDb2dPolyline>(modelSpace());
    for (const double x : {0.0, 1.0}) {
      const auto vertex = OdDb2dVertex::createObject();
      vertex->setPosition(OdGePoint3d(x, 0, 0));
      old->appendVertex(vertex);
    }
  };
  const auto drawSquashed = [&] { draw(modelSpace(), polylineOf({{1, 1}, {1, 1}, {1, 1}}, true)); };
  const char* const kNoLength =
      "Divide failed: The geometry is degenerate: a length, direction or plane is missing.";
  const struct {
    const char* name;
    std::function<void()> draw;
    RunResult result;
    const char* printed;
  } cases[] = {
      {"ray", [&] { draw<OdDbRay>(modelSpace()); }, RunResult::cancelled, "Cannot divide that object"},
      {"polyline with vertex records", drawOld, RunResult::cancelled, "Cannot divide that object"},
      {"text", [&] { draw<OdDbText>(modelSpace()); }, RunResult::failed,
       "Divide failed: An object of class OdDbText was given where class OdDbCurve is required."},
      {"line without length", [&] { draw<OdDbLine>(modelSpace()); }, RunResult::failed, kNoLength},
      {"circle without radius", [&] { draw(modelSpace(), circleOf(0)); }, RunResult::failed, kNoLength},
      {"coincident vertices", drawSquashed, RunResult::failed, kNoLength},
      {"no vertices", [&] { drawSpatial({}, false); }, RunResult::failed, kNoLength},
      {"no control points", [&] { draw<OdDbSpline>(modelSpace()); }, RunResult::failed, kNoLength},
  };
  for (const auto& test : cases) {
    test.draw();
    EXPECT_EQ(run("Divide", {"last", "5"}), test.result) << test.name;
    EXPECT_THAT(lines.printed, ElementsAre(test.printed)) << test.name;
    EXPECT_FALSE(hasChanged) << test.name;
  }
}

TEST_F(Divide, Answers) {
  const std::string kOrKeyword = "Requires an integer between 2 and 32767, or option keyword.";
  const std::string kInteger = "Requires an integer between 2 and 32767.";
  addBlock(L"Tick");
  draw(modelSpace(), lineTo({10, 0, 0}));
  const struct {
    std::vector<std::string> answers;
    RunResult result;
    std::size_t points, references;
    std::vector<std::string> printed;
  } cases[] = {
      {{"^C"}, RunResult::cancelled, 0, 0, {}},
      {{""}, RunResult::cancelled, 0, 0, {}},
      {{"last", "^C"}, RunResult::cancelled, 0, 0, {}},
      {{"last", ""}, RunResult::completed, 1, 0, {}},
      {{"last", "32768", "1", "-5", "0", "32767"},
       RunResult::completed,
       32766,
       0,
       {kOrKeyword, kOrKeyword, kOrKeyword, kOrKeyword}},
      {{"last", "40000", ""}, RunResult::completed, 1, 0, {kOrKeyword}},
      {{"last", "b", "^C"}, RunResult::cancelled, 0, 0, {}},
      {{"last", "b", "Tack", "%s", "^C"},
       RunResult::cancelled,
       0,
       0,
       {"Cannot find block Tack.", "Cannot find block %s."}},
      {{"last", "b", "tick", "^C"}, RunResult::cancelled, 0, 0, {}},
      {{"last", "b", "tick", "", "^C"}, RunResult::cancelled, 0, 0, {}},
      {{"last", "b", "tick", "", ""}, RunResult::cancelled, 0, 0, {}},
      {{"last", "b", "tick", "No", "1", "32768", "5"}, RunResult::completed, 0, 4, {kInteger, kInteger}},
      {{"last", "b", "tick", "Yes", "1", ""}, RunResult::cancelled, 0, 0, {kInteger}},
      {{"last", "b", "*model_space", "No", "5"},
       RunResult::failed,
       0,
       0,
       {"Divide failed: A block cannot contain itself."}},
  };
  for (const auto& test : cases) {
    std::size_t references = 0;
    std::size_t marks = 0;
    EXPECT_EQ(run("Divide", test.answers,
                  [&] {
                    marks = points().size();
                    references = all<OdDbBlockReference>(modelSpace()).size();
                  }),
              test.result)
        << testing::PrintToString(test.answers);
    EXPECT_EQ(std::pair(marks, references), std::pair(test.points, test.references))
        << testing::PrintToString(test.answers);
    EXPECT_EQ(lines.printed, test.printed) << testing::PrintToString(test.answers);
    EXPECT_EQ(hasChanged, test.points + test.references > 0) << testing::PrintToString(test.answers);
  }
}

TEST_F(Divide, AsksInItsWords) {
  addBlock(L"Tick");
  draw(modelSpace(), lineTo({10, 0, 0}));
  run("Divide", {"last", "b", "Tick", "n", "3"});
  lines.prompts.resize(5);
  EXPECT_THAT(lines.prompts,
              ElementsAre("Select object to divide: ", "Enter number of segments [Block]: ",
                          "Enter name of block to insert: ", "Align block with object? [Yes/No]: ",
                          "Enter number of segments: "));
}

TEST_F(Divide, AlignedBlocksFollowTheCurve) {
  addBlock(L"Tick");
  draw(modelSpace(), circleOf(3));
  EXPECT_THAT(turnsOfBlocks("6"),
              testing::Pointwise(testing::DoubleNear(kNear), {90, 150, 210, 270, 330, 30}));
  draw(modelSpace(), lineTo({-1, -1, 0}));
  EXPECT_THAT(turnsOfBlocks("3"), testing::Pointwise(testing::DoubleNear(kNear), {225, 225}));
  // The lines to and from the crossing are told apart though the place is one.
  draw(modelSpace(), polylineOf({{0, 0}, {4, 0}, {4, 2}, {2, 2}, {2, -2}}, false));
  EXPECT_THAT(turnsOfBlocks("6"), testing::Pointwise(testing::DoubleNear(kNear), {0, 90, 180, 270, 270}));
}

/// Corners that are hit are those of what begins there, however the lengths are rounded.
TEST_F(Divide, BlocksAtCornersTurnWithWhatBegins) {
  addBlock(L"Tick");
  for (const double side : {0.1, 0.3, 7.7, 1e6 / 3}) {
    draw(modelSpace(), polylineOf({{1, 2}, {1 + side, 2}, {1 + side, 2 + side}, {1, 2 + side}}, true));
    EXPECT_THAT(turnsOfBlocks("12"), testing::Pointwise(testing::DoubleNear(1e-6),
                                                        {0, 0, 0, 90, 90, 90, 180, 180, 180, 270, 270, 270}))
        << side;
  }
}

TEST_F(Divide, MarksGoToTheBlockOfTheCurveWithTheDefaultsOfTheDrawing) {
  const OdDbLayerTablePtr layers = database().getLayerTableId().safeOpenObject(OdDb::kForWrite);
  const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
  layer->setName(L"Marks");
  database().setCLAYER(layers->add(layer));
  const OdDbObjectId tick = addBlock(L"Tick");
  const OdDbObjectId part = addBlock(L"Part");
  for (const OdDbObjectId& owner : {part, database().getPaperSpaceId()}) {
    const OdDbObjectId curve = draw(owner, lineTo({10, 0, 0}))->objectId();
    HostEdInput& input = *session.editor();
    EXPECT_EQ(construct::divideCurve(input, curve, 2, {}), kCmdCompleted);
    EXPECT_EQ(construct::divideCurve(input, curve, 2, {tick, true}), kCmdCompleted);
    EXPECT_THROW(construct::divideCurve(input, curve, 2, {owner, true}), OdError);
    const auto points = all<OdDbPoint>(owner);
    const auto references = all<OdDbBlockReference>(owner);
    ASSERT_EQ(std::pair(points.size(), references.size()), (std::pair<std::size_t, std::size_t>(1, 1)));
    EXPECT_EQ(points[0]->layer(), L"Marks");
    EXPECT_EQ(references[0]->layer(), L"Marks");
    EXPECT_EQ(references[0]->blockTableRecord(), tick);
    EXPECT_EQ(references[0]->position(), OdGePoint3d(5, 0, 0));
  }
  EXPECT_THAT(points(), IsEmpty());
}

/// Notes at each prompt what is highlighted.
class Watch : public Lines {
public:
  std::optional<std::string> readLine(const std::string& prompt) override {
    highlighted.push_back(host::display().highlighted().size());
    return Lines::readLine(prompt);
  }
  std::vector<std::size_t> highlighted;
};

TEST_F(Divide, TheCurveIsHighlightedUntilTheEnd) {
  addBlock(L"Tick");
  draw(modelSpace(), lineTo({10, 0, 0}));
  Watch watch;
  session.input().setConsole(watch);
  for (const char* last : {"5", "^C"}) {
    watch.highlighted.clear();
    watch.type({"last", "b", "Tick", "y", last});
    session.execute(L"Divide");
    EXPECT_THAT(watch.highlighted, ElementsAre(0, 1, 1, 1, 1));
    EXPECT_THAT(host::display().highlighted(), IsEmpty());
  }
  session.input().setConsole(lines);
}

} // namespace
