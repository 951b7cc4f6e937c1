// Ray: what its answers draw, and where; and its tracker.
#include "DbLayerTable.h"
#include "DbViewport.h"
#include "construct/ray_tracker.h"
#include "ray_session.h"

namespace {

using testing::ElementsAre;

class Ray : public RaySession {
protected:
  void check(std::initializer_list<Case> cases) { RaySession::check("Ray", cases); }
};

TEST_F(Ray, AnswersLeadToTheirStatusAndRays) {
  check({
      {"Esc at once", "^C", kCancelled, ""},
      {"Enter at once", "", kDone, ""},
      {"Esc after the start", "1,1|^C", kCancelled, ""},
      {"Enter after the start", "1,1|", kDone, ""},
      {"what is drawn before Esc stays", "0,0|3,4|^C", kCancelled, "ray 0,0,0 0.6,0.8,0"},
      {"all from one start", "1,2|4,6|1,-7|1,2,9|", kDone,
       "ray 1,2,0 0.6,0.8,0 + ray 1,2,0 0,-1,0 + ray 1,2,0 0,0,1"},
      {"the start again draws nothing", "0,0|0,0|0.00000000005,0|-2,0|", kDone, "ray 0,0,0 -1,0,0"},
      {"points farther apart than numbers reach", "-1e308,0|1e308,0|0,0|", kDone, "ray -1e+308,0,0 1,0,0"},
      {"turned coordinates", "1,0|1,1|", kDone, "ray 10.6,0.8,0 -0.8,0.6,0", kRotated},
      {"tilted coordinates", "0,0|3,4|", kDone, "ray 1,2,3 0.6,0.48,0.64", kTilted},
  });
  execute("Ray", "0,0|1,1|");
  EXPECT_THAT(lines.prompts,
              ElementsAre("Specify start point: ", "Specify through point: ", "Specify through point: "));
}

/// Both commands draw in the same places and with the same defaults.
class EndlessLines : public RaySession, public testing::WithParamInterface<const char*> {
protected:
  OdDbObjectId addViewport(int number) {
    const OdDbViewportPtr viewport = OdDbViewport::createObject();
    viewport->setNumber(number);
    const OdDbBlockTableRecordPtr sheet = database().getPaperSpaceId().safeOpenObject(OdDb::kForWrite);
    return sheet->appendOdDbEntity(viewport);
  }
  OdDbObjectId spaceDrawnIn() {
    execute(GetParam(), "0,0|1,0|");
    for (const OdDbObjectId& space : {database().getModelSpaceId(), database().getPaperSpaceId()})
      if (!linesOf(space).empty()) return space;
    return {};
  }
};

TEST_P(EndlessLines, GoToTheSpaceThatIsActive) {
  const OdDbObjectId model = database().getModelSpaceId(), paper = database().getPaperSpaceId();
  const struct {
    const char* name;
    const wchar_t* layout;
    std::vector<int> viewports; ///< the last one is entered
    OdDbObjectId expected;
  } cases[] = {
      {"model space", L"Model", {}, model},
      {"a layout that was never shown", L"Layout1", {}, paper},
      {"a layout", L"Layout1", {2, 1}, paper},
      {"a viewport of a layout", L"Layout1", {1, 2}, model},
      {"one of several", L"Layout1", {1, 2, 3}, model},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    database().startUndoRecord();
    database().setCurrentLayout(test.layout);
    for (const int number : test.viewports) database().setActiveViewportId(addViewport(number));
    EXPECT_EQ(spaceDrawnIn(), test.expected);
    while (database().undo()) {}
  }
}

TEST_P(EndlessLines, HaveTheDefaultsOfTheDrawing) {
  const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
  layer->setName(L"Axes");
  const OdSmartPtr<OdDbLayerTable> layers = database().getLayerTableId().safeOpenObject(OdDb::kForWrite);
  database().setCLAYER(layers->add(layer));
  database().setCECOLOR(OdCmColor::fromIndex(3));
  execute(GetParam(), "0,0|1,0|");
  const OdDbBlockTableRecordPtr space = database().getModelSpaceId().safeOpenObject();
  const OdDbObjectIteratorPtr it = space->newIterator();
  ASSERT_FALSE(it->done());
  const OdDbEntityPtr drawn = it->entity();
  EXPECT_EQ(drawn->layer(), L"Axes");
  EXPECT_EQ(drawn->color().colorIndex(), 3);
}

INSTANTIATE_TEST_SUITE_P(Commands, EndlessLines, testing::Values("Ray", "XLINE"));

} // namespace
