// What trackers draw while a point is asked for.
#include "DbAttributeDefinition.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbCircle.h"
#include "DbLine.h"
#include "DbPolyline.h"
#include "DbResBuf.h"
#include "DbXline.h"
#include "HostEdDrawing.h"
#include "HostEdInputTracker.h"
#include "hostgsmanager/Display.h"
#include "lines.h"
#include <functional>
#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Draws an entity that a movement of the cursor shapes, and others beside it.
class Tracker final : public HostEdPointTracker {
public:
  bool Filter(const HostEdInputMessage& message, const OdGePoint3d& cursor) override {
    EXPECT_EQ(message.kind, 512u);
    EXPECT_EQ(*message.payload, cursor);
    cursors.push_back(cursor);
    return !handles || handles(cursor);
  }
  int Draw(HostEdDrawing* drawing) override {
    for (OdDbEntity* entity : first) EXPECT_TRUE(drawing->DrawEntity(entity, 1, 512, 0, 0));
    EXPECT_FALSE(drawing->DrawEntity(nullptr, 1, 512, 0, 0));
    return first.empty() ? 0 : 1;
  }
  void DrawSecondPass(HostEdSecondPass* pass) override {
    for (OdDbEntity* entity : second) pass->Entity(entity);
    pass->Entity(nullptr);
  }
  bool InputMode(int& mode) override {
    mode = 2;
    return true;
  }

  std::vector<OdGePoint3d> cursors;
  std::function<bool(const OdGePoint3d&)> handles;
  std::vector<OdDbEntity*> first, second;
};

struct PreviewTest : testing::Test, OpenSession {
  int askPoint(HostEdInputTracker* tracker, const OdGePoint3d* base = nullptr) {
    OdGePoint3d point;
    return session.editor()->GetPoint(base, point, L"Specify point", nullptr, 4, nullptr, tracker);
  }
  /// What is printed of an entity that a tracker draws.
  std::vector<std::string> shown(OdDbEntity* entity, const char* move) {
    Tracker tracker;
    tracker.first = {entity};
    lines.printed.clear();
    lines.type({move, "0,0"});
    EXPECT_EQ(askPoint(&tracker), kHostEdValue);
    return lines.printed;
  }
};

TEST_F(PreviewTest, FollowsTheCursorUntilTheAnswer) {
  const OdSmartPtr<OdDbLine> line = OdDbLine::createObject();
  const OdSmartPtr<OdDbLine> over = OdDbLine::createObject();
  Tracker tracker;
  tracker.first = {line};
  tracker.second = {line, over};
  tracker.handles = [&](const OdGePoint3d& cursor) {
    line->setEndPoint(cursor);
    return cursor.x < 100;
  };
  lines.type({"5,5", "move 3,4", "MOVE @5,0", "move 100,0", "move", "7,7"});
  EXPECT_EQ(askPoint(nullptr), kHostEdValue);
  const OdGePoint3d base;
  EXPECT_EQ(askPoint(&tracker, &base), kHostEdValue);
  EXPECT_EQ(tracker.cursors, (std::vector<OdGePoint3d>{{3, 4, 0}, {10, 5, 0}, {100, 0, 0}}))
      << "moves leave the last point alone";
  ASSERT_EQ(lines.printed.size(), 5u);
  EXPECT_THAT(lines.printed, ElementsAre("Preview: line from 0,0 to 3,4", "Preview: line from 0,0 to 0,0",
                                         "Preview: line from 0,0 to 10,5", "Preview: line from 0,0 to 0,0",
                                         testing::StartsWith("\"move\" is not a point")));
}

TEST_F(PreviewTest, IsKeptAsItWasDrawnUntilTheRequestEnds) {
  /// Looks at the display when the next line is asked for.
  class Looking : public Lines {
  public:
    using Lines::Lines;
    std::optional<std::string> readLine(const std::string& prompt) override {
      if (look) look();
      return Lines::readLine(prompt);
    }
    std::function<void()> look;
  } looking{"move 3,4", "^C"};
  const OdDbXlinePtr drawn = OdDbXline::createObject();
  const OdDbRayPtr over = OdDbRay::createObject();
  Tracker tracker;
  tracker.first = {drawn};
  tracker.second = {drawn, over};
  const host::Preview& preview = host::display().preview();
  std::vector<std::size_t> counts;
  looking.look = [&] {
    counts.push_back(preview.entities().size());
    EXPECT_EQ(preview.inputMode(), 2);
    ASSERT_TRUE(preview.named());
    EXPECT_EQ(preview.named()->mode, 1);
    if (preview.entities().size() != 2) return;
    drawn->setBasePoint({9, 9, 9});
    const host::PreviewedEntity& first = preview.entities()[0];
    EXPECT_EQ(OdDbXline::cast(first.entity)->basePoint(), OdGePoint3d()) << "a copy";
    EXPECT_EQ(std::tie(first.mode, first.view, first.isInFirstPass, first.isInSecondPass),
              std::make_tuple(1, 512, true, true));
    EXPECT_FALSE(preview.entities()[1].isInFirstPass);
    EXPECT_TRUE(preview.entities()[1].isInSecondPass);
  };
  session.input().setConsole(looking);
  session.editor()->Preview(1, drawn);
  EXPECT_EQ(askPoint(&tracker), kHostEdCancel);
  EXPECT_EQ(counts, (std::vector<std::size_t>{0, 2}));
  EXPECT_THAT(preview.entities(), IsEmpty());
  EXPECT_FALSE(preview.inputMode());
  EXPECT_FALSE(preview.named());
  session.input().setConsole(lines);
}

TEST_F(PreviewTest, EntitiesAreToldInTheCurrentCoordinateSystemAndUnits) {
  const OdDbRayPtr ray = OdDbRay::createObject();
  const OdDbXlinePtr xline = OdDbXline::createObject();
  xline->setBasePoint({1, 2, 0});
  xline->setUnitDir({0, 1, 0});
  const OdDbPolylinePtr polyline = OdDbPolyline::createObject();
  polyline->addVertexAt(0, {0, 0});
  polyline->addVertexAt(1, {1, 0.5});
  polyline->setElevation(3);
  const OdDbPolylinePtr closed = polyline->clone();
  closed->setClosed(true);
  const OdDbTextPtr text = OdDbText::createObject();
  text->setTextString(L"Gr\x00f6\x00df"
                      L"e");
  text->setHorizontalMode(OdDb::kTextCenter);
  text->setAlignmentPoint({4, 5, 0});
  const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
  definition->setTag(L"NUMBER");
  definition->setPosition({-1.0 / 3, 0, 0});
  const OdDbBlockTableRecordPtr door = OdDbBlockTableRecord::createObject();
  door->setName(L"DOOR");
  const OdDbBlockTablePtr blocks = session.database()->getBlockTableId().safeOpenObject(OdDb::kForWrite);
  const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setBlockTableRecord(blocks->add(door));
  const OdSmartPtr<OdDbCircle> circle = OdDbCircle::createObject();
  circle->setRadius(2);

  const struct {
    OdDbEntity* entity;
    const char* move;
    const char* line;
  } cases[] = {
      {ray, "move 3,0", "ray from 0,0 towards 3,0"},
      {ray, "move 0,7", "ray from 0,0 towards 1,0"},
      {xline, "move 3,-4", "xline through 1,2 towards 1,-4"},
      {polyline, "move 0,0", "polyline 0,0,3 1,0.5,3"},
      {closed, "move 0,0", "closed polyline 0,0,3 1,0.5,3"},
      {text, "move 0,0",
       "text \"Gr\xc3\xb6\xc3\x9f"
       "e\" at 4,5"},
      {definition, "move 0,0", "attribute definition NUMBER at -0.3333,0"},
      {reference, "move 0,0", "block reference DOOR at 0,0"},
      {circle, "move 0,0", "OdDbCircle between -2,-2 and 2,2"},
  };
  for (const auto& test : cases)
    EXPECT_THAT(shown(test.entity, test.move), ElementsAre("Preview: " + std::string(test.line)));

  session.database()->setUCS({5, 0, 0}, {0, 1, 0}, {-1, 0, 0});
  EXPECT_THAT(shown(xline, "move 8,9"), ElementsAre("Preview: xline through 2,4 towards 8,4"));
  session.database()->setSysVar(L"$LUNITS", OdResBuf::newRb(70, OdInt64{4}));
  EXPECT_THAT(shown(text, "move 0,0"), ElementsAre("Preview: text \"Gr\xc3\xb6\xc3\x9f"
                                                   "e\" at 5\",1\""));
}

} // namespace
