// Wipeout: picked boundaries, polylines, frames; where wipeouts go.
#include "DbCircle.h"
#include "DbViewport.h"
#include "DbWipeout.h"
#include "DbWipeoutVariables.h"
#include "HostEdInputTracker.h"
#include "HostUtils.h"
#include "construct/wipeout_bounds.h"
#include "construct/wipeout_tracker.h"
#include "construct_session.h"
#include "hostgsmanager/Display.h"
#include <optional>

namespace {

using host::RunResult;
using testing::ElementsAre;
using testing::IsEmpty;

using Corners = std::vector<std::pair<double, double>>;

Corners flat(const OdDbPolyline& polyline) {
  Corners corners;
  for (unsigned int i = 0; i < polyline.numVerts(); ++i) {
    OdGePoint2d corner;
    polyline.getPointAt(i, corner);
    corners.emplace_back(corner.x, corner.y);
  }
  return corners;
}

/// What a host does while it waits for a point: an answer, before which the cursor may move.
struct Turn {
  int code;
  std::optional<OdGePoint3d> point = std::nullopt;
  std::optional<OdGePoint3d> cursor = std::nullopt;
};

/// An editor that answers requests for points, and notes what they were.
class Picker final : public HostEdInput {
public:
  explicit Picker(std::vector<Turn> turns) : m_turns(std::move(turns)) {}

  int GetPoint(const OdGePoint3d* base, OdGePoint3d& point, const OdChar* prompt, const OdChar* keywords,
               int flags, void*, HostEdInputTracker* tracker) override {
    EXPECT_STREQ(prompt, L"Specify next point");
    EXPECT_EQ(flags, 4);
    asked.push_back(OdString(keywords).toUtf8());
    bases.emplace_back(base->x, base->y);
    const Turn& turn = m_turns.at(asked.size() - 1);
    if (turn.cursor) tracker->Filter({kHostEdMouseMove, &*turn.cursor}, *turn.cursor);
    if (turn.point) point = *turn.point;
    return turn.code;
  }
  void Print(const OdChar*, ...) override { ++messages; }
  int GetStringOrKeyword(const OdChar*, const OdChar*, int, OdString*, void*) override { return -2; }
  bool GetString(OdString&) override { return false; }
  int GetDistance(const OdGePoint3d*, double&, const OdChar*, const OdChar*, int, void*, void*) override {
    return -2;
  }
  int GetAngle(const OdGePoint3d*, double&, const OdChar*, const OdChar*, int, void*, void*) override {
    return -2;
  }
  int GetInteger(int&, const OdChar*, const OdChar*, int, void*) override { return -2; }
  int SelectEntity(const OdChar*, int, OdDbObjectId&, OdGePoint3d*) override { return -2; }
  int SelectEntities(const OdChar*, int, void*, void*, OdDbObjectIdArray&) override { return -2; }
  void LastPoint(OdGePoint3d&) override {}
  void Preview(int, OdDbEntity*) override {}

  std::vector<std::string> asked; ///< the keywords
  Corners bases;
  int messages = 0;

private:
  std::vector<Turn> m_turns;
};

TEST(WipeoutBounds, GrowByAnswers) {
  constexpr int kPoint = -1;
  constexpr int kEnter = 1;
  constexpr int kUndo = 2;
  constexpr int kClose = 3;
  const std::string none, undo = "Undo _ Undo", close = "Undo Close";
  const struct {
    const char* name;
    std::vector<Turn> turns;
    std::vector<std::string> keywords;
    Corners bases, corners;
    int messages;
  } cases[] = {
      {"Enter finishes from three points on",
       {{kPoint, {{4, 0, 0}}}, {kPoint, {{4, 3, 0}}}, {kEnter}},
       {none, undo, close},
       {{0, 0}, {4, 0}, {4, 3}},
       {{0, 0}, {4, 0}, {4, 3}},
       0},
      {"Close leaves out the vertex that follows the cursor",
       {{kPoint, {{4, 0, 0}}}, {kPoint, {{4, 3, 0}}}, {kClose, {}, {{9, 9, 0}}}},
       {none, undo, close},
       {{0, 0}, {4, 0}, {4, 3}},
       {{0, 0}, {4, 0}, {4, 3}},
       0},
      {"the first Enters are refused",
       {{kEnter}, {kEnter}, {kPoint, {{4, 0, 0}}}, {kPoint, {{4, 3, 0}}}, {kEnter}},
       {none, none, none, undo, close},
       {{0, 0}, {0, 0}, {0, 0}, {4, 0}, {4, 3}},
       {{0, 0}, {4, 0}, {4, 3}},
       2},
      {"Enter at the third point takes the cursor",
       {{kPoint, {{4, 0, 0}}}, {kEnter, {}, {{4, 3, 0}}}, {kEnter}},
       {none, undo, close},
       {{0, 0}, {4, 0}, {4, 3}},
       {{0, 0}, {4, 0}, {4, 3}},
       0},
      {"Undo takes back one point at a time, but never the first",
       {{kPoint, {{4, 0, 0}}},
        {kPoint, {{4, 3, 0}}},
        {kUndo},
        {kUndo},
        {kUndo},
        {kPoint, {{5, 0, 0}}},
        {kPoint, {{5, 5, 0}}},
        {kClose}},
       {none, undo, close, undo, none, none, undo, close},
       {{0, 0}, {4, 0}, {4, 3}, {4, 0}, {0, 0}, {0, 0}, {5, 0}, {5, 5}},
       {{0, 0}, {5, 0}, {5, 5}},
       0},
      {"a typed point counts, not where the cursor was",
       {{kPoint, {{4, 0, 7}}, {{1, 1, 1}}}, {kPoint, {{4, 3, 0}}}, {kClose}},
       {none, undo, close},
       {{0, 0}, {4, 0}, {4, 3}},
       {{0, 0}, {4, 0}, {4, 3}},
       0},
      {"cancel gives none", {{kPoint, {{4, 0, 0}}}, {-2}}, {none, undo}, {{0, 0}, {4, 0}}, {}, 0},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    Picker picker(test.turns);
    const OdDbPolylinePtr bounds = construct::pickBounds(picker, {0, 0, 0}, OdGeVector3d::kZAxis);
    EXPECT_EQ(bounds.isNull() ? Corners() : flat(*bounds), test.corners);
    EXPECT_EQ(picker.asked, test.keywords);
    EXPECT_EQ(picker.bases, test.bases);
    EXPECT_EQ(picker.messages, test.messages);
  }
}

TEST(WipeoutBounds, LieInThePlaneOfTheStartPoint) {
  const OdGeVector3d normal = OdGeVector3d(1, 2, 2).normal();
  Picker picker({{-1, {{5, 0, 0}}}, {-1, {{5, 6, 1}}}, {1}});
  const OdGePoint3d start(1, 1, 3);
  const OdDbPolylinePtr bounds = construct::pickBounds(picker, start, normal);
  EXPECT_NEAR(bounds->elevation(), 3, 1e-12);
  EXPECT_TRUE(bounds->isClosed());
  const OdGePoint3d picked[] = {start, {5, 0, 0}, {5, 6, 1}};
  for (unsigned int i = 0; i < 3; ++i) {
    OdGePoint3d corner;
    bounds->getPointAt(i, corner);
    EXPECT_NEAR((corner - start).dotProduct(normal), 0, 1e-12);
    EXPECT_NEAR((corner - picked[i]).crossProduct(normal).length(), 0, 1e-12) << "along the normal";
  }
}

TEST(WipeoutBoundsTracker, MovesAndDrawsThePolyline) {
  class Drawn final : public HostEdDrawing, public HostEdSecondPass {
  public:
    bool DrawEntity(OdDbEntity* drawn, int mode, int view, int reserved1, int reserved2) override {
      entities.push_back(drawn);
      numbers = {mode, view, reserved1, reserved2};
      return true;
    }
    void Entity(OdDbEntity* drawn) override { entities.push_back(drawn); }
    std::vector<OdDbEntity*> entities;
    std::vector<int> numbers;
  } drawn;
  const OdDbPolylinePtr bounds = OdDbPolyline::createObject();
  bounds->setElevation(2);
  for (const double x : {0.0, 1.0}) bounds->addVertexAt(bounds->numVerts(), {x, 0});
  WipeoutBoundsTracker tracker(bounds);
  const OdGePoint3d cursor(3, 4, 9);
  EXPECT_FALSE(tracker.Filter({513, &cursor}, cursor));
  EXPECT_THAT(flat(*bounds), ElementsAre(std::pair(0, 0), std::pair(1, 0)));
  EXPECT_TRUE(tracker.Filter({kHostEdMouseMove, &cursor}, cursor));
  EXPECT_THAT(flat(*bounds), ElementsAre(std::pair(0, 0), std::pair(3, 4)));
  EXPECT_NE(tracker.Draw(&drawn), 0);
  tracker.DrawSecondPass(&drawn);
  EXPECT_THAT(drawn.entities, ElementsAre(bounds.get(), bounds.get()));
  EXPECT_THAT(drawn.numbers, ElementsAre(1, 512, 0, 0));
}

const char* const kNotUsable = "The polyline must be closed and made up of only line segments.";

struct Wipeout : ConstructSession {
  /// A closed square from (0, 0) to (4, 4).
  OdDbPolylinePtr square() {
    OdDbPolylinePtr polyline = OdDbPolyline::createObject();
    for (const auto& [x, y] : Corners{{0, 0}, {4, 0}, {4, 4}, {0, 4}})
      polyline->addVertexAt(polyline->numVerts(), {x, y});
    polyline->setClosed(true);
    return polyline;
  }

  /// The corners of the only wipeout of a block record, rounded; none where there is no wipeout.
  std::vector<OdGePoint3d> mask(OdDbObjectId record) {
    const auto wipeouts = all<OdDbWipeout>(record);
    EXPECT_LE(wipeouts.size(), 1u);
    OdGePoint3dArray corners;
    if (wipeouts.empty()) return {};
    wipeouts[0]->boundary(corners);
    for (const auto option :
         {OdDbRasterImage::kShow, OdDbRasterImage::kShowUnAligned, OdDbRasterImage::kClip})
      EXPECT_TRUE(wipeouts[0]->isSetDisplayOpt(option));
    EXPECT_FALSE(wipeouts[0]->isSetDisplayOpt(OdDbRasterImage::kTransparent));
    return {corners.begin(), corners.end()};
  }
  std::vector<OdGePoint3d> mask() { return mask(modelSpace()); }
};

MATCHER_P(Near, expected, "") {
  return testing::Matches(testing::SizeIs(expected.size()))(arg) &&
         std::equal(arg.begin(), arg.end(), expected.begin(),
                    [](const OdGePoint3d& a, const OdGePoint3d& b) { return a.distanceTo(b) < 1e-9; });
}
auto near(std::vector<OdGePoint3d> expected) { return Near(std::move(expected)); }

TEST_F(Wipeout, PickedBoundaries) {
  const std::vector<OdGePoint3d> triangle{{1, 1, 0}, {5, 1, 0}, {5, 4, 0}, {1, 1, 0}};
  const struct {
    std::vector<std::string> answers;
    RunResult result;
    std::vector<OdGePoint3d> corners;
    std::vector<std::string> printed;
  } cases[] = {
      {{"1,1", "@4,0", "@0,3", ""}, RunResult::completed, triangle, {}},
      {{"1,1", "", "5,1", "8,8", "u", "5,4", "c"},
       RunResult::completed,
       triangle,
       {"2D point or option keyword required."}},
      {{"^C"}, RunResult::cancelled, {}, {}},
      {{"1,1", "^C"}, RunResult::cancelled, {}, {}},
      {{"1,1", "5,1", "5,4", "^C"}, RunResult::cancelled, {}, {}},
      {{"1,1", "5,1", "7,1", ""},
       RunResult::failed,
       {},
       {"Wipeout failed: The geometry is degenerate: a length, direction or plane is missing."}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(testing::PrintToString(test.answers));
    EXPECT_EQ(run("Wipeout", test.answers, [&] { EXPECT_THAT(mask(), near(test.corners)); }), test.result);
    EXPECT_EQ(lines.printed, test.printed);
    EXPECT_EQ(hasChanged, !test.corners.empty());
  }
}

TEST_F(Wipeout, ErasesThePolylineWhenAsked) {
  const std::vector<OdGePoint3d> corners{{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}, {0, 0, 0}};
  const OdDbObjectId circle = draw<OdDbCircle>(modelSpace())->objectId();
  const std::string handle = "handle " + circle.getHandle().ascii().toUtf8();
  draw(modelSpace(), square());
  const struct {
    std::vector<std::string> answers;
    RunResult result;
    bool isMade, isErased;
  } cases[] = {
      {{"", "last", "Yes"}, RunResult::completed, true, true},
      {{"Polyline", "last", "no"}, RunResult::completed, true, false},
      {{"p", handle.c_str(), "last", ""}, RunResult::completed, true, false},
      {{"p", "last", "^C"}, RunResult::cancelled, false, false},
      {{"p", "^C"}, RunResult::cancelled, false, false},
      {{"p", handle.c_str(), ""}, RunResult::cancelled, false, false},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(testing::PrintToString(test.answers));
    const auto look = [&] {
      EXPECT_THAT(mask(), near(test.isMade ? corners : std::vector<OdGePoint3d>()));
      EXPECT_EQ(all<OdDbPolyline>(modelSpace()).empty(), test.isErased);
    };
    EXPECT_EQ(run("Wipeout", test.answers, look), test.result);
    EXPECT_THAT(lines.printed, IsEmpty());
    EXPECT_EQ(hasChanged, test.isMade);
  }
}

TEST_F(Wipeout, TakesClosedPolylinesOfStraightSegments) {
  const struct {
    const char* name;
    std::function<void(OdDbPolyline&)> change;
    RunResult result;
    const char* printed;
  } cases[] = {
      {"nearly straight", [](OdDbPolyline& p) { p.setBulgeAt(3, -1e-11); }, RunResult::completed, nullptr},
      {"slightly bent", [](OdDbPolyline& p) { p.setBulgeAt(3, -1e-9); }, RunResult::cancelled, kNotUsable},
      {"open", [](OdDbPolyline& p) { p.setClosed(false); }, RunResult::cancelled, kNotUsable},
      {"no vertices",
       [](OdDbPolyline& p) {
         while (p.numVerts() > 0) p.removeVertexAt(0);
       },
       RunResult::cancelled, kNotUsable},
      {"without area",
       [](OdDbPolyline& p) {
         p.removeVertexAt(3);
         p.removeVertexAt(2);
       },
       RunResult::failed,
       "Wipeout failed: The geometry is degenerate: a length, direction or plane is missing."},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    const OdDbPolylinePtr polyline = square();
    test.change(*polyline);
    draw(modelSpace(), polyline);
    const bool isAsked = test.result != RunResult::cancelled;
    EXPECT_EQ(isAsked ? run("Wipeout", {"p", "last", "y"}) : run("Wipeout", {"p", "last"}), test.result);
    EXPECT_EQ(hasChanged, test.result == RunResult::completed);
    EXPECT_EQ(lines.printed,
              test.printed ? std::vector<std::string>{test.printed} : std::vector<std::string>());
  }
}

TEST_F(Wipeout, FramesAreOfTheDrawing) {
  const struct {
    std::optional<bool> before;
    const char* answer;
    const char* prompt;
    std::optional<bool> expected;
    int redrawn;
  } cases[] = {
      {std::nullopt, "ON", "Enter mode [ON/OFF] <OFF>: ", true, 1},
      {std::nullopt, "off", "Enter mode [ON/OFF] <OFF>: ", false, 1},
      {std::nullopt, "", "Enter mode [ON/OFF] <OFF>: ", std::nullopt, 0},
      {true, "OFF", "Enter mode [ON/OFF] <ON>: ", false, 1},
      {true, "", "Enter mode [ON/OFF] <ON>: ", true, 0},
      {false, "on", "Enter mode [ON/OFF] <OFF>: ", true, 1},
      {false, "^C", "Enter mode [ON/OFF] <OFF>: ", false, 0},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(std::string(test.prompt) + test.answer);
    session.setDrawing(OdDbDatabase::createBlank(), L"plan.dxf");
    if (test.before)
      OdDbWipeoutVariables::openWipeoutVariables(&database(), OdDb::kForWrite, true)
          ->setShowFrame(*test.before);
    const host::Display before = host::display();
    const auto look = [&] {
      const auto variables = OdDbWipeoutVariables::openWipeoutVariables(&database());
      EXPECT_EQ(variables.isNull() ? std::optional<bool>() : variables->showFrame(), test.expected);
      EXPECT_EQ(host::display().refreshes() - before.refreshes(), test.redrawn);
      EXPECT_EQ(host::display().regenerations() - before.regenerations(), test.redrawn);
    };
    const bool isCancelled = std::string(test.answer) == "^C";
    EXPECT_EQ(run("Wipeout", {"Frames", test.answer}, look),
              isCancelled ? RunResult::cancelled : RunResult::completed);
    EXPECT_THAT(lines.prompts, testing::Contains(test.prompt));
    EXPECT_EQ(hasChanged, test.before != test.expected);
  }
}

TEST_F(Wipeout, GoToTheActiveSpace) {
  const auto addViewport = [&](int number) {
    const auto viewport = draw<OdDbViewport>(database().getPaperSpaceId());
    viewport->setNumber(number);
    return viewport->objectId();
  };
  database().setCurrentLayout(L"Layout1");
  const OdDbObjectId paper = database().getPaperSpaceId();
  for (const auto& each : all<OdDbViewport>(paper)) each->objectId().safeOpenObject(OdDb::kForWrite)->erase();
  addViewport(1);
  const OdDbObjectId window = addViewport(2);
  for (const bool isEntered : {false, true}) {
    database().setActiveViewportId(isEntered ? window : OdDbObjectId());
    run("Wipeout", {"1,1", "5,1", "5,4", "c"}, [&] {
      EXPECT_EQ(mask(paper).empty(), isEntered);
      EXPECT_EQ(mask().empty(), !isEntered);
    });
  }
}

TEST_F(Wipeout, LiesInTheCurrentCoordinateSystem) {
  database().setUCS({10, 20, 30}, {0, 1, 0}, {0, 0, 1});
  const std::vector<OdGePoint3d> corners{{10, 21, 31}, {10, 25, 31}, {10, 25, 34}, {10, 21, 31}};
  run("Wipeout", {"1,1", "5,1", "5,4,2", "c"}, [&] { EXPECT_THAT(mask(), near(corners)); });
  EXPECT_TRUE(hasChanged);
}

} // namespace
