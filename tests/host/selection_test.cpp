// Choosing objects by words and by place.
#include "DbBlockTableRecord.h"
#include "DbLayerTable.h"
#include "DbLine.h"
#include "lines.h"
#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

/// Lines by their numbers: 1 from (0,0) to (10,10), 2 from (20,0) to (30,10), 3 inside the first from (4,4)
/// to (6,6); 4 to 6 at (50,0), (60,0) and (70,0) on layers that are frozen, off and locked; 7 invisible at
/// (80,0).
struct SelectionTest : testing::Test, OpenSession {
  SelectionTest() {
    for (const wchar_t* name : {L"frozen", L"off", L"locked"}) addLayer(name);
    draw(0, 0, 10);
    draw(20, 0, 10);
    draw(4, 4, 2);
    draw(50, 0, 5)->setLayer(L"frozen");
    draw(60, 0, 5)->setLayer(L"off");
    draw(70, 0, 5)->setLayer(L"locked");
    draw(80, 0, 5)->setVisibility(OdDb::kInvisible);
  }

  void addLayer(const OdString& name) {
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
    layer->setName(name);
    layer->setIsFrozen(name == L"frozen");
    layer->setIsOff(name == L"off");
    layer->setIsLocked(name == L"locked");
    const OdSmartPtr<OdDbLayerTable> table =
        session.database()->getLayerTableId().safeOpenObject(OdDb::kForWrite);
    table->add(layer);
  }

  OdSmartPtr<OdDbLine> draw(double x, double y, double size) {
    OdSmartPtr<OdDbLine> line = OdDbLine::createObject();
    line->setStartPoint({x, y, 0});
    line->setEndPoint({x + size, y + size, 0});
    const OdDbBlockTableRecordPtr space =
        session.database()->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
    ids.push_back(space->appendOdDbEntity(line));
    return line;
  }

  int number(OdDbObjectId id) const {
    return static_cast<int>(std::find(ids.begin(), ids.end(), id) - ids.begin()) + 1;
  }

  /// What a selection of these lines and Enter gives.
  std::vector<int> select(std::initializer_list<const char*> answers) {
    lines.type(answers);
    lines.type({""});
    OdDbObjectIdArray chosen;
    code = session.editor()->SelectEntities(L"Select objects", 16384, nullptr, nullptr, chosen);
    std::vector<int> numbers;
    for (const OdDbObjectId& id : chosen) numbers.push_back(number(id));
    return numbers;
  }

  int selectOne(std::initializer_list<const char*> answers) {
    lines.type(answers);
    OdDbObjectId id;
    code = session.editor()->SelectEntity(L"Select object", 8192, id, &picked);
    return id.isNull() ? 0 : number(id);
  }

  std::vector<OdDbObjectId> ids;
  OdGePoint3d picked;
  int code = 0;
};

TEST_F(SelectionTest, WordsAndPlacesChooseWhatTheySay) {
  const std::string second = "handle " + ids[1].getHandle().ascii().toUtf8();
  const struct {
    std::initializer_list<const char*> lines;
    std::vector<int> expected;
  } cases[] = {
      {{"all"}, {1, 2, 3, 5, 6, 7}},
      {{"last"}, {7}},
      {{"pick 5,5"}, {3}},
      {{"pick 8,8"}, {1}},
      {{"25,5"}, {2}},
      {{second.c_str()}, {2}},
      {{"window -1,-1 11,11"}, {1, 3}},
      {{"window 11,11 -1,-1"}, {1, 3}},
      {{"w 1,1 @10,10"}, {3}},
      {{"crossing 1,1 @10,10"}, {1, 3}},
      {{"C 40,-1 100,6"}, {6}},
      {{"window 25,-1 31,11"}, {}},
      {{"W 19,-1 31,11", "pick 5,5", "A", "all"}, {2, 3, 1, 5, 6, 7}},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(select(test.lines), test.expected) << *test.lines.begin();
    EXPECT_EQ(code, test.expected.empty() ? kHostEdEmpty : kHostEdValue);
  }
}

TEST_F(SelectionTest, CountsAndMistakesAreTold) {
  EXPECT_THAT(
      select({"pick 5,5", "pick 25,5", "all", "pick 40,40", "handle FFFF", "handle x", "window 1,1", "p"}),
      ElementsAre(3, 2, 1, 5, 6, 7));
  const std::string forms =
      "not a selection (all, last, previous, handle 2A3, pick x,y, window x,y x,y or crossing "
      "x,y x,y).";
  EXPECT_THAT(lines.printed,
              ElementsAre("1 found.", "1 found, 2 selected.", "6 found.", "There is no object at 40,40.",
                          "The current space has no object with the handle FFFF.", "\"handle x\" is " + forms,
                          "\"window 1,1\" is " + forms, "\"p\" is " + forms));
  EXPECT_THAT(select({"previous"}), ElementsAre(3, 2, 1, 5, 6, 7));
  ids[0].safeOpenObject(OdDb::kForWrite)->erase();
  EXPECT_THAT(select({"prev"}), ElementsAre(3, 2, 5, 6, 7)) << "what was erased since is left out";
}

TEST_F(SelectionTest, CancelForgetsWhatWasChosen) {
  lines.type({"all", "^C"});
  OdDbObjectIdArray chosen{ids[0]};
  EXPECT_EQ(session.editor()->SelectEntities(nullptr, 0, nullptr, nullptr, chosen), kHostEdCancel);
  EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(SelectionTest, OneObjectIsAskedForUntilThereIsOne) {
  EXPECT_EQ(selectOne({"all", "pick 40,40", "pick 25,5"}), 2);
  EXPECT_EQ(code, kHostEdValue);
  EXPECT_EQ(picked, OdGePoint3d(25, 5, 0));
  EXPECT_THAT(lines.printed, ElementsAre("\"all\" is not one object (pick x,y, handle 2A3 or last).",
                                         "There is no object at 40,40."));
  EXPECT_EQ(selectOne({""}), 0);
  EXPECT_EQ(code, kHostEdEmpty);
  EXPECT_EQ(selectOne({"^C"}), 0);
  EXPECT_EQ(code, kHostEdCancel);
}

TEST_F(SelectionTest, WindowsLieInTheCurrentCoordinateSystem) {
  session.database()->setUCS({20, 0, 0}, {0, 1, 0}, {-1, 0, 0});
  EXPECT_THAT(select({"window -1,-11 11,1"}), ElementsAre(2));
  EXPECT_THAT(select({"pick 5,-5"}), ElementsAre(2));
}

TEST_F(SelectionTest, HandlesOfOtherThingsAreRefused) {
  const std::string layer = "handle " + session.database()->getLayerTableId().getHandle().ascii().toUtf8();
  EXPECT_EQ(selectOne({layer.c_str(), ""}), 0);
  EXPECT_EQ(lines.printed.size(), 1u);
}

} // namespace
